// The phrases by which English asks for sound and media.

import type { Request } from "./meanings.ts";

export const englishSound: readonly Request[] = [
  [
    "setVolume",
    [
      "(set|change|put|turn|make|bring|adjust|raise|lower|increase|decrease|reduce|crank|move|get|drop|take) [<the>] " +
        "<volume> [level] [up|down] (to|at) {number} [<percent>]",
      "<volume> [up|down] [to|at|level] {number} [<percent>]", "[the] <volume> (to|at) {number} [<percent>]",
      "(turn|bring|put|crank|set) (it|the sound) [up|down] (to|at) {number} [<percent>]",
      "(turn|bring) (up|down) [<the>] <volume> to {number} [<percent>]", "{number} <percent> volume",
      "make (it|the volume) {number} <percent>",
      "(i want|i would like|give me) [<the>] <volume> (at|to be at|to be) {number} [<percent>]",
      "(set|put|turn|bring) [<the>] <volume> [up|down] {number} <percent>", "{number} [<percent>] [on the] volume",
      "(take|knock|drop|bring|get) (it|the <volume>) [up|down|back|back down|back up] to {number} [<percent>]",
      "volume level {number}",
    ],
  ],
  [
    "loudest",
    [
      "(set|turn|put|bring|crank) [<the>] <volume> [up] [to] [the] (max|maximum|full|highest|all the way up|loudest)",
      "(turn|crank) [<the>] <volume> all the way up", "(full|max|maximum) volume", "<volume> [to] (max|maximum|full)",
      "turn it all the way up",
      "(turn|crank|put|set|bring) (it|<the> <volume>) [up] (to|at|on) [the] (max|maximum|full|full blast|full volume|" +
        "maximum volume|highest)",
      "as loud as (possible|it gets|it goes|you can|it can go)", "(at|on) full (volume|blast)",
      "(blast|max|max out) (it|the music|<the> <volume>|the sound)", "(full|maximum) (blast|sound)", "all the way up",
    ],
  ],
  [
    "half",
    [
      "(set|turn|put|bring) [<the>] <volume> [down|up] to half", "(half|medium|middle|halfway|fifty fifty) volume",
      "volume [to|at|on] [a] (half|halfway|the middle|medium|fifty fifty)", "<volume> [to|at] half",
      "(set|put|turn|bring) (it|<the> <volume>) [up|down] (to|at|on) (medium|the middle|half way|halfway|half|fifty fifty)",
      "half the volume", "(set|put) [<the>] <volume> (halfway|at half|to halfway|half way)",
    ],
  ],
  [
    "muteSound",
    [
      "(mute|silence) [<the>] (<volume>|system|computer)", "(kill|cut) [<the>] (sound|volume|audio)",
      "(turn|switch|shut) off [<the>] (sound|volume|audio|speakers|speaker|music volume)",
      "(turn|switch|shut) [<the>] (sound|volume|audio|speakers|speaker) off", "(set|turn) [<the>] volume to (mute|nothing)",
      "no sound", "(turn|switch|shut) (it|everything) (off|down) completely",
      "(set|turn|put|bring) [<the>] <volume> [down] to (zero|0|none|silent)", "(make|be) (it|the computer|everything) silent",
      "(put|set) (it|the computer|the sound|the laptop|<the> <volume>) (on|to) (mute|silent)", "(go|be) (silent|mute)",
      "mute (it|that|this|everything|all|all sound|all sounds)", "silence (everything|it|all sounds)", "silent mode",
      "quiet mode", "sound off", "volume off",
    ],
  ],
  [
    "unmuteSound",
    [
      "unmute", "unmute [<the>] (<volume>|system|computer)",
      "(turn|switch) (on|back on) [<the>] (sound|volume|audio|speakers|speaker)",
      "(turn|switch|put|bring) [<the>] (sound|volume|audio|speakers|speaker) [back] on",
      "(put|bring) [<the>] (sound|volume|audio) back [on]",
      "(turn|switch|bring) <the> (sound|audio|volume|noise) back", "(take|get) (it|the sound|the computer) off mute",
      "unmute (it|that|everything|this)", "stop muting", "(turn|switch) off mute", "mute off",
      "(give me|i want|let me hear) [back] [<the>] sound [back|again]", "sound on", "volume on", "bring [<the>] sound back",
    ],
  ],
  [
    "voiceLouder",
    [
      "(speak|talk|say it|say that) [<bit>] (louder|up|more loudly|loudly)",
      "(louder|a bit louder|a little louder) when you (speak|talk)",
      "(use|speak with|speak in|talk in|talk with) a louder voice", "you (need|have) to (speak|talk) [<bit>] (up|louder)",
      "you are (speaking|talking) [<bit>] too (quietly|softly|low)",
      "your voice is [<bit>] too (quiet|soft|low) [(raise it|turn it up|bring it up)]",
      "(raise|up) the voice", "(raise|turn up|increase|bring up) your (voice|volume) [<bit>] [by {number} [<percent>]]",
      "turn your (voice|volume) up [<bit>] [by {number} [<percent>]]", "you are [<bit>] too (quiet|soft)",
      "i can (not|hardly|barely) hear you", "make your (voice|volume) [<bit>] louder", "say it louder",
    ],
  ],
  [
    "voiceQuieter",
    [
      "(speak|talk) [in] [a] (whisper|low voice|whispers|soft voice|quiet voice|quieter voice|softer voice|lower voice)",
      "whisper", "(pipe|tone) down", "(use|speak with|talk with) a (softer|quieter|lower) voice", "not so loud",
      "you are (speaking|talking|shouting) [<bit>] too loud",
      "(your voice is|you are) [<bit>] too loud [(lower it|turn it down|bring it down)]", "stop (shouting|yelling)",
      "stop (talking|speaking) so (loud|loudly)",
      "do not (shout|yell) [at me]",
      "(speak|talk) [<bit>] (less loud|less loudly|lower|softer|quieter|more quietly|more softly|quietly|softly|down)",
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
      "(turn|crank|pump|bump|push|bring|whack|jack) it up [<bit>] [by {number} <percent>]",
      "(bump|crank|pump|push|nudge|whack|jack) [<the>] <volume> up [<bit>]",
      "(bump|crank|pump|push|nudge|jack) up [<the>] <volume> [<bit>]", "(higher|up) [<the>] volume [please]",
      "i (want|need|would like) (it|<the> <volume>|more volume) [to be] [<bit>] (louder|higher|up|more)",
      "(can|could) (it|this|we have it|we have that|i have it) [be] [<bit>] louder",
      "(a bit|a little|some|much|way) more (volume|sound)", "volume (higher|louder|plus)",
      "(make|have) <the> <volume> [<bit>] (louder|higher)", "it (could|should) be [<bit>] louder",
      "turn [<the>] <volume> <bit> up", "(it is|this is|that is) too quiet", "i can not hear (it|this|the music|anything)",
      "more volume", "{number} <percent> louder", "up the volume [by {number} [<percent>]]",
    ],
  ],
  [
    "quieter",
    [
      "(turn|put|bring|push|move) [<the>] <volume> down [<bit>] [by {number} [<percent>|points]]",
      "(turn|bring) down [<the>] <volume> [<bit>] [by {number} [<percent>|points]]",
      "(lower|decrease|reduce|drop) [<the>] <volume> [<bit>] [by {number} [<percent>|points]]",
      "[make it|make the <volume>|play it|turn it|<bit>] (quieter|softer|less loud)",
      "make [it|the <volume>] <bit> (quieter|softer)", "<bit> (quieter|softer|less loud)",
      "volume down [by {number} [<percent>]]",
      "(turn|bring|tone|take|knock|dial|bump|drop) it down [<bit>] [by {number} <percent>]",
      "(tone|dial|bump|knock|take) [<the>] <volume> down [<bit>]", "(tone|dial|bump|take) down [<the>] <volume> [<bit>]",
      "i (want|need|would like) (it|<the> <volume>) [to be] [<bit>] (quieter|softer|lower|down)",
      "(a bit|a little|much|way) less (volume|sound|noise)", "volume (lower|quieter|minus)",
      "(make|have) <the> <volume> [<bit>] (quieter|softer|lower)", "it (could|should) be [<bit>] (quieter|softer)",
      "keep it down", "lower it [<bit>]", "(lower|quieten|soften) <the> <volume>", "quieten it [down]",
      "turn [<the>] <volume> <bit> down", "(it is|this is|that is) too loud", "less volume",
      "{number} <percent> (quieter|softer)", "not so loud",
    ],
  ],
  [
    "tellVolume",
    [
      "what is [<the>] (volume|sound level|volume level|current volume|system volume) [at|level|set to|right now]",
      "how loud (is|are) (it|the volume|the sound|the computer|the music|the speakers) [set|set to|right now]",
      "(what|how high|how loud) is [<the>] volume [level]", "(what|how high|how loud) [<the>] volume [level] is [set to]",
      "(tell me|check) [<the>] volume [level]", "what volume (is it|are we) [at|on]",
    ],
  ],
  [
    "setVoice",
    [
      "(set|change|put|turn|make|adjust|raise|lower) your (volume|voice|voice volume|speaking volume|speech volume) [up|" +
        "down] (to|at) {number} [<percent>]",
      "(set|change|put) [the] volume of your voice (to|at) {number} [<percent>]", "(speak|talk) at {number} <percent> [volume]",
      "your (voice|volume) (to|at) {number} <percent>",
    ],
  ],
  [
    "next",
    [
      "next", "next one", "(hear|let us hear|give me|put on) the next one", "not (this|that) [one|song] [play|give me] [the] next [one|song]",
      "[play|go to|skip to|jump to|move to|put on|switch to|give me] [the] next <song> [in the playlist|on the list]",
      "skip [this|the|it|that] [<song>|to the next <song>|ahead]", "skip [to] [the] next",
      "(play|hear) (another|a different) <song>", "next (song|track|video|episode)", "skip forward", "play the next",
      "i do not like this <song>", "skip [to] [the] next <song>", "(go|move|jump|skip|on) [on] to the next [<song>]",
      "(skip|pass on|next) this <song>", "skip (ahead|along|on)",
      "(play|put on|give me|hear|try) (something else|another [<song>]|a different <song>)", "(change|switch) [<the>] <song>",
      "forward [one] [<song>]", "(one|go) forward [one] [<song>]", "next [<song>] please", "(not|anything but) this <song>",
    ],
  ],
  [
    "previous",
    [
      "[play|go back to|go to|skip back to|skip to|return to|put on|switch to|give me] [the] (previous|last|prior|" +
        "preceding) <song> [again]",
      "(previous|last) (song|track|video|episode)", "(skip|go) back [one|a|1] [<song>]", "play (that|the last) <song> again",
      "(go|skip|jump|move) back (one|a|1) [<song>]", "(back|go back|one back|back one) [a|one] <song>",
      "(play|put on|repeat|replay) (that|the last|the previous) (<song>|one) (again|once more|one more time)",
      "(play|hear) the (<song>|one) before [this|that] [one] [again]", "(the|go to the) (<song>|one) before [this|that]",
      "what we just (heard|listened to) again", "back to the (previous|last) <song>", "go back to the (previous|last) one",
    ],
  ],
  [
    "tellPlaying",
    [
      "what is [currently|now] (playing|on)", "what is playing [right now|currently|at the moment]",
      "what (song|track|music|tune|album|video|artist|band) is (this|that|playing|on|it) [now|playing|called]",
      "what is (this|that|the) [current] (song|track|tune|music) [called|playing|now]",
      "who (sings|is singing|sang|made|plays|is playing|wrote|performs|is) (this|that|it) [song|track]",
      "what (song|track|piece of music|music|tune) (this|that|it) is", "what piece of music is (this|that|playing)", "(which|what) (song|track) (are we|am i) (listening|hearing) [to]", "what am i (listening|hearing) to",
      "what is the (name|title) of (this|the|that) (song|track|tune)", "name (this|that) (song|tune)",
      "(do you know|can you tell) (this|that) <song>",
      "(which|what) (<song>|track|tune|piece|music) (is|are) (this|that|playing|on|it|we hearing|we listening to) [now|" +
        "right now|called|again|here]",
      "(which|what) <song> (am i|are we) (hearing|playing)", "(what|who) (am i|are we) (hearing|playing)",
      "whose (song|music) is (this|that)", "what do you call this <song>", "identify this <song>", "title of (this|the) <song>",
      "(what|which) (radio|album|band|artist|singer) is (this|that|playing)",
      "who is (singing|playing) [this|that|this song] [now]", "what are we listening to", "who is the (artist|singer|band)",
      "who is this by", "who is (this|that) (song|track) by", "who wrote (this|that) (song|track)",
      "what is the current (song|track)", "is (anything|something|music|any music) playing",
    ],
  ],
  [
    "pause",
    [
      "(pause|stop|halt|freeze|hold|shut off|turn off|switch off|cut|end|quit) [<the>] <music> [player|playback]", "pause",
      "pause (playing|it|this|that)", "stop playing [music|the music|it|this|that]", "stop playing [the|this] <music>",
      "(turn|switch|shut) [<the>] (music|player|video|playback) off", "hit pause", "press pause", "pause what is playing",
      "(pause|stop|hold) (everything that is playing|whatever is playing|what is on|the tunes|my music|my song)",
      "(give it a|take a) (pause|rest)", "hold the <music>", "(put|set) [<the>] (<music>|it) on hold", "make the <music> stop",
      "(quiet|kill|cut|shut up) the (music|radio|song)", "(halt|stop) [the] playback", "put it on pause",
      "put [<the>] <music> on pause",
    ],
  ],
  [
    "play",
    [
      "(play|resume|continue|unpause|restart|start|continue playing|keep playing|start playing|resume playing|turn on|go " +
        "on with|carry on with|put on) [<the>|some] <music> [again|back|playback|on]",
      "(play|resume|unpause)", "resume playback", "(continue|keep|start|resume) playing", "play (it|something|that) [again]",
      "hit play", "press play",
      "(unpause|resume|continue|restart|start) (it|this|that|the playback|where i left off|where we left off|what was " +
        "playing|from where i left off)",
      "(put|switch|turn) [<the>] <music> (back on|on again|on)", "(let|make) [<the>] <music> play [again]",
      "(carry|go) on [with] [<the>] <music>", "back to the <music>", "(start|begin) [<the>] (playback|music)",
      "(play|start|resume) my (music|songs|tunes|playlist)",
      "(play|put on) (a song|some songs|some tunes|some music|something|anything|tunes)", "end the pause",
      "(music|sound|playback) (on|again) [please]", "(turn|switch) [<the>] music [back] on", "play (some|my) music",
      "play music", "carry on playing", "play on", "(start|set|get|turn) [<the>] <music> (up|going|off|playing) [again]",
    ],
  ],
];
