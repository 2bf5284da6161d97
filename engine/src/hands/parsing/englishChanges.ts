// The phrases by which English asks for another time for what is set.

import type { Request } from "./meanings.ts";

export const englishChanges: readonly Request[] = [
  [
    "lengthenTimer",
    [
      // "Put ten minutes on the timer" sets one.
      "(add|tack|tag) [on] (<extra>|{duration}) (to|on|onto|on to) <ones> [{few:name}] timer",
      "(put|give|stick|pop|chuck|throw) [on] <extra> (to|on|onto|on to|in) <ones> [{few:name}] timer",
      "(give|add) <ones> [{few:name}] timer <extra>",
      "(extend|lengthen|prolong|increase) <ones> [{few:name}] timer (by|for|with) (<extra>|{duration})",
      "make <ones> [{few:name}] timer {duration} longer",
      "(i need|i want|i would like|let us have|let me have) <extra> on <ones> [{few:name}] timer",
      "<extra> (to|on|onto) <ones> [{few:name}] timer",
      "<ones> [{few:name}] timer (needs|could use|should have|should get) <extra>",
    ],
  ],
  [
    "shortenTimer",
    [
      "(take|knock|shave|cut|subtract|remove|deduct) {duration} (off|off of|from|out of) <ones> [{few:name}] timer",
      "(shorten|reduce|cut|decrease|lower) <ones> [{few:name}] timer by {duration}",
      "make <ones> [{few:name}] timer {duration} (shorter|less)",
    ],
  ],
  [
    "changeTimer",
    [
      "<retime> <ones> [{few:name}] timer from {number} (to|into) {duration} [instead]",
      "<retime> <ones> [{few:name}] timer [from {duration:was}] (to|into|for) {duration} [instead]",
      "make <ones> [{few:name}] timer {duration} instead [of {duration:was}]",
      "<retime> <ones> {duration:was} timer (to|into) {duration} [instead]",
    ],
  ],
  [
    "alarmLater",
    [
      "<push> <ones> [{few:name}] alarm (back|later|forward an extra) [by] {duration}",
      "<push> back <ones> [{few:name}] alarm [by] {duration}",
      "<push> <ones> [{moment:from}] alarm (back|on) [by] {duration}",
      "(<push>|make) <ones> [{moment:from}] alarm {duration} (later|back)",
    ],
  ],
  [
    "alarmEarlier",
    [
      "<push> <ones> [{moment:from}] alarm (forward|earlier|ahead) [by] {duration}",
      "(<push>|make) <ones> [{moment:from}] alarm {duration} (earlier|forward|sooner)",
    ],
  ],
  [
    "changeAlarm",
    [
      "<retime> <ones> alarm [(for|at|of|from) {moment:from}] [to|until|till|back to|forward to] {moment} " +
        "[instead [of {moment:from}]]",
      "<retime> <ones> alarm from {number:hour} to {moment}", "<retime> <ones> alarm for {day:on} to {moment}",
      "<retime> <ones> {moment:from} alarm [to|until|till|back to|forward to] {moment}",
      "<retime> <ones> {day:on} alarm to {moment}",
      "<retime> <ones> {few:name} alarm (to|until) {moment}",
      "<retime> <ones> (wake up call|wake up time|wake up|wake up alarm|alarm time|alarm clock) [to|until] {moment}",
      "make <ones> alarm {moment} instead [of {moment:from}]", "make <ones> {moment:from} alarm {moment} [instead]",
    ],
  ],
  [
    "changeReminder",
    [
      "<retime> <ones> reminder (to|about|for|of) {text:about} (to|until|for) {moment} [instead]",
      "<retime> <ones> {few:about} reminder (to|until) {moment} [instead]",
      "<retime> <ones> reminder [to|until] {moment} [instead]",
    ],
  ],
];
