// The phrases by which English asks for notes and lists.

import type { Request } from "./meanings.ts";

export const englishNotes: readonly Request[] = [
  [
    "addToList",
    [
      "<addverb> {text} [down] <onto> [<whose>] <listname>", "[<whose>] {few:list} list [please] <addverb> {text}",
      "<addverb> [also] {text} [down] as well <onto> [<whose>] <listname>",
      "(i would like|i want|i need|we need|let us have|let us put|let us get|let us add|we could use|we want) {text} " +
        "[added|put|written|noted] [down] " +
        "<onto> [<whose>] <listname>",
      "[might i|may i|could i|can i] (get|have) {text} (added|put|written) [down] <onto> [<whose>] <listname>",
      "(can|could|should|may) {text} (go|be put|be added|be) [please] <onto> [<whose>] <listname>",
      "{text} (goes|go|needs to go|should go|has to go|belongs|belong) <onto> [<whose>] <listname>",
      "make sure {text} (is|are) on [<whose>] <listname>",
      "(add|put|write|append|include|stick|throw|place|pop) {text} [down] <onto> (the|my|our) list",
      "(add|write|put) <onto> <whose> {few:list} list [that i need|the following|these] {text}",
      "(on|to|onto) <whose> {few:list} list (add|put|write) {text}",
      "<whose> {few:list} list (needs|also needs|should have|should include) {text}",
      "(i need|we need|i want|i would like) {text} <onto> <whose> {few:list} list",
      "(add|put|write) {text} <onto> (the|my|our) (groceries|shopping|to do|todo)",
    ],
  ],
  ["readList", ["(i am|we are) (standing in|at|in) the (shop|store|supermarket|market) what (was it|is it|did|do) (i|we) [have|had|need|needed|want|wanted] [to] (buy|get)", "what was it [that] (i|we) (had to|have to|needed to|need to|wanted to) (buy|get)"]],
  ["listThese", ["[on|for|to] [<whose>] {few:list} list , {text}"]],
  [
    "removeFromList",
    [
      "<removeverb> {text} [off] (from|off|off of|out of|on) <whose> <listname>",
      "(get|have) {text} (off|removed from|taken off) <whose> <listname>",
      "[<whose>] {few:list} list [please] <removeverb> {text}",
      "(remove|delete|take|cross|scratch|strike|erase|drop|cross off) {text} [off] (from|off|off of|out of) (the|my|our) list",
      "(cross|tick|strike|check|scratch) {text} off", "i do not need {text} on <whose> {few:list} list (anymore|any more)",
    ],
  ],
  [
    "clearList",
    [
      "(clear|empty|wipe|reset|clear out|clear off|wipe out) [all of|the whole of] <whose> [whole|entire] {few:list} list " +
        "[out|off|clean|please]",
      "(clear|empty|wipe|reset|clear out|clear off) (the|my|our) [whole|entire] list [out|off|clean|please]",
      "(take|remove|delete|clear|cross|wipe|strike|erase|scratch) (everything|all [of] the items|all the things|the lot|all) [off] " +
        "(off|from|on|out of) <whose> {few:list} list",
      "(take|remove|delete|clear|cross|wipe|strike|erase|scratch) (everything|all [of] the items|all the things|the lot|all) [off] " +
        "(off|from|on|out of) (the|my|our) list",
      "start <whose> {few:list} list (over|afresh|from scratch|over again)",
    ],
  ],
  [
    "readNotes",
    [
      "(read|read out|read back|show|tell|give|list|open|check|play|go over|go through|review) [me] [out] [<the>] [latest|" +
        "last|recent|new|current|all] [of] [<the>] (notes|note) [to me|with me|for me|aloud|out loud|back to me|back|out]",
      "what (are|is in|is on|do i have in|have i got in|did i write in|have i written in|is written in|do) [<the>] [latest|last|recent|" +
        "current] (notes|note) [say]",
      "what did i (note|note down|write down|jot down|take down|ask you to note|ask you to write down|tell you to remember|" +
        "ask you to remember)", "what did i (note|note down|write down|jot down|put|write|jot|put down|save) (in|into) [<the>] (notes|notebook)",
      "what (did|have) i (ask|asked|tell|told|had|have|get) you [to] (note|write|jot|take|put|remember|write this|noted|written) " +
        "[down]", "what (did|have) i (noted|written|jotted|put|write|note|jot) [down]",
      "(what|which) notes (do i have|have i made|have i taken|did i take|did i make|are there|have i got|have i written)",
      "do i have (any|some) notes",
      "(are there|is there|have i got|have you got|do you have|got) (any|some|a) (notes|note) [for me|from me]",
      "(any|some) notes [for me|today|from me]", "(take me|go|run) (through|over) [<the>] notes",
      "(what|which) (is|was) [<the>] (last|latest|newest) note", "(let me|can i|could i|may i) (hear|see|have|read) [<the>] notes [i made|i took|i wrote|i have made|again]",
      "i (want|would like) to (hear|see|read) [<the>] notes", "notes please",
      "what have i (noted|written down|noted down|jotted down)", "are there (any|some) notes", "my notes", "(read|tell|show) [me] [back] what i (noted|wrote|jotted|wrote down|noted down|jotted down)",
      "read me what i (wrote down|noted|noted down)", "how many notes (do i have|are there)", "what is in my (notebook|notes)",
    ],
  ],
  [
    "tellLists",
    [
      "(what|which) lists (do i have|are there|have i got|have i made|did i make|exist|i have)",
      "(list|show|read|tell|give|name) [me] [all|all of] [<the>] lists", "how many lists (do i have|are there)", "my lists",
      "what are my lists", "do i have (any|some) lists",
    ],
  ],
  [
    "readList",
    [
      "what (is|do i have|have i got|do we have|have we got|is still|is left|all is|is written|else is|did i put|do i " +
        "still have) (on|in) <whose> {few:list} list [so far|right now|today|again]",
      "what (is|do i have|have i got|do we have|is still|is left) (on|in) (the|my|our) list [so far]",
      "(do i|do we|have i got|is there|are there|did i put) [have] [any|some] {few:item} (on|in) <whose> {few:list} list",
      "(read|read out|show|tell|give|list|go over|go through|check|open|review|see|display|say) [me] [what is on|the items " +
        "on|everything on|all the items on|the contents of|what is in|items on] <whose> {few:list} list [to me|aloud|out " +
        "loud|back to me|back|out|so far]",
      "(read|read out|show|go over|go through) [me] (the|my|our) list [to me|aloud|out loud]",
      "what (do i|do we|does my list say i) [still] (need|have) to (buy|get) [from the store|at the store|at the " +
        "supermarket|at the shop]",
      "(is there|have i got|do we have|have we got) (anything|something) [left|still|else|yet] (on|in) <whose> {few:list} list",
      "(let me|can i|could i|may i) (hear|see|have) <whose> {few:list} list", "i (want|would like) to (hear|see) <whose> {few:list} list",
      "(take me|go|run) (through|over) <whose> {few:list} list", "do i have anything (on|in) <whose> {few:list} list",
      "how many (items|things|entries) (are|do i have|are there) on <whose> {few:list} list",
      "what does <whose> {few:list} list (say|contain|have on it|look like)",
      "what (are|are the things|are the items|items are|things are) (on|in) <whose> {few:list} list",
      "is {text} on <whose> {few:list} list", "what (am i|are we) supposed to (buy|get) [from the store|at the store]", "what should i (buy|get) [from the store|at the store|at the supermarket]",
      "<whose> {few:list} list", "what do i need from the (store|shop|supermarket)", "what is <whose> {few:list} list",
    ],
  ],
  [
    "note",
    [
      "[a|one] (quick|short|new|little) note , {text}", "[a|one] [quick] (note|memo) [please] : {text}", "(for|in|to|into) my notes : {text}",
      "(note|make note|make a note|take note|take a note|write a note|write down|jot down|note down|take down|put down|" +
        "create a note|create a new note|make a new note|add a note|leave a note|leave me a note|save a note|new note|a note|" +
        "save the note|take a quick note|make a quick note|write me a note|make me a note|take a memo|write|write this down|" +
        "note this|note this down|take this down|jot this down|remember this|make a note of this|start a note|keep a note|" +
        "record a note|jot a note) (that says|which says|saying that|saying|to say that|to say|stating that|stating|that|" +
        "about|reading|with the text) {text}",
      "(take|make|write|jot|put|create|add|leave|save|start|record|keep|note|scribble|get) [me] [down] [a|another|one] [new|quick|short|" +
        "little] (note|memo) [down] [for me|to self|to myself] " +
        "[that|saying|saying that|that says|about|reading|to say] {text}",
      "make [a] note of {text}", "(note|memo|reminder to self|note to self) : {text}",
      "(make a note|take a note|write a note|write down|jot down|note down|take down|create a note|add a note|leave a note|" +
        "save a note|new note|take a quick note|make a quick note|write this down|note this|note this down|take this down|" +
        "jot this down|take a memo|make note|save this note) {text}",
      "remember this : {text}", "note to self [that] {text}",
      "(put|get|write|jot|take|note) this down [somewhere] [for me] [please] {text}",
      "(write|jot|note|take) something down [for me] [please] {text}", "(write|jot|note|take) (this|something) [down] [for me] : {text}",
      "(write|jot|take) down [for me] [please] [that] {text}", "for the record : {text}",
      "i (want|need|would like) to (make|take|write|leave) a note [that|saying|about] {text}",
      "(could|can) i (make|leave|get|have) a note [that|saying] {text}",
      "(log|record|remember|keep|save) (this|the following) [for me] [please] : {text}", "log that {text}",
      "remember [please] that {text}", "(bear|keep) in mind [that] {text}", "(make a note|note) to [self|myself] [that] {text}",
      "remember that {text}", "(add|put|write|save) {text} (to|in|into|on|down in) (my|the) (notes|notebook|note)",
      "(add|put|write|save) [a note] (to|in|into) (my|the) notes [that] {text}",
      "(keep in mind|do not forget|make sure to remember) that {text}", "(put|write|get) {text} down in my notes",
      "in my notes (write|put|add) [that] {text}", "please note [that] {text}",
    ],
  ],
];
