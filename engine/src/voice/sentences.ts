// Cuts text into the sentences that are spoken one by one.

import { cut } from "../base/text.ts";
import { spokenText } from "./markup.ts";

/** The longest sentence that the synthesiser is given, in characters. */
const longestSentence = 300;

/** The sentences of a text, without its markup. The sentence `code` stands for each block of code. */
export function sentencesOf(text: string, code = ""): string[] {
  return plainSentences(spokenText(text, code));
}

/** The sentences of a text of which every mark counts. */
export function plainSentences(text: string): string[] {
  const sentences: string[] = [];
  for (const part of text.split(/(?<=[.!?…])\s+(?=[^\s\p{Ll}])|\n+/u)) {
    const sentence = part.replace(/\s+/g, " ").trim();
    if (/[\p{L}\p{N}]/u.test(sentence)) sentences.push(...shortened(sentence));
  }
  return sentences;
}

function shortened(sentence: string): string[] {
  const parts: string[] = [];
  let rest = sentence;
  while (rest.length > longestSentence) {
    const head = cut(rest, longestSentence);
    const comma = Math.max(head.lastIndexOf(", "), head.lastIndexOf("; "), head.lastIndexOf(": "));
    const blank = head.lastIndexOf(" ");
    const end = comma > longestSentence / 3 ? comma + 1 : blank > 0 ? blank : head.length;
    parts.push(rest.slice(0, end).trim());
    rest = rest.slice(end).trim();
  }
  if (rest !== "") parts.push(rest);
  return parts;
}
