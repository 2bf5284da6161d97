// Answers what time it is at another place.

import type { Language } from "../base/language.ts";
import { plainWords } from "../base/words.ts";
import { correctedFrom } from "../hands/parsing/corrections.ts";
import { isPause, tokensOf } from "../hands/parsing/tokens.ts";
import { saidTime } from "./timeOfDay.ts";
import { timeZoneOf } from "./timeZones.ts";

/** "What time is it in Lisbon right now?", and "In Lisbon, what time is it?". The place, with the word before it, is the group. */
const questions: Record<Language, RegExp[]> = {
  en: [
    /\b(?:what|the) (?:current |exact |local )?(?:time|hour)(?: is it| it is| is| (?:would|will) it be)?(?: (?:right |just )?now| currently| at the moment)?(?: over there| there| over)?(?: for (?:people|everyone|everybody|someone|those|folks))?,?\s(in\s.+)$/iu,
    /^(?:current |local )?time\s(in\s.+)$/iu,
    /\bhow late is it(?: (?:right )?now)?\s(in\s.+)$/iu,
    /^(?:and )?(in\s[^,]+?),?\s+what(?:'s| is)?(?: the)? time(?: is it| it is)?(?: (?:right )?now)?$/iu,
  ],
  pt: [
    /^(?:e )?(?:a )?hora(?: certa| atual| local)?\s((?:em|no|na|nos|nas)\s.+)$/iu,
    /\b(?:que|quantas|as|a|o|sao|são) (?:horas?|hor[áa]rio)(?: (?:s[ãa]o|é|tem|atual|local|certa|(?:est[áa] |t[áa] )?marcando|est[áa]|ser[áa]|ser[ãa]o))?(?: (?:agora|neste momento|nesse momento|l[áa]))?(?: (?:pra|para) (?:quem (?:est[áa]|mora|vive)|o pessoal))?,?\s((?:em|no|na|nos|nas|de|do|da)\s.+)$/iu,
    /^(?:e )?((?:em|no|na|nos|nas)\s[^,]+?),?\s+(?:agora )?(?:s[ãa]o )?que horas?(?: s[ãa]o)?(?: agora)?$/iu,
  ],
};
/** What ends such a question, and is none of the place: "right now", "I want to call Mum". */
const endings: Record<Language, RegExp> = {
  en: /[\s,]+(?:(?:right |just )?now|at the moment|at present|today|please)$|,\s+(?:(?:because|since|so) )?(?:i|we|my|he|she|they)\b[^,]*$/iu,
  pt: /[\s,]+(?:(?:bem )?agora(?: mesmo)?|(?:n[eo]ste|no) (?:exato )?(?:momento|instante)|hoje|por (?:favor|gentileza))$|,\s+(?:(?:porque|que|pois) )?(?:eu|a gente|quero|preciso|vou|tenho|meu|minha|ele|ela)\s[^,]*$/iu,
};
/** Words that only look like a place: it is the time here that is asked for. */
const here: Record<Language, RegExp> = {
  en: /^in (?:here|this (?:room|place|city|town|country))$/iu,
  pt: /^(?:n[eo]ste|no) (?:exato )?(?:momento|instante)$/iu,
};
const unknown: Record<Language, (place: string) => string> = {
  en: (place) => `I do not know what time it is ${place}.`,
  pt: (place) => `Não sei que horas são ${place}.`,
};

/** "I am calling my cousin in Sydney, what's the time over there?": the place was told before. It is the group. */
const told: Record<Language, RegExp> = {
  en: /\b(?:in|to|at)\s(\p{Lu}[\p{L}'’-]+(?:\s\p{Lu}[\p{L}'’-]+)*)[^?]*[,.;]\s+(?:[Ss]o |[Aa]nd )?(?:[Dd]o you know )?[Ww]hat(?:['’]s| is)?(?: the)? time(?: is it| it is)?(?: (?:over|out|up|down))? there$/u,
  pt: /(?:^|\s)(?:em|no|na|para|pra|pro)\s(\p{Lu}[\p{L}'’-]+(?:\s\p{Lu}[\p{L}'’-]+)*)[^?]*[,.;]\s+(?:[Ee] |[Ee]ntão |[Aa]í )?(?:[Ss]abe )?[Qq]ue horas?(?: s[ãa]o| é)?(?: por)? l[áa]$/u,
};
/** "Paris what time there", "Lisboa que horas": a place that is known, and no more words than it takes. It is the group. */
const shorthand: Record<Language, RegExp> = {
  en: /^((?:\p{L}[\p{L}'’-]*\s){1,3}?)(?:what )?time(?: is it| it is)?(?: (?:over )?there)?$/iu,
  pt: /^((?:\p{L}[\p{L}'’-]*\s){1,3}?)(?:(?:t[áa]|est[áa]|agora|s[ãa]o)\s)?que horas?(?: s[ãa]o| tem| é)?$/iu,
};
const there: Record<Language, string> = { en: "in", pt: "em" };

const beforePlace: Record<Language, RegExp> = { en: /^in$/, pt: /^(em|no|na|nos|nas)$/ };

/** "In New York, I mean in Chicago": what was said last. */
function asCorrected(place: string, language: Language): string {
  const tokens = tokensOf(place, language).filter((token) => !isPause(token));
  const slips = tokens.map((_, at) => correctedFrom(tokens, at, language) ?? tokens.length);
  const from = slips.findLast((next, at) => at > 0 && beforePlace[language].test(tokens[next]?.plain ?? ""));
  return from === undefined ? place : place.slice(tokens[from]!.start);
}

/** Gives undefined when the request does not ask for the time at a place. */
export function timeElsewhere(request: string, now: Date, language: Language, tag: string): string | undefined {
  const place = askedPlace(request, language) ?? placeBefore(request, language);
  if (place === undefined) return undefined;
  const zone = timeZoneOf(place.replace(/^\S+\s+/u, ""), language);
  // "A hora de Brasília" asks for the time there, "a hora do almoço" does not.
  if (zone === undefined && language === "pt" && /^d[eoa]\s/iu.test(place)) return undefined;
  if (zone === undefined) return unknown[language](place);
  const there = partsOf(now, tag, zone);
  const day = there.weekday === partsOf(now, tag).weekday ? undefined : there.weekday;
  return `${saidTime(there, language, day)} ${place}.`;
}

/** What asks, without what says that now is meant; what follows the question is another sentence. */
function questionOf(request: string, language: Language): string {
  let text = request.trim().replace(/\?\s.*$/su, "").replace(/[\s.?!…]+$/u, "");
  for (let before = ""; before !== text; ) {
    before = text;
    text = text.replace(endings[language], "");
  }
  return text;
}

/** The place before the question, if there is one of that name. */
function placeBefore(request: string, language: Language): string | undefined {
  const text = questionOf(request, language);
  const place = (told[language].exec(text) ?? shorthand[language].exec(text))?.[1]?.trim();
  return place !== undefined && timeZoneOf(place, language) !== undefined ? `${there[language]} ${place}` : undefined;
}

/** The place as it was said, with the word before it: "in Lisbon". */
function askedPlace(request: string, language: Language): string | undefined {
  const text = questionOf(request, language);
  for (const question of questions[language]) {
    const said = question.exec(text)?.[1];
    const place = said && asCorrected(said, language);
    if (place !== undefined && !here[language].test(place) && plainWords(place).length > 1) return `${place.charAt(0).toLowerCase()}${place.slice(1)}`;
  }
  return undefined;
}

function partsOf(now: Date, tag: string, timeZone?: string): { hours: number; minutes: number; weekday: string } {
  const zone = timeZone === undefined ? {} : { timeZone };
  const numbers = new Intl.DateTimeFormat("en", { hourCycle: "h23", hour: "numeric", minute: "numeric", ...zone }).formatToParts(now);
  const number = (type: string): number => Number(numbers.find((part) => part.type === type)?.value);
  return { hours: number("hour"), minutes: number("minute"), weekday: new Intl.DateTimeFormat(tag, { weekday: "long", ...zone }).format(now) };
}
