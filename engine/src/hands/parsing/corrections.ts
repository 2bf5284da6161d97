// Where somebody corrects what was just said: "five, no, wait, ten minutes".

import type { Language } from "../../base/language.ts";
import { thinking, tokensOf, type Token } from "./tokens.ts";

/** Each alone or after another one. */
const marks: Record<Language, string[][]> = {
  en: ["no", "nah", "wait", "sorry", "actually", "i mean", "i meant", "i meant to say", "make that", "rather", "or rather", "hang on", "hold on", "oops", "make it", "correction", "scratch that", "better", "or no", "oh no", "on reflection", "i beg your pardon", "beg your pardon", "let me see", "you know what"].map(words),
  pt: ["nao", "espera", "perai", "desculpa", "quer dizer", "quero dizer", "digo", "alias", "melhor", "ou melhor", "na verdade", "corrigindo", "ops", "opa", "pera", "eu quis dizer", "pensando bem", "nao pera", "ou nao", "quer saber"].map(words),
};
const mostMarks = 4;

function words(text: string): string[] {
  return text.split(" ");
}

/** The place after such words, where what is meant stands; undefined where there are none. */
export function correctedFrom(tokens: readonly Token[], at: number, language: Language): number | undefined {
  let next = at;
  for (let count = 0; count < mostMarks; count++) {
    const mark = marks[language].filter((each) => each.every((word, offset) => tokens[next + offset]?.plain === word)).sort((a, b) => b.length - a.length)[0];
    if (!mark) break;
    next += mark.length;
  }
  return next > at ? next : undefined;
}

/** One of them alone begins the names of things: "no sugar cookies", "melhor amigo". */
const ambiguous = /^(no|better|rather|wait|nao|melhor|espera|na|digo)$/;

/** What is listed, each thing as it was said last: of "milk, rice, no sorry, pasta" milk and pasta. */
export function correctedItems(said: string): string {
  const items = languages.reduce((each, language) => correctedIn(each, language), said);
  return [aside, loose, denied].reduce((each, other) => each.replace(other, ""), items).replace(fillers, "$1");
}

const aside = new RegExp(`,\\s*(?:(?:and|e)\\s+)?(?:oh|ah|uh|um|hmm|${thinking})(?=,)`, "giu");

/** "Milk and, er, eggs". */
const loose = /\s+(?:and|e)(?=\s*,)/giu;

/** "Oat milk, not the normal one". */
const denied = /,\s*(?:not|não|nao)\s+(?:the|that|those|o|a|os|as|aquel\p{L}+)\s[^,]*/giu;

/** What is said before one more thing and is no part of it: "paper towels and also bananas". */
const fillers = /((?:^|,|\s(?:and|e))\s*)(?:(?:oh|ah|uh|um|hmm|also|também|tambem)(?:,\s*|\s+))+(?=\S)/giu;

/** "Add eggs, no, sorry, add butter": the verb is no part of the thing. */
const addsAgain = /^(?:add|put|coloca|coloque|adiciona|adicione|põe|poe|bota|bote)\s+(?=\S)/iu;

const languages: readonly Language[] = ["en", "pt"];

function correctedIn(said: string, language: Language): string {
  const items: string[] = [];
  let isAgain = false;
  for (const item of said.split(/\s*[,–—]\s*/)) {
    const tokens = tokensOf(item, language);
    const at = tokens.findIndex((_, place) => isCorrection(tokens, place, language));
    const from = at < 0 ? undefined : correctedFrom(tokens, at, language)!;
    const isOver = from === undefined || from === tokens.length;
    const rest = isOver ? undefined : item.slice(tokens[from]!.start).replace(addsAgain, "");
    const bare = isAgain ? item.replace(addsAgain, "") : item;
    if (isAgain || (at === 0 && rest !== undefined)) items.pop();
    isAgain = from === tokens.length;
    if (rest !== undefined) items.push(rest);
    else if (!isAgain || at > 0) items.push(at > 0 ? item.slice(0, tokens[at]!.start).trim() : bare);
  }
  return items.join(", ");
}

function isCorrection(tokens: readonly Token[], at: number, language: Language): boolean {
  const next = correctedFrom(tokens, at, language);
  if (next === undefined) return false;
  return next - at > 1 || (at === 0 && (next === tokens.length || !ambiguous.test(tokens[0]!.plain)));
}
