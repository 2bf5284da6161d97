// What requests mean that have no verb, or no word between their parts.

import { count, longestTimer, name, text, when, withList, wording, type Meaning } from "./meaning.ts";
import { areBareThings, isTask, isTimed, isUsualList } from "./names.ts";

export const shorthandMeanings = {
  /** "Eggs six minutes" is a timer; a verb, or who does something, makes it talk. */
  timeThis: (slots) => {
    const seconds = count(slots, "duration");
    const thing = name(slots)?.name;
    if (seconds === undefined || seconds < 1 || seconds > longestTimer || thing === undefined || !isTimed(thing)) return undefined;
    return { hand: "timer", given: { do: "timer", seconds: Math.round(seconds), name: thing } };
  },
  /** "Call Jim, remind me at noon", "remind me at noon call Jim": no word stands between, so it has to be something to be done. */
  remindTask: (slots, now) => {
    const at = when(slots, now, "remind");
    const about = wording(slots);
    return at && about !== undefined && isTask(about) ? { hand: "timer", given: { do: "reminder", ...at, about } } : undefined;
  },
  /** "Milk on the shopping list" and "eggs off the shopping list" have no verb. */
  addThese: (slots) => {
    const items = text(slots, "text");
    return items !== undefined && areBareThings(items) && isUsualList(text(slots, "list") ?? "") ? withList(slots, "note", { do: "add", items }) : undefined;
  },
  takeThese: (slots) => {
    const item = text(slots, "text");
    return item !== undefined && areBareThings(item) && isUsualList(text(slots, "list") ?? "") ? withList(slots, "note", { do: "remove", item }) : undefined;
  },
  /** "Shopping list", and nothing else. */
  readBareList: (slots) => {
    const list = text(slots, "list");
    return list !== undefined && isUsualList(list) ? withList(slots, "notes") : undefined;
  },
} satisfies Record<string, Meaning>;
