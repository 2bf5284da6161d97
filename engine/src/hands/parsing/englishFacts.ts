// The phrases by which English asks for facts and sums.

import type { Request } from "./meanings.ts";

export const englishFacts: readonly Request[] = [
  [
    "battery",
    [
      "how much (battery|battery life|battery power|charge|power|juice) [do i have|is|does the battery have|does my " +
        "battery have|has the battery|have i got|is there|does this computer have|does my laptop have|does the laptop have|" +
        "has the laptop] [got] [<left>|in the battery|still]",
      "(what is|how is|check|tell me|show me|what) [<the>] (battery|laptop battery) [at|is] [level|percentage|percent|" +
        "status|charge|state|doing|life|looking|now|left]",
      "[the] battery (level|status|percentage|charge|state|life)", "battery",
      "how (full|charged|empty|low) is [<the>] [laptop] (battery|laptop|computer)",
      "is [<the>] (laptop|computer|battery|pc|machine) (charging|plugged in|charged|full|low|on battery|on battery power|" +
        "fully charged)",
      "am i [running] (plugged in|on battery|on battery power|on mains|on the battery|using the battery|charging|running on battery)",
      "how (long|much time|much longer) will [<the>] (battery|laptop|computer) last",
      "what percentage is [<the>] battery [at|on]", "what is [<the>] (charge|level) of [<the>] battery",
      "how many percent [of] battery (do i have|is left) [left]", "do i have [enough] battery [left]",
      "what percent (battery|is my battery) [do i have|is left|at]", "how is [<the>] battery",
      "battery [percentage|percent|check|charge|life] [please|left]",
      "(am i|are we|is it|is the laptop|is the computer|is [<the>] battery) [running|getting|almost|nearly] (low|out|empty|" +
        "dead|flat|running low|dying) [on] [battery|charge|power|juice]",
      "(tell me|give me|check|show me|read me) [<the>] [current] (battery|charge|power) [level|percentage|percent|status|" +
        "state|left]",
      "how much (longer|more time) (will|does) [<the>] (battery|charge|laptop) (last|have)",
      "(will|does) [<the>] battery (last|hold|have enough)",
      "(does|do) (the|my|this) (laptop|computer|battery|i) need (charging|to charge|a charge|to be charged|to be plugged in)",
      "(do|should) i (need to|have to) (charge|plug in) [<the>] (laptop|computer|battery)",
      "(what|how many) percent [of battery] (do i have|is left|have i got|are left|am i at|is the battery at)",
      "how much (charge|battery|power|juice) (is in|does) [<the>] (battery|laptop|computer) [have|left]",
      "how (full|charged) is [<the>] (battery|laptop|computer) [right now]",
      "is [<the>] (laptop|computer|battery) (plugged in|charging|on mains|on power)",
    ],
  ],
  [
    "disk",
    [
      "how much (space|disk space|storage|storage space|free space|room|disk|hard drive space|hard disk space|free disk " +
        "space|free storage|drive space) (is|do i have|is there|have i got|does this computer have|does my computer have|" +
        "does the computer have|does the disk have|are) [<free>|still <free>] [on [<the>] (disk|drive|hard drive|hard disk|" +
        "computer|laptop|machine|ssd|pc|system)]",
      "how much (space|disk space|storage|free space|room) [<free>] [on [<the>] (disk|drive|hard drive|hard disk|computer|" +
        "laptop|machine|ssd)]",
      "how full is [<the>] (disk|drive|hard drive|hard disk|computer|ssd|storage)",
      "(what is|check|tell me|show me) [<the>] (disk|storage|drive|hard drive|disk space|free space|free disk space) " +
        "[usage|space|status|left]",
      "(disk|storage) (space|usage|status)",
      "is [<the>] (disk|drive|hard drive|hard disk|ssd) (full|almost full|getting full|nearly full)",
      "do i have [enough|any] (space|disk space|storage|room) <free>", "am i (running out of|low on) (space|disk space|storage)",
      "how much (of [<the>] disk|disk|storage) is (used|full|free)", "how much (free space|disk space|space|storage)",
      "(have i|do i|have we|do we|is there) [still] [got|have] [enough|any|much|some|more] (space|disk space|storage|" +
        "storage space|room|free space) [<free>] [on [<the>] (disk|drive|hard drive|hard disk|computer|laptop|machine|ssd|" +
        "pc)]",
      "how much (space|room|storage|disk space) (is|do i have|have i got|have we got|do we have|does the disk have) " +
        "[<free>] (on|in) [<the>] (disk|drive|hard drive|hard disk|computer|laptop|machine|ssd|pc|system)",
      "(is|am) [<the>] (disk|drive|hard drive|hard disk|computer|storage|i|ssd) [getting|nearly|almost|running] (full|out " +
        "of space|out of room|out of storage|low on space|low on storage)",
      "how (big|empty) is [<the>] (disk|drive|hard drive|hard disk|ssd)",
      "how (many gigs|many gigabytes|much) (are|is|do i have) [<free>] (on|of) [<the>] (disk|drive|hard drive|hard disk|" +
        "storage|ssd)",
      "how many (gigs|gigabytes) [of space|of storage|of disk] (are|do i have|are there) [<free>]",
      "free (disk|storage|drive) space", "[<the>] (disk|drive|hard drive) (space|usage) [<free>]",
      "(what|how much) is <free> on [<the>] (disk|drive|hard drive|hard disk|ssd)",
    ],
  ],
  [
    "memory",
    [
      "how much (memory|ram) (is|do i have|is there|have i got|does this computer have|does my computer have|does the " +
        "computer have|does this machine have|are we using|am i using|is being used|is the computer using) [<free>|still " +
        "<free>] [right now]",
      "how much (free|available|used) (memory|ram) [do i have|is there|is left|have i got]",
      "(what is|check|tell me|show me) <the> (memory|ram) [usage|use|status|left]", "(check|show me) (memory|ram) [usage|use]",
      "what is [<the>] (memory|ram) (usage|use|status)", "(memory|ram) (usage|status|use)",
      "how is [<the>] (memory|ram) [usage|use|doing|looking]", "how full is [<the>] (memory|ram)",
      "how much (of [<the>] memory|memory|ram) is (used|full|free|in use)",
      "(am i|are we|is the computer) [running|getting] (out of|low on) (memory|ram)",
      "how much (memory|ram) (do we|have we|have i|does the machine|does this machine|does this thing|does this laptop|" +
        "does it|does the laptop|does my laptop|does my machine) (have|got|use|got left|have left) [<free>]",
      "how much (memory|ram) (is|are) [being] (free|used|taken|taken up|occupied|left|available|in use|consumed) [right now]",
      "how many (gigs|gigabytes) of (memory|ram) (are|do i have|does it have|are there|is) [<free>]",
      "(is|do i have) [<the>] [enough|any] (memory|ram) (<free>|full|almost full)", "(free|used|available) (memory|ram)",
      "[<the>] (memory|ram) <free>",
    ],
  ],
  [
    "network",
    [
      "(what|which) <network> (am i|are we|is this|is the computer|is my computer|is this computer) (on|connected to|using|" +
        "connected) [to]",
      "what is [<the>] <network> [name|called]", "what is the name of [<the>] <network>",
      "(am i|are we|is the computer|is this computer|is my computer) (online|connected|connected to the internet|connected " +
        "to a network|on the internet|offline|connected to wifi|connected to the wifi|connected to wi fi|on wifi|on the wifi)",
      "(is there|do i have|do we have|have i got) [an|a|any] (internet|internet connection|network|network connection|wifi|" +
        "connection)",
      "is [<the>] (internet|wifi|network|wi fi|connection) (working|up|on|connected|down|there)", "<network> (name|status)", "[the] <network> (up|down|working|ok)",
      "which <network>",
      "(what|which) <network> (is it|is that|are you on|are you using|is my laptop on|is this laptop on|is the laptop " +
        "using|is the computer using|is the laptop connected to)",
      "(what|which) is [<the>] <network> [name]",
      "(name|what is the name) of [<the>] <network> [i am on|we are on|i am using|i am connected to]",
      "(what|how) is [<the>] <network> (called|named)",
      "(am i|are we|is the laptop) [still] (on|using|connected to) [the] (wifi|wi fi|internet|network|web) [at all]",
      "does [<the>] (internet|wifi|wi fi|network|connection) work",
      "(tell me|give me) the (name of [<the>] <network>|<network> name)", "<network> i am (on|connected to)",
      "(check|tell me|show me) [<the>] <network> [name|status]", "what network",
    ],
  ],
  [
    "daysBetween",
    [
      "how many days (are there|are|is it|lie|do we have|) (between|from) {day:from} (and|to|until|till) {day:to}",
      "how many days (between|from) {day:from} (and|to|until|till) {day:to}",
      "(how long|how much time) is it (from|between) {day:from} (to|until|and) {day:to}", "days between {day:from} and {day:to}",
      "what is the (difference|number of days) between {day:from} and {day:to}",
    ],
  ],
  [
    "daysUntil",
    [
      "how (many days|long|many weeks|many more days|much longer|many days left|many sleeps|many more sleeps|many more " +
        "weeks) [is it|are there|are left|is there|do we have|do i have|have i got|left|remain|remaining|are we] (until|till|" +
        "to|before|from now until|away from) {day}",
      "how many (days|weeks) there are [left] (until|till|to|before) {day}", "how (many days|long) [is it|are there|is there] (between|from) now (and|to|until|till) {day}", "how (many days|far|many weeks) (away is|off is|away from) {day}", "(days|weeks) (until|till|to|before) {day}",
      "how (far|many days) [away] is {day} [away]", "in how many days is {day}",
      "(how long|how many days|how much time|how much longer|how far) [is it|is there|to go|left|do we have|do i have|have " +
        "we got|do i have to wait] [still] (until|till|to|before) {day} [comes|arrives|is here|in days]",
      "(is it|are we) (long|far) (until|till|to|from) {day}", "count [down] [the] days (until|till|to) {day}",
      "(number of|the number of) days (until|till|to|before) {day}", "(when|how soon) is {day} (coming|coming up)",
      "how soon is {day}", "{day} is in how many days", "{day} is how (far|many days|long) (away|off|from now)",
    ],
  ],
  [
    "daysSince",
    [
      "how (many days|long|many weeks) (has it been|is it|have passed|is it been|ago was|have gone by|has passed|did pass) " +
        "since {past:day}",
      "how many days since {past:day}", "how (many days|long) ago was {past:day}",
      "how (many days|long) (have passed|has passed) since {past:day}", "how many days have (passed|gone by) since {past:day}",
    ],
  ],
  [
    "weekday",
    [
      "what (day|day of the week|weekday|date|day of the month) (is|was|will be|will it be|is it|was it|will|falls on|does " +
        "it fall on|is it on|will it be on|was it on) [on] {day} [be|on|fall on]",
      "[on] (what|which) (day|weekday|day of the week) (does|will|did) {day} (fall|fall on|be|be on|land|land on)",
      "what is the (date|day) [on|of] {day}", "what (will the date be|the date will be|the date is|date it is|day it is|date is it|day is it) [on] {day}", "(which|what) (day|weekday|date) is {day}", "what will the date be {day}",
      "{day} is a (monday|tuesday|wednesday|thursday|friday|saturday|sunday) [this year|next year] (is not it|right|correct)", "(date|day) {day}",
      "what date (is|will it be|was it|was) {day}", "what day {day} (is|was|will be)",
      "(what|which) day (does|will|is|did) {day} [{day:same}] (fall on|fall|be on|be|land on) [this year|next year]", "is {day} a (monday|tuesday|wednesday|thursday|friday|saturday|sunday|weekday|workday)",
      "{day} is what (day|day of the week)", "when is {day}",
      "(what|which) (was|is|will be) the (date|day|weekday|day of the week) {day}", "what is [the] {day} [date|weekday]",
      "(what|which) (weekday|day|day of the week|date) (is|was|will) [it] [on|be] [on] {day} [be]",
      "(what|which) (day|date) (do we have|have we|have we got) {day}",
      "{day} (is|falls on|will be|was) (what|which) (day|weekday|day of the week|date)",
      "(does|will|did) {day} (fall|land|be) on a (weekend|weekday|monday|tuesday|wednesday|thursday|friday|saturday|sunday)",
      "(tell me|give me) the (date|weekday|day) (of|for|on) {day}", "[the] date (of|for|on) {day}",
      "(is|was) {day} on a (weekend|weekday|monday|tuesday|wednesday|thursday|friday|saturday|sunday)",
      "(what|which) (day|date|weekday) (is it|will it be|will that be|was it|was that) {day}",
    ],
  ],
  [
    "convert",
    [
      "[what is|what are|how much is|how much are|<measure>|how many is] {measure} (in|to|into|as|is how many|are how many|" +
        "equals how many|converted to|expressed in|in terms of) {unit}",
      "how many {unit} (is|are|are there in|are in|in|is in|make|make up|does|do|go into|is equal to|equal|there are in|" +
        "fit in|fit into) {measure} [make|have|equal]",
      "<measure> {measure} (to|into|in) {unit}",
      "how (hot|cold|warm|far|long|tall|high|heavy|big|wide|deep|fast|much) {measure} (is|are) (in|to|as) {unit}",
      "how (hot|cold|warm|far|long|tall|high|heavy|big|wide|deep|fast|much) (is|are) {measure} (in|to|as) {unit}",
      "how much is {measure} (in|to) {unit}", "{measure} (to|in|into) {unit}",
      "what does {measure} (make|come to|equal) in {unit}",
    ],
  ],
  [
    "add",
    [
      "(add|sum|sum up|add up|add together) {number:a} (and|to|with|plus) {number:b} [together]",
      "[what is] the sum of {number:a} and {number:b}",
    ],
  ],
  [
    "subtract",
    [
      "(subtract|take|take away|deduct) {number:b} [away] from {number:a}",
      "[what is] the difference (between|of) {number:a} and {number:b}",
    ],
  ],
  [
    "multiply",
    [
      "[what do you get|what do i get|what is it|what happens] (if|when) (you|i|we) multiply {number:a} (by|and|times) {number:b}", "multiply {number:a} (by|with|and|times) {number:b}", "[what is] the product of {number:a} and {number:b}",
    ],
  ],
  [
    "divide",
    [
      "(divide|split|share) {number:a} [dollars|pounds|euros|bucks] (by|into|between|among|across|by the) {number:b} [people|persons|friends|ways|parts|" +
        "of us|guests]",
    ],
  ],
  [
    "percentage",
    [
      "[what is|what] (what|) (percent|percentage|per cent) of {number:b} is {number:a}",
      "{number:a} is (what|how many) (percent|percentage|per cent) of {number:b}",
      "[what is|calculate|how much is] {number:a} as a percentage of {number:b}",
      "(how many|how much) (percent|per cent) of {number:b} is {number:a}",
    ],
  ],
  [
    "calculate",
    [
      "[what is|what are|how much is|how much are|calculate|compute|work out|what does|solve|evaluate|figure out|what do " +
        "you get for|what would be|what would|what will|how much does|how much do|add up|tell me what|tell me|give me|find|" +
        "the result of|what is the result of|what is the value of|what do|do the math on|do the math] {sum} [dollars|pounds|" +
        "euros|bucks|people|things] [=] [equal|equals|make|come to|is|be|add up to|makes|give|equal to|give me]",
      "(add|sum) {sum}",
      "(add|add up|sum|sum up|total|total up|what is the (sum|total) of|the (sum|total) of|add together|tot up) {numbers:sum} [together|" +
        "up|for me]", "what do {numbers:sum} (add up to|come to|make [together])",
      "(what is|tell me|give me|work out|calculate|calculates|what) [the] (result|answer|value|sum|total|solution) (of|to|for) {sum}",
      "{sum} (is what|is how much|makes what|gives what|equals what|what is that)",
      "(what|how much) [do|does] {sum} [is|makes|make|comes to|come to|gives|give|equals|adds up to|would be]",
      "(tell me|work out|figure out|calculate|find out) (what|how much) {sum} (is|makes|comes to|gives|equals|would be|adds up to)",
      "what {sum} is",
    ],
  ],
];
