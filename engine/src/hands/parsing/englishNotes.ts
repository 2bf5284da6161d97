// The phrases by which English asks for notes and lists.

import type { Request } from "./meanings.ts";

export const englishNotes: readonly Request[] = [
  [
    "addToList",
    [
      "(add|put|write|append|include|stick|throw|place|note|get|jot|jot down|write down|enter|insert|pop|chuck) {text} [down] <onto> " +
        "[<whose>] {few:list} list",
      "(add|put|write|append|include|stick|throw|place|pop) {text} [down] <onto> (the|my|our) list",
      "(add|write|put) <onto> <whose> {few:list} list [that i need|the following|these] {text}",
      "(on|to|onto) <whose> {few:list} list (add|put|write) {text}",
      "<whose> {few:list} list (needs|also needs|should have|should include) {text}",
      "(i need|we need|i want|i would like) {text} <onto> <whose> {few:list} list",
      "(add|put|write) {text} <onto> (the|my|our) (groceries|shopping|to do|todo)",
    ],
  ],
  [
    "removeFromList",
    [
      "(remove|delete|take|cross|scratch|strike|tick|check|erase|drop|cross off|strike off|tick off|check off|take off|scratch off|" +
        "get rid of|clear) {text} [off] (from|off|off of|out of|on) <whose> {few:list} list",
      "(remove|delete|take|cross|scratch|strike|erase|drop|cross off) {text} [off] (from|off|off of|out of) (the|my|our) list",
      "(i got|i bought|i have|we have|we got) the {text} (cross|take|tick|strike) it off <whose> {few:list} list",
      "(cross|tick|strike|check|scratch) {text} off", "i do not need {text} on <whose> {few:list} list (anymore|any more)",
    ],
  ],
  [
    "readNotes",
    [
      "(read|read out|read back|show|tell|give|list|open|check|play|go over|go through|review) [me] [out] [<the>] [latest|last|" +
        "recent|new|current|all] [of] [<the>] (notes|note) [to me|aloud|out loud|back to me|back|out]",
      "what (are|is in|is on|do i have in|have i got in|did i write in|is written in|do) [<the>] [latest|last|recent|current] (notes|" +
        "note) [say]",
      "what did i (note|note down|write down|jot down|take down|ask you to note|ask you to write down|tell you to remember|ask you " +
        "to remember)",
      "(what|which) notes (do i have|have i made|have i taken|did i take|did i make|are there|have i got|have i written)",
      "do i have (any|some) notes", "what have i (noted|written down|noted down|jotted down)", "are there (any|some) notes", "my notes",
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
      "what (is|do i have|have i got|do we have|have we got|is still|is left|all is|is written|else is|did i put|do i still have) " +
        "(on|in) <whose> {few:list} list [so far|right now|today|again]",
      "what (is|do i have|have i got|do we have|is still|is left) (on|in) (the|my|our) list [so far]",
      "(read|read out|show|tell|give|list|go over|go through|check|open|review|see|display|say) [me] [what is on|the items on|" +
        "everything on|all the items on|the contents of|what is in|items on] <whose> {few:list} list [to me|aloud|out loud|back to " +
        "me|back|out|so far]",
      "(read|read out|show|go over|go through) [me] (the|my|our) list [to me|aloud|out loud]",
      "what (do i|do we|does my list say i) [still] (need|have) to (buy|get) [from the store|at the store|at the supermarket|at the " +
        "shop]",
      "is there (anything|something) (on|in) <whose> {few:list} list", "do i have anything (on|in) <whose> {few:list} list",
      "how many (items|things|entries) (are|do i have|are there) on <whose> {few:list} list",
      "what does <whose> {few:list} list (say|contain|have on it|look like)",
      "what (are|are the things|are the items|items are|things are) (on|in) <whose> {few:list} list",
      "is {text} on <whose> {few:list} list", "what should i (buy|get) [from the store|at the store|at the supermarket]",
      "<whose> {few:list} list", "what do i need from the (store|shop|supermarket)", "what is <whose> {few:list} list",
    ],
  ],
  [
    "note",
    [
      "(note|make note|make a note|take note|take a note|write a note|write down|jot down|note down|take down|put down|create a note|" +
        "create a new note|make a new note|add a note|leave a note|leave me a note|save a note|new note|a note|save the note|take a " +
        "quick note|make a quick note|write me a note|make me a note|take a memo|write|write this down|note this|note this down|take " +
        "this down|jot this down|remember this|make a note of this|start a note|keep a note|record a note|jot a note) (that says|" +
        "which says|saying that|saying|to say that|to say|stating that|stating|that|about|reading|with the text) {text}",
      "(make a note|make note|take note) of {text}",
      "(make a note|take a note|write a note|write down|jot down|note down|take down|create a note|add a note|leave a note|save a " +
        "note|new note|take a quick note|make a quick note|write this down|note this|note this down|take this down|jot this down|" +
        "remember this|take a memo|make note|save this note) {text}",
      "note to self [that] {text}", "(make a note|note) to [self|myself] [that] {text}", "remember that {text}",
      "(add|put|write|save) {text} (to|in|into|on|down in) (my|the) (notes|notebook|note)",
      "(add|put|write|save) [a note] (to|in|into) (my|the) notes [that] {text}",
      "(keep in mind|do not forget|make sure to remember) that {text}", "(put|write|get) {text} down in my notes",
      "in my notes (write|put|add) [that] {text}", "please note [that] {text}",
    ],
  ],
];
