// Cuts text into the sentences that are spoken one by one.

import { cut } from "../base/text.ts";

/** The longest sentence that the synthesiser is given, in characters. */
const longestSentence = 300;

/** Takes out the marks that nobody reads aloud. */
function speakable(text: string): string {
  return text
    .replace(/```[\s\S]*?(```|$)/g, " ")
    .replace(/!?\[([^\]]*)\]\([^)]*\)/g, "$1")
    .replace(/^\s*(#+|[-*+]|>)\s+/gm, "")
    .replace(/[*_`~|]+/g, "")
    .replace(/\p{Cc}/gu, (mark) => (mark === "\n" ? "\n" : " "))
    .trim();
}

export function sentencesOf(text: string): string[] {
  const sentences: string[] = [];
  for (const part of speakable(text).split(/(?<=[.!?…])\s+(?=[^\s\p{Ll}])|\n+/u)) {
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
