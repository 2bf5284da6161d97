// The ways in which the decoder may write a name, as a tree of tokens.

import type { Vocabulary } from "./vocabulary.ts";

export interface SpellingTree {
  next: Map<number, SpellingTree>;
  /** A spelling ends here. */
  isEnd: boolean;
}

const vowels = ["a", "e", "i", "o", "u"];

export function treeOf(texts: Iterable<string>, vocabulary: Vocabulary): SpellingTree {
  const root: SpellingTree = { next: new Map(), isEnd: false };
  for (const text of texts) {
    let at = root;
    for (const token of vocabulary.tokensOf(text)) {
      const next = at.next.get(token) ?? { next: new Map(), isEnd: false };
      at.next.set(token, next);
      at = next;
    }
    at.isEnd = true;
  }
  return root;
}

/** A name with one of its vowels as another: people, and their languages, differ most in these. */
export function variantsOf(name: string): Set<string> {
  const variants = new Set([name]);
  for (const { index } of name.matchAll(/(?<=\p{L})[aeiouy]/giu)) {
    for (const vowel of vowels) variants.add(`${name.slice(0, index)}${vowel}${name.slice(index + 1)}`);
  }
  return variants;
}

export function capitalised(text: string): string {
  return text.split(/\s+/).map((word) => word.charAt(0).toUpperCase() + word.slice(1)).join(" ");
}
