// The phrases by which English asks for notes, sound, media and the desktop.

import type { Request } from "./meanings.ts";

export const englishDoings: readonly Request[] = [
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
  [
    "setVolume",
    [
      "(set|change|put|turn|make|bring|adjust|raise|lower|increase|decrease|reduce|crank|move|get|drop|take) [<the>] <volume> " +
        "[level] [up|down] (to|at) {number} [<percent>]",
      "<volume> [up|down] [to|at|level] {number} [<percent>]", "[the] <volume> (to|at) {number} [<percent>]",
      "(turn|bring|put|crank|set) (it|the sound) [up|down] to {number} <percent>",
      "(turn|bring) (up|down) [<the>] <volume> to {number} [<percent>]", "{number} <percent> volume",
      "make (it|the volume) {number} <percent>",
    ],
  ],
  [
    "loudest",
    [
      "(set|turn|put|bring|crank) [<the>] <volume> [up] [to] [the] (max|maximum|full|highest|all the way up|loudest)",
      "(turn|crank) [<the>] <volume> all the way up", "(full|max|maximum) volume", "<volume> [to] (max|maximum|full)",
      "turn it all the way up", "(turn|crank) it up to (max|the max|full)", "as loud as possible",
    ],
  ],
  [
    "half",
    [
      "(set|turn|put|bring) [<the>] <volume> [down|up] to half", "half volume", "<volume> [to|at] half",
      "(set|put) [<the>] <volume> (halfway|at half|to halfway|half way)",
    ],
  ],
  [
    "muteSound",
    [
      "(mute|silence) [<the>] (<volume>|system|computer)", "(kill|cut) [<the>] (sound|volume|audio)",
      "(turn|switch|shut) off [<the>] (sound|volume|audio|speakers|speaker|music volume)",
      "(turn|switch|shut) [<the>] (sound|volume|audio|speakers|speaker) off", "(set|turn) [<the>] volume to (mute|nothing)", "no sound",
      "sound off", "volume off",
    ],
  ],
  [
    "unmuteSound",
    [
      "unmute", "unmute [<the>] (<volume>|system|computer)", "(turn|switch) (on|back on) [<the>] (sound|volume|audio|speakers|speaker)",
      "(turn|switch) [<the>] (sound|volume|audio|speakers|speaker) [back] on", "sound on", "volume on", "bring [<the>] sound back",
    ],
  ],
  [
    "voiceLouder",
    [
      "(speak|talk) [<bit>] (louder|up|more loudly)",
      "(raise|turn up|increase|bring up) your (voice|volume) [<bit>] [by {number} [<percent>]]",
      "turn your (voice|volume) up [<bit>] [by {number} [<percent>]]", "you are [<bit>] too (quiet|soft)",
      "i can (not|hardly|barely) hear you", "make your (voice|volume) [<bit>] louder", "say it louder",
    ],
  ],
  [
    "voiceQuieter",
    [
      "(speak|talk) [<bit>] (softer|quieter|more quietly|more softly|quietly|softly|down)",
      "(lower|turn down|decrease|reduce|bring down) your (voice|volume) [<bit>] [by {number} [<percent>]]",
      "turn your (voice|volume) down [<bit>] [by {number} [<percent>]]", "you are [<bit>] too loud",
      "make your (voice|volume) [<bit>] (quieter|softer)", "keep your voice down", "not so loud your voice",
    ],
  ],
  [
    "louder",
    [
      "(turn|put|bring|crank|push|move) [<the>] <volume> up [<bit>] [by {number} [<percent>|points]]",
      "(turn|bring|crank) up [<the>] <volume> [<bit>] [by {number} [<percent>|points]]",
      "(raise|increase|boost|up|pump up|amp up) [<the>] <volume> [<bit>] [by {number} [<percent>|points]]",
      "[make it|make the <volume>|play it|turn it|<bit>|can it be] louder [by {number} <percent>]",
      "make [it|the <volume>] <bit> louder", "<bit> louder", "volume up [by {number} [<percent>]]",
      "(turn|crank|pump) it up [<bit>] [by {number} <percent>]", "turn [<the>] <volume> <bit> up", "(it is|this is|that is) too quiet",
      "i can not hear (it|this|the music|anything)", "more volume", "{number} <percent> louder",
      "up the volume [by {number} [<percent>]]",
    ],
  ],
  [
    "quieter",
    [
      "(turn|put|bring|push|move) [<the>] <volume> down [<bit>] [by {number} [<percent>|points]]",
      "(turn|bring) down [<the>] <volume> [<bit>] [by {number} [<percent>|points]]",
      "(lower|decrease|reduce|drop) [<the>] <volume> [<bit>] [by {number} [<percent>|points]]",
      "[make it|make the <volume>|play it|turn it|<bit>] (quieter|softer|less loud)", "make [it|the <volume>] <bit> (quieter|softer)",
      "<bit> (quieter|softer|less loud)", "volume down [by {number} [<percent>]]", "turn it down [<bit>] [by {number} <percent>]",
      "turn [<the>] <volume> <bit> down", "(it is|this is|that is) too loud", "less volume", "{number} <percent> (quieter|softer)",
      "not so loud",
    ],
  ],
  [
    "tellVolume",
    [
      "what is [<the>] (volume|sound level|volume level|current volume|system volume) [at|level|set to|right now]",
      "how loud is (it|the volume|the sound|the computer|the music)", "(what|how high) is [<the>] volume [level]",
      "(tell me|check) [<the>] volume [level]", "what volume (is it|are we) [at|on]",
    ],
  ],
  [
    "setVoice",
    [
      "(set|change|put|turn|make|adjust|raise|lower) your (volume|voice|voice volume|speaking volume|speech volume) [up|down] (to|" +
        "at) {number} [<percent>]",
      "(set|change|put) [the] volume of your voice (to|at) {number} [<percent>]", "(speak|talk) at {number} <percent> [volume]",
      "your (voice|volume) (to|at) {number} <percent>",
    ],
  ],
  [
    "next",
    [
      "next", "next one",
      "[play|go to|skip to|jump to|move to|put on|switch to|give me] [the] next <song> [in the playlist|on the list]",
      "skip [this|the|it|that] [<song>|to the next <song>|ahead]", "skip [to] [the] next", "(play|hear) (another|a different) <song>",
      "next (song|track|video|episode)", "skip forward", "play the next", "i do not like this <song>",
    ],
  ],
  [
    "previous",
    [
      "[play|go back to|go to|skip back to|skip to|return to|put on|switch to|give me] [the] (previous|last|prior|preceding) <song> " +
        "[again]",
      "(previous|last) (song|track|video|episode)", "(skip|go) back [one|a|1] [<song>]", "play (that|the last) <song> again",
      "back to the (previous|last) <song>", "go back to the (previous|last) one",
    ],
  ],
  [
    "tellPlaying",
    [
      "what is [currently|now] (playing|on)", "what is playing [right now|currently|at the moment]",
      "what (song|track|music|tune|album|video|artist|band) is (this|that|playing|on|it) [now|playing|called]",
      "what is (this|that|the) [current] (song|track|tune|music) [called|playing|now]",
      "who (sings|is singing|sang|made|plays|is playing|wrote|performs|is) (this|that|it) [song|track]",
      "(which|what) (song|track) (are we|am i) (listening|hearing) [to]", "what am i (listening|hearing) to",
      "what is the (name|title) of (this|the|that) (song|track|tune)", "name (this|that) (song|tune)", "what are we listening to",
      "who is the (artist|singer|band)", "who is this by", "who is (this|that) (song|track) by", "who wrote (this|that) (song|track)",
      "what is the current (song|track)", "is (anything|something|music|any music) playing",
    ],
  ],
  [
    "pause",
    [
      "(pause|stop|halt|freeze|hold|shut off|turn off|switch off|cut|end|quit) [<the>] <music> [player|playback]", "pause",
      "pause (playing|it|this|that)", "stop playing [music|the music|it|this|that]", "stop playing [the|this] <music>",
      "(turn|switch|shut) [<the>] (music|player|video|playback) off", "hit pause", "press pause", "pause what is playing",
      "put it on pause", "put [<the>] <music> on pause",
    ],
  ],
  [
    "play",
    [
      "(play|resume|continue|unpause|restart|start|continue playing|keep playing|start playing|resume playing|turn on|go on with|" +
        "carry on with|put on) [<the>|some] <music> [again|back|playback|on]",
      "(play|resume|unpause)", "resume playback", "(continue|keep|start|resume) playing", "play (it|something|that) [again]",
      "hit play", "press play", "(turn|switch) [<the>] music [back] on", "play (some|my) music", "play music", "carry on playing",
    ],
  ],
  [
    "lock",
    [
      "lock [<the>] <screen>", "lock (me out|it|everything) [of the <screen>]", "lock screen",
      "(turn on|activate|start) the (lock screen|screen lock)", "put the (computer|screen) on lock", "i want [<the>] <screen> locked",
    ],
  ],
  [
    "screenshot",
    [
      "(take|make|grab|capture|get|do|snap|save|shoot|create|give me) [me] [a|the|one|another] (screenshot|screen shot|screen " +
        "capture|screengrab|screen grab|snapshot of the screen|picture of the screen|picture of my screen|screenshot of the screen|" +
        "screenshot of my screen|shot of the screen|snapshot of my screen|screenshot of this|capture of the screen|capture of my " +
        "screen|photo of the screen|image of the screen|screenshot of the desktop|screenshot of my desktop|print screen)",
      "(screenshot|screen shot|print screen|screen capture) [this|the screen|my screen|it]", "capture [<the>] (screen|display|desktop)",
      "print [<the>] screen", "snap [<the>] screen", "(take|save) [a] picture of [what is on] [<the>] (screen|desktop)",
    ],
  ],
  [
    "openFolder",
    [
      "(open|show|open up|bring up|go to|pull up|launch|view|display|browse|take me to|see) [me] [<whose>] {text} (folder|directory)",
      "(open|show|go to) [me] [<whose>] (folder|directory) [called|named] {text}",
      "(show|open) [me] what is in [<whose>] {text} (folder|directory)", "(open|show|show me) (my|the) (files in|contents of) {text}",
    ],
  ],
  [
    "openKnownFolder",
    [
      "(open|open up|show|show me|go to|take me to|bring up) [<whose>] {few:text}",
    ],
  ],
  [
    "openAddress",
    [
      "(open|go to|visit|browse to|navigate to|show me|take me to|bring up|load|launch|pull up|surf to|head to|open up) [the] " +
        "[website|site|web page|page|web site|address|webpage|url] {text} [website|page|site] [in the browser|in my browser]",
      "open the (website|site|page) {text}",
    ],
  ],
  [
    "open",
    [
      "<open> [up] [<whose>] [app|application|program] {text} [app|application|program]",
      "<open> [up] [<whose>] (app|application|program) [called|named] {text}",
      "(start|run|load|execute) [the|my] [app|application|program] {few:text} [app|application|program]",
      "(show me|bring me|get me|take me to|switch to|go to) [<whose>] {few:text} (app|application|program)",
      "i (want|need|would like) to (use|open|launch|start) [<whose>] {few:text}",
    ],
  ],
];
