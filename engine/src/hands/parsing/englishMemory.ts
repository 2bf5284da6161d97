// The phrases by which English asks for what was talked about.

import type { Request } from "./meanings.ts";

/** What was talked about may be asked for with its day. */
function onADay(phrases: readonly string[]): string[] {
  return phrases.flatMap((phrase) => (phrase.endsWith("{text}") ? [`${phrase} [on] {past:day}`, phrase] : [phrase]));
}

export const englishMemory: readonly Request[] = [
  [
    "recall",
    onADay([
      "(do you remember|remember|do you recall|recall) what (we|i) (talked about|said|spoke about|discussed|asked|asked you) [on] {past:day}",
      "what (did|have|do|were) (we|i|you and i) (talk|talked|speak|chat|discuss|spoken|discussed|talking|chatting|speaking|" +
        "speak about|chatted) [about] [on] {past:day}",
      "what did (we|i|you and i) (talk|speak|chat) about {past:day}",
      "what did (i|we) (ask|ask you|say|say to you|tell you|want|want to know|ask you about|ask about) [on|about] {past:day}",
      "(what|do you remember what) (did we|did i|have we|have i|we|i) (talk|talked|speak|spoken|chat|" +
        "discuss|say|said|discussed|ask|tell you) [you] about {text} {past:day}",
      "(what|when) did (we|i|you and i) [ever|last] (talk|speak|say|chat|discuss|tell you|ask you|ask|discuss with you|" +
        "talk to you|say to you) about <the> {text}",
      "(what|when) did (we|i|you and i) [ever|last] (talk|speak|say|chat|discuss|tell you|ask you|ask|discuss with you|" +
        "talk to you|say to you) about {text}",
      "(what was it|what is it|what was) [that] (we|i) (talked|spoke|chatted|discussed|said|asked) [about] [on] {past:day}",
      "(what|remind me what|tell me what|tell me again what) (we|i) (talked|said|spoke|discussed|told you|asked you|" +
        "decided|agreed) [about] [on] {past:day}",
      "(remind me what|tell me what|tell me again what|remind me of what|what was it) (we|i) (talked|said|spoke|discussed|" +
        "told you|asked you|asked) about [<the>] {text}",
      "(did|have) (we|i|you and i) (ever|already|once|recently|just) (talk|talked|speak|spoken|chat|chatted|discussed|" +
        "discuss|ask you|asked you|tell you|told you|mention|mentioned) [about] [<the>] {text} [before|already]",
      "(when|where) was the last time (we|i) (talked|spoke) about [<the>] {text}",
      "what have (we|i) (said|discussed|told you|asked you) about [<the>] {text}",
      "(what|what all|did|have|when|where) [did|were|have|was] (we|i|you and i) [ever|last|just] (say|saying|said|talking|discussing|" +
        "discussed|talk|telling you|mention|decide|decided|chat|chatting|speak|speaking) [you] [something|anything|much] (about|on|" +
        "regarding|concerning) [<the>] {text}",
      "did not (we|i|you and i) (talk|speak|chat) about [<the>] {text} (at some point|the other day|once|before|) ?",
      "(what|anything) did i (mention|want to know) (about|on) [<the>] {text}",
      "(search|go through|look through) (our|my|the|past|old) [past|old|previous] (conversations|chats) (about|for) " +
        "[<the>] {text}",
      "what was (discussed|talked about|said) [on] {past:day}", "what were (we|you and i) (saying|discussing) [on] {past:day}",
      "what was (yesterday|last) conversation about", "what did we discuss [on] {past:day}",
      "when did (we|i) (talk|speak|chat|ask|ask you|last talk|tell you) about {text}",
      "(search|look through|look in|look up in|find in) (our|my|the|past|old) [past|old|previous] (conversations|" +
        "conversation|history|chats|chat history) for {text}",
      "(find|show me|look for) [the|our|my|a] (conversation|conversations|chat|chats) (about|on|where we talked about) {text}",
      "(do you remember|remember) (what we|what i) (talked|said|spoke|discussed|asked) about {text}",
      "(did|have) (we|i) (talk|talked|speak|spoken|ask you|asked you) about {text} [before]",
      "(what have we|have we) (talked|spoken) about {text}", "what were we talking about [on] {past:day}",
      "what was our conversation about {past:day}", "what was {past:day} conversation about",
    ]),
  ],
  [
    "forget",
    [
      "(forget|delete|erase|remove|wipe|discard|clear) (this|our|the|the current|this whole|the whole|our current|this " +
        "entire|all of this) (conversation|chat|talk|discussion|dialogue) [from your memory|from memory|completely]",
      "forget (everything|all) [that] (we|i|i have|we have) [just] (said|talked about|discussed|told you) [in this " +
        "conversation|just now]",
      "forget (what|all that) (we|i|i have|we have) [just] (said|talked about|discussed|told you|asked|asked you|talked) " +
        "[in this conversation]",
      "(forget|delete|erase|clear|wipe) (what|everything|all|all that) (we|i|we have|i have) [just] (said|talked about|discussed|told " +
        "you|asked) (just now|today|now|earlier|so far|before)",
      "(delete|erase|wipe) (this|our|the) (conversation|chat) history",
      "do not (keep|remember|save|store) this (conversation|chat)", "forget that we (talked|spoke|had this conversation)",
      "forget that conversation", "(forgot|forgot about) (this|our|the) (conversation|chat)", "forget this whole thing we talked about", "erase this from [your] memory",
      "(forget|delete|erase|remove|wipe|discard|clear) (everything|all) [that] (we|i|we have|i have) [just] (said|talked " +
        "about|discussed|told you|talked) [today|just now|so far|here|in this conversation|right now]",
      "(forget|delete|erase|remove|wipe|discard|clear) all of (this|our|the) (conversation|chat)",
      "(wipe|clear|delete|erase) [the] (memory|record|history) of this (conversation|chat)",
      "(get rid of|throw away|scrap|purge) (this|our|this whole|the whole) (conversation|chat)",
      "(forget|erase|delete) (what was|everything that was) (said|discussed|talked about) [here|just now]",
      "i want you to forget (this conversation|this chat|what we said|everything we said|what i said)",
      "(forget|erase|delete) what (we|i) (were|was) (talking about|discussing)",
    ],
  ],
];
