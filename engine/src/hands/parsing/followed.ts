// What a part of a sentence asks for after another request, from which it takes what it does not say: the verb, the thing, or the list.

import type { Language } from "../../base/language.ts";
import type { Meant } from "./meaning.ts";
import { isItem } from "./names.ts";
import { isPolite, understood } from "./sentence.ts";

/** The request that stands before, with the words that it begins with. */
export interface Before extends Meant {
  words: readonly string[];
  text: string;
}

const another = /^(?:one|another(?: one)?|um|uma|outro|outra)\s+(?=(?:of|for|at|de|do|da|para|pra|pro|às|as)\s)/iu;

/** "I mean the blue one", and not "twenty one": it counts nothing. */
const someOne = /(?<!\b(?:twenty|thirty|forty|fifty|e))[\s-]+(?:one|uma?)[\s.!?]*$/iu;

/** It begins with a verb that sets something. */
const sets: Record<Language, RegExp> = {
  en: /^(?:please )?(?:set|start|make|put|add|create|begin|give)\s/iu,
  pt: /^(?:(?:já|ja|aí|ai) )?(?:põe|poe|ponha|coloca|coloque|bota|bote|cria|crie|marca|marque|inicia|inicie|começa|liga|ligue)\s/iu,
};

/** What it asks for with the verb of the request before it, of which it has to be another one. */
export function elided(text: string, verb: Before, language: Language, now: Date): Meant | undefined {
  // What has a verb of its own, or none, is not cancelled: "cancel the egg timer, please, and set one of four minutes".
  const takesAway = verb.given.do === "cancel" || verb.given.do === "clear";
  if (takesAway && (sets[language].test(text) || isPolite(text, language, now))) return undefined;
  // "Put a timer of ten minutes and one of half an hour": "one" is another timer.
  const bare = text.replace(another, "");
  const unit = /\b(seconds?|minutes?|hours?|segundos?|minutos?|horas?)\b/iu.exec(verb.text)?.[1];
  // "Twelve minutes for the eggs and thirty for the cake": minutes again, behind the number or at the end.
  const withUnit = unit === undefined || someOne.test(text) ? [] : [`${text} ${unit}`, text.replace(/^(\S+)\s/u, `$1 ${unit} `)];
  const wholes = [text, ...withUnit, ...(bare === text ? [] : [bare])];
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
  if (!isSaid && (language !== "pt" || rest.replace(/[\s.!?]+/g, "") === "")) return undefined;
  return understood(isSaid ? text.replace(standIns[language], object) : `${verb} ${object}${rest}`, language, now);
}

const thisList: Record<Language, RegExp> = { en: /\b(?:the|that|this) list\b/iu, pt: /(?<![\p{L}])(?:a|essa|d?essa|n?essa|na|da) lista(?![\p{L}]| d)/iu };

/** "Add beer to the party list and read me the list": that one. */
export function onThatList(meant: Meant, text: string, before: Meant, language: Language): Meant {
  const isUsual = (meant.hand === "notes" || meant.hand === "note") && meant.given.list === "";
  const isOther = (before.hand === "notes" || before.hand === "note") && typeof before.given.list === "string";
  return isUsual && isOther && thisList[language].test(text) ? { ...meant, given: { ...meant.given, list: before.given.list } } : meant;
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

const alsoBefore: Record<Language, RegExp> = { en: /^(?:also|maybe|perhaps|some|oh,?(?:\s+and)?)\s+(?=\S)/iu, pt: /^(?:(?:ah|oh),?\s+(?:e\s+)?|(?:também|tambem|mais|talvez)\s+)(?=\S)/iu };
const alsoAfter: Record<Language, RegExp> = { en: /,?\s+(?:too|as well|also)(?:,? please)?[.!?]*$/iu, pt: /,?\s+(?:também|tambem)(?:,? por favor)?[.!?]*$/iu };
const mostItemWords = 4;

/** It says that it is one more. */
export function isAlso(text: string, language: Language): boolean {
  return alsoBefore[language].test(text) || alsoAfter[language].test(text);
}

/** Things of one list that are added together, or removed. */
export function listedTogether(one: Meant, other: Meant): Meant | undefined {
  const key = one.given.do === "add" ? "items" : "item";
  const isSame = one.hand === "note" && other.hand === "note" && one.given.do === other.given.do && one.given.list === other.given.list;
  const areItems = one.given.do === "add" || one.given.do === "remove";
  return isSame && areItems ? { ...other, given: { ...other.given, [key]: `${one.given[key]}, ${other.given[key]}` } } : undefined;
}

/** "Put pegs on the camping list and also matches": another thing of the same list. */
function alsoOf(text: string, { hand, given }: Before, language: Language): Meant | undefined {
  if (hand !== "note" || (given.do !== "add" && given.do !== "remove")) return undefined;
  const item = text.replace(alsoBefore[language], "").replace(alsoAfter[language], "").replace(/[.!?]+$/, "");
  if (!isAlso(text, language) || item.split(/\s+/).length > mostItemWords || !isItem(item)) return undefined;
  return { hand, given: { ...given, [given.do === "add" ? "items" : "item"]: item } };
}

/** What a part of a sentence asks for that is only whole with the request before it; undefined where it is none. */
export function afterOther(text: string, before: Before, language: Language, now: Date): Meant | undefined {
  return elided(text, before, language, now) ?? anotherOf(text, before, language, now) ?? withObject(text, before, language, now) ??
    alsoOf(text, before, language) ?? ofSameList(text, before, language, now);
}
