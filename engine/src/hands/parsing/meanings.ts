// What requests mean: the hand that a sentence asks for, and what the hand is given. Both languages have phrases for each.

import { changeMeanings } from "./changeMeanings.ts";
import { correctedItems } from "./corrections.ts";
import { dayOf, type Day } from "./days.ts";
import { count, dayText, longestTimer, name, text, when, withList, wording, type Meaning, type Meant } from "./meaning.ts";
import { localText, timeOf, timesOf, type Moment, type Purpose } from "./moments.ts";
import { areThings, isApplicationName, isEmptyNote, isItem, isKnownApplication, isKnownFolder, isTimerName, isUnsaid } from "./names.ts";
import { shorthandMeanings } from "./shorthandMeanings.ts";

/** "One more day" is said of something else. */
const longestSnooze = 12 * 3_600;

/** What may be left of the time behind what one is to be reminded of. */
const lastDay = /\s+(?:today|tonight|tomorrow|hoje|amanhã|amanha)$/iu;

/** "Every", "every morning", "todo dia" behind what one is to be reminded of. */
const again = new RegExp(
  "\\s(?:every|each|todos?|todas?|cada)(?:\\s+[oa]s?)?" +
    "(?:\\s+(?:day|morning|afternoon|evening|night|week|weekday|month|hour|\\p{L}+day|dias?|manhãs?|tardes?|noites?|semana|mês|hora))?" +
    "(?:\\s+(?:at|on|by|in|from|às|as|de|no|na))?$",
  "iu",
);

function alarm(purpose: Purpose): Meaning {
  return (slots, now) => {
    const at = when(slots, now, purpose);
    const called = name(slots);
    // "Wake me at seven for the next five days" is more than once.
    const why = text(slots, "why");
    if (why !== undefined && !isTimerName(why)) return undefined;
    return at && called ? { hand: "timer", given: { do: "alarm", ...at, ...called } } : undefined;
  };
}

function cancel(kind: string | undefined): Meaning {
  return (slots, now) => {
    const called = name(slots);
    const seconds = count(slots, "duration");
    const moment = slots.moment as Moment | undefined;
    const at = moment && timeOf(moment, now, "alarm");
    if (!called || (slots.moment !== undefined && !at)) return undefined;
    const on = slots.day === undefined ? {} : { day: dayText(slots.day as Day) };
    const which = { ...(kind === undefined ? {} : { kind }), ...called, ...on };
    // "My seven o'clock alarm" may be that of another day.
    const times = moment && !moment.day ? { times: timesOf(moment) } : {};
    const when = { ...(seconds === undefined ? {} : { seconds }), ...(at ? { at: localText(at) } : {}), ...times };
    return { hand: "timer", given: { do: "cancel", ...which, ...when } };
  };
}

function tell(kind: string | undefined): Meaning {
  return (slots) => {
    const called = name(slots);
    const on = slots.day === undefined ? {} : { day: dayText(slots.day as Day) };
    return called && { hand: "timers", given: { ...(kind === undefined ? {} : { kind }), ...called, ...on } };
  };
}

