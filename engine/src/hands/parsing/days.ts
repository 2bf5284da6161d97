// Days as they are said: "tomorrow", "on Friday", "March 5th", "depois de amanhã", "na sexta-feira", "dia 5 de março".

import type { Language } from "../../base/language.ts";
import { wholeNumber, type Found } from "./numbers.ts";
import type { Token } from "./tokens.ts";

/** A day without its time, in the local calendar; months count from 1. */
export interface Day {
  year: number;
  month: number;
  day: number;
  /** It is the first of so many: "last week". */
  days?: number;
}

const weekdays: Record<Language, string[]> = {
  en: ["sunday", "monday", "tuesday", "wednesday", "thursday", "friday", "saturday"],
  pt: ["domingo", "segunda", "terca", "quarta", "quinta", "sexta", "sabado"],
};

const months: Record<Language, string[]> = {
  en: ["january", "february", "march", "april", "may", "june", "july", "august", "september", "october", "november", "december"],
  pt: ["janeiro", "fevereiro", "marco", "abril", "maio", "junho", "julho", "agosto", "setembro", "outubro", "novembro", "dezembro"],
};

const ordinals = [
  "first", "second", "third", "fourth", "fifth", "sixth", "seventh", "eighth", "ninth", "tenth", "eleventh", "twelfth", "thirteenth",
  "fourteenth", "fifteenth", "sixteenth", "seventeenth", "eighteenth", "nineteenth", "twentieth",
];

const feasts: Record<Language, [string, number, number][]> = {
  en: [["christmas eve", 12, 24], ["christmas day", 12, 25], ["christmas", 12, 25], ["new years eve", 12, 31], ["new year eve", 12, 31], ["new years day", 1, 1], ["new year day", 1, 1], ["new years", 1, 1], ["new year", 1, 1], ["the new year", 1, 1], ["the end of the year", 12, 31], ["end of the year", 12, 31], ["end of year", 12, 31], ["the year is over", 12, 31], ["the year ends", 12, 31], ["boxing day", 12, 26], ["halloween", 10, 31]],
  pt: [["natal", 12, 25], ["ano novo", 1, 1], ["reveillon", 12, 31], ["fim do ano", 12, 31], ["fim de ano", 12, 31], ["final do ano", 12, 31], ["acabar o ano", 12, 31], ["o ano acabar", 12, 31]],
};

export function dayOf(date: Date): Day {
  return { year: date.getFullYear(), month: date.getMonth() + 1, day: date.getDate() };
}

export function daysLater(from: Day, days: number): Day {
  return dayOf(new Date(from.year, from.month - 1, from.day + days, 12));
}

/** Days from one to the other. */
export function daysBetween(from: Day, to: Day): number {
  return Math.round((Date.UTC(to.year, to.month - 1, to.day) - Date.UTC(from.year, from.month - 1, from.day)) / 86_400_000);
}

/** The day that is meant: a weekday or a date without its year is the next one, or the last one of the past. */
export function day(tokens: readonly Token[], at: number, language: Language, now: Date, isOfPast = false): Found<Day> | undefined {
  const today = dayOf(now);
  const plain = (index: number): string => tokens[index]?.plain ?? "";
  const isSaid = (index: number, ...words: string[]): boolean => words.every((word, offset) => plain(index + offset) === word);
  const later = (days: number, next: number): Found<Day> => ({ value: daysLater(today, days), next });
  const week = isOfPast ? weekOfPast(tokens, at, language, now) : undefined;
  if (week) return week;
  const early = isOfPast ? partOfPast(tokens, at, language) : undefined;
  if (early) return later(early.value, early.next);
  if (language === "en") {
    if (plain(at) === "today") return later(0, at + 1);
    if (plain(at) === "tomorrow") return later(1, at + 1);
    if (plain(at) === "yesterday") return later(-1, at + 1);
    const start = plain(at) === "the" ? at + 1 : at;
    if (isSaid(start, "day", "after", "tomorrow")) return later(2, start + 3);
    if (isSaid(start, "day", "before", "yesterday")) return later(-2, start + 3);
    if (isSaid(at, "next", "week")) return later(7, at + 2);
  } else {
    if (plain(at) === "hoje") return later(0, at + 1);
    if (plain(at) === "amanha") return later(1, at + 1);
    if (plain(at) === "ontem") return later(-1, at + 1);
    if (plain(at) === "anteontem") return later(-2, at + 1);
    if (isSaid(at, "depois", "de", "amanha")) return later(2, at + 3);
    if (isSaid(at, "antes", "de", "ontem")) return later(-2, at + 3);
    if (isSaid(at, "semana", "que", "vem") || isSaid(at, "proxima", "semana")) return later(7, at + (plain(at) === "semana" ? 3 : 2));
  }
  const reckoned = aWeekFrom(tokens, at, language, now) ?? inSomeDays(tokens, at, language, today) ?? weekday(tokens, at, language, now, isOfPast);
  // "Thursday the 26th" is that day.
  const named = reckoned && date(tokens, reckoned.next, language, today);
  if (named && /^(the|dia)$/.test(plain(reckoned.next))) return named;
  const found = reckoned ?? feast(tokens, at, language, today) ?? date(tokens, at, language, today);
  const isLast = isOfPast && found !== reckoned && found !== undefined && daysBetween(today, found.value) > 0;
  return isLast ? { value: { ...found.value, year: found.value.year - 1 }, next: found.next } : found;
}

