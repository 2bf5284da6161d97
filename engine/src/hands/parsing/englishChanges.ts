// The phrases by which English asks for another time for what is set.

import type { Request } from "./meanings.ts";

export const englishChanges: readonly Request[] = [
  [
    "lengthenTimer",
    [
      // "Put ten minutes on the timer" sets one.
      "(add|tack|tag) [on] (<extra>|{duration}) (to|on|onto|on to) (<ones>|that|this|the running) [{few:name}] timer",
      "(put|give|stick|pop|chuck|throw) [on] <extra> (to|on|onto|on to|in) (<ones>|that|this|the running) [{few:name}] timer",
      "(give|add) (<ones>|that|this) [{few:name}] timer <extra>",
      "(extend|lengthen|prolong|increase) (<ones>|that|this) [{few:name}] timer (by|for|with) (<extra>|{duration})",
      "make (<ones>|that|this) [{few:name}] timer {duration} longer",
      "(i need|i want|i would like|let us have|let me have) <extra> on (<ones>|that|this) [{few:name}] timer",
      "<extra> (to|on|onto) (<ones>|that|this) [{few:name}] timer",
      "(<ones>|that|this) [{few:name}] timer (needs|could use|should have|should get) <extra>",
    ],
  ],
  [
    "shortenTimer",
    [
      "(take|knock|shave|cut|subtract|remove|deduct) {duration} (off|off of|from|out of) (<ones>|that|this) [{few:name}] timer",
      "(shorten|reduce|cut|decrease|lower) (<ones>|that|this) [{few:name}] timer by {duration}",
      "make (<ones>|that|this) [{few:name}] timer {duration} (shorter|less)",
    ],
  ],
  [
    "changeTimer",
    [
      "<retime> (<ones>|that|this) [{few:name}] timer from {number} (to|into) {duration} [instead]",
      "<retime> (<ones>|that|this) [{few:name}] timer [from {duration:was}] (to|into|for) {duration} [instead]",
      "make (<ones>|that|this) [{few:name}] timer {duration} instead [of {duration:was}]",
      "<retime> (<ones>|that|this) {duration:was} timer (to|into) {duration} [instead]",
    ],
  ],
  [
    "alarmLater",
    [
      "<push> (<ones>|that|this) [{few:name}] alarm (back|later|forward an extra) [by] {duration}",
      "<push> back (<ones>|that|this) [{few:name}] alarm [by] {duration}",
      "<push> (<ones>|that|this) [{moment:from}] alarm (back|on) [by] {duration}",
      "(<push>|make) (<ones>|that|this) [{moment:from}] alarm {duration} (later|back)",
    ],
  ],
  [
    "alarmEarlier",
    [
      "<push> (<ones>|that|this) [{moment:from}] alarm (forward|earlier|ahead) [by] {duration}",
      "(<push>|make) (<ones>|that|this) [{moment:from}] alarm {duration} (earlier|forward|sooner)",
    ],
  ],
  [
    "changeAlarm",
    [
      "<retime> (<ones>|that|this) alarm [(for|at|of|from) {moment:from}] [to|until|till|back to|forward to] {moment} " +
        "[instead [of {moment:from}]]",
      "<retime> (<ones>|that|this) alarm from {number:hour} to {moment}", "<retime> (<ones>|that|this) alarm for {day:on} to {moment}",
      "<retime> (<ones>|that|this) {moment:from} alarm [to|until|till|back to|forward to] {moment}",
      "<retime> (<ones>|that|this) {day:on} alarm to {moment}",
      "<retime> (<ones>|that|this) {few:name} alarm (to|until) {moment}",
      "<retime> (<ones>|that|this) (wake up call|wake up time|wake up|wake up alarm|alarm time|alarm clock) [to|until] {moment}",
      "make (<ones>|that|this) alarm {moment} instead [of {moment:from}]", "make (<ones>|that|this) {moment:from} alarm {moment} [instead]",
    ],
  ],
  [
    "changeReminder",
    [
      "<retime> (<ones>|that|this) reminder (to|about|for|of) {text:about} (to|until|for) {moment} [instead]",
      "<retime> (<ones>|that|this) {few:about} reminder (to|until) {moment} [instead]",
      "<retime> (<ones>|that|this) reminder [to|until] {moment} [instead]",
    ],
  ],
];
