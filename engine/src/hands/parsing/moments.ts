// Times of a day, with their day or without, as they are said: "quarter past seven", "tomorrow at 7 pm", "às sete e meia da
// noite", "amanhã de manhã".

import type { Language } from "../../base/language.ts";
import { day, dayOf, daysBetween, daysLater, type Day } from "./days.ts";
import { wholeNumber, type Found } from "./numbers.ts";
import type { Token } from "./tokens.ts";

type Part = "morning" | "afternoon" | "evening" | "night";

interface Clock {
  hour: number;
  minute: number;
  /** The hour is one of 24, not of 12. */
  isExact: boolean;
}

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
const announces: Record<Language, RegExp> = { en: /^(at|for|by|around|to)$/, pt: /^(as|a|das|pelas|pela|acorda|acorde|desperta|desperte)$/ };

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
      const clockFound = value.clock ? undefined : clock(tokens, from, language, isAnnounced);
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

function part(tokens: readonly Token[], at: number, language: Language): Found<{ part: Part; isToday: boolean }> | undefined {
  const plain = (index: number): string => tokens[index]?.plain ?? "";
  if (language === "en") {
    if (plain(at) === "tonight") return { value: { part: "night", isToday: true }, next: at + 1 };
    const isToday = plain(at) === "this";
    const found = ({ morning: "morning", afternoon: "afternoon", evening: "evening", night: "night" } as const)[plain(isToday ? at + 1 : at)];
    return found && { value: { part: found, isToday }, next: at + (isToday ? 2 : 1) };
  }
  const isToday = /^(esta|nesta|hoje)$/.test(plain(at));
  const from = isToday ? at + 1 : at;
  const found = ({ manha: "morning", tarde: "afternoon", noite: "night", madrugada: "morning", cedo: "morning", tardinha: "afternoon", noitinha: "evening" } as const)[plain(from)];
  return found && { value: { part: found, isToday }, next: from + 1 };
}

function clock(tokens: readonly Token[], at: number, language: Language, isAnnounced: boolean): Found<Clock> | undefined {
  const plain = (index: number): string => tokens[index]?.plain ?? "";
  const written = /^(\d{1,2})[:.](\d{2})$/.exec(plain(at));
  if (written && Number(written[1]) < 24 && Number(written[2]) < 60 && (isAnnounced || plain(at).includes(":"))) {
    const hour = Number(written[1]);
    return withHalf(tokens, { hour, minute: Number(written[2]), isExact: hour > 12 || hour === 0 || written[1]!.startsWith("0") }, at + 1, language);
  }
  if (language === "pt") return portugueseClock(tokens, at, isAnnounced);
  const found = englishClock(tokens, at, isAnnounced);
  return found && { ...found, next: found.next + (/^(sharp|exactly)$/.test(plain(found.next)) ? 1 : 0) };
}

/** Takes "am" or "pm" along. */
function withHalf(tokens: readonly Token[], value: Clock, next: number, language: Language): Found<Clock> {
  // "Ten a m", as some recognisers write it.
  const isApart = /^[ap]$/.test(tokens[next]?.plain ?? "") && tokens[next + 1]?.plain === "m";
  const word = isApart ? `${tokens[next]!.plain}m` : (tokens[next]?.plain ?? "");
  if (language !== "en" || !/^[ap]m$/.test(word) || value.hour > 12) return { value, next };
  return { value: { hour: (value.hour % 12) + (word === "pm" ? 12 : 0), minute: value.minute, isExact: true }, next: next + (isApart ? 2 : 1) };
}

function named(hour: number, minute: number, next: number): Found<Clock> {
  return { value: { hour, minute, isExact: true }, next };
}