const partsOfPast: Record<Language, [RegExp, number][]> = {
  en: [[/^(earlier (today|this (morning|afternoon|evening))|(this|today) (morning|afternoon|evening)|today earlier|earlier)( |$)/, 0], [/^(last night|yesterday (morning|afternoon|evening|night))( |$)/, -1]],
  pt: [[/^(hoje (mais cedo|cedo|de manha|pela manha|a tarde|de tarde)|mais cedo( hoje)?|(nesta|nessa|esta|essa) (manha|tarde)|hoje de madrugada)( |$)/, 0],
    [/^(ontem (de manha|de tarde|de noite|a tarde|a noite|pela manha|cedo|mais cedo)|(noite|tarde) passada)( |$)/, -1]],
};

/** "This morning", "ontem à noite": the day, in days from today. */
function partOfPast(tokens: readonly Token[], at: number, language: Language): Found<number> | undefined {
  const said = tokens.slice(at, at + 4).map(({ plain }) => plain).join(" ");
  for (const [words, days] of partsOfPast[language]) {
    const found = words.exec(said)?.[1];
    if (found !== undefined) return { value: days, next: at + found.split(" ").length };
  }
  return undefined;
}

/** A week from its Monday: "last week", "esta semana". */
function weekOfPast(tokens: readonly Token[], at: number, language: Language, now: Date): Found<Day> | undefined {
  const said = `${tokens[at]?.plain} ${tokens[at + 1]?.plain}`;
  const [ago, start] = language === "pt" ? [/^semana passada$/, /^(ness|nest|est|ess)a semana$/] : [/^(last|past) week$/, /^this week$/];
  if (!ago.test(said) && !start.test(said)) return undefined;
  const monday = -((now.getDay() + 6) % 7);
  return { value: { ...daysLater(dayOf(now), ago.test(said) ? monday - 7 : monday), days: 7 }, next: at + 2 };
}

/** Days that have names: the next of each. */
function feast(tokens: readonly Token[], at: number, language: Language, today: Day): Found<Day> | undefined {
  if (tokens[at]?.plain === "vespera" && /^d[eoa]$/.test(tokens[at + 1]?.plain ?? "")) {
    const after = feast(tokens, at + 2, language, daysLater(today, 1));
    return after && { ...after, value: daysLater(after.value, -1) };
  }
  for (const [name, month, dayOfMonth] of feasts[language]) {
    const words = name.split(" ");
    if (!words.every((word, offset) => tokens[at + offset]?.plain === word)) continue;
    const value = nextDate(month, dayOfMonth, today);
    if (value) return { value, next: at + words.length + yearSaid(tokens, at + words.length, language) };
  }
  return undefined;
}

/** The length of "this year", which says nothing of what is to come. */
function yearSaid(tokens: readonly Token[], at: number, language: Language): number {
  const said = `${tokens[at]?.plain} ${tokens[at + 1]?.plain}`;
  return (language === "pt" ? /^(n?este|n?esse|deste|desse) ano$/ : /^this year$/).test(said) ? 2 : 0;
}

