// The hands for what the agent remembers: one that searches the conversations, one that forgets the current one.

import type { Clock } from "../base/clock.ts";
import type { Language } from "../base/language.ts";
import { cut } from "../base/text.ts";
import { always, daySpan, type FoundRow, type Span } from "../memory/archive.ts";
import { dayIn, isGiven, numberIn, textIn } from "./given.ts";
import type { Hand } from "./hand.ts";
import { bareDay, dayFrom, joined } from "./saying.ts";

/** The conversations, as far as these hands need them. */
export interface Remembered {
  search(words: string, span: Span, limit: number): FoundRow[];
  /** Forgets the current conversation. False when it is still on the disk, and leaves it as soon as this can be written. */
  forget(): Promise<boolean>;
}

const mostFound = 200;
const mostDays = 366;
const mostTold = 3;
const longestTold = 160;

export function memoryHands(conversations: Remembered, clock: Clock): Hand[] {
  return [new RecallHand(conversations, clock), new ForgetHand(conversations)];
}

class RecallHand implements Hand {
  readonly id = "recall";
  readonly description = "Searches the earlier conversations with the user, by day, by words or both.";
  readonly parameters = {
    type: "object",
    properties: {
      day: { type: "string", description: "YYYY-MM-DD" },
      days: { type: "number", description: "So many days from that one; without it that day alone" },
      about: { type: "string", description: "Words that were said" },
    },
  } as const;
  readonly changes = false;

  constructor(
    private readonly conversations: Remembered,
    private readonly clock: Clock,
  ) {}

  intent(given: unknown, language: Language): string | undefined {
    if (!read(given)) return undefined;
    return language === "pt" ? "procurar nas conversas" : "search the conversations";
  }

  async act(given: unknown, language: Language): Promise<string> {
    const isPortuguese = language === "pt";
    const wanted = read(given);
    if (!wanted) return isPortuguese ? "Não entendi o que procurar." : "I did not understand what to search for.";
    const now = new Date(this.clock.now());
    const span = wanted.day ? spanOf(wanted.day, wanted.days) : always;
    const found = this.conversations.search(wanted.about ?? "", span, mostFound);
    const day = wanted.day && dayFrom(wanted.day, now, language);
    const when = day === undefined ? "" : ` ${wanted.days === 1 ? day : spanText(bareDay(day), wanted.days, language)}`;
    if (found.length === 0) {
      const what = wanted.about === undefined ? "" : isPortuguese ? ` sobre “${wanted.about}”` : ` about “${wanted.about}”`;
      return isPortuguese ? `Não encontro nada${what}${when}.` : `I find nothing${what}${when}.`;
    }
    // What was asked says what it was about; an answer does where no question holds the words.
    const asked = found.filter(({ role }) => role === "user");
    const chosen = (asked.length > 0 ? asked : found).reverse();
    const texts = [...new Set(chosen.map(({ text }) => short(text)))];
    const told = joined(texts.slice(-mostTold).map((text) => `“${text}”`), language);
    const more = texts.length - mostTold;
    const rest = more <= 0 ? "" : isPortuguese ? `, e mais ${more}` : `, and ${more} more`;
    const first = wanted.day ? when.trim() : dayFrom(new Date(chosen.at(-1)!.at), now, language);
    const subject = first.charAt(0).toUpperCase() + first.slice(1);
    if (asked.length === 0) return isPortuguese ? `${subject} eu disse ${told}${rest}.` : `${subject} I said ${told}${rest}.`;
    return isPortuguese ? `${subject} você perguntou ${told}${rest}.` : `${subject} you asked ${told}${rest}.`;
  }
}

class ForgetHand implements Hand {
  readonly id = "forget";
  readonly description = "Forgets the current conversation: it is deleted from the disk and cannot be brought back.";
  readonly parameters = { type: "object", properties: {} } as const;
  readonly changes = true;

  constructor(private readonly conversations: Remembered) {}

  intent(_given: unknown, language: Language): string {
    return language === "pt" ? "esquecer esta conversa para sempre" : "forget this conversation for good";
  }

  async act(_given: unknown, language: Language): Promise<string> {
    const isForgotten = await this.conversations.forget();
    if (isForgotten) return language === "pt" ? "Esqueci esta conversa." : "I have forgotten this conversation.";
    return language === "pt"
      ? "Esta conversa ainda está no disco, onde não consigo gravar agora. Apago assim que der."
      : "This conversation is still on the disk, which I cannot write now. I delete it as soon as I can.";
  }
}

function read(given: unknown): { day?: Date; days: number; about?: string } | undefined {
  const day = dayIn(given, "day");
  const days = isGiven(given, "days") ? numberIn(given, "days", 1, mostDays) : 1;
  const about = textIn(given, "about");
  if ((isGiven(given, "day") && !day) || days === undefined || (!day && about === undefined)) return undefined;
  return { ...(day ? { day } : {}), days: Math.round(days), ...(about === undefined ? {} : { about }) };
}

function spanOf(first: Date, days: number): Span {
  const last = new Date(first.getFullYear(), first.getMonth(), first.getDate() + days - 1);
  return { from: daySpan(first).from, to: daySpan(last).to };
}

function spanText(day: string, days: number, language: Language): string {
  if (days === 7) return language === "pt" ? `na semana de ${day}` : `in the week from ${day}`;
  return language === "pt" ? `nos ${days} dias desde ${day}` : `in the ${days} days from ${day}`;
}

function short(text: string): string {
  const line = text.replace(/\s+/g, " ").trim().replace(/[.!?…]+$/, "");
  return line.length > longestTold ? `${cut(line, longestTold - 1)}…` : line;
}
