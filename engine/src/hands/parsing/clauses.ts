// What a clause beside a request may hold, so that the request is not theirs who speaks, or not for now.

import type { Language } from "../../base/language.ts";
import type { Token } from "./tokens.ts";

/** A longer one is none that is only told. In words. */
export const longestClause = 12;

export function plainText(tokens: readonly Token[]): string {
  return tokens.map(({ plain }) => plain).join(" ");
}

/** Any of these words; "|" stands between them. */
export function wordsOf(words: string): RegExp {
  return new RegExp(`\\b(${words})\\b`);
}

/** What is told of, asked or thought may stand after it, and is not asked for. */
export const tells: Record<Language, RegExp> = {
  en: wordsOf(
    "say|says|said|tell|tells|told|ask|asks|asked|if|when|unless|until|whether|hear that|heard (that|him|her|you|them|someone|somebody|people)|read|wrote|sing|" +
      "song called|mean|means|remember|remembered|try|tried|used to|supposed to|why|how|what|who|yesterday|wish|hope|dream|" +
      "dreamed|learn|learned|reminder|remind|timer|alarm",
  ),
  pt: wordsOf(
    "disse|diz|dizer|dizem|falou|fala|falei|pediu|pedi|perguntou|perguntei|se|quando|caso|ouvi|leu|li|escreveu|" +
      "lembro|lembrei|tentei|tentar|porque|como|ontem|queria|sonhei|aprender|lembrete|lembra|timer|alarme",
  ),
};
const conditions: Record<Language, RegExp> = {
  en: wordsOf("if|when|whenever|unless|until|whether|should i|had i"), pt: wordsOf("se|quando|caso|ate que"),
};
const quotes: Record<Language, RegExp> = {
  en: wordsOf("says?|said|tells?|told|asks?|asked|hear|heard|read|reads|wrote|writes|sings?|sang|song called|shouts?|shouted"),
  pt: wordsOf(
    "diz|disse|dizem|dizer|fala|falou|falei|pede|pediu|pedi|pergunta|perguntou|perguntei|ouvi|ouviu|leu|li|escreveu|canta|cantou|gritou",
  ),
};

/** It says on what something depends. */
export function isConditional(tokens: readonly Token[], language: Language): boolean {
  return tokens.length < 2 || tokens.length > longestClause || conditions[language].test(plainText(tokens));
}

/** Somebody else may say what stands after it. */
export function isOther(tokens: readonly Token[], language: Language): boolean {
  return isConditional(tokens, language) || quotes[language].test(plainText(tokens));
}
