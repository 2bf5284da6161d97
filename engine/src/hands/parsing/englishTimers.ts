// The phrases by which English asks for timers, alarms and reminders.

import type { Request } from "./meanings.ts";

export const englishTimers: readonly Request[] = [
  [
    "setTimer",
    [
      "(put|stick|pop) {duration} on [the clock|the timer] for [<whose>] {few:name}", "[<set>] [<a>] timer for {duration} (call|name) it {few:name}",
      "(give me|i need) {duration} for [<whose>] {word:name}",
      "[<set>] [<a>] {duration} timer [<called> [<whose>] {few:name}]",
      "[<set>] [<a>] (timer|countdown|countdown timer|kitchen timer|clock timer) [of|for|with|at|to|lasting|that " +
        "lasts|set for|set to|running for|that goes off in|which ends in|that rings in|to go off in|for about|to ring in|in] " +
        "{duration} [<called> [<whose>] {few:name}]",
      "<set> [<a>] {few:name} timer [for|of|at|to|with|lasting|in] {duration}", "{word:name} timer [for|of|at|to] {duration}",
      "<set> [<a>] timer (for|called|named|labelled|labeled|going for|on for) [<whose>] {few:name} [for|of|with|at|to|in|" +
        "lasting|say|about|maybe|like|it is|it takes|they take|they need|it needs] {duration}",
      "[<a>] timer (for|called|named) [<whose>] {few:name} [for|of|with] {duration}",
      "<set> [<a>] timer [going|running|on] (for|of) {duration} [(for|on) [<whose>] {few:name}]",
      "[<set>] {duration} on the clock", "[<set>] [<a>] {duration} on (a|the) timer [<called> [<whose>] {few:name}]",
      "{few:name} timer [for|of|at|to] {duration}", "timer {duration} {word:name}",
      "time [<whose>] {few:name} for {duration}", "<set> [<a>] timer it is {duration}",
      "[<whose>] {few:name} (need|needs|take|takes) {duration} (<set> [<a>] timer [for (it|them|that|this)]|time (it|them|that|this))",
      "{duration} (for|on) [<whose>] {few:name} (go|starting now|start now|starts now|from now)",
      "<set> [<a>] timer [<called> [<whose>] {few:name}] (to go off|to ring|ringing|so it rings) in {duration}",
      "<set> [<a>] {duration} {few:name} timer", "<set> [<a>] {duration} (countdown|count down)",
      "{duration} (countdown|count down)", "(time|count down|countdown|count) [me] [from|for|down from|down] {duration}",
      "(tell|alert|notify|ping|warn|buzz|beep|beep at|call|ring|let|signal|give me a shout|give me a heads up|give me a ping|" +
        "shout|holler|nudge) [me|at me] " +
        "[know] (in|after) {duration}",
      "in {duration} (tell|alert|notify|ping|warn|buzz|beep|beep at|signal|let) me [know]",
      "(wake|get) me when {duration} (are|is) up",
      "(tell|alert|notify|ping|warn|let) me [know] when {duration} (are up|is up|have passed|has passed|are over|is over|" +
        "have gone by|have elapsed|has elapsed|are done)",
      "{duration} (on the clock|on the timer|timer start|starting now)", "(set|start|run) (the|a|my) clock for {duration}",
      "(ring|beep|go off) in {duration}", "set {duration} on the (timer|clock)", "<set> [<a>] timer {duration} (will do|should do|should do it|is fine|would be fine|will do nicely)", "put {duration} on the (timer|clock)",
      "(give|gie|bung|lend|allow) (me|us) {duration} and (shout|holler|call|call me|tell me|let me know|ping me|beep|give me a shout) (when|once) (they are|it is|that is|time is) (up|over|done|ready)",
      "(give me a shout|gie us a shout|shout|holler|tell us|let us know|let me know) (in|after) {duration}", 
      "(bung|stick|pop|put|give|gie) (me|us) [on] <a> timer [on] [for] {duration}", "(bung|give|gie) (me|us) [on] {duration} timer", 
      "(put|stick|pop|set|switch) <a> timer on for {duration}",
      "start counting [down] [from] {duration}", "(put|set|stick) [<a>] {few:name} on a timer for {duration}",
    ],
  ],
  [
    "wake",
    [
      "(make sure|see to it|see) [that] (i am|we are) up {moment}", "up {moment}", "(nap|power nap|kip) [of] {duration} (wake me|wake us|then wake me)",
      "(wake me up|wake me|get me up|get me out of bed|get me going|rouse me|wake us up|wake us) [please|then] {moment} [(for|to get to|in time for|to make) [<whose>] {few:why}]",
      "{moment} (wake me up|wake me)", "wake up call {moment}", "(wake me up|wake me) {duration} from now",
      "<set> [<a>] (wake up call|wake up alarm|morning alarm) [for] {moment}", "(wake me up|wake me) in {duration}",
      "in {duration} (wake me up|wake me)", "[(i would like|i want|i need|i should like|i have) to] be (woken|woken up|roused) {moment}",
      "i (need|have|want|would like|got) to (wake up|get up|be up|be awake|be woken up|be woken) {moment}",
      "make sure i (wake up|get up|am up|am awake) {moment}", "(make sure to|do not forget to) wake me [up] {moment}",
      "wake us [up] {moment}", "(wake|get) me [up] [early|nice and early] {moment}", "{moment} (wake|get) (me|us) [up]",
      "(do not let|never let) me (sleep past|oversleep past|sleep in past) {moment}",
      "i (have|need|must|have got|got) [to] (get up|wake up|be up|be awake) {moment} [so] (wake me|wake me up|wake us|wake us up|<set> " +
        "[<a>] alarm)",
    ],
  ],
  [
    "setAlarm",
    [
      "[<set>] [<a>] (alarm|alarm clock) [for|to|set for|to go off|to ring|that rings|that goes off|clock for] {moment} " +
        "[<called> [<whose>] {few:name}]",
      "[<set>] [<a>] (alarm|alarm clock) (for|in|to go off in|that rings in) {duration} [<called> [<whose>] {few:name}]",
      "[<set>] [<a>] {moment} (alarm|alarm call)", "(get|have) (the|my|an) alarm [to] (ring|go off) {moment}",
      "(ring|sound) (the|my|an) alarm {moment}",
      "<set> [<a>] alarm (that|to) (wakes me|wake me|wakes me up|wake me up|get me up) {moment}",
      "<set> [<a>] {few:name} alarm (for|at) {moment}",
      "<set> [<a>] alarm (called|named|labelled|labeled) {few:name} (for|at) {moment}", "{moment} [<set>] [<a>] alarm",
      "set (the|my|an) alarm clock (for|to) {moment}", "alarm {moment}", "(ring|beep|buzz) [me] {moment}",
      "<set> [<a>] alarm (for|on) {moment}", "<set> [<a>] {duration} alarm",
    ],
  ],
  [
    "remind",
    [
      "(i must|i have to|i need to|i should) (remember|not forget) [<about>] {text} ({moment}|in {duration}) [so] (remind me|remind us)",
      "(i must not|i can not|i should not|we must not) forget [<about>] {text} ({moment}|in {duration}) [so] (remind me|remind us)",
      "(i must|i have to|i need to|i should|do not let me|i must not forget to|i can not forget to|i should not forget to) {text} [so|and|then] (remind me|remind us) {moment}",
      "(i have to|i have got to|i need to|i must|i should|i am supposed to|i have) {text} ({moment}|in {duration}) [so|and] (remind me|remind us|" +
        "do not let me " +
        "forget|give me a reminder|make sure i remember|set a reminder|remind me of it|remind me about it|remind me about that)",
      "<remind> in {duration} <about> {text}", "<remind> {moment} <about> {text}",
      "<remind> <about> {text} in {duration} [from now]", "<remind> <about> {text} {moment}",
      "in {duration} <remind> <about> {text}", "{moment} <remind> <about> {text}",
      "<remind> {duration} from now <about> {text}", "when it is {moment} <remind> <about> {text}",
      "{duration} from now <remind> <about> {text}", "<remind> <about> {text} {duration} from now",
      "<remind> for {moment} <about> {text}", "<remind> after {duration} <about> {text}",
      "<remind> <about> {text} after {duration}", "<set> [<a>] {duration} reminder <about> {text}",
      "<set> [<a>] {moment} reminder <about> {text}",
      "(reminder|new reminder|<set> [<a>] reminder) [for] {moment} [<about>] " +
        "{text}",
      "{moment} (be so kind as to|would you|could you|can you|i would like you to) <remind> <about> {text}",
      "<remind> : [<about>] {text} {moment}", "<remind> : [<about>] {text} in {duration}",
      "(reminder|new reminder) in {duration} [<about>] {text}", "<alertme> {moment} (to|that) {text}", "<alertme> in {duration} (to|that) {text}", "<alertme> to {text} {moment}",
      "<alertme> to {text} in {duration}", "{moment} <alertme> (to|that) {text}", "in {duration} <alertme> (to|that) {text}",
    ],
  ],
  [
    "remindTask",
    [
      "(in {duration}|{moment}) [that] (i have to|i have got to|i need to|i must|i should|i am supposed to) {text} [so|and] [can you|could you|will you|would you|please] (remind me|remind us|give me a reminder|give me a nudge|do not let me forget)",
      
      "(when|once) it is {moment} (tell|remind|nudge|ping) (me|us) to {text}",
    ],
  ],
  ["tellPending", ["(everything|all) [that] (is|i have|i have got|we have|there is) set [up]", "what (is|do i have) set [up]"]],
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
      "<off> [<the>] [running] (timer|countdown)", "[<the>] timer off", "<off> [<the>] {duration} timer",
      "<off> [<the>] timer (of|for|with) {duration}", "<off> [<the>] {few:name} timer",
      "<off> [<the>] timer (for|called|named|labelled) [<whose>] {few:name}",
      "(turn|switch|shut) [<the>] [{few:name}] timer off",
      "(i|we) (do not|no longer) (need|want) [<the>] [{few:name}] timer (anymore|any more|any longer|now|after all)",
      "(i|we) no longer (need|want) [<the>] [{few:name}] timer", "[never mind|forget|forget about|about|as for] [<the>] [{few:name}] timer " +
        "<off> it",
    ],
  ],
  [
    "cancelAlarm",
    [
      "<off> [<the>] (alarm|alarm clock)", "[never mind|forget|forget about|about|as for] [<the>] alarm <off> it", "[<the>] alarm off",
      "<off> [<the>] {moment} alarm", "<off> [<the>] {day} alarm",
      "(turn|switch|shut) [<the>] {day} alarm off",
      "(turn|switch|shut) [<the>] alarm off (for|on) {day}",
      "<off> [<the>] alarm [for|at|set for|set at|of] {moment}", "<off> [<the>] alarm (for|on|of) {day}",
      "<off> [<the>] {few:name} alarm", "<off> [<the>] alarm (called|named|for) {few:name}",
      "(i|we) will (no longer|not) (need|be needing) [<the>] alarm <off> it",
      "(turn|switch|shut) [<the>] alarm [for|at] [{moment}] off", "(i|we) (do not|no longer) (need|want) [<the>] alarm (anymore|any more|any longer|now|after all)",
      "(i|we) (do not|no longer) (need|want) [<the>] alarm (for|on|) {day} [anymore] [cancel it|turn it off|switch it off|delete it]",
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
      "(give me|i need|i want|just|snooze for) {number} more (minutes|minute|mins)",
      "snooze [it|this|the alarm] for [another] {number}", "{number} more (minutes|minute|mins)",
    ],
  ],
  [
    "snooze",
    [
      "snooze [it|this|that]", "(hit|press|tap) [the] snooze [button]",
      "(let me sleep|let me snooze|let me rest) [a bit|a little] (more|longer)", "snooze [<the>] (alarm|timer|reminder|it)",
      "snooze [it|the alarm|the timer|that|this] for [another|an extra|an additional|about|just] {duration}",
      "(postpone|delay|put off|push back) [it|<the> alarm|<the> timer|this] [for|by] {duration}",
      "(give me|let me have|i want|i need|just) another {duration} [of sleep] [snooze]", "(not yet|no not yet|no) [just] {duration} [more]",
      "(give me|let me have|just|i want|i need) {duration} (more|longer) [sleep|of sleep]",
      "let me sleep [for] [another] {duration} [more|longer]", "another {duration}", "{duration} more",
      "give me {duration} more", "snooze [another] {duration}", "(ring|try|wake me|wake me up) again in [another] {duration}",
      "(ring|remind me|wake me|wake me up) again in {duration}",
    ],
  ],
  [
    "tellTimers",
    [
      "how (long|much time|much longer|many minutes|many seconds) (is|are|do i have|does it have|have i got|have i|is " +
        "there|are there) [still] <left> [(on|for|in|of|until|with|before) [<the>] [{few:name}] (timer|timers|countdown|" +
        "clock)]",
      "how (long|much time|much longer|many minutes|many seconds) [do i have|have i got|is there|are there|does it have] " +
        "[<left>] (on|for|in|of|until|till|before) [<the>] [{few:name}] (timer|timers|countdown) [(goes off|rings|ends|is " +
        "done|is over|is up|finishes|runs out|expires)]",
      "how (long|much longer|much time) (does|has|have|is|do) [<the>] [{few:name}] (timer|timers|countdown) (have|got|has|" +
        "left|still have|still got) [<left>] [to run]",
      "how (long|much longer|much time) is [still] <left> (on|for|in) {few:name}",
      "how (long|much longer|much time) (<the> {few:name} has [got]|has <the> {few:name} got) [<left>]",
      "how (long|much time) does [<the>] [{few:name}] (timer|countdown) [still] have <left>",
      "how (long|much longer|much time) (until|till|before) <the> {few:name} (is|are) (over|done|ready|finished|up|cooked)",
      "how (long|much longer|much time) (has|have) <the> {few:name} [still] (got|left) [left|to go|still]",
      "how (long|much longer|much time) (does|do|will) <the> {few:name} [still] (need|have) [left|to go|still]",
      "(what is|what has) [<the>] time <left> [on [<the>] [{few:name}] timer]", "time <left> [on [<the>] [{few:name}] timer]",
      "how is [<the>] [{few:name}] (timer|countdown) [doing|going|looking|coming along]",
      "what is [<the>] status of [<the>] [{few:name}] (timer|timers)", "[<the>] [{few:name}] timer status",
      "how much time <left>", "what is <left> (on|of) [<the>] [{few:name}] timer", "where is [<the>] [{few:name}] timer at",
      "what is [<the>] [{few:name}] timer at",
      "how (much|many) (time|minutes|seconds) [<left>] (on|for) [<the>] [{few:name}] timer",
      "how (much longer|long) (until|till|before) [<the>] [{few:name}] timer (goes off|rings|ends|is done|is over|is up|" +
        "finishes|runs out)",
      "how (much longer|many more minutes) [on|for|with] [<the>] [{few:name}] [timer]",
      "how (much longer|many more minutes) (on|for) [<the>] {few:name}",
      "(how far along|how far) is [<the>] [{few:name}] timer",
      "how are we doing (on|for|with) [<the>] [{few:name}] timer",
      "(what does|how much does) [<the>] [{few:name}] timer (say|show)",
      "when (are|is|will) [<the>] {few:name} (timer up|timer done|timer ready|timer over)",
      "(is|are) [<the>] {few:name} timer (up|nearly up|almost up|nearly done|almost done) [yet]",
      "how many (minutes|seconds) (to go|more)", "how long has [<the>] [{few:name}] timer (got|left|got left)",
      "(is|are) there (any|much) time <left> [on [<the>] [{few:name}] timer]", "(has|have) [<the>] [{few:name}] timer [still] (got long|long|much longer|got much longer) [left|to run|to go]", "is there [any|much] time [<left>] on [<the>] [{few:name}] timer",
      "when (does|will|is) [<the>] [{few:name}] timer (go off|end|finish|ring|be done|be over|done|up|over|run out|going " +
        "to ring|going off|due|be up|expire)",
      "(what|which) timers (do i have|do we have|are running|are set|are there|are active|are on|have i set|have i got|i " +
        "have) [going|running|set|on|left]",
      "(list|show|read|read out|tell me|give me|check|what are) [me] [all|all of] [<the>] [running|active|current] (timers|" +
        "timer)",
      "(do i have|are there|have i got|is there) (any|a|some) (timers|timer) [running|set|on|active|going|left|now|at the " +
        "moment]",
      "(is|are) [<the>] [{few:name}] (timer|timers) (running|set|on|active|going|still running|still going|still on|done|over)",
      "how many timers (do i have|are running|are set|are there|are active|have i set) [running|set]",
      "check [on] [<the>] [{few:name}] timer", "what about [<the>] [{few:name}] timer", "how (long|much) is <left>",
      "how (much|long) (do i|have i) [have|got] <left>", "how long (have i|do i) [still] (got|have)", "my timers",
      "(any|which|what) timers [on|running|going|set|active|left]",
    ],
  ],
  [
    "tellAlarms",
    [
      "when (is|does|will) [<the>] [next|first] alarm [set|set for|go off|ring|going off|due|to go off|supposed to go off]",
      "(what|which) alarms (do i have|are set|are there|are on|have i set|have i got|are active|i have) [set|for tomorrow]",
      "what time is [<the>] [next] alarm [set|set for|at|going off]",
      "what time (does|will) [<the>] [next] alarm (go off|ring)",
      "what time (do i|will i|am i going to|will you) (wake up|get up|wake me up|wake me|get woken up)",
      "(list|show|read|read out|tell me|give me|check|what are) [me] [all|all of] [<the>] (alarms|alarm) [(for|on) {day}]",
      "(do i have|are there|have i got|is there|have i set) (any|a|an|some) (alarms|alarm) [set|on|active] [for tomorrow|" +
        "tomorrow]",
      "(is|are) [<the>] (alarm|alarms) (set|on|active)",
      "how (long|much time|many hours) [is left|is it|do i have|is there] (until|till|before|on|to) [<the>] [next] alarm " +
        "[goes off|rings]",
      "(what time|when) did i (ask|tell) you to wake me [up]", "when (will|are) you (wake|waking|going to wake) me [up]", "(what|which) time (did i|have i) set [<the>] alarm [for|to]",
      "(did i|have i) [already] (set|got|put on) [up] [an|my|any|the] (alarm|alarms) [set] [for|on] [{day}]",
      "[<the>] alarm is {moment} (is not it|right|correct|was not it)", "[<the>] {moment} alarm (is not it|was not it|right)",
      "am i (getting up|waking up) tomorrow", "how many alarms (do i have|are set|are there) [set]",
    ],
  ],
  [
    "tellReminders",
    [
      "(what|which) reminders (do i have|are set|are there|have i set|have i got|i have) [set|today|left|coming up]",
      "(list|show|read|read out|tell me|give me|check|what are) [me] [all|all of] [<the>] (reminders|upcoming reminders) " +
        "[(for|on) {day}]", "[what are] {day} reminders",
      "(do i have|are there|have i got|is there|have i set) (any|a|some) (reminders|reminder) [set|today|left]",
      "when is [<the>] [next] reminder", "what (did|do) i (want|need|ask|have) to be reminded (of|about)",
      "(do i have|is there|have i got|was there) (anything|something) [i have|i need|i am supposed] to (remember|be reminded of) [today|tomorrow]", "what (did i ask|have i asked) you to remind me (of|about)",
      "what (do you have|have you got|have you) to remind me (of|about)", "what am i [supposed] to (remember|be reminded of) [today]",
      "(any|my) reminders [for today|today|for me]", "(what|which) reminders (are coming up|are pending|are next|are open)",
      "what is my next reminder", "how many reminders (do i have|are there) [set]",
    ],
  ],
];
