// Finds the requests of a sentence that asks for several things: "pause the music and lock the screen", "set two timers, one for ten
// minutes and one for fifteen". It is one only when all of it asks for something.

import type { Language } from "../../base/language.ts";
import { keptIn, type Meant } from "./meanings.ts";
import { understood } from "./sentence.ts";

export interface JoinedPart {
  /** As it was said. */
  text: string;
  /** Where it begins in the request. */
  start: number;
  meant: Meant;
}

/** The request that stands before, with the words that it begins with. */
interface Before extends Meant {
  words: readonly string[];
  text: string;
}

/** One with more of them is no request. */
const mostJoints = 4;
/** "Turn off" has two words, "set an alarm" three. */
const longestVerb = 3;
const another = /^(?:one|another(?: one)?|um|uma|outro|outra)\s+(?=(?:of|for|at|de|do|da|para|pra|pro|às|as)\s)/iu;
const joints: Record<Language, RegExp> = {
  en: /,?\s+(?:and then|and also|and|then|plus)\s+|,\s+/giu,
  pt: /,?\s+(?:e depois|e também|e tambem|e então|e entao|e|depois|mais)\s+|,\s+/giu,
};

/** `start` is where the sentence begins in the request. Undefined when it does not ask for several things. */
export function severalIn(sentence: string, start: number, language: Language, now: Date): JoinedPart[] | undefined {
  const places = [...sentence.matchAll(joints[language])];
  if (places.length === 0 || places.length > mostJoints) return undefined;
  return joinedIn(sentence, start, language, now) ?? timersIn(sentence, start, language, now);
}

/**
 * The requests of a sentence that joins several: "pause the music and lock the screen". Each has to be understood by itself, or with the
 * verb of the one before it: "cancel the pasta timer and the egg timer".
 */
function joinedIn(sentence: string, start: number, language: Language, now: Date, verb?: Before): JoinedPart[] | undefined {
  const places = [...sentence.matchAll(joints[language])];
  if (places.length > mostJoints) return undefined;
  for (const end of [...places.map(({ index }) => index), sentence.length]) {
    const text = sentence.slice(0, end);
    const meant = understood(text, language, now) ?? (verb && (elided(text, verb, language, now) ?? anotherOf(text, verb, language, now)));
    // What is written down would go on.
    if (!meant || (keptIn(meant) !== undefined && end < sentence.length)) continue;
    const part = { text, start, meant };
    if (end === sentence.length) return verb ? [part] : undefined;
    const next = end + places.find(({ index }) => index === end)![0].length;
    const rest = joinedIn(sentence.slice(next), start + next, language, now, { ...meant, words: text.split(/\s+/).slice(0, longestVerb), text });
    // "You are too loud, speak softly" asks for one thing.
    if (rest) return repeats(meant, rest[0]!.meant) ? rest : [part, ...rest];
  }
  return undefined;
}

/** Said in two ways, a thing is asked for once: but two songs may be skipped, and two timers set. */
function repeats(one: Meant, other: Meant): boolean {
  return !/^(timer|media|note)$/.test(one.hand) && one.hand === other.hand && JSON.stringify(one.given) === JSON.stringify(other.given);
}

/** What it asks for with the verb of the request before it, of which it has to be another one. */
function elided(text: string, verb: Before, language: Language, now: Date): Meant | undefined {
  // "Put a timer of ten minutes and one of half an hour": "one" is another timer.
  const bare = text.replace(another, "");
  const unit = /\b(seconds?|minutes?|hours?|segundos?|minutos?|horas?)\b/iu.exec(verb.text)?.[1];
  const wholes = [text, ...(unit === undefined ? [] : [`${text} ${unit}`]), ...(bare === text ? [] : [bare])];
  for (const [count, whole] of verb.words.flatMap((_, at) => wholes.map((each) => [at + 1, each] as const))) {
    const asked = `${verb.words.slice(0, count).join(" ")} ${whole}`;
    const meant = understood(asked, language, now);
    if (meant?.hand === verb.hand && meant.given.do === verb.given.do) return onSameDay(asked, meant, verb, language);
  }
  return undefined;
}

