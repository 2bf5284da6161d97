// What English asks for in as few words as it takes: "eggs six minutes", "milk on the shopping list", "downloads folder". It counts only where
// nothing else is understood, and for the whole of what was said.

import type { Request } from "./meanings.ts";

export const englishShorthand: readonly Request[] = [
  [
    "timeThis",
    [
      "[<whose>] {word:name} in [the] (oven|pan|pot|microwave|freezer|fridge|washer|dryer) {duration} [starting now|from now]",
      "[<whose>] {few:name} {duration} [go|starting now|from now]", "{duration} (on|for) [<whose>] {few:name}", "{duration} {word:name}",
    ],
  ],
  ["setTimer", ["{duration} (go|starting now|from now)", "[tell me|let me know] when {duration} (is|are) (up|over|done)"]],
  ["wake", ["up {moment}", "(nap|power nap|kip) [of] {duration} (wake me|wake us|then wake me)", "{duration} (nap|kip) (wake me|wake us|then wake me)"]],
  [
    "remindTask",
    [
      "<remind> {moment} {text}", "<remind> in {duration} {text}", "{moment} <remind> {text}", "in {duration} <remind> {text}",
      "{text} <remind> {moment}", "{text} <remind> in {duration}",
    ],
  ],
  ["readBareList", ["[<whose>] {few:list} list"]],
  ["readList", ["{few:item} (on|in) [<whose>] {few:list} list ?"]],
  ["addThese", ["{text} (on|onto|to|for) <whose> {few:list} list"]],
  ["takeThese", ["{text} off <whose> {few:list} list"]],
  ["openKnownApplication", ["[<whose>] {few:text}"]],
  ["openFolder", ["[<whose>] {word:text} (folder|directory) [open it|open that]"]],
  ["forget", ["(wipe|clear|delete|erase) (our|these|the|my) (chats|conversations)"]],
  ["recall", ["[what was] {past:day} (chat|conversation|talk) [what was it] [about]"]],
];