function englishClock(tokens: readonly Token[], at: number, isAnnounced: boolean): Found<Clock> | undefined {
  const plain = (index: number): string => tokens[index]?.plain ?? "";
  if (/^(noon|midday)$/.test(plain(at))) return named(12, 0, at + 1);
  if (plain(at) === "midnight") return named(0, 0, at + 1);
  const from = plain(at) === "a" ? at + 1 : at;
  // "Quarter past seven", "ten to eight", "half past six", "five minutes after nine".
  const share = { quarter: 15, half: 30 }[plain(from)];
  const count = share === undefined ? wholeNumber(tokens, from, "en") : { value: share, next: from + 1 };
  if (count && count.value > 0 && count.value < 60) {
    const next = /^(minutes?|mins?)$/.test(plain(count.next)) ? count.next + 1 : count.next;
    const isAfter = /^(past|after)$/.test(plain(next));
    const isBefore = /^(to|before|till|until|of)$/.test(plain(next)) && (isAnnounced || share !== undefined);
    const hour = isAfter || isBefore ? hourIn(tokens, next + 1, "en") : undefined;
    if (hour) {
      const minute = isAfter ? count.value : 60 - count.value;
      const whole = isAfter ? hour.value.hour : (hour.value.hour + 23) % 24 || (hour.value.isExact ? 0 : 12);
      const value = { hour: whole, minute, isExact: hour.value.isExact };
      return withHalf(tokens, value, plain(hour.next) === "oclock" ? hour.next + 1 : hour.next, "en");
    }
    if (share === 30 && isAnnounced && !isAfter && !isBefore) {
      const British = hourIn(tokens, count.next, "en");
      if (British && !British.value.isExact) return withHalf(tokens, { ...British.value, minute: 30 }, British.next, "en");
    }
  }
  const hour = hourIn(tokens, at, "en");
  if (!hour || hour.value.isNamed) return undefined;
  const { hour: whole, isExact } = hour.value;
  if (plain(hour.next) === "oclock") return withHalf(tokens, { hour: whole, minute: 0, isExact }, hour.next + 1, "en");
  if (plain(hour.next) === "o" && plain(hour.next + 1) === "clock") return withHalf(tokens, { hour: whole, minute: 0, isExact }, hour.next + 2, "en");
  const isOh = /^(oh|o)$/.test(plain(hour.next));
  const minutes = /^\d{2}$/.test(plain(hour.next)) || !/^\d/.test(plain(hour.next)) ? wholeNumber(tokens, isOh ? hour.next + 1 : hour.next, "en") : undefined;
  const isMinute = minutes && minutes.value < 60 && (isOh ? minutes.value < 10 : minutes.value >= 10) && !isUnit(plain(minutes.next));
  const value = isMinute ? { hour: whole, minute: minutes.value, isExact } : { hour: whole, minute: 0, isExact };
  const found = withHalf(tokens, value, isMinute ? minutes.next : hour.next, "en");
  const hasHalf = found.next > (isMinute ? minutes.next : hour.next);
  if (isUnit(plain(found.next))) return undefined;
  const inThe = /^(in|at)$/.test(plain(found.next)) && /^(the|night)$/.test(plain(found.next + 1)) && /^(morning|afternoon|evening|night)$/.test(plain(found.next + (plain(found.next + 1) === "the" ? 2 : 1)));
  return isAnnounced || hasHalf || inThe ? found : undefined;
}

function isUnit(plain: string): boolean {
  return /^(seconds?|secs?|minutes?|mins?|hours?|hrs?|days?|weeks?|months?|years?|percent|st|nd|rd|th|segundos?|minutos?|dias?|semanas?|mes|meses|anos?)$/.test(plain);
}

function hourIn(tokens: readonly Token[], at: number, language: Language): Found<{ hour: number; isExact: boolean; isNamed: boolean }> | undefined {
  const plain = tokens[at]?.plain ?? "";
  if (/^(noon|midday)$/.test(plain)) return { value: { hour: 12, isExact: true, isNamed: true }, next: at + 1 };
  if (plain === "midnight") return { value: { hour: 0, isExact: true, isNamed: true }, next: at + 1 };
  if (/^\d/.test(plain) && !/^\d{1,2}$/.test(plain)) return undefined;
  // The hour alone: "seven fifteen" is no number, "twenty fifteen" is one hour and its minutes.
  const alone = wholeNumber(tokens.slice(at, at + 1), 0, language);
  const longer = wholeNumber(tokens, at, language);
  const found = longer && longer.value < 24 ? longer : alone && { ...alone, next: at + 1 };
  if (!found || found.value > 23) return undefined;
  return { value: { hour: found.value, isExact: found.value > 12 || found.value === 0, isNamed: false }, next: found.next };
}

