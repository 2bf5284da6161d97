// Finds the requests of a sentence that asks for several things: "pause the music and lock the screen", "set two timers, one for ten
// minutes and one for fifteen". It is one only when all of it asks for something.

import type { Language } from "../../base/language.ts";
import { keptIn, type Meant } from "./meanings.ts";
import { isItem } from "./names.ts";
import { understood } from "./sentence.ts";

export interface JoinedPart {
  /** As it was said. */
  text: string;
  /** Where it begins in the request. */
  start: number;
  /** Undefined for a question that is answered without a hand. */
  meant: Meant | undefined;
}

/** It is a question that is answered without a hand, such as what time it is. */
export type IsAnswered = (text: string) => boolean;

interface Around {
  language: Language;
  now: Date;
  isAnswered: IsAnswered;
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
  en: /,?\s+(?:and then|and|then|plus)\s+|,\s+/giu,
  pt: /,?\s+(?:e depois|e então|e entao|e|depois|mais)\s+|,\s+/giu,
};

/** `start` is where the sentence begins in the request. Undefined when it does not ask for several things. */
export function severalIn(sentence: string, start: number, language: Language, now: Date, isAnswered: IsAnswered): JoinedPart[] | undefined {
  const places = [...sentence.matchAll(joints[language])];
  if (places.length === 0 || places.length > mostJoints) return undefined;
  return joinedIn(sentence, start, { language, now, isAnswered }) ?? timersIn(sentence, start, language, now);
}

/**
 * The requests of a sentence that joins several: "pause the music and lock the screen". Each has to be understood by itself, or with the
 * verb of the one before it: "cancel the pasta timer and the egg timer".
 */
