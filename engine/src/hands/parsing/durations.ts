// Lengths of time as they are said: "an hour and a half", "90 seconds", "meia hora", "uma hora e quinze".

import type { Language } from "../../base/language.ts";
import { number, type Found } from "./numbers.ts";
import type { Token } from "./tokens.ts";

const units: Record<Language, Record<string, number>> = {
  en: {
    second: 1, seconds: 1, sec: 1, secs: 1, s: 1, minute: 60, minutes: 60, min: 60, mins: 60, m: 60, hour: 3600, hours: 3600, hr: 3600,
    hrs: 3600, h: 3600, day: 86_400, days: 86_400, week: 604_800, weeks: 604_800,
  },
  pt: {
    segundo: 1, segundos: 1, segundinhos: 1, seg: 1, s: 1, minuto: 60, minutos: 60, minutinho: 60, minutinhos: 60, minutin: 60, min: 60, m: 60,
    hora: 3600, horas: 3600, horinha: 3600, h: 3600, dia: 86_400, dias: 86_400, semana: 604_800, semanas: 604_800,
  },
};

const half: Record<Language, RegExp> = { en: /^half$/, pt: /^mei[ao]$/ };

/** What is said before a length that need not be exact. */
const about: Record<Language, string[][]> = {
  en: [["about"], ["around"], ["roughly"], ["approximately"], ["like"], ["say"], ["some"], ["exactly"], ["just"], ["only"], ["maybe"], ["a", "good"], ["just", "about"], ["something", "like"], ["the", "next"]],
  pt: [["uns"], ["umas"], ["cerca", "de"], ["mais", "ou", "menos"], ["aproximadamente"], ["tipo"], ["exatamente"], ["exatos"], ["por", "volta", "de"], ["quase"]],
};

/** A length of time in seconds, more than none. */
export function duration(tokens: readonly Token[], start: number, language: Language): Found<number> | undefined {
  // "Meio-dia" is a time of day.
  if (language === "pt" && plainAt(tokens, start) === "meio" && plainAt(tokens, start + 1) === "dia") return undefined;
  const at = start + (about[language].find((words) => words.every((word, offset) => plainAt(tokens, start + offset) === word))?.length ?? 0);
  // "Hour and a half on the brisket".
  const isBare = language === "en" && ["hour", "and", "a", "half"].every((word, offset) => plainAt(tokens, at + offset) === word);
  if (isBare) return { value: 5400, next: at + 4 };
  let total = 0;
  let next = at;
  let smallest = Infinity;
  for (;;) {
    const isMore = next > at;
    const from = isMore && /^(and|e)$/.test(plainAt(tokens, next)) ? next + 1 : next;
    const part = amount(tokens, from, language);
    if (part && part.unit < smallest) {
      total += part.value;
      smallest = part.unit;
      next = part.next;
      continue;
    }
    if (!isMore) return undefined;
    const rest = restAfter(tokens, from, language, smallest, from > next);
    if (rest) {
      total += rest.value;
      next = rest.next;
    }
    break;
  }
  return total > 0 ? { value: total, next } : undefined;
}

function plainAt(tokens: readonly Token[], at: number): string {
  return tokens[at]?.plain ?? "";
}

function unitAt(tokens: readonly Token[], at: number, language: Language): number | undefined {
  const plain = plainAt(tokens, at);
  return Object.hasOwn(units[language], plain) ? units[language][plain] : undefined;
}

/** What follows a unit: "and a half", "e meia", or the number of the next smaller unit without its name. */
function restAfter(tokens: readonly Token[], at: number, language: Language, unit: number, isJoined: boolean): Found<number> | undefined {
  // "An hour thirty", "one minute 30": the number of a smaller unit without its name.
  if (!isJoined && (language === "en" || unit === 60) && (unit === 3600 || unit === 60)) {
    const bare = number(tokens, at, language);
    const isBare = bare && Number.isInteger(bare.value) && bare.value >= 10 && bare.value < 60 && unitAt(tokens, bare.next, language) === undefined;
    return isBare ? { value: (bare.value * unit) / 60, next: bare.next } : undefined;
  }
  if (language === "en") {
    const minutes = isJoined && unit === 3600 ? number(tokens, at, language) : undefined;
    // "An hour and ten", where no unit of its own follows.
    const areMinutes = minutes && Number.isInteger(minutes.value) && minutes.value >= 5 && minutes.value < 60;
    if (areMinutes && tokens.length === minutes.next) return { value: minutes.value * 60, next: minutes.next };
    if (isJoined && /^(three|3)$/.test(plainAt(tokens, at)) && plainAt(tokens, at + 1) === "quarters") return { value: (unit * 3) / 4, next: at + 2 };
    if (!isJoined || !/^(a|one)$/.test(plainAt(tokens, at))) return undefined;
    if (plainAt(tokens, at + 1) === "half") return { value: unit / 2, next: at + 2 };
    return plainAt(tokens, at + 1) === "quarter" ? { value: unit / 4, next: at + 2 } : undefined;
  }
  if (isJoined && /^mei[ao]$/.test(plainAt(tokens, at))) return { value: unit / 2, next: at + 1 };
  const written = unit === 3600 && /^\d{1,2}$/.test(plainAt(tokens, at));
  if ((unit !== 3600 && unit !== 60) || !(isJoined || written)) return undefined;
  const minutes = number(tokens, at, language);
  const isMinutes = minutes && Number.isInteger(minutes.value) && minutes.value > 0 && minutes.value < 60;
  return isMinutes ? { value: (minutes.value * unit) / 60, next: minutes.next } : undefined;
}

