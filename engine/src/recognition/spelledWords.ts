// The words of a transcript, by the places of their tokens.

import { endToken, type Vocabulary } from "./vocabulary.ts";

export interface SpelledWord {
  /** Its first token, the one after its last token without punctuation, and the one after its last. */
  start: number;
  end: number;
  markEnd: number;
}

export function wordsOf(tokens: readonly number[], vocabulary: Vocabulary): SpelledWord[] {
  const words: SpelledWord[] = [];
  tokens.forEach((token, at) => {
    if (token === endToken) return;
    const last = words.at(-1);
    if (last === undefined || vocabulary.beginsWord(token)) words.push({ start: at, end: at + 1, markEnd: at + 1 });
    else {
      last.markEnd = at + 1;
      if (!vocabulary.isMark(token)) last.end = at + 1;
    }
  });
  return words;
}

export function hasMark(word: SpelledWord | undefined): boolean {
  return word !== undefined && word.markEnd > word.end;
}
