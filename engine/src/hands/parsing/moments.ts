// Times of a day, with their day or without, as they are said: "quarter past seven", "tomorrow at 7 pm", "às sete e meia da
// noite", "amanhã de manhã".

import type { Language } from "../../base/language.ts";
import { clock, type Clock } from "./clocks.ts";
import { day, dayOf, daysBetween, daysLater, type Day } from "./days.ts";
import type { Found } from "./numbers.ts";
import type { Token } from "./tokens.ts";

type Part = "morning" | "afternoon" | "evening" | "night";

/** What a request is for: an hour to wake at is one of the morning, an hour to be reminded at one of the day. */
export type Purpose = "wake" | "alarm" | "remind";

export interface Moment {
  clock?: Clock;
  day?: Day;
  part?: Part;
}

const prepositions: Record<Language, RegExp> = {
  en: /^(at|for|on|by|around|to|in|the|from)$/,
  pt: /^(as|a|ao|para|em|na|no|o|la|pelas|pela|de|da|do|um|uma)$/,
};

/** A time that is followed by its bare hour: "at seven", "às sete". */
const announces: Record<Language, RegExp> = {
  en: /^(at|for|by|around|to|alarm|is)$/, pt: /^(as|a|das|pelas|for|forem|pela|acorda|acorde|desperta|desperte|alarme|despertador)$/,
};
/** "Wake us ten to eight", and "six tonight" at the beginning: a bare hour is one where the day, or a part of it, follows. */
const leads = /^(me|us|up|eu)$/;

/** Gives a moment with its clock, its day or both, in any order. A bare hour is one where `isHour` says that a time stood before it. */
export function moment(tokens: readonly Token[], at: number, language: Language, now: Date, isHour = false): Found<Moment> | undefined {
  const value: Moment = {};
  let next = at;
  for (;;) {
    let found = false;
    // A preposition or two stand before each part: "on Friday in the morning", "para as sete".
    for (let from = next; from <= next + 3 && !found; from++) {
      if (from > next && !prepositions[language].test(tokens[from - 1]?.plain ?? "")) break;
      // "Bring it in at three", "put it on at three": of two, the first belongs to the verb.
      if (language === "en" && from - next === 2 && /^(in|on|by)$/.test(tokens[next]!.plain) && tokens[from - 1]!.plain !== "the") break;
      const dayFound = value.day ? undefined : day(tokens, from, language, now);
      const partFound = value.part ? undefined : part(tokens, from, language);
      const isAnnounced = isHour || announces[language].test(tokens[from - 1]?.plain ?? "") || value.part !== undefined || value.day !== undefined;
      const isLed = from === 0 || leads.test(tokens[from - 1]?.plain ?? "");
      const clockFound = value.clock ? undefined : (clock(tokens, from, language, isAnnounced) ?? (isLed ? clockOfDay(tokens, from, language, now) : undefined));
      // "Seven in the morning" begins with a bare hour that only the part makes one.
      // "Check in tomorrow": "in" belongs to the verb before it.
      const isOfVerb = language === "en" && from > next && tokens[from - 1]?.plain === "in" && dayFound !== undefined;
      if (isOfVerb) break;
      if (dayFound) [value.day, next, found] = [dayFound.value, dayFound.next, true];
      else if (clockFound) [value.clock, next, found] = [clockFound.value, clockFound.next, true];
      else if (partFound) {
        value.part = partFound.value.part;
        if (partFound.value.isToday) value.day ??= dayOf(now);
        [next, found] = [partFound.next, true];
      }
    }
    if (!found) break;
  }
  return next > at ? { value, next } : undefined;
}

/** A bare hour with the day, or the part of it, right behind it. */
function clockOfDay(tokens: readonly Token[], at: number, language: Language, now: Date): Found<Clock> | undefined {
  const found = clock(tokens, at, language, true);
  const isBefore = /^(alarm|wake|alarme|despertador)$/.test(tokens[found?.next ?? at]?.plain ?? "");
  const isWithDay = found && !isBefore && (part(tokens, found.next, language) ?? day(tokens, found.next, language, now)) !== undefined;
  return isWithDay || isBefore ? found : undefined;
}

