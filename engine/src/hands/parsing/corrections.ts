// Where somebody corrects what was just said: "five, no, wait, ten minutes".

import type { Language } from "../../base/language.ts";
import type { Token } from "./tokens.ts";

/** Each alone or after another one. */
const marks: Record<Language, string[][]> = {
  en: ["no", "wait", "sorry", "actually", "i mean", "i meant", "i meant to say", "make that", "rather", "or rather", "hang on", "hold on", "oops", "make it", "correction", "scratch that", "better"].map(words),
  pt: ["nao", "espera", "perai", "desculpa", "quer dizer", "quero dizer", "digo", "alias", "melhor", "ou melhor", "na verdade", "corrigindo", "ops", "opa", "pera", "eu quis dizer", "pensando bem"].map(words),
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