function joinedIn(sentence: string, start: number, around: Around, isRest = false, before?: Before): JoinedPart[] | undefined {
  const { language, now, isAnswered } = around;
  const places = [...sentence.matchAll(joints[language])];
  if (places.length > mostJoints) return undefined;
  for (const [at, end] of [...places.map(({ index }) => index), sentence.length].entries()) {
    const text = sentence.slice(0, end);
    const meant = understood(text, language, now) ?? (before && afterOther(text, before, language, now));
    // What is written down would go on.
    if (meant ? keptIn(meant) !== undefined && end < sentence.length : !isAnswered(text)) continue;
    const part = { text, start, meant };
    if (end === sentence.length) return isRest ? [part] : undefined;
    const next = end + places[at]![0].length;
    const words = text.split(/\s+/).slice(0, longestVerb);
    const rest = joinedIn(sentence.slice(next), start + next, around, true, meant ? { ...meant, words, text } : before);
    // "You are too loud, speak softly" asks for one thing.
    const [following, ...others] = rest ?? [];
    if (!following) continue;
    if (!meant || !following.meant) return [part, following, ...others];
    if (repeats(meant, following.meant)) return [following, ...others];
    const both = isAlso(following.text, language) ? listedTogether(meant, following.meant) : undefined;
    return both ? [{ text: `${text}, ${following.text}`, start, meant: both }, ...others] : [part, following, ...others];
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
const anew: Record<Language, RegExp> = {
  en: /\b(?:(another|a new)(?: one)?(?=\s)|(?:a )?one(?=\s(?:for|of|at|in|to)\b))/iu,
  pt: /(?<![\p{L}])(?:(?:outr[oa]|um novo|uma nova)(?=\s)|uma?(?=\s(?:de|d[oa]s?|para|pr[ao]s?|às|as|com)\s))/iu,
};

/** "Cancel my alarm and set another one for eight": another alarm. */
function anotherOf(text: string, before: Before, language: Language, now: Date): Meant | undefined {
  const noun = nouns[language][`${before.given.kind ?? before.given.do}`];
  if (before.hand !== "timer" || noun === undefined || !anew[language].test(text)) return undefined;
  return understood(text.replace(anew[language], `${language === "pt" ? "um" : "a"} ${noun}`), language, now);
}

/** What a request is about, as one would say it. */
function objectOf({ hand, given }: Meant, language: Language): string | undefined {
  const isPortuguese = language === "pt";
  if ((hand === "note" && given.do !== "note") || (hand === "notes" && given.list !== undefined)) {
    const list = given.list === "" ? "" : `${given.list} `;
    return isPortuguese ? (list === "" ? "a minha lista" : `a lista de ${list}`.trim()) : `the ${list}list`;
  }
  if (hand === "note" || hand === "notes") return isPortuguese ? "as minhas notas" : "my notes";
  const noun = hand === "timer" || hand === "timers" ? nouns[language][`${given.kind ?? given.do}`] : undefined;
  const name = given.name === undefined ? "" : `${given.name}`;
  if (noun === undefined) return undefined;
  return isPortuguese ? `o ${noun}${name === "" ? "" : ` do ${name}`}` : `the ${name} ${noun}`.replace(/ +/g, " ");
}

const standIns: Record<Language, RegExp> = { en: /\b(?:it|that|them|those)\b/iu, pt: /(?<![\p{L}])(?:el[ea]s?|isso)(?![\p{L}])/iu };

/** "Add onions to the shopping list and then read it to me": the list. Portuguese may leave it out: "e lê pra mim". */
function withObject(text: string, before: Before, language: Language, now: Date): Meant | undefined {
  const object = objectOf(before, language);
  if (object === undefined) return undefined;
  const [, verb = "", rest = ""] = /^((?:me\s+)?\S+)(.*)$/u.exec(text) ?? [];
  const isSaid = standIns[language].test(text);
  if (!isSaid && language !== "pt") return undefined;
  return understood(isSaid ? text.replace(standIns[language], object) : `${verb} ${object}${rest}`, language, now);
}

/** "Add apples to the shopping list and take off the pears": off the same list. */
function ofSameList(text: string, before: Before, language: Language, now: Date): Meant | undefined {
  const { hand, given } = before;
  const object = hand === "note" && given.do !== "note" ? objectOf(before, language) : undefined;
  if (object === undefined) return undefined;
  const bare = text.replace(/[\s.!?]+$/u, "");
  for (const list of language === "pt" ? [`d${object}`, `n${object}`] : [`from ${object}`, `to ${object}`]) {
    const meant = understood(`${bare} ${list}`, language, now);
    if (meant?.hand === "note" && meant.given.list === given.list) return meant;
  }
  return undefined;
}

const alsoBefore: Record<Language, RegExp> = { en: /^(?:also|maybe|perhaps|some|oh|oh and)\s+(?=\S)/iu, pt: /^(?:também|tambem|mais|talvez)\s+(?=\S)/iu };
const alsoAfter: Record<Language, RegExp> = { en: /,?\s+(?:too|as well|also)(?:,? please)?[.!?]*$/iu, pt: /,?\s+(?:também|tambem)(?:,? por favor)?[.!?]*$/iu };
const mostItemWords = 4;

function isAlso(text: string, language: Language): boolean {
  return alsoBefore[language].test(text) || alsoAfter[language].test(text);
}

/** Things of one list that are added together, or removed. */
function listedTogether(one: Meant, other: Meant): Meant | undefined {
  const key = one.given.do === "add" ? "items" : "item";
  const isSame = one.hand === "note" && other.hand === "note" && one.given.do === other.given.do && one.given.list === other.given.list;
  return isSame && one.given.do !== "note" ? { ...other, given: { ...other.given, [key]: `${one.given[key]}, ${other.given[key]}` } } : undefined;
}

/** "Put pegs on the camping list and also matches": another thing of the same list. */
function alsoOf(text: string, { hand, given }: Before, language: Language): Meant | undefined {
  if (hand !== "note" || (given.do !== "add" && given.do !== "remove")) return undefined;
  const item = text.replace(alsoBefore[language], "").replace(alsoAfter[language], "").replace(/[.!?]+$/, "");
  if (!isAlso(text, language) || item.split(/\s+/).length > mostItemWords || !isItem(item)) return undefined;
  return { hand, given: { ...given, [given.do === "add" ? "items" : "item"]: item } };
}

function afterOther(text: string, before: Before, language: Language, now: Date): Meant | undefined {
  return elided(text, before, language, now) ?? anotherOf(text, before, language, now) ?? withObject(text, before, language, now) ??
    alsoOf(text, before, language) ?? ofSameList(text, before, language, now);
}

/** "Remind me at two to call Ana and at four to call Bob": where a time stands again another reminder begins. */
export function remindersIn({ text, start, meant }: JoinedPart, language: Language, now: Date): JoinedPart[] | undefined {
  if (!meant || keptIn(meant) !== "about") return undefined;
  const verb = text.split(/\s+/).slice(0, 2).join(" ");
  for (const { index, 0: joint } of [...text.matchAll(joints[language])].slice(0, mostJoints)) {
    const next = index + joint.length;
    const rest = text.slice(next);
    const [first, second] = [understood(text.slice(0, index), language, now), timeFirst[language].test(rest) ? understood(`${verb} ${rest}`, language, now) : undefined];
    if (first && keptIn(first) === "about" && second && keptIn(second) === "about") {
      const others = remindersIn({ text: `${verb} ${rest}`, start: start + next, meant: second }, language, now);
      return [{ text: text.slice(0, index), start, meant: first }, ...(others ?? [{ text: rest, start: start + next, meant: second }])];
    }
  }
  return undefined;
}

const timeFirst: Record<Language, RegExp> = {
  en: /^(?:then )?(?:at|in|on|tomorrow|tonight|next|this|the day after)\s/iu,
  pt: /^(?:depois )?(?:às|as|à|ao|em|daqui|amanhã|amanha|hoje|na|no|depois de)\s/iu,
};

const several: Record<Language, RegExp> = {
  en: /^(.*\b)(two|three|four|five|[2-5])\s+(?:(?:new|more|different)\s+)?(timers|alarms)((?:\s+(?:for |on )?(?:today|tonight|tomorrow|\p{L}+day))?)(?:,?\s+please)?[\s,:]+(.+)$/iu,
  pt: /^(.*\b)(dois|duas|três|tres|quatro|cinco|[2-5])\s+(?:novos\s+)?(timers|temporizadores|alarmes|despertadores)((?:\s+(?:para |pra |na |no )?(?:hoje|amanhã|amanha|segunda|terça|quarta|quinta|sexta|sábado|domingo))?)[\s,:]+(.+)$/iu,
};
/** "Um às 6 e outro às 6 e 15": what joins an hour to its minutes parts nothing. */
const eachOther: Record<Language, RegExp> = {
  en: /,?\s+(?:and\s+)?(?=(?:one|another|the (?:other|second|third))\s)/iu, pt: /,?\s+(?:e\s+)?(?=(?:uma?|(?:[oa] )?(?:outr[oa]|segund[oa]))\s)/iu,
};
const counts = ["two dois duas 2", "three três tres 3", "four quatro 4", "five cinco 5"];
/** What stands before each length or time, and is said for the timer itself. */
const each = /^(?:(?:one|another|the other|the first|the second|um|outro|o outro|o)\s+)?(?:(?:of|for|at|de|das|para|pra|com)\s+)?/iu;

/** "Three timers: 5, 10 and 15 minutes": as many as it says. */
function timersIn(sentence: string, start: number, language: Language, now: Date): JoinedPart[] | undefined {
  const [, verb = "", count = "", noun = "", shared = "", rest = ""] = several[language].exec(sentence) ?? [];
  const wanted = counts.findIndex((words) => words.split(" ").includes(count.toLowerCase())) + 2;
  const parted = rest.split(joints[language]);
  const items = (parted.length === wanted ? parted : rest.split(eachOther[language])).map((item) => item.replace(each, "").replace(/[.!?]+$/, "").trim());
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