/** "In three days", "three days from now", "daqui a três dias", "há dois dias". */
function inSomeDays(tokens: readonly Token[], at: number, language: Language, today: Day): Found<Day> | undefined {
  const plain = (index: number): string => tokens[index]?.plain ?? "";
  let from = at;
  let sign = 0;
  if (language === "en" && plain(at) === "in") [from, sign] = [at + 1, 1];
  if (language === "pt" && plain(at) === "daqui") [from, sign] = [plain(at + 1) === "a" ? at + 2 : at + 1, 1];
  if (language === "pt" && plain(at) === "em") [from, sign] = [at + 1, 1];
  if (language === "pt" && plain(at) === "ha") [from, sign] = [at + 1, -1];
  const isOne = language === "en" && plain(from) === "a";
  const count = isOne ? { value: 1, next: from + 1 } : wholeNumber(tokens, from, language);
  if (!count || count.value > 3_700) return undefined;
  const unit = { day: 1, days: 1, week: 7, weeks: 7, dia: 1, dias: 1, semana: 7, semanas: 7 }[plain(count.next)];
  if (unit === undefined) return undefined;
  let next = count.next + 1;
  if (language === "en" && plain(next) === "ago") [sign, next] = [-1, next + 1];
  else if (language === "en" && /^from$/.test(plain(next)) && /^(now|today)$/.test(plain(next + 1))) [sign, next] = [1, next + 2];
  else if (language === "pt" && plain(next) === "atras") [sign, next] = [-1, next + 1];
  return sign === 0 ? undefined : { value: daysLater(today, sign * unit * count.value), next };
}

/** "A week on Friday", "a week today", "Thursday week". */
function aWeekFrom(tokens: readonly Token[], at: number, language: Language, now: Date): Found<Day> | undefined {
  if (language !== "en") return undefined;
  const plain = (index: number): string => tokens[index]?.plain ?? "";
  const isWeek = plain(at) === "a" && plain(at + 1) === "week";
  const from = !isWeek ? at : /^(on|from)$/.test(plain(at + 2)) ? at + 3 : at + 2;
  const near = { today: 0, tomorrow: 1 }[plain(from)];
  const named = near === undefined ? weekday(tokens, from, language, now, false) : { value: daysLater(dayOf(now), near), next: from + 1 };
  // "Is there a bus on Thursday, week after week?" has another word behind it.
  const isAfter = !isWeek && near === undefined && plain(at) !== "next" && plain(named?.next ?? at) === "week" && plain((named?.next ?? at) + 1) !== "after";
  if (!named || (!isWeek && !isAfter)) return undefined;
  return { value: daysLater(named.value, 7), next: isWeek ? named.next : named.next + 1 };
}

function weekday(tokens: readonly Token[], at: number, language: Language, now: Date, isOfPast: boolean): Found<Day> | undefined {
  const plain = (index: number): string => tokens[index]?.plain ?? "";
  let start = at;
  let isPast = isOfPast;
  // "This coming Sunday".
  if (language === "en" && plain(start) === "this" && plain(start + 1) === "coming") start++;
  if (language === "en" && /^(next|this|coming)$/.test(plain(start))) start++;
  else if (language === "en" && plain(start) === "last") [start, isPast] = [start + 1, true];
  else if (language === "pt" && /^(proxim[ao]|est[ae]|nest[ae])$/.test(plain(start))) start++;
  const index = weekdays[language].indexOf(plain(start));
  if (index < 0) return undefined;
  let next = start + 1;
  if (language === "pt" && /^feiras?$/.test(plain(next))) next++;
  if (language === "pt" && plain(next) === "que" && plain(next + 1) === "vem") next += 2;
  if (language === "pt" && plain(next) === "passad" + (index === 0 || index === 6 ? "o" : "a")) [next, isPast] = [next + 1, true];
  const after = tokens.slice(next, next + 4).map(({ plain }) => plain).join(" ");
  const ofNextWeek = (language === "pt" ? /^da (semana que vem|proxima semana|outra semana)/ : /^(of )?next week/).exec(after)?.[0];
  if (ofNextWeek !== undefined) {
    const monday = 7 - ((now.getDay() + 6) % 7);
    return { value: daysLater(dayOf(now), monday + ((index + 6) % 7)), next: next + ofNextWeek.split(" ").length };
  }
  const ahead = (index - now.getDay() + 7) % 7;
  const days = isPast ? (ahead || 7) - 7 || -7 : ahead || 7;
  return { value: daysLater(dayOf(now), isPast && ahead !== 0 ? ahead - 7 : days), next };
}