interface Amount extends Found<number> {
  unit: number;
}

/** A number and its unit. */
function amount(tokens: readonly Token[], at: number, language: Language): Amount | undefined {
  return fraction(tokens, at, language) ?? compact(tokens, at, language) ?? counted(tokens, at, language);
}

function counted(tokens: readonly Token[], at: number, language: Language): Amount | undefined {
  const isOne = language === "en" && /^(a|an|another)$/.test(plainAt(tokens, at));
  const isFew = language === "en" && plainAt(tokens, at) === "a" && plainAt(tokens, at + 1) === "couple";
  let found: Found<number> | undefined;
  if (isFew) found = { value: 2, next: at + (plainAt(tokens, at + 2) === "of" ? 3 : 2) };
  else if (isOne) found = { value: 1, next: at + 1 };
  else found = number(tokens, at, language);
  if (language === "pt" && !found && /^(mais)$/.test(plainAt(tokens, at))) return counted(tokens, at + 1, language);
  if (!found) return undefined;
  let { value, next } = found;
  // "Two and a half hours", "one and a half minutes"; "dois e meio minutos".
  if (language === "en" && plainAt(tokens, next) === "and" && plainAt(tokens, next + 1) === "a" && plainAt(tokens, next + 2) === "half") {
    if (unitAt(tokens, next + 3, language)) [value, next] = [value + 0.5, next + 3];
  } else if (language === "pt" && plainAt(tokens, next) === "e" && /^mei[ao]$/.test(plainAt(tokens, next + 1))) {
    if (unitAt(tokens, next + 2, language)) [value, next] = [value + 0.5, next + 2];
  }
  // "Ten more minutes", "two whole hours".
  if (/^(more|extra|additional|whole|full|further)$/.test(plainAt(tokens, next)) && language === "en") next++;
  const unit = unitAt(tokens, next, language);
  // "Hold on a sec" counts nothing.
  if (isOne && unit === 1) return undefined;
  return unit === undefined ? undefined : { value: value * unit, next: next + 1, unit };
}

/** "Half an hour", "a quarter of an hour", "three quarters of an hour", "an hour": "meia hora", "um quarto de hora". */
function fraction(tokens: readonly Token[], at: number, language: Language): Amount | undefined {
  let next = at;
  let part: number | undefined;
  if (language === "en") {
    if (/^(a|one)$/.test(plainAt(tokens, next)) && /^(half|quarter)$/.test(plainAt(tokens, next + 1))) next++;
    if (half.en.test(plainAt(tokens, next))) part = 1 / 2;
    else if (plainAt(tokens, next) === "quarter") part = 1 / 4;
    else if (/^(three|3)$/.test(plainAt(tokens, next)) && plainAt(tokens, next + 1) === "quarters") [part, next] = [3 / 4, next + 1];
    if (part === undefined) return undefined;
    next++;
    if (plainAt(tokens, next) === "of") next++;
    if (/^(a|an)$/.test(plainAt(tokens, next))) next++;
  } else {
    if (half.pt.test(plainAt(tokens, next))) part = 1 / 2;
    else if (/^(um|1)$/.test(plainAt(tokens, next)) && plainAt(tokens, next + 1) === "quarto") [part, next] = [1 / 4, next + 1];
    else if (/^(tres|3)$/.test(plainAt(tokens, next)) && plainAt(tokens, next + 1) === "quartos") [part, next] = [3 / 4, next + 1];
    if (part === undefined) return undefined;
    next++;
    if (plainAt(tokens, next) === "de") next++;
  }
  const unit = unitAt(tokens, next, language);
  // "Half a second" is no time to wait for.
  return unit === undefined || unit < 60 ? undefined : { value: part * unit, next: next + 1, unit };
}

/** "1h30", as it is written. */
function compact(tokens: readonly Token[], at: number, language: Language): Amount | undefined {
  const hours = /^\d{1,3}$/.test(plainAt(tokens, at)) ? Number(plainAt(tokens, at)) : undefined;
  const minutes = /^h(\d{1,2})(min|m)?$/.exec(plainAt(tokens, at + 1))?.[1];
  if (hours === undefined || minutes === undefined || Number(minutes) > 59) return undefined;
  const last = /^(min|minutos|minutes|m)$/.test(plainAt(tokens, at + 2)) && unitAt(tokens, at + 2, language) ? at + 3 : at + 2;
  return { value: hours * 3600 + Number(minutes) * 60, next: last, unit: 60 };
}
