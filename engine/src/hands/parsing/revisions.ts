// Where somebody takes back what was just asked for, or changes a number of it: "Set a timer for ten minutes. No, make it fifteen."

import type { Language } from "../../base/language.ts";
import { correctedFrom } from "./corrections.ts";
import { elided } from "./followed.ts";
import { matched, phrase, type Phrase, type Sentence, type Slots } from "./grammar.ts";
import type { Meant } from "./meaning.ts";
import { changes, keptIn } from "./meanings.ts";
import { bareHour, localText, timeOf, type Moment } from "./moments.ts";
import { areThings } from "./names.ts";
import { withoutRemarks } from "./remarks.ts";
import { isPolite, understood, wordsOf } from "./sentence.ts";
import { said } from "./tokens.ts";

const takenBack: Record<Language, string> = {
  en:
    "[oh|no|wait|hmm|well|ok|okay|sorry|actually|on second thought|on second thoughts|you know what|but|and] [no|wait|sorry|actually] " +
    "[please] (never mind|nevermind|never mind that|forget it|forget that|forget about it|forget about that|cancel that|cancel it|scratch that|" +
    "strike that|do not|do not do it|do not do that|do not bother|i changed my mind|i have changed my mind|ignore that|" +
    "not now|i take that back|undo that) " +
    "[please|then|thanks|thank you] [never mind|nevermind|forget it|do not bother]",
  pt:
    "[ah|nao|espera|perai|hum|bom|desculpa|alias|na verdade|pensando bem|quer saber|mas|e] [nao|espera|desculpa] " +
    "[por favor] (deixa para la|deixa|esquece|esquece isso|deixa isso|cancela|cancela isso|nao precisa|nao faz isso|nao faca isso|" +
    "mudei de ideia|ignora|ignora isso|desfaz isso|desiste|agora nao|deixa quieto) " +
    "[por favor|entao|obrigado|obrigada|nao] [nao precisa|nao precisa mais|deixa para la|deixa|esquece]",
};
const changed: Record<Language, string> = {
  en: "[let us say|change it to|change that to|set it to|it should be|it is|for|at|to|better] ({duration}|{moment}|{number} [percent|instead])",
  pt: "[faz|faca|coloca|bota|poe|muda para|deixa em|que seja|sao|e] [de|para|em|as] ({duration}|{moment}|{number} [por cento])",
};

const compiled: { [language in Language]?: { takenBack: Phrase; changed: Phrase } } = {};

/** It takes back what was asked for before it, and says nothing else. */
export function takesBack(sentence: Sentence): boolean {
  const { text, tokens, language } = sentence;
  // "Actually, forget it, I'll watch it": with or without its reason.
  return [tokens, ...withoutRemarks(text, tokens, language)].some(
    (each) => matched(phrasesFor(language).takenBack, { ...sentence, tokens: each }, () => true) === true,
  );
}

/** Words of which one alone may only call for attention: "wait, add eggs". */
const attention = /^(wait|hang|hold|on|oops|sorry|espera|perai|pera|desculpa|ops|opa)$/;
/** After these stands what was meant, whatever it is. */
const decisive = /\b(mean|meant|or rather|actually|quer dizer|quero dizer|quis dizer|digo|alias|ou melhor|na verdade|corrigindo)\b/;
const adds = /^(also|and|too|another|plus|tambem|e|mais|outro|outra)$/;
const approves = /^(really|fine|good|great|perfect|all|nothing|right|true|beleza|otimo|bom|certo|verdade|nada|serio|mesmo)$/;
const mostMeantWords = 4;
const mostVerbWords = 6;

/** A request, as it was said. */
interface Asked {
  text: string;
  meant: Meant;
}

/**
 * The request before with what the sentence changes of it; undefined when it corrects nothing of it. "None": what is meant instead is not
 * understood, and what was asked for is not meant.
 */
export function corrected(asked: Asked, sentence: Sentence): Meant | "none" | undefined {
  const { text, tokens, language } = sentence;
  // "Actually two, I'm out of shape".
  const ways = correctedFrom(tokens, 0, language) === undefined ? [] : withoutRemarks(text, tokens, language);
  for (const way of [tokens, ...ways]) {
    const found = correctedBy(asked, { ...sentence, tokens: way });
    if (found) return found;
  }
  return undefined;
}

function correctedBy({ text, meant: before }: Asked, sentence: Sentence): Meant | "none" | undefined {
  const { tokens, language, now } = sentence;
  const from = correctedFrom(tokens, tokens[0]?.plain === "oh" ? 1 : 0, language);
  if (from === undefined || from === tokens.length) return undefined;
  const rest = tokens.slice(from);
  const changed = (words: typeof tokens): Meant | undefined =>
    matched(phrasesFor(language).changed, { ...sentence, tokens: words }, (slots) => withOther(before, slots, now));
  // "Wake me at seven. Actually, seven fifteen": at that time.
  const other = changed(rest) ?? changed([...wordsOf(language === "pt" ? "às" : "at", language), ...rest]);
  if (other) return other;
  const mark = tokens.slice(0, from);
  if (mark.every(({ plain }) => attention.test(plain)) || rest.some(({ plain }) => adds.test(plain))) return undefined;
  const instead = said(sentence.text, tokens, from, tokens.length);
  const meant = understood(instead, language, now);
  if (meant && isInsteadOf(meant, before)) return meant;
  if (keptIn(before) !== undefined || rest.length > mostMeantWords || approves.test(rest[0]!.plain)) return undefined;
  if (before.hand === "note" && areThings(instead)) {
    return { ...before, given: { ...before.given, [before.given.do === "add" ? "items" : "item"]: instead } };
  }
  const words = text.split(/\s+/).slice(0, mostVerbWords);
  const same = meant ? undefined : elided(instead, { ...before, text, words }, language, now);
  if (same || meant || isPolite(instead, language, now)) return same;
  return changes(before) && decisive.test(mark.map(({ plain }) => plain).join(" ")) ? "none" : undefined;
}

/** It is of the same kind, and not one more: timers of two names may both be meant, and so may two reminders. */
function isInsteadOf(one: Meant, other: Meant): boolean {
  if (one.hand !== other.hand || one.hand === "note") return false;
  if (one.hand === "media") return true;
  const isSame = (key: string): boolean => one.given[key] === other.given[key];
  return isSame("do") && isSame("about") && (one.given.do === "cancel" || one.hand !== "timer" || isSame("name"));
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
  const hour = bareHour(typeof number === "number" ? number : undefined);
  return hour && changedTime(hour, given.at, other, now);
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
