// The phrases by which English asks for timers, alarms and reminders.

import type { Request } from "./meanings.ts";

export const englishTimers: readonly Request[] = [
  [
    "setTimer",
    [
      "[<set>] [<a>] {duration} timer [<called> [<whose>] {few:name}]",
      "[<set>] [<a>] (timer|countdown|countdown timer|kitchen timer|egg timer|clock timer) [of|for|with|at|to|lasting|that lasts|set " +
        "for|set to|running for|that goes off in|which ends in|that rings in|to go off in|for about|to ring in|in] {duration} " +
        "[<called> [<whose>] {few:name}]",
      "<set> [<a>] {few:name} timer (for|of|at|to|with|lasting|in) {duration}", "{word:name} timer [for|of|at|to] {duration}",
      "<set> [<a>] timer (for|called|named|labelled|labeled) [<whose>] {few:name} (for|of|with|at|to|in|lasting) {duration}",
      "timer (for|called|named) [<whose>] {few:name} (for|of|with) {duration}", "<set> [<a>] {duration} {few:name} timer",
      "<set> [<a>] {duration} (countdown|count down)", "{duration} (countdown|count down)",
      "(time|count down|countdown|count) [me] [from|for|down from|down] {duration}",
      "(tell|alert|notify|ping|warn|buzz|beep|beep at|call|ring|let|signal) me [know] (in|after) {duration}",
      "(tell|alert|notify|ping|warn|let) me [know] when {duration} (are up|is up|have passed|has passed|are over|is over|have gone " +
        "by|have elapsed|has elapsed|are done)",
      "{duration} (on the clock|on the timer|timer start|starting now)", "set (the|a|my) clock for {duration}",
      "(ring|beep|go off) in {duration}", "set {duration} on the (timer|clock)", "put {duration} on the (timer|clock)",
      "start counting [down] [from] {duration}", "start [a] {duration}", "(put|set|stick) [<a>] {few:name} on [a timer] for {duration}",
    ],
  ],
  [
    "wake",
    [
      "(wake me up|wake me|get me up|get me out of bed) {moment}", "{moment} (wake me up|wake me)", "wake up call {moment}",
      "<set> [<a>] (wake up call|wake up alarm|morning alarm) [for] {moment}", "(wake me up|wake me) in {duration}",
      "in {duration} (wake me up|wake me)",
      "i (need|have|want|would like|got) to (wake up|get up|be up|be awake|be woken up|be woken) {moment}",
      "make sure i (wake up|get up|am up|am awake) {moment}", "(make sure to|do not forget to) wake me [up] {moment}",
      "wake us [up] {moment}",
    ],
  ],
  [
    "setAlarm",
    [
      "[<set>] [<a>] (alarm|alarm clock) [for|to|set for|to go off|to ring|that rings|that goes off|clock for] {moment} [<called> " +
        "[<whose>] {few:name}]",
      "[<set>] [<a>] (alarm|alarm clock) (for|in|to go off in|that rings in) {duration} [<called> [<whose>] {few:name}]",
      "[<set>] [<a>] {moment} alarm", "<set> [<a>] {few:name} alarm (for|at) {moment}",
      "<set> [<a>] alarm (called|named|labelled|labeled) {few:name} (for|at) {moment}", "{moment} [<set>] [<a>] alarm",
      "set (the|my|an) alarm clock (for|to) {moment}", "alarm {moment}", "(ring|beep|buzz) [me] {moment}",
      "<set> [<a>] alarm (for|on) {moment}", "<set> [<a>] {duration} alarm",
    ],
  ],
  [
    "remind",
    [
      "<remind> in {duration} <about> {text}", "<remind> {moment} <about> {text}", "<remind> <about> {text} in {duration} [from now]",
      "<remind> <about> {text} {moment}", "in {duration} <remind> <about> {text}", "{moment} <remind> <about> {text}",
      "<remind> {duration} from now <about> {text}", "{duration} from now <remind> <about> {text}",
      "<remind> <about> {text} {duration} from now", "<remind> for {moment} <about> {text}", "<remind> after {duration} <about> {text}",
      "<remind> <about> {text} after {duration}", "<set> [<a>] {duration} reminder <about> {text}",
      "<set> [<a>] {moment} reminder <about> {text}",
    ],
  ],
  [
    "cancelTimers",
    [
      "<off> (all|all of|every|each of|both|both of) [<the>] (timers|timer|running timers|the timers|active timers)",
      "<off> (my|the|these|those) timers", "(turn|switch) (all|all of) [the|my] timers off", "no more timers",
    ],
  ],
  [
    "cancelAlarms",
    [
      "<off> (all|all of|every|each of|both|both of) [<the>] (alarms|alarm)", "<off> (my|the|these|those) alarms",
      "(turn|switch) (all|all of) [the|my] alarms off", "(turn|switch) (my|the) alarms off",
    ],
  ],
  [
    "cancelReminders",
    [
      "<off> (all|all of|every|each of|both|both of) [<the>] (reminders|reminder)", "<off> (my|the|these|those) reminders",
    ],
  ],
  [
    "cancelTimer",
    [
      "<off> [<the>] [running] (timer|countdown)", "<off> [<the>] {duration} timer", "<off> [<the>] timer (of|for|with) {duration}",
      "<off> [<the>] {few:name} timer", "<off> [<the>] timer (for|called|named|labelled) [<whose>] {few:name}",
      "(turn|switch|shut) [<the>] [{few:name}] timer off", "i do not need [<the>] [{few:name}] timer anymore",
      "i do not need [<the>] [{few:name}] timer any more",
    ],
  ],
  [
    "cancelAlarm",
    [
      "<off> [<the>] (alarm|alarm clock)", "<off> [<the>] {moment} alarm", "<off> [<the>] alarm [for|at|set for|set at|of] {moment}",
      "<off> [<the>] alarm (for|on|of) {day}", "<off> [<the>] {few:name} alarm", "<off> [<the>] alarm (called|named|for) {few:name}",
      "(turn|switch|shut) [<the>] alarm [for|at] [{moment}] off", "i do not need [<the>] alarm (anymore|any more)",
    ],
  ],
  [
    "cancelReminder",
    [
      "<off> [<the>] [last|next] reminder", "<off> [<the>] reminder (to|about|for|of|called|named) [<whose>] {text:name}",
      "<off> [<the>] {few:name} reminder", "i do not need to be reminded (to|about) {text:name} (anymore|any more)",
    ],
  ],
  [
    "snoozeMinutes",
    [
      "(give me|i need|i want|just|snooze for) {number} more (minutes|minute|mins)", "{number} more (minutes|minute|mins)",
    ],
  ],
  [
    "snooze",
    [
      "snooze", "snooze [<the>] (alarm|timer|reminder|it)", "snooze [it|the alarm|the timer|that|this] for {duration}",
      "{duration} more", "give me {duration} more", "snooze {duration}", "(ring|remind me|wake me|wake me up) again in {duration}",
    ],
  ],
  [
    "tellTimers",
    [
      "how (long|much time|much longer|many minutes|many seconds) (is|are|do i have|does it have|have i got|have i|is there|are " +
        "there) [still] <left> [(on|for|in|of|until|with|before) [<the>] [{few:name}] (timer|timers|countdown|clock)]",
      "how (long|much time|much longer|many minutes|many seconds) [do i have|have i got|is there|are there|does it have] [<left>] " +
        "(on|for|in|of|until|till|before) [<the>] [{few:name}] (timer|timers|countdown) [(goes off|rings|ends|is done|is over|is up|" +
        "finishes|runs out|expires)]",
      "how (long|much longer|much time) (does|has|have|is|do) [<the>] [{few:name}] (timer|timers|countdown) (have|got|has|left|still " +
        "have|still got) [<left>] [to run]",
      "how (long|much longer|much time) is [still] <left> (on|for|in) {few:name}",
      "how (long|much time) does [<the>] [{few:name}] (timer|countdown) [still] have <left>",
      "(what is|what has) [<the>] time <left> [on [<the>] [{few:name}] timer]", "time <left> [on [<the>] [{few:name}] timer]",
      "how is [<the>] [{few:name}] (timer|countdown) [doing|going|looking|coming along]",
      "what is [<the>] status of [<the>] [{few:name}] (timer|timers)", "[<the>] [{few:name}] timer status", "how much time <left>",
      "what is <left> (on|of) [<the>] [{few:name}] timer", "where is [<the>] [{few:name}] timer at",
      "what is [<the>] [{few:name}] timer at", "how (much|many) (time|minutes|seconds) [<left>] (on|for) [<the>] [{few:name}] timer",
      "how (much longer|long) (until|till|before) [<the>] [{few:name}] timer (goes off|rings|ends|is done|is over|is up|finishes|" +
        "runs out)",
      "when (does|will|is) [<the>] [{few:name}] timer (go off|end|finish|ring|be done|be over|done|up|over|run out|going to ring|" +
        "going off|due|be up|expire)",
      "(what|which) timers (do i have|are running|are set|are there|are active|are on|have i set|have i got|i have)",
      "(list|show|read|read out|tell me|give me|check|what are) [me] [all|all of] [<the>] [running|active|current] (timers|timer)",
      "(do i have|are there|have i got|is there) (any|a|some) (timers|timer) [running|set|on|active|going|left|now|at the moment]",
      "(is|are) [<the>] [{few:name}] (timer|timers) (running|set|on|active|going|still running|still going|still on|done|over)",
      "how many timers (do i have|are running|are set|are there|are active|have i set) [running|set]",
      "check [on] [<the>] [{few:name}] timer", "what about [<the>] [{few:name}] timer", "how (long|much) is <left>",
      "how (much|long) (do i|have i) [have|got] <left>", "my timers",
    ],
  ],
  [
    "tellAlarms",
    [
      "when (is|does|will) [<the>] [next|first] alarm [set|set for|go off|ring|going off|due|to go off|supposed to go off]",
      "(what|which) alarms (do i have|are set|are there|are on|have i set|have i got|are active|i have) [set|for tomorrow]",
      "what time is [<the>] [next] alarm [set|set for|at|going off]", "what time (does|will) [<the>] [next] alarm (go off|ring)",
      "what time (do i|will i|am i going to|will you) (wake up|get up|wake me up|wake me|get woken up)",
      "(list|show|read|read out|tell me|give me|check|what are) [me] [all|all of] [<the>] (alarms|alarm)",
      "(do i have|are there|have i got|is there|have i set) (any|a|an|some) (alarms|alarm) [set|on|active] [for tomorrow|tomorrow]",
      "(is|are) [<the>] (alarm|alarms) (set|on|active)",
      "how (long|much time|many hours) [is left|is it|do i have|is there] (until|till|before|on|to) [<the>] [next] alarm [goes off|" +
        "rings]",
      "when (will|are) you (wake|waking|going to wake) me [up]", "how many alarms (do i have|are set|are there) [set]",
    ],
  ],
  [
    "tellReminders",
    [
      "(what|which) reminders (do i have|are set|are there|have i set|have i got|i have) [set|today|left|coming up]",
      "(list|show|read|read out|tell me|give me|check|what are) [me] [all|all of] [<the>] (reminders|upcoming reminders)",
      "(do i have|are there|have i got|is there|have i set) (any|a|some) (reminders|reminder) [set|today|left]",
      "when is [<the>] [next] reminder", "what (did i ask|have i asked) you to remind me (of|about)",
      "what do you have to remind me (of|about)", "how many reminders (do i have|are there) [set]",
    ],
  ],
];