/** "An alarm tomorrow at seven and another at seven twenty": the day is said once, and so is the half of it. */
function onSameDay(asked: string, meant: Meant, before: Before, language: Language): Meant {
  const [one, other] = [before.given.at, meant.given.at];
  if (typeof one !== "string" || typeof other !== "string") return meant;
  const day = one.slice(0, 10);
  if (other.slice(0, 10) === day) return meant;
  const away = ({ given }: Meant): number => Math.abs(Date.parse(`${given.at}`) - Date.parse(one));
  const [nearest] = ["00:00", "12:00"]
    .flatMap((time) => understood(asked, language, new Date(`${day}T${time}`)) ?? [])
    .filter(({ given }) => given.do === meant.given.do && `${given.at}`.startsWith(day))
    .sort((a, b) => away(a) - away(b));
  return nearest ?? meant;
}

const nouns: Record<Language, Record<string, string>> = {
  en: { timer: "timer", alarm: "alarm", reminder: "reminder" },
  pt: { timer: "timer", alarm: "alarme", reminder: "lembrete" },
};
const anew: Record<Language, RegExp> = { en: /\b(another|a new)(?: one)?(?=\s)/iu, pt: /\b(outr[oa]|um novo|uma nova)(?=\s)/iu };

/** "Cancel my alarm and set another one for eight": another alarm. */
function anotherOf(text: string, before: Before, language: Language, now: Date): Meant | undefined {
  const noun = nouns[language][`${before.given.kind ?? before.given.do}`];
  if (before.hand !== "timer" || noun === undefined || !anew[language].test(text)) return undefined;
  return understood(text.replace(anew[language], `$1 ${noun}`), language, now);
}

const several: Record<Language, RegExp> = {
  en: /^(.*\b)(two|three|four|five|[2-5])\s+(?:(?:new|more|different)\s+)?(timers|alarms)((?:\s+(?:for |on )?(?:today|tonight|tomorrow|\p{L}+day))?)(?:,?\s+please)?[\s,:]+(.+)$/iu,
  pt: /^(.*\b)(dois|duas|três|tres|quatro|cinco|[2-5])\s+(?:novos\s+)?(timers|temporizadores|alarmes|despertadores)((?:\s+(?:para |pra |na |no )?(?:hoje|amanhã|amanha|segunda|terça|quarta|quinta|sexta|sábado|domingo))?)[\s,:]+(.+)$/iu,
};
const counts = ["two dois duas 2", "three três tres 3", "four quatro 4", "five cinco 5"];
/** What stands before each length or time, and is said for the timer itself. */
const each = /^(?:(?:one|another|the other|the first|the second|um|outro|o outro|o)\s+)?(?:(?:of|for|at|de|das|para|pra|com)\s+)?/iu;

/** "Three timers: 5, 10 and 15 minutes": as many as it says. */
function timersIn(sentence: string, start: number, language: Language, now: Date): JoinedPart[] | undefined {
  const [, verb = "", count = "", noun = "", shared = "", rest = ""] = several[language].exec(sentence) ?? [];
  const wanted = counts.findIndex((words) => words.split(" ").includes(count.toLowerCase())) + 2;
  const items = rest.split(joints[language]).map((item) => item.replace(each, "").replace(/[.!?]+$/, "").trim());
  if (count === "" || items.length !== wanted) return undefined;
  // "Ten minutes and fifteen", "5, 10 and 15 minutes": the unit is said once.
  const unit = items.map((item) => /\s(\p{L}+)$/u.exec(item)?.[1]).findLast((word) => word !== undefined) ?? "";
  const lengthUnit = /\b(seconds|minutes|hours|segundos|minutos|horas)\b/iu.exec(rest)?.[1] ?? "";
  const one = noun.replace(/(?:(?<=r)es|s)$/iu, "");
  const isTimer = /^t/i.test(noun);
  const of = language === "pt" ? (isTimer ? "de" : "para") : isTimer ? "for" : "at";
  const parts = items.map((item): JoinedPart | undefined => {
    const begin = `${verb}${language === "pt" ? "um" : "a"} ${one} ${isTimer ? "" : shared}`.trim();
    const ask = (what: string): Meant | undefined =>
      understood(`${begin} ${of} ${what}`, language, now) ?? understood(`${begin} ${what}`, language, now);
    const meant =
      ask(item) ?? ask(`${item} ${unit}`) ?? ask(withUnit(item, lengthUnit)) ?? (language === "pt" ? ask(`as ${item}`) : undefined);
    return meant?.hand === "timer" ? { text: sentence, start, meant } : undefined;
  });
  return parts.every((part) => part !== undefined) ? parts : undefined;
}

/** "Ten for the bread" among "five minutes for the coffee" is ten minutes. */
function withUnit(item: string, unit: string): string {
  return item.replace(/^(\S+)\s/u, `$1 ${unit} `);
}