/** The day of a month: "5th", "twenty-first", "dia 5", "primeiro". */
function monthday(tokens: readonly Token[], at: number, language: Language): Found<number> | undefined {
  const plain = (index: number): string => tokens[index]?.plain ?? "";
  if (language === "en") {
    const ordinal = ordinals.indexOf(plain(at)) + 1;
    if (ordinal > 0) return { value: ordinal, next: at + 1 };
    const tens = { twenty: 20, thirty: 30 }[plain(at)];
    const ones = ordinals.indexOf(plain(at + 1)) + 1;
    if (tens !== undefined && ones > 0 && ones < 10 && tens + ones <= 31) return { value: tens + ones, next: at + 2 };
    if (plain(at) === "thirtieth") return { value: 30, next: at + 1 };
    if (/^\d{1,2}$/.test(plain(at)) && /^(st|nd|rd|th)$/.test(plain(at + 1))) return { value: Number(plain(at)), next: at + 2 };
  } else if (plain(at) === "primeiro") return { value: 1, next: at + 1 };
  return wholeNumber(tokens, at, language);
}

/** "March 5th", "the 5th of March", "dia 5", "5 de março", each with its year or without. */
function date(tokens: readonly Token[], at: number, language: Language, today: Day): Found<Day> | undefined {
  const plain = (index: number): string => tokens[index]?.plain ?? "";
  let start = at;
  let isNamed = false;
  if (language === "en" && plain(start) === "the") [start, isNamed] = [start + 1, true];
  if (language === "pt" && plain(start) === "dia") [start, isNamed] = [start + 1, true];
  let month = months[language].indexOf(plain(start)) + 1;
  let found: Found<number> | undefined;
  if (language === "en" && month > 0) {
    found = monthday(tokens, plain(start + 1) === "the" ? start + 2 : start + 1, language);
  } else {
    found = monthday(tokens, start, language);
    if (!found) return undefined;
    const of = plain(found.next) === (language === "pt" ? "de" : "of") ? found.next + 1 : found.next;
    month = months[language].indexOf(plain(of)) + 1;
    if (month > 0) found = { ...found, next: of + 1 };
    else if (!isNamed || (language === "en" && found.next === start + 1 && /^\d/.test(plain(start)))) return undefined;
  }
  if (!found || found.value < 1 || found.value > 31) return undefined;
  const yearAt = language === "pt" && plain(found.next) === "de" ? found.next + 1 : found.next;
  const year = month > 0 ? yearIn(tokens, yearAt, language) : undefined;
  const value = year ? { year: year.value, month, day: found.value } : nextDate(month, found.value, today);
  return value && isReal(value) ? { value, next: year ? year.next : found.next } : undefined;
}

/** The calendar of today began in 1582. */
function yearIn(tokens: readonly Token[], at: number, language: Language): Found<number> | undefined {
  const year = wholeNumber(tokens, at, language);
  return year && year.value >= 1583 && year.value <= 2200 ? year : undefined;
}

/** Without a month it is the next day of this number. */
function nextDate(month: number, dayOfMonth: number, today: Day): Day | undefined {
  const isAhead = (candidate: Day): boolean => isReal(candidate) && daysBetween(today, candidate) >= 0;
  for (let step = 0; step < 60; step++) {
    const candidate =
      month > 0
        ? { year: today.year + step, month, day: dayOfMonth }
        : { year: today.year + Math.floor((today.month - 1 + step) / 12), month: ((today.month - 1 + step) % 12) + 1, day: dayOfMonth };
    if (isAhead(candidate)) return candidate;
  }
  return undefined;
}

/** There is such a day: no 30th of February. */
export function isReal({ year, month, day: dayOfMonth }: Day): boolean {
  const made = new Date(year, month - 1, dayOfMonth, 12);
  return made.getFullYear() === year && made.getMonth() === month - 1 && made.getDate() === dayOfMonth;
}