function part(tokens: readonly Token[], at: number, language: Language): Found<{ part: Part; isToday: boolean }> | undefined {
  const plain = (index: number): string => tokens[index]?.plain ?? "";
  if (language === "en") {
    if (plain(at) === "tonight") return { value: { part: "night", isToday: true }, next: at + 1 };
    const isToday = plain(at) === "this";
    const found = ({ morning: "morning", afternoon: "afternoon", arvo: "afternoon", evening: "evening", night: "night" } as const)[plain(isToday ? at + 1 : at)];
    return found && { value: { part: found, isToday }, next: at + (isToday ? 2 : 1) };
  }
  const isToday = /^(esta|nesta|hoje)$/.test(plain(at));
  const from = isToday ? at + 1 : at;
  const found = ({ manha: "morning", tarde: "afternoon", noite: "night", madrugada: "morning", cedo: "morning", tardinha: "afternoon", noitinha: "evening" } as const)[plain(from)];
  return found && { value: { part: found, isToday }, next: from + 1 };
}

/** The hour of 24 that is meant; undefined when both halves of the day are possible. */
function hourOf({ clock: said, part: of }: Moment): number | undefined {
  if (!said) return undefined;
  const { hour, isExact } = said;
  if (hour > 12 || hour === 0) return hour;
  switch (of) {
    case "morning":
      return isExact ? hour : hour % 12;
    case "afternoon":
      return isExact ? hour : (hour % 12) + 12;
    case "evening":
      return isExact ? hour : (hour % 12) + 12;
    case "night":
      // Twelve and one at night are hours of the next morning.
      return isExact ? hour : hour === 12 || hour < 5 ? hour % 12 : hour + 12;
    default:
      return isExact ? hour : undefined;
  }
}

/** Without an hour these are meant. */
const usual: Record<Part, number> = { morning: 9, afternoon: 15, evening: 19, night: 20 };

/** The local time that is meant: the next one from `now` on. Undefined for what has passed, or is not said. */
export function timeOf(said: Moment, now: Date, purpose: Purpose): Date | undefined {
  const today = dayOf(now);
  if (said.day && daysBetween(today, said.day) < 0) return undefined;
  const on = (date: Day, hour: number, minute: number): Date => new Date(date.year, date.month - 1, date.day, hour, minute);
  if (!said.clock) {
    if (purpose !== "remind" || (!said.day && !said.part)) return undefined;
    return ahead(on(said.day ?? today, said.part ? usual[said.part] : 9, 0), now);
  }
  const { minute } = said.clock;
  const hour = hourOf(said);
  const isAfterMidnight = hour !== undefined && hour < 5 && said.part === "night" && said.clock.hour !== hour + 12;
  if (hour !== undefined) {
    if (said.day) {
      // "Tonight at one", "midnight tonight": the night goes on after midnight.
      const isToday = daysBetween(today, said.day) === 0;
      const date = isAfterMidnight || (hour === 0 && isToday) ? daysLater(said.day, 1) : said.day;
      return ahead(on(date, hour, minute), now);
    }
    return ahead(on(today, hour, minute), now) ?? on(daysLater(today, 1), hour, minute);
  }
  const early = said.clock.hour % 12;
  if (purpose === "wake" && !(said.day && daysBetween(today, said.day) === 0)) {
    return said.day ? ahead(on(said.day, said.clock.hour, minute), now) : (ahead(on(today, early, minute), now) ?? on(daysLater(today, 1), early, minute));
  }
  if (said.day && daysBetween(today, said.day) > 0) {
    const isOfDay = purpose === "remind" && said.clock.hour < 7;
    return on(said.day, isOfDay ? said.clock.hour + 12 : said.clock.hour, minute);
  }
  const both = ahead(on(today, early, minute), now) ?? ahead(on(today, early + 12, minute), now);
  return both ?? (said.day ? undefined : on(daysLater(today, 1), early, minute));
}

/** An hour that is said without its half of the day; undefined for a number that is none. */
export function bareHour(hour: number | undefined): Moment | undefined {
  return hour !== undefined && Number.isInteger(hour) && hour <= 24 ? { clock: { hour, minute: 0, isExact: hour > 12 } } : undefined;
}

/** The times of a day that are meant, "07:00": two where the half of the day is open. */
export function timesOf(said: Moment): string[] {
  if (!said.clock) return [];
  const hour = hourOf(said);
  const two = (value: number): string => String(value).padStart(2, "0");
  const hours = hour === undefined ? [said.clock.hour % 12, (said.clock.hour % 12) + 12] : [hour];
  return hours.map((each) => `${two(each)}:${two(said.clock!.minute)}`);
}

function ahead(date: Date, now: Date): Date | undefined {
  return date.getTime() > now.getTime() ? date : undefined;
}

/** The local time as it is given to hands: "2026-11-22T07:15". */
export function localText(date: Date): string {
  const two = (value: number): string => String(value).padStart(2, "0");
  return `${date.getFullYear()}-${two(date.getMonth() + 1)}-${two(date.getDate())}T${two(date.getHours())}:${two(date.getMinutes())}`;
}
