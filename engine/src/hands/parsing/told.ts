// What a request takes from what was told before it: "the plumber comes on Friday, wake me at seven that day", "it has to stay on for half an
// hour, set a timer for that". The request is read with what was told in the place of the words that stand for it.

import type { Language } from "../../base/language.ts";
import { isOther, plainText } from "./clauses.ts";
import { day } from "./days.ts";
import { duration } from "./durations.ts";
import type { Sentence } from "./grammar.ts";
import type { Found } from "./numbers.ts";
import { measure } from "./sums.ts";
import { said, type Token } from "./tokens.ts";

/** A request with what it refers to in its place. */
export interface Told {
  text: string;
  /** It is good for an answer alone: somebody else may have said it, it depends on something, or it is a measure. */
  isToAnswer: boolean;
}

type Kind = "day" | "duration" | "measure";

/** Words that stand for what was told, and what is said in their place; "$" is what was told. */
const standIns: Record<Language, readonly [Kind, RegExp, string][]> = {
  en: [
    ["day", /\b(?:on )?(?:that|the) same (?:day|date)\b/iu, "on $"],
    ["day", /\bwhat (?:date|day)(?: would| will| is|['’]s) that(?: be| fall on)?\b/iu, "what date is $"],
    ["day", /\b(?:on )?that day\b/iu, "on $"],
    ["day", /\b(?:on |in )?that (morning|afternoon|evening|night)\b/iu, "on $ in the $1"],
    ["duration", /\b(?:when|once) (?:that|it|they|time)(?: is|['’]s| are|['’]re) (?:over|up|done|finished|out)\b/iu, "in $"],
    ["duration", /\bfor (?:that|it|that long|that time|exactly that|so long)\b/iu, "for $"],
    ["measure", /\b(?:that|it|this)\b/iu, "$"],
  ],
  pt: [
    ["day", /(?<![\p{L}])(?:n[eo](?:sse)? mesmo dia|n?aquele dia|nesse dia|no mesmo dia)(?![\p{L}])/iu, "$"],
    ["day", /(?<![\p{L}])(?:nessa|naquela) (manhã|tarde|noite)(?![\p{L}])/iu, "$ de $1"],
    ["duration", /(?<![\p{L}])quando (?:acabar|terminar|passar|der|der o tempo|acabar o tempo|acabar isso)(?![\p{L}])/iu, "em $"],
    ["duration", /(?<![\p{L}])(?:d|para |pra |por )(?:isso|esse tempo)(?![\p{L}])/iu, "de $"],
    ["measure", /(?<![\p{L}])(?:isso|isto)(?![\p{L}])/iu, "$"],
  ],
};
/** A longer text tells of more than one can refer to. In words. */
const longest = 60;
const mark = /[,;:.!?–—]/;
const joins: Record<Language, RegExp> = { en: /^(so|and|then)$/, pt: /^(entao|e|ai|dai)$/ };

/** The requests of a sentence with what was told before them in its place; none where nothing is referred to. */
export function withTold({ text, tokens, language, now }: Sentence): Told[] {
  const requests: Told[] = [];
  if (tokens.length > longest) return requests;
  for (let at = 2; at < tokens.length; at++) {
    const isMarked = mark.test(text.slice(tokens[at - 1]!.end, tokens[at]!.start));
    const isJoin = joins[language].test(tokens[at]!.plain);
    if (!isMarked && !isJoin) continue;
    const before = tokens.slice(0, at);
    const rest = isJoin ? tokens.slice(at + 1) : tokens.slice(at);
    const request = said(text, rest, 0, rest.length);
    const standIn = standIns[language].find(([kind, words]) => words.test(request) && found(kind, text, before, language, now) !== undefined);
    if (!standIn) continue;
    const [kind, words, instead] = standIn;
    const what = found(kind, text, before, language, now)!;
    const whole = request.replace(words, instead.replace(/\$(?!\d)/, () => what));
    requests.push({ text: whole, isToAnswer: kind === "measure" || isOther(before.slice(plansIn(before, language)), language) });
  }
  return requests;
}

const plans: Record<Language, RegExp> = {
  en: /^(i|we) (want|need|have|am going|are going) to \S+ /, pt: /^(eu |a gente )?(quero|preciso|tenho que|vou|vamos|quer|precisa) \S+ /,
};

/** How many of the words only say what is planned: "I want to read for an hour" says that nobody reads anything out. */
function plansIn(tokens: readonly Token[], language: Language): number {
  const found = plans[language].exec(`${plainText(tokens)} `)?.[0];
  return found === undefined ? 0 : found.trim().split(" ").length;
}

/** The only thing of that kind that was told, in its words. */
function found(kind: Kind, text: string, tokens: readonly Token[], language: Language, now: Date): string | undefined {
  const read = (at: number): Found<unknown> | undefined => {
    switch (kind) {
      case "day":
        return day(tokens, at, language, now);
      case "duration":
        return duration(tokens, at, language);
      case "measure":
        return measure(tokens, at, language);
    }
  };
  const all: string[] = [];
  for (let at = 0; at < tokens.length; at++) {
    const one = read(at);
    if (!one) continue;
    all.push(said(text, tokens, at, one.next));
    at = one.next - 1;
  }
  return all.length === 1 ? all[0] : undefined;
}
