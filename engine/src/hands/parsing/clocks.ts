// Times of a day by the clock, as they are said: "quarter past seven", "7 pm", "às sete e meia", "dez para as oito".

import type { Language } from "../../base/language.ts";
import { wholeNumber, type Found } from "./numbers.ts";
import type { Token } from "./tokens.ts";

export interface Clock {
  hour: number;
  minute: number;
  /** The hour is one of 24, not of 12. */
  isExact: boolean;
}

/** The time that is said there; a bare hour is one only where it is announced. */
export function clock(tokens: readonly Token[], at: number, language: Language, isAnnounced: boolean): Found<Clock> | undefined {
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
  const isOld = plain(from) === "five" && plain(from + 1) === "and" && plain(from + 2) === "twenty";
  const said = isOld ? { value: 25, next: from + 3 } : wholeNumber(tokens, from, "en");
  const count = share === undefined ? said : { value: share, next: from + 1 };
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
  // "Twenty hundred hours".
  if (plain(hour.next) === "hundred") {
    const next = plain(hour.next + 1) === "hours" ? hour.next + 2 : hour.next + 1;
    return isAnnounced ? { value: { hour: whole, minute: 0, isExact: true }, next } : undefined;
  }
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
