// Where somebody takes back what was just asked for, or changes a number of it: "Set a timer for ten minutes. No, make it fifteen."

import type { Language } from "../../base/language.ts";
import { correctedFrom } from "./corrections.ts";
import { matched, phrase, type Phrase, type Sentence, type Slots } from "./grammar.ts";
import type { Meant } from "./meanings.ts";
import { localText, timeOf, type Moment } from "./moments.ts";

const takenBack: Record<Language, string> = {
  en:
    "[oh|no|wait|hmm|well|ok|okay|sorry|actually|on second thought|on second thoughts|you know what|but|and] [no|wait|sorry|actually] " +
    "[please] (never mind|nevermind|never mind that|forget it|forget that|forget about it|forget about that|cancel that|cancel it|scratch that|" +
    "strike that|do not|do not do it|do not do that|do not bother|i changed my mind|i have changed my mind|ignore that|" +
    "not now|i take that back|undo that) [please|then|thanks|thank you]",
  pt:
    "[ah|nao|espera|perai|hum|bom|desculpa|alias|na verdade|pensando bem|quer saber|mas|e] [nao|espera|desculpa] " +
    "[por favor] (deixa para la|deixa|esquece|esquece isso|deixa isso|cancela|cancela isso|nao precisa|nao faz isso|nao faca isso|" +
    "mudei de ideia|ignora|ignora isso|desfaz isso|desiste|agora nao|deixa quieto) [por favor|entao|obrigado|obrigada|nao]",
};
const changed: Record<Language, string> = {
  en: "[let us say|change it to|change that to|set it to|it should be|it is|for|at|to|better] ({duration}|{moment}|{number} [percent|instead])",
  pt: "[faz|faca|coloca|bota|poe|muda para|deixa em|que seja|sao|e] [de|para|em|as] ({duration}|{moment}|{number} [por cento])",
};

const compiled: { [language in Language]?: { takenBack: Phrase; changed: Phrase } } = {};

/** It takes back what was asked for before it, and says nothing else. */
export function takesBack(sentence: Sentence): boolean {
  return matched(phrasesFor(sentence.language).takenBack, sentence, () => true) === true;
}

/** The request before with what the sentence changes of it; undefined when it corrects nothing of it. */
export function corrected(before: Meant, sentence: Sentence): Meant | undefined {
  const { tokens, language, now } = sentence;
  const from = correctedFrom(tokens, 0, language);
  if (from === undefined) return undefined;
  return matched(phrasesFor(language).changed, { ...sentence, tokens: tokens.slice(from) }, (slots) => withOther(before, slots, now));
}

function phrasesFor(language: Language): { takenBack: Phrase; changed: Phrase } {
  return (compiled[language] ??= { takenBack: phrase(takenBack[language], {}), changed: phrase(changed[language], {}) });
}

function withOther({ hand, given }: Meant, { duration, moment, number }: Slots, now: Date): Meant | undefined {
  const other = (change: Record<string, unknown>): Meant => ({ hand, given: { ...given, ...change } });
  if (hand === "volume" && typeof number === "number" && given.to !== undefined) return number <= 100 ? other({ to: number }) : undefined;
  if (hand !== "timer") return undefined;
  if (typeof given.seconds === "number") {
    const seconds = typeof duration === "number" ? duration : typeof number === "number" ? number * unitOf(given.seconds) : 0;
    return seconds >= 1 ? other({ seconds: Math.round(seconds) }) : undefined;
  }
  if (typeof given.at !== "string") return undefined;
  if (typeof moment === "object") return changedTime(moment as Moment, given.at, other, now);
  return typeof number === "number" && Number.isInteger(number) && number <= 24
    ? changedTime({ clock: { hour: number, minute: 0, isExact: number > 12 } }, given.at, other, now)
    : undefined;
}

/** "Ten minutes. No, fifteen": minutes again. */
function unitOf(seconds: number): number {
  return [3_600, 60].find((unit) => seconds % unit === 0) ?? 1;
}

/** On the day that was said before, and in the half of it that is nearer. */
function changedTime(moment: Moment, at: string, other: (change: Record<string, unknown>) => Meant, now: Date): Meant | undefined {
  const before = new Date(at);
  const day = moment.day ?? { year: before.getFullYear(), month: before.getMonth() + 1, day: before.getDate() };
  const clock = moment.clock ?? { hour: before.getHours(), minute: before.getMinutes(), isExact: true };
  const isOpen = !clock.isExact && moment.part === undefined && clock.hour <= 12;
  const hours = isOpen ? [clock.hour % 12, (clock.hour % 12) + 12] : [clock.hour];
  const times = hours.flatMap((hour) => timeOf({ ...moment, day, clock: { ...clock, hour, isExact: isOpen || clock.isExact } }, now, "alarm") ?? []);
  const [nearest] = times.sort((a, b) => Math.abs(a.getTime() - before.getTime()) - Math.abs(b.getTime() - before.getTime()));
  return nearest && other({ at: localText(nearest) });
}
