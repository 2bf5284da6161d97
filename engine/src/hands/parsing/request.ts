// Cuts a request into its sentences, and finds out what each asks for.

import type { Language } from "../../base/language.ts";
import { cut } from "../../base/text.ts";
import { plainWords } from "../../base/words.ts";
import type { Meant } from "./meanings.ts";
import { understood } from "./sentence.ts";

export interface RequestPart {
  /** As it was said. */
  text: string;
  /** Where it begins in the request. */
  start: number;
  meant: Meant | undefined;
}

/** No more of a request is looked at than so many characters, and so many of its sentences understood. */
export const longestRequest = 20_000;
export const mostSentences = 50;
/** The end of a sentence, but not of "7 p.m. tomorrow" or "Dr. Silva". */
const sentenceEnd = /(?<=[.!?;])(?<!\b(?:[ap]\.?\s?m|dr|dra|mr|mrs|ms|sr|sra|st|\p{Lu})\.)\s+|\n+/giu;

/** The sentences in which a word is said. */
export function partsOf(request: string, language: Language, now: Date): RequestPart[] {
  const sentences = sentencesOf(cut(request, longestRequest));
  return sentences.map(({ text, start }, at) => ({ text, start, meant: at < mostSentences ? understood(text, language, now) : undefined }));
}

function sentencesOf(request: string): { text: string; start: number }[] {
  const ends = [...request.matchAll(sentenceEnd)].map((found) => [found.index, found.index + found[0].length] as const);
  const starts = [0, ...ends.map(([, next]) => next)];
  const sentences = starts.map((start, at) => ({ text: request.slice(start, ends[at]?.[0]), start }));
  return sentences.filter(({ text }) => plainWords(text).length > 0);
}