function portugueseClock(tokens: readonly Token[], at: number, isAnnounced: boolean): Found<Clock> | undefined {
  const plain = (index: number): string => tokens[index]?.plain ?? "";
  const nightOrNoon = /^mei[ao]$/.test(plain(at)) ? { dia: 12, noite: 0 }[plain(at + 1)] : { meiodia: 12, meianoite: 0 }[plain(at)];
  if (nightOrNoon !== undefined) {
    const next = /^mei[ao]$/.test(plain(at)) ? at + 2 : at + 1;
    return minutesAfter(tokens, { hour: nightOrNoon, minute: 0, isExact: true }, next);
  }
  // "Dez para as oito", "quinze minutos para o meio-dia".
  const count = wholeNumber(tokens, at, "pt");
  if (count && count.value > 0 && count.value < 60) {
    const next = /^minutos?$/.test(plain(count.next)) ? count.next + 1 : count.next;
    if (plain(next) === "para" && /^(as|a|o)$/.test(plain(next + 1))) {
      const hour = portugueseClock(tokens, next + 2, true);
      if (hour && hour.value.minute === 0) {
        const whole = (hour.value.hour + 23) % 24 || (hour.value.isExact ? 0 : 12);
        return { value: { ...hour.value, hour: whole, minute: 60 - count.value }, next: hour.next };
      }
    }
  }
  const hour = hourIn(tokens, at, "pt");
  if (!hour || /^meia$/.test(plain(at))) return undefined;
  const { hour: whole, isExact } = hour.value;
  const compact = /^h(\d{2})?(min|m)?$/.exec(plain(hour.next));
  if (compact && (compact[1] === undefined || Number(compact[1]) < 60)) {
    return minutesAfter(tokens, { hour: whole, minute: Number(compact[1] ?? 0), isExact: isExact || (compact[1] === undefined && whole < 7 && /^\d/.test(plain(at))) }, hour.next + 1);
  }
  const isHours = /^horas?$/.test(plain(hour.next));
  const found = minutesAfter(tokens, { hour: whole, minute: 0, isExact }, isHours ? hour.next + 1 : hour.next);
  if (isUnit(plain(found.next)) && !/^minutos?$/.test(plain(found.next))) return undefined;
  if (!isHours && /^(minutos?|hora|por)$/.test(plain(found.next))) return undefined;
  const inThe = /^(da|de)$/.test(plain(found.next)) && /^(manha|tarde|noite|madrugada)$/.test(plain(found.next + 1));
  return isAnnounced || inThe ? found : undefined;
}

/** "E quinze", "e meia", "em ponto". */
function minutesAfter(tokens: readonly Token[], value: Clock, next: number): Found<Clock> {
  const plain = (index: number): string => tokens[index]?.plain ?? "";
  if (plain(next) === "em" && plain(next + 1) === "ponto") return { value, next: next + 2 };
  if (plain(next) !== "e" || value.minute > 0) return { value, next };
  if (plain(next + 1) === "meia") return { value: { ...value, minute: 30 }, next: next + 2 };
  if (plain(next + 1) === "um" && plain(next + 2) === "quarto") return { value: { ...value, minute: 15 }, next: next + 3 };
  const minutes = wholeNumber(tokens, next + 1, "pt");
  if (!minutes || minutes.value < 1 || minutes.value > 59) return { value, next };
  const after = /^minutos?$/.test(plain(minutes.next)) ? minutes.next + 1 : minutes.next;
  return { value: { ...value, minute: minutes.value }, next: after };
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
