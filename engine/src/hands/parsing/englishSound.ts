// The phrases by which English asks for sound and media.

import type { Request } from "./meanings.ts";

export const englishSound: readonly Request[] = [
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
];
