// The time of day as one says it.

import type { Language } from "../base/language.ts";

export interface TimeOfDay {
  hours: number;
  minutes: number;
}

/** A clause without its end mark; `day` is said with the time. */
export function saidTime({ hours, minutes }: TimeOfDay, language: Language, day?: string): string {
  return language === "pt" ? portuguese(hours, minutes, day) : english(hours, minutes, day);
}

function english(hours: number, minutes: number, day: string | undefined): string {
  const time = `It is ${hours % 12 || 12}:${String(minutes).padStart(2, "0")} ${hours < 12 ? "AM" : "PM"}`;
  return day === undefined ? time : `${time} on ${day}`;
}

function portuguese(hours: number, minutes: number, day: string | undefined): string {
  const time = `${hours <= 1 ? "É" : "São"} ${hours} ${hours <= 1 ? "hora" : "horas"}`;
  const whole = minutes === 0 ? time : `${time} e ${minutes} ${minutes === 1 ? "minuto" : "minutos"}`;
  return day === undefined ? whole : `${whole} de ${day}`;
}
