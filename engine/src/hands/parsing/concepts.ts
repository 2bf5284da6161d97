// What single words and expressions stand for, whatever their order: the second reading of a sentence (gist.ts) is made of these.

import type { Language } from "../../base/language.ts";
import type { Token } from "./tokens.ts";
import { lemmaOf } from "./verbs.ts";

/** Expressions by the concept that they stand for, "|" between them. One may stand for several. */
export type Lexicon = Readonly<Record<string, string>>;

export interface Expression {
  words: readonly string[];
  concepts: ReadonlySet<string>;
}

/** Expressions by their first word, the longest first. */
export type Concepts = ReadonlyMap<string, readonly Expression[]>;

export function conceptsOf(lexicon: Lexicon, language: Language): Concepts {
  const all = new Map<string, { words: string[]; concepts: Set<string> }>();
  for (const [concept, expressions] of Object.entries(lexicon)) {
    for (const expression of expressions.split("|")) {
      const words = expression.trim().split(/\s+/).map((word) => lemmaOf(word, language));
      const key = words.join(" ");
      const known = all.get(key) ?? { words, concepts: new Set() };
      known.concepts.add(concept);
      all.set(key, known);
    }
  }
  const byFirst = new Map<string, Expression[]>();
  for (const expression of all.values()) byFirst.set(expression.words[0]!, [...(byFirst.get(expression.words[0]!) ?? []), expression]);
  for (const each of byFirst.values()) each.sort((a, b) => b.words.length - a.words.length);
  return byFirst;
}

/** The longest expression that begins here. */
export function expressionAt(concepts: Concepts, tokens: readonly Token[], at: number): Expression | undefined {
  return concepts.get(tokens[at]?.lemma ?? "")?.find(({ words }) => words.every((word, offset) => tokens[at + offset]?.lemma === word));
}
