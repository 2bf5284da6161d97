// Numbers, times and lists in words, as hands say them.

import type { Language } from "../base/language.ts";

const tags: Record<Language, string> = { en: "en-US", pt: "pt-BR" };

/** "1 hour, 5 minutes and 2 seconds"; the seconds are left out of what is longer than an hour. */
export function duration(seconds: number, language: Language): string {
  const whole = Math.max(0, Math.round(seconds));
  const units: [number, string, string][] =
    language === "pt"
      ? [[86_400, "dia", "dias"], [3_600, "hora", "horas"], [60, "minuto", "minutos"], [1, "segundo", "segundos"]]
      : [[86_400, "day", "days"], [3_600, "hour", "hours"], [60, "minute", "minutes"], [1, "second", "seconds"]];
  let left = whole >= 3_600 ? Math.round(whole / 60) * 60 : whole;
  const parts: string[] = [];
  for (const [length, one, many] of units) {
    const count = Math.floor(left / length);
    left -= count * length;
    if (count > 0) parts.push(`${count} ${count === 1 ? one : many}`);
  }
  return parts.length === 0 ? (language === "pt" ? "0 segundos" : "0 seconds") : joined(parts, language);
}

export function joined(parts: readonly string[], language: Language): string {
  return new Intl.ListFormat(tags[language], { type: "conjunction" }).format(parts);
}

export function numberText(value: number, language: Language, digits = 6): string {
  return value.toLocaleString(tags[language], { maximumSignificantDigits: digits });
}

/** "7:15 AM", "7 horas e 15 minutos". */
export function clockTime(date: Date, language: Language): string {
  const [hours, minutes] = [date.getHours(), date.getMinutes()];
  if (language === "en") return `${hours % 12 || 12}:${String(minutes).padStart(2, "0")} ${hours < 12 ? "AM" : "PM"}`;
  const hour = `${hours} ${hours <= 1 ? "hora" : "horas"}`;
  return minutes === 0 ? hour : `${hour} e ${minutes} ${minutes === 1 ? "minuto" : "minutos"}`;
}

/** "Friday" of "on Friday": what stands behind "for", "de" and "para". */
export function bareDay(day: string): string {
  return day.replace(/^(on|na|no|em) /, "");
}

/** "today", "tomorrow", "on Friday", "on 5 March". */
export function dayFrom(date: Date, now: Date, language: Language): string {
  const days = Math.round((startOf(date).getTime() - startOf(now).getTime()) / 86_400_000);
  const isPortuguese = language === "pt";
  if (days === 0) return isPortuguese ? "hoje" : "today";
  if (days === 1) return isPortuguese ? "amanhã" : "tomorrow";
  if (days === -1) return isPortuguese ? "ontem" : "yesterday";
  const isNear = days > 0 && days < 7;
  const isSameYear = date.getFullYear() === now.getFullYear();
  const text = date.toLocaleDateString(
    tags[language],
    isNear ? { weekday: "long" } : { day: "numeric", month: "long", ...(isSameYear ? {} : { year: "numeric" }) },
  );
  if (!isPortuguese) return `on ${text}`;
  return isNear ? (text.endsWith("feira") ? `na ${text}` : `no ${text}`) : `em ${text}`;
}

/** "tomorrow at 7:15 AM", "amanhã às 7 horas". */
export function dayAndTime(date: Date, now: Date, language: Language): string {
  const at = language === "pt" ? (date.getHours() === 1 || date.getHours() === 0 ? "à" : "às") : "at";
  return `${dayFrom(date, now, language)} ${at} ${clockTime(date, language)}`;
}

/** "Friday, 25 December 2026". */
export function longDay(date: Date, language: Language): string {
  return date.toLocaleDateString(tags[language], { weekday: "long", day: "numeric", month: "long", year: "numeric" });
}

function startOf(date: Date): Date {
  return new Date(date.getFullYear(), date.getMonth(), date.getDate(), 12);
}