/** "The lemons, we've loads". */
const because = /,\s*(?:i|we|you|they|there)(?:['’](?:ve|re|s|m|d)|\s+(?:have|are|is|got|had))\s.*$/iu;

function fixed(hand: string, given: Record<string, unknown> = {}): Meaning {
  return () => ({ hand, given });
}

/** A volume in percent: none that there is not. */
function volume(of: "system" | "voice"): Meaning {
  return (slots) => {
    const to = count(slots, "number");
    return to !== undefined && to >= 0 && to <= 100 ? { hand: "volume", given: { of, to } } : undefined;
  };
}

function volumeBy(of: "system" | "voice", sign: 1 | -1): Meaning {
  return (slots) => {
    const by = count(slots, "number") ?? 10;
    return by > 0 && by <= 100 ? { hand: "volume", given: { of, by: sign * by } } : undefined;
  };
}

/** "Add three to five": a sum of the numbers "a" and "b". */
function operation(sign: string): Meaning {
  return (slots) => {
    const [a, b] = [count(slots, "a"), count(slots, "b")];
    return a === undefined || b === undefined ? undefined : { hand: "calculate", given: { expression: `${a} ${sign} ${b}` } };
  };
}

export const meanings = {
  setTimer: (slots) => {
    const seconds = count(slots, "duration");
    const called = name(slots);
    if (seconds === undefined || seconds < 1 || seconds > longestTimer || !called) return undefined;
    return { hand: "timer", given: { do: "timer", seconds: Math.round(seconds), ...called } };
  },
  setAlarm: alarm("alarm"),
  wake: alarm("wake"),
  remind: (slots, now) => {
    const at = when(slots, now, "remind");
    const about = wording(slots);
    // "Every morning at eight" is more than once.
    if (about !== undefined && again.test(about)) return undefined;
    return at && about !== undefined && !isUnsaid(about.replace(lastDay, "")) ? { hand: "timer", given: { do: "reminder", ...at, about } } : undefined;
  },
  ...changeMeanings,
  ...shorthandMeanings,
  cancelTimer: cancel("timer"),
  cancelAlarm: cancel("alarm"),
  cancelReminder: cancel("reminder"),
  cancelTimers: fixed("timer", { do: "cancel", kind: "timer", all: true }),
  cancelAlarms: fixed("timer", { do: "cancel", kind: "alarm", all: true }),
  cancelReminders: fixed("timer", { do: "cancel", kind: "reminder", all: true }),
  snooze: (slots) => {
    const seconds = count(slots, "duration");
    if (seconds !== undefined && seconds > longestSnooze) return undefined;
    return { hand: "timer", given: { do: "snooze", ...(seconds === undefined ? {} : { seconds: Math.round(seconds) }) } };
  },
  snoozeMinutes: (slots) => {
    const minutes = count(slots, "number");
    return minutes !== undefined && minutes >= 1 ? { hand: "timer", given: { do: "snooze", seconds: Math.round(minutes * 60) } } : undefined;
  },
  tellTimers: tell("timer"),
  tellAlarms: tell("alarm"),
  tellReminders: tell("reminder"),
  tellPending: tell(undefined),
  note: (slots) => {
    const said = wording(slots);
    // "Take a note of caution" is said of something else.
    return said === undefined || isEmptyNote(said) || /^((of|from|off)\b|(everything|tudo|all|tudo isso)$)/i.test(said) ? undefined : { hand: "note", given: { do: "note", text: said } };
  },
  addToList: (slots) => {
    const said = text(slots, "text");
    const items = said === undefined ? undefined : correctedItems(said.replace(/\s+(?:instead|no lugar)$/iu, ""));
    // "Write a poem about the shopping list" adds nothing to it.
    const isPart = /\s(about|of|for|with|from|sobre|de|para|com|do|da)$|^ (de|d[ao]s?) /i.test(` ${items}`);
    const isWhole = items !== undefined && isItem(items) && !isPart;
    // Of "let's have it rising, and while you're at it put yeast on the list" the first part asks for something else.
    const isOne = items !== undefined && !/\s(?:and|e)\s(?:.*\s)?(?:add|put|stick|pop|adiciona|coloca|põe|poe|bota)\s/iu.test(items);
    return isWhole && isOne ? withList(slots, "note", { do: "add", items }) : undefined;
  },
  /** "Shopping list, ketchup and mustard" has no verb: it adds what is nothing but the names of things. */
  listThese: (slots) => {
    const items = text(slots, "text");
    return items !== undefined && areThings(items) ? withList(slots, "note", { do: "add", items }) : undefined;
  },
  removeFromList: (slots) => {
    const said = text(slots, "text");
    const item = said === undefined ? undefined : correctedItems(said.replace(/^off\s+(?=the\s)/iu, "").replace(because, ""));
    return item === undefined || !isItem(item) ? undefined : withList(slots, "note", { do: "remove", item });
  },
  clearList: (slots) => withList(slots, "note", { do: "clear" }),
  readNotes: fixed("notes"),
  readList: (slots) => withList(slots, "notes"),
  tellLists: fixed("notes", { do: "lists" }),
  setVolume: volume("system"),
  louder: volumeBy("system", 1),
  quieter: volumeBy("system", -1),
  loudest: fixed("volume", { of: "system", to: 100 }),
  softest: fixed("volume", { of: "system", to: 0 }),
  half: fixed("volume", { of: "system", to: 50 }),
  muteSound: fixed("volume", { of: "system", mute: true }),
  unmuteSound: fixed("volume", { of: "system", mute: false }),
  tellVolume: fixed("volume", { of: "system" }),
  setVoice: volume("voice"),
  voiceLouder: volumeBy("voice", 1),
  voiceQuieter: volumeBy("voice", -1),
  play: fixed("media", { do: "play" }),
  pause: fixed("media", { do: "pause" }),
  next: fixed("media", { do: "next" }),
  previous: fixed("media", { do: "previous" }),
  tellPlaying: fixed("playing"),
  open: (slots) => {
    const what = text(slots, "text");
    return what !== undefined && isApplicationName(what) ? { hand: "open", given: { name: what } } : undefined;
  },
  openKnownApplication: (slots) => {
    const what = text(slots, "text");
    return what !== undefined && isKnownApplication(what) ? { hand: "open", given: { name: what } } : undefined;
  },
  openFolder: (slots) => {
    const folder = text(slots, "text");
    // Of "the folder with my videos" only the last words are its name.
    return folder === undefined || /[,;:]\s|\sque\s/.test(folder) || /^(with|of|for|where|what|containing|com|onde|o que)\b/i.test(folder) ? undefined : { hand: "open", given: { folder } };
  },
  openKnownFolder: (slots) => {
    const folder = text(slots, "text");
    return folder !== undefined && isKnownFolder(folder) ? { hand: "open", given: { folder } } : undefined;
  },
  openAddress: (slots) => {
    const address = text(slots, "text")?.replace(/\s+(dot|ponto)\s+/gi, ".");
    const isAddress = address !== undefined && /^(https?:\/\/)?[\w-]+(\.[\w-]+)+(:\d+)?([/?#]\S*)?$/i.test(address);
    return isAddress ? { hand: "open", given: { address } } : undefined;
  },
  lock: fixed("lock"),
  screenshot: fixed("screenshot"),
  weekday: (slots) => (slots.day ? { hand: "date", given: { do: "weekday", day: dayText(slots.day as Day) } } : undefined),
  daysUntil: (slots) => (slots.day ? { hand: "date", given: { do: "until", day: dayText(slots.day as Day) } } : undefined),
  daysSince: (slots) => (slots.day ? { hand: "date", given: { do: "since", day: dayText(slots.day as Day) } } : undefined),
  daysBetween: (slots, now) => {
    if (!slots.from || !slots.to) return undefined;
    if (dayText(slots.from as Day) === dayText(dayOf(now))) return { hand: "date", given: { do: "until", day: dayText(slots.to as Day) } };
    return { hand: "date", given: { do: "between", day: dayText(slots.from as Day), other: dayText(slots.to as Day) } };
  },
  battery: fixed("machine", { what: "battery" }),
  disk: fixed("machine", { what: "disk" }),
  memory: fixed("machine", { what: "memory" }),
  network: fixed("machine", { what: "network" }),
  calculate: (slots) => {
    const expression = text(slots, "sum");
    return expression === undefined ? undefined : { hand: "calculate", given: { expression } };
  },
  add: operation("+"),
  subtract: operation("-"),
  multiply: operation("*"),
  divide: operation("/"),
  /** What part of "b" is "a". */
  percentage: (slots) => {
    const [a, b] = [count(slots, "a"), count(slots, "b")];
    return a === undefined || b === undefined ? undefined : { hand: "calculate", given: { expression: `${a} / ${b} * 100` } };
  },
  convert: (slots) => {
    const from = text(slots, "measure");
    const to = text(slots, "unit");
    return from === undefined || to === undefined ? undefined : { hand: "calculate", given: { expression: from, to } };
  },
  recall: (slots) => {
    const about = text(slots, "text");
    const on = slots.day as Day | undefined;
    const days = on?.days === undefined ? {} : { days: on.days };
    return { hand: "recall", given: { ...(on ? { day: dayText(on), ...days } : {}), ...(about === undefined ? {} : { about }) } };
  },
  forget: fixed("forget"),
} satisfies Record<string, Meaning>;

export type MeaningName = keyof typeof meanings;

/** What these note down is kept to the word: "note that I have to go now". */
export const verbatim: readonly MeaningName[] = ["note", "addToList", "listThese", "addThese", "removeFromList", "takeThese", "remind", "remindTask"];

/** Where free words are kept to the letter; undefined where nothing is. */
export function keptIn({ hand, given }: Meant): "text" | "about" | undefined {
  if (hand === "note" && given.do === "note") return "text";
  return hand === "timer" && given.do === "reminder" ? "about" : undefined;
}

const tellers: readonly string[] = ["timers", "notes", "playing", "date", "machine", "calculate", "recall"];

/** It does something, and does not only tell. */
export function changes({ hand }: Meant): boolean {
  return !tellers.includes(hand);
}

/** A meaning, and the phrases that have it. */
export type Request = readonly [MeaningName, readonly string[]];

/** What the phrases of a language are made of. */
export interface Phrasing {
  /** Pieces that several phrases share, by name. */
  parts: Readonly<Record<string, string>>;
  /** What may stand before and after a request without changing it. */
  before: readonly string[];
  /** These are no part of what is noted. */
  polite: readonly string[];
  /** These may be. */
  after: readonly string[];
  /** The first meaning of which a phrase takes the sentence is meant. */
  requests: readonly Request[];
  /** Taken only where nothing else is understood, and for the whole sentence. */
  shorthand: readonly Request[];
}
