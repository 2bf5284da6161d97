// What English words stand for in the second reading of a sentence.

import type { Lexicon } from "./concepts.ts";

export const englishConcepts: Lexicon = {
  /** These change nothing. */
  light: "completely|entirely|altogether|instead|quick|the|my|our|this|that|these|those|a|an|one|please|now|right|right now|away|for|to|" +
    "at|on|in|of|by|with|me|us|just|then|there|here|as well|too|again|yet|so|" +
    "kindly|quickly|maybe|perhaps|also|currently|at the moment|at present|for me|for us|go ahead and|today|exactly|actually|from|which|" +
    "be|go|going|get",
  /** Nor do these in a question. */
  asking: "holding up|hold up|holding|anything|something|nearly|almost|soon|already|yet|they|nice|great|good|lovely|beautiful|is|are|do|does|i|we|have|got|has|it|there|any|some|what|which|how|much|many|when|tell|" +
    "show|give|know|still|me|if|whether|will|" +
    "am|been|like|look|looking|doing|my|see|hear|let|check|find out|got to|until|till|before|can i see|that|currently",
  ask: "what|which|how is|how are|am i|are we|do i have|do we have|have i got|have we got|have you got|do you have|is there|are there|" +
    "any|when|tell me|let me know|give me|how long|" +
    "how much time|how many|what have i got|got any|do i still have",
  /** It asks for a time. */
  clock: "what time|at what time|which time",
  when: "when",
  must: "i have to|i have got to|i need to|i must|i want to|i should|i am supposed to|i got to|i had better|we have to|we need to|i will have to",
  list: "have a look at|take a look at|list|show|read|check|tell me|let me hear|let me see|show me|read out|go over|go through|run through|give me|run me through|" +
    "talk me through",
  /** It asks what something is, not which one there is. */
  definition: "what time is it|what is a|what is an|what does|how to|how do i|how do you|how can i",
  inverted: "is|are",
  yesno: "am i|are we|do i have|do we have|have i got|have we got|is there|have i|have we",
  article: "the|my|our|a|an|some|that|this",
  names: "for|called|named|labelled|labeled|on|of|has|does|with",
  timer: "timer|countdown|count down|kitchen timer|timers|countdowns",
  timers: "timers|timer|countdowns",
  alarm: "alarm|alarms|alarm clock|wake up call|alarm call|buzzer",
  alarms: "alarms|alarm",
  reminder: "reminder|reminders",
  reminders: "reminders|reminder",
  notes: "notes|note|notebook|memos|jottings",
  noted: "noted|written down|jotted down|noted down|take|taken|made|wrote down|left",
  all: "all|all of|every|each|each of|every single|both|both of|any|every last|all the|every one of",
  running: "running|active|set|going|ticking|on|still running|that is running|that is set|that are running|that are set|that are on|i " +
    "set|i have set|i have|i made|you have got|you have|that you have|i have got|on the go|going on|i have on|i have got|" +
    "i have running|currently running|that i set|that i have set|counting|up|in progress",
  pending: "set up|planned|pending|coming up|upcoming|outstanding|scheduled|lined up|due|waiting|in store",
  goes: "go off|goes off|going off|ring|rings|end|ends|finish|finishes|be up|be done|done|over|run out|up",
  off: "cancel|stop|delete|remove|clear|kill|end|dismiss|disable|turn off|switch off|shut off|off|get rid of|scrap|drop|abort|silence|" +
    "erase|ditch|call off|unset|" +
    "deactivate|forget about|forget|never mind|scratch|bin|axe|nix|shut down|shut up|lose|do away with|discard|bin off|take off",
  set: "i would like|i want|i need|i could use|we need|i would love|set|start|create|make|begin|add|run|put|put on|set up|setup|give|" +
    "need|want|launch|schedule|program|do|kick off|fire up|have|get|new|arrange|organise|organize|" +
    "another|would like|could use|book|throw on|stick on|pop on|stick|pop|whack|whack on|throw|chuck|chuck on|set going|sort out|sort " +
    "me out with",
  alerts: "tell me|alert me|notify me|ping me|warn me|buzz me|beep|beep me|ring|ring me|let me know|give me a shout|give me a heads up|" +
    "give me a ping|shout|shout at me|" +
    "give me a nudge|give me a buzz|give me a beep|give me a call|call me|give me a yell|time|count|count down|clock|signal|signal me|" +
    "time me|to ring|to go off|that goes off|that rings|sound|" +
    "give me an alert|give me a signal|give me a warning|say something|to sound|that sounds|nudge me",
  after: "in|after|when|is up|are up|have passed|has passed|have gone by|from now|once|are over|is over|elapse|have elapsed|up|over|passed",
  wake: "woken up|woken|being woken|being woken up|be woken|be woken up|wake me|wake me up|wake us|wake us up|wake|wake up|get me up|get me out of bed|rouse me|to wake me up|to wake me|to wake up|to " +
    "get up|get us up|wakes me|wakes me up|waking me|waking me up|get me awake",
  early: "early|bright and early|nice and early|sharp",
  so: "so|and|then|that",
  snooze: "snooze|snooze button|hit snooze|press snooze|hit the snooze button|remind me again|wake me again|ring again|put the alarm " +
    "off|push the alarm back|delay the alarm|postpone the alarm",
  sleep: "let me sleep|let me lie in|let me doze|let me stay in bed|let me rest|leave me",
  more: "more|longer|extra|additional|another|a bit|a little|a bit more|a little more|a while|a bit longer|a little longer",
  sound: "sound|sounds|audio|volume|speakers|speaker|the sound|system sound|noise",
  volume: "volume|sound level|volume level|system volume|audio level|loudness|master volume",
  computer: "computer|pc|laptop|machine|system|desktop|device|computer is|my laptop is|this thing",
  it: "it|this|that|this thing|things",
  everything: "everything|it all|the whole thing",
  mute: "mute|muted|on mute|to mute|mute mode|silent mode",
  silent: "silence|silent|make no sound|to silent|quiet",
  /** For good, as the sound is. */
  cutoff: "turn off|switch off|shut off|off|kill|cut|stop|disable|no|cut out|cut off|no more|lose",
  unmute: "unmute|unmuted|un mute|off mute|out of mute|unsilence",
  out: "out of|off",
  on: "on|turn on|switch on|back on|put on|enable|reenable|re enable|restore|on again",
  back: "let me have|again|back|back on|again|return|bring back|give back|give me back|restore|let me hear",
  change: "i would like|i want|i need|i could use|we need|i would love|put|set|make|bring|adjust|change|move|push|get|have|take|go|" +
    "switch|want|need|could use|give|would like|let us have|play|use|run|a setting of|sit|sits",
  turn: "turn|crank|pump|bump|jack|whack|nudge|dial|knock|notch|ramp|tone",
  bit: "bit|little|a bit|a little|a little bit|a tad|a touch|slightly|a notch|some|a lot|a smidge|a fraction|a good bit|quite a bit|a bit more|a " +
    "little more|somewhat|much|way|a hair|a few notches|" +
    "just a bit|just a little|a wee bit|a tiny bit|more|a couple of notches|a step|a good deal|considerably|significantly|one notch|two " +
    "notches|even|a whole lot",
  percent: "percent|%|per cent|points",
  up: "up|upwards|back up",
  louder: "louder|higher|raise|increase|boost|turn up|crank up|pump up|more loudly|loud|more volume|amplify|loudly|more sound|bump up|" +
    "jack up|beef up|turn up the volume on|up the volume|ramp up",
  down: "down|downwards|back down",
  quieter: "quieter|softer|lower|decrease|reduce|turn down|less loud|more quietly|more softly|quietly|softly|less volume|soft|tone down|" +
    "lower down|soften|quieten|" +
    "quieten down|dial down|dial back|less loudly|less noise|less noisy|whisper|quiet down|in a whisper|not so loud|not as loud|lessen|" +
    "drop|turn down the volume on",
  voice: "your voice|voice|the voice|your volume|your speaking voice|your speech|your speaking volume|your tone|yourself",
  speak: "speak|talk|say that|say it|speaking|talking",
  most: "max|maximum|full|all the way|all the way up|to the max|full blast|as loud as it goes|as loud as possible|as high as it goes|" +
    "full volume|the max|the loudest|full whack|highest|" +
    "to maximum|as high as possible|as far as it goes|to the top|as loud as it will go|as high as it will go|as far up as it goes|flat out",
  least: "minimum|the minimum|to the minimum|all the way down|to zero|zero|the lowest|lowest|as low as it goes|as low as possible|as quiet as " +
    "possible|down all the way|as far down as it goes|nothing",
  half: "half|halfway|half way|the middle|medium|midway|mid|in half|to half|middle",
  loud: "loud|high|level|turned up|set",
  next: "next|another|the next|different|a different|following|forward",
  skip: "skip|skip this|skip it|skip that|skip ahead|skip over|skip forward|skip past",
  previous: "previous|last|prior|preceding|back|go back|before|earlier|the one before|back one|back to",
  song: "song|track|tune|video|episode|songs|piece|record|album|single|tracks|next one",
  music: "music|song|track|playback|player|audio|movie|film|podcast|media|tune|tunes|playing|playlist|video|album|radio|songs|show|" +
    "track playing|show",
  pause: "pause|stop|halt|freeze|hold|pause playing|stop playing|cut|kill|put on hold|put on pause|on hold|on pause|interrupt|suspend|" +
    "turn off|switch off|shut off|off|quiet",
  wireless: "wireless|radio",
  pausing: "pause|pause playing|hit pause|press pause|stop playing|put on pause|on pause",
  awhile: "for a second|for a sec|for a minute|for a moment|for a bit|for a while|for now|a second|a sec|a moment|a minute|briefly",
  play: "let us hear|hear|play|resume|continue|unpause|restart|start playing|resume playing|keep playing|put on|carry on|carry on with|go on with|keep " +
    "going|hit play|press play|start|put|get|pick up|continue with",
  again: "again|once more|one more time|where i left off|where we left off|where it left off",
  some: "some|any",
  lock: "lock|lock up|lock down|locked|secure|keep locked|put a lock on",
  screen: "screen|display|desktop|session|monitor|workstation",
  shot: "screenshot|screen shot|screengrab|screen grab|screen capture|print screen|screencap|screen cap|snapshot of the screen|screen " +
    "snap|screenshots",
  take: "i would like|i want|i need|i could use|we need|i would love|take|make|grab|capture|do|snap|save|shoot|create|get|give me|would " +
    "like|want|need|i want|i need|have|could use",
  picture: "picture|photo|image|snapshot|snap|shot|capture|grab|copy|pic",
  whole: "whole|entire|full|everything on|all of|what is on|what i see|page|window|of everything|what i am seeing|current",
  howlong: "how long|how much time|how much longer|how many minutes|how many more minutes|how many seconds|much longer|much time|how " +
    "many hours|how much more time|how much",
  left: "left|remaining|to go|left to go|still to go|left over|remain|remains|still left|left on the clock|to run|got to go|how much " +
    "longer|much longer|how many more minutes|how much more time",
  last: "last|latest|recent|newest",
  which: "what|which|who|whose|name|what is|who is|title|identify",
  playing: "playing|listening to|hearing|being played|on the radio|this playing",
  sings: "sings|singing|sang|artist|singer|band|performing",
  author: "made|wrote|by|behind|performs|composed|plays|on|is this|right now",
  called: "called|name|title|named|titled",
  quantity: "how much|how full|level|percentage|percent|status|state|how many|how low|enough|low|much|how is|how charged|usage|how far|" +
    "life|charge|power|juice|amount|capacity|dead|empty|flat|dying|check|last|" +
    "many gigs|many gigabytes|gigs|gigabytes|how big|use|running out|run out|out of|die|dies|lasts|used up",
  battery: "battery|battery life|battery level|battery power|battery charge|charge left|power left|batteries",
  charging: "charging|plugged in|on mains|on battery power|fully charged|need charging|need a charge|need to charge|need to plug in|" +
    "hooked up to power|on the charger",
  disk: "disk|hard drive|hard disk|drive|ssd|storage|disc|disk drive",
  space: "space|disk space|storage|storage space|room|hard drive space|free space|drive space",
  full: "full|almost full|nearly full|filling up|filled up|getting full|run out|out|used|used up|running out|empty|low|low on",
  free: "free|left|available|remaining|unused|spare|used|in use|being used|taken|taken up|left over|using|eaten up|to spare|occupied",
  ram: "memory|ram|working memory|main memory",
  network: "network|wifi|wi fi|wireless network|wifi network|wi fi network|wireless|ssid|hotspot|network name|wifi name",
  internet: "internet|connection|internet connection|net|web|online|internet access|signal",
  connected: "connected|connected to|online|working|hooked up|hooked up to|using|offline|down|joined|logged on to|on|have|got|up and " +
    "running",
  reckon: "how much|how many|what|what is|convert|change|turn|express|work out|calculate|tell me|give me|what are|what would|switch",
  conversion: "in|into|to|as|make|makes|equal|equals|come to|comes to|that|it|expressed in|equivalent|same|out|worth|go into|be|for|" +
    "converted|you|i|if|when|equivalent to|expressed",
};
