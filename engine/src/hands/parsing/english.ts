// How English asks for a hand: what its phrases share, and what is only polite.

import { englishChanges } from "./englishChanges.ts";
import { englishDesktop } from "./englishDesktop.ts";
import { englishFacts } from "./englishFacts.ts";
import { englishMemory } from "./englishMemory.ts";
import { englishNotes } from "./englishNotes.ts";
import { englishShorthand } from "./englishShorthand.ts";
import { englishSound } from "./englishSound.ts";
import { englishTimers } from "./englishTimers.ts";
import type { Phrasing } from "./meanings.ts";

export const english: Phrasing = {
  parts: {
    ones: "(the|my|our|that|this|the current|my current|the running)",
    extra: "((another|an extra|an additional|a further) {duration} [more|longer]|{duration} (more|extra|longer)|{number:minutes} (more|extra|additional) (minute|minutes))",
    retime: "(change|move|shift|switch|reschedule|adjust|update|modify|alter|correct|push|push back|postpone|put off|bring|bring forward|reset|pull|pull forward|put back)",
    push: "(push|move|put|shift|bring|pull|set)",
    set:
      "(set|start|create|make|begin|add|run|put in|put on|put|set up|set me|start me|make me|make us|set us|start us|do me|run me|" +
      "setup|give me|get me|i need|i want|i would like|we need|let us have|let us set|let us do|let us start|launch|" +
      "schedule|program|do|kick off|fire up|have|can i have|could i have|can i get|could i get|may i have|let me have|can " +
      "we have|could we have|could we get|pop on|get|make it|make that|how about|what about|i could use|i will have|i will take|" +
      "let us go with)",
    a: "(a wee|wee|a little|a short|a small|a new little|a|an|another|one|one more|a new|the|my|another new|a quick)",
    called: "(and call it|and name it|called|named|labelled|labeled|titled|with the name|with the label|for|name it|call it|to)",
    the: "(the|my|our|this|that|the current|my current)",
    off:
      "(cancel|stop|delete|remove|clear|kill|end|dismiss|disable|turn off|switch off|shut off|get rid of|scrap|drop|abort|" +
      "silence|erase|scratch|ditch|skip|discard|never mind|forget|forget about|call off|unset|deactivate|wipe|take off|lose|quit)",
    remind:
      "(remind me|remind us|do remind me|give me a reminder|set a reminder|set me a reminder|create a reminder|make a reminder|add a reminder|set " +
      "up a reminder|i need a reminder|i want a reminder|put a reminder|i need you to remind me|make sure to remind me|" +
      "schedule a reminder|do not let me forget|send me a reminder|reminder|new reminder|set a reminder for me|create a " +
      "reminder for me|please remind me|jog my memory|nudge me|i want you to remind me|i would like you to remind me|can you remind me|" +
      "i would appreciate a reminder|i would love a reminder|i could use a reminder|leave me a reminder|set reminder|add reminder|" +
      "do not forget to remind me|see that i remember|make sure i remember|help me remember|make sure i do not forget|see that i do not forget|i want to be reminded|i need to be reminded|" +
      "i would like to be reminded|i want reminding|" +
      "i need reminding|give me a nudge|give me a shout|remember to remind me|drop me a reminder|ping me|prompt me|(see to it|see|make sure) [that] i am reminded|do not allow me to " +
      "forget|let me not forget|reminder for me|reminding me|reminding us)",
    alertme: "(ping|nudge|alert|notify|tell|warn|prompt|poke|call|text|message|bug) (me|us)",
    about:
      "(to|about|that|of|for|that i need to|that i have to|i need to|i have to|that i should|saying|it is time to|it is " +
      "time for|to remember to)",
    onto: "(to|on|onto|in|into|on to)",
    addverb:
      "(add|put|write|append|include|stick|throw|place|note|get|jot|jot down|write down|put down|enter|insert|pop|chuck|" +
      "toss|slap|whack|bung|drop|shove|log|pencil in|list)",
    removeverb:
      "(remove|delete|take|cross|scratch|strike|tick|check|erase|drop|cross off|strike off|tick off|check off|take off|" +
      "scratch off|cross out|strike out|get rid of|clear|kick|pull|wipe|mark off)",
    whose: "(the|my|our|a|that|this|the family|the household)",
    listname: "({few:list} list|list (called|named|for|of) {few:list})",
    volume:
      "(volume|sound|audio|speakers|speaker|system volume|sound volume|speaker volume|computer volume|master volume|volume " +
      "level|sound level|computer|music volume|music|system sound)",
    bit:
      "(a bit more|a little more|a tad|a smidge|a tiny bit|a fraction|just a touch|a good bit|quite a bit|a bit|a little|a " +
      "little bit|slightly|some|a lot|a notch|a touch|just a bit|just a little|much|way)",
    percent: "(percent|%|per cent)",
    song: "(song|track|tune|one|music track|video|episode)",
    music: "(music|song|track|video|playback|player|audio|movie|film|podcast|media|sound|tune|playing|playlist|album)",
    open: "(open|launch|open up|bring up|fire up|pull up|start up|boot up)",
    screen: "(screen|computer|pc|desktop|session|laptop|machine|display|workstation|system)",
    left: "(left|remaining|to go|left over|still left|left to go)",
    free: "(left|free|available|remaining|in use|used|unused|being used|left over|still free|still available)",
    network: "(network|wifi|wi fi|wireless network|wifi network|wi fi network|internet connection|connection|wireless)",
    measure: "(convert|change|turn|transform|translate)",
  },
  before: [
    "please", "kindly", "(like|you know|basically|anyway|anyways|wow|oh do|i mean|i meant|good heavens|goodness|goodness me|good grief|good lord|dear me|oh dear|bless you|blimey|crikey|right then|now then|oops|whoa|gosh|man|guess what|look|nice|perfect|cool|sure|fine|one sec|" +
      "one second)", "(can|could|would|will) you [please|kindly|just|quickly]", "can i (get|have) you to",
    "(hey|hi|hello|ok|okay|so|well|alright|all right|right|now|um|uh|oh|yo|then|and|also|great|thanks|yes|yeah|listen|" +
      "excuse me|go ahead and|just|quickly|quick|actually|sorry|good morning|good evening)",
    "(i would like|i want|i need|i should like) you to", "i would (rather|prefer it if) you", "(no|oh no) (hang on|hold on|wait|sorry)",
    "(see|check|find out) (if|whether)", "i should (like|love) to", "would you mind", "do me a favor and", "do me a favour and", "be so kind as to",
    "i was wondering if you could", "let me (sleep|rest|snooze)", "(yall|you all)", "(could|can|would) you (tell me|let me know)", "(tell me|let me know)", "do you know",
    "do you think you could", "(are you able|would it be possible) to", "is it possible to", "if you could",
    "i would appreciate it if you could", "why do not you", "how about you", "you can", "you should", "let us", "it is time to",
    "i would love it if you could", "(can|could) you (also|quickly|maybe)", "i would like to",
    "(i want|i need|i would like|i would love) to know", "you are mumbling", "(my dear|dear|darling|sweetie)",
    "i am going to need you to", "(ok|okay) (so|now)", "you know what", "(be a dear|be a darling|be a good fellow) and",
    "(will|would) you be so kind as to", "could i trouble you to", "feel free to", "while you are at it", "(can|could) we",
    "(that is|this is|it is|you are) [way|much|far|a bit|a little|really|so] too (loud|quiet|soft|noisy|low)",
    "it is [so|very|really|too|a bit] (loud|quiet|noisy) [in here]",
    "(i am|we are|i have to|i need to) (leaving|off|going out|heading out|stepping out|going|going away|about to leave|out " +
      "of here|leave|go|go out|done for today|done here|in a meeting|on the phone|going to bed|going to sleep|cooking|baking|" +
      "busy)",
    "i (can not|can hardly|can barely) (hear|hear it|hear you|hear this|hear anything|hear the music)",
    "(the|my) (baby|kids|children|neighbors|neighbours) (is|are) (sleeping|asleep|complaining)",
    "someone is (calling|at the door)",
    "(could|can|would|will|might|may) (you|i|we) (please|possibly|maybe|perhaps|just|also|kindly|quickly|quick|at least) [ask you to|" +
      "have you|get you to]",
    "(i would|i will) (appreciate it|be grateful|be glad|be happy|love it|like it) if you (could|would)",
    "(could|can) i (get|have|ask) you to",
    "(i was|i am|just) (wondering|curious) (if|whether) you (could|can|would|might)", "(do|would) you mind", "mind",
    "would it be (possible|ok|okay|alright|a bother) to",
    "(if it is|if that is) (possible|not too much trouble|no trouble|ok|okay)", "(if you could|if you can|if you do not mind|when you " +
      "have a moment|when you get a chance|whenever you can)",
    "(be so good|be so kind) as to", "would you be (so kind|kind enough|so good) [as] to",
    "i (would|will|am going to) [also|just] need you to", "any chance you (could|can)",
    "(is there any way|is there a way) (you could|you can|to)", "(oh|ok|okay|right|alright|hey|so) (yeah|yes|and|hey|then|one more " +
      "thing)", "one more thing", "before i forget [it]",
    "(i think|i guess|i suppose) (you|we|i) (could|should|can)", "(i wonder|wonder) if you (could|can)", "go on [and]",
    "could use you to", "i want to", "i need to", "i have to",
    "(pray|do|perhaps|possibly)", "sorry to (bother|trouble|disturb) you [but]",
    "i hate to (ask|bother you|trouble you) but", "(ugh|ah well|oh well|let me see)",
    "(if it is not|if that is not) too much (bother|trouble)", "(might|may|could) i (ask you|trouble you|ask|have you) to",
    "(i would|i should|i will|it would|that would) be [most|very|so|really|ever so] (obliged|grateful|glad|much obliged|happy|pleased|thankful|great|lovely|good|nice|kind|wonderful|helpful) " +
      "if you [would|could|can]", "i would (love|like|appreciate|prefer) it if you [would|could]",
    "i (wonder|was wondering) (whether|if) you (might|could|would) [be so kind as to]", "i would ask you to", "i find that",
    "i (would|should) (be most grateful for|be grateful for|appreciate|like)", "(would|might) you happen to (know|have)",
    "(could|might|may) i trouble you for", "might you", "would you kindly",
    "(real|really) quick", "by the way", "hang on", "hold on", "wait", "oh (and|also|right)", "(quick|one) (question|thing)",
    "how (about|would you feel about)", "(can|could) you (help me|help me to)",
    "(would|could) you be able to", "remember to", "do not forget to", "make sure to", "make sure you", "be sure to",
    "(computer|assistant|there)", "(i am|we are) trying to", "(may|might) i (know|ask)",
    "(any idea|have you any idea|do you have any idea|do you happen to know|i am curious|just curious|remind me|out of curiosity|i " +
      "forget|i forgot)", "your (job|task) is to", "you (may|might|could)", "(may|can|could) i (ask you to|ask)", "help me", "try to",
  ],
  polite: [
    "please", "(ta|ta very much|cheers|love|duck|mate)", "(thanks|thank you) [so much|very much|a lot]", "(if you please|there is a dear|if you will|if you would be so kind)", "(would|will|could|can) you",
    "if you (can|could|would|do not mind)", "(that|it|this) would be (lovely|great|nice|wonderful|kind|grand|perfect|helpful)",
  ],
  after: [
    "for me", "at the moment", "or (not|did not i|do not i|have not i|is it not)", "(roughly|approximately|exactly)", "not before", "just now",
    "(now|right now|right away|immediately|at once|quickly|asap|for us)", "if possible", "(not needed|no longer needed) [anymore|any more|now]", "(instead of|rather than) ({duration}|{number})", "or (not|has it dropped|is it down|did it drop)", "ok", "okay", "then", "mate",
    "buddy", "again", "when you can", "real quick", "quick", "instead", "cheers", "(will|would) you please",
    "(i am|we are) (on the phone|in a meeting|leaving|going out|trying to sleep|trying to work|on a call|busy|cooking|sleeping)",
    "i (can not|can hardly|can barely) (hear|hear it|hear you|hear this|hear anything|hear the music)",
    "(it is|this is|that is) [way|much|far|a bit|really] too (loud|quiet)", "(dear|darling|love|sweetie|honey)",
    "if you do not mind", "as well", "too", "if i may ask", "so far", "at present", "as it were", "i think",
    "(the|my) (baby|kids|children|neighbors|neighbours) (is|are) (sleeping|asleep|complaining)", "will you",
    "(alright|all right|yeah|right|my dear|pal|computer|assistant)",
    "when you (get a chance|have a moment|have a second|have a sec|are ready)", "thanks in advance",
    "if (that is|it is) (ok|okay|possible|not too much trouble|no trouble|alright|all right)", "if you (would|could) be so kind",
    "(whenever you are ready|whenever you can|before i forget)",
    "(do you know|can you tell me|could you tell me|any idea|i wonder|by the way|please and thank you|by any chance|straight away|" +
      "straightaway|this instant|this minute|this second)",
    "(i do not|i will not|we do not|i no longer) need (it|that|them) [anymore|any more|any longer|now]",
    "(for a bit|for a while|for a second|for a sec|for a moment|for a minute|for now)",
  ],
  shorthand: englishShorthand,
  requests: [...englishChanges, ...englishTimers, ...englishNotes, ...englishSound, ...englishDesktop, ...englishFacts, ...englishMemory],
};
