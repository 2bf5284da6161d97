// The hand that reckons with days.

import type { Clock } from "../../base/clock.ts";
import type { Language } from "../../base/language.ts";
import { choiceIn, dayIn } from "../given.ts";
import type { Hand } from "../hand.ts";
import { longDay } from "../saying.ts";

const questions = ["weekday", "until", "since", "between"] as const;

export class DateHand implements Hand {
  readonly id = "date";
  readonly description = "Tells the weekday of a day, or how many days there are until it, since it, or between two days.";
  readonly parameters = {
    type: "object",
    properties: {
      do: { type: "string", enum: questions },
      day: { type: "string", description: "YYYY-MM-DD" },
      other: { type: "string", description: "YYYY-MM-DD, for between" },
    },
    required: ["do", "day"],
  } as const;
  readonly changes = false;

  constructor(private readonly clock: Clock) {}

  intent(given: unknown, language: Language): string | undefined {
    if (!this.#answer(given, language)) return undefined;
    return language === "pt" ? "contar dias" : "count days";
  }

  async act(given: unknown, language: Language): Promise<string> {
    return this.#answer(given, language) ?? (language === "pt" ? "Não conheço esse dia." : "I do not know that day.");
  }

  #answer(given: unknown, language: Language): string | undefined {
    const question = choiceIn(given, "do", questions);
    const day = dayIn(given, "day");
    if (!question || !day) return undefined;
    const isPortuguese = language === "pt";
    const text = longDay(day, language);
    const now = new Date(this.clock.now());
    const today = new Date(now.getFullYear(), now.getMonth(), now.getDate(), 12);
    const days = daysFrom(today, day);
    switch (question) {
      case "weekday":
        if (days === 0) return `${isPortuguese ? "Hoje é" : "Today is"} ${text}.`;
        if (isPortuguese) return `${days < 0 ? "Foi" : "É"} ${text}.`;
        return days < 0 ? `That was ${text}.` : `That is ${text}.`;
      case "between": {
        const other = dayIn(given, "other");
        return other && counted(Math.abs(daysFrom(day, other)), language, "between");
      }
      default:
        if (days === 0) return isPortuguese ? "É hoje." : "That is today.";
        if (days > 0) return isPortuguese ? `${days === 1 ? "Falta 1 dia" : `Faltam ${days} dias`} para ${text}.` : `${counted(days, language)} until ${text}.`;
        return isPortuguese ? `${days === -1 ? "Passou 1 dia" : `Passaram ${-days} dias`} desde ${text}.` : `${counted(-days, language)} since ${text}.`;
    }
  }
}

function counted(days: number, language: Language, kind?: "between"): string {
  const text = language === "pt" ? `${days} ${days === 1 ? "dia" : "dias"}` : `${days} ${days === 1 ? "day" : "days"}`;
  return kind === undefined ? text : `${language === "pt" ? (days === 1 ? "É" : "São") : "That is"} ${text}.`;
}

function daysFrom(from: Date, to: Date): number {
  return Math.round((to.getTime() - from.getTime()) / 86_400_000);
}
