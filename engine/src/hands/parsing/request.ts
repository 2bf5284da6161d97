// Cuts a request into its sentences, and finds out what each asks for. What is to be written down goes on to the end of the request: of
// "note that he comes at nine; he needs the key" nothing is lost, and nothing that stands in a note is done.

import type { Language } from "../../base/language.ts";
import { cut } from "../../base/text.ts";
import { plainWords } from "../../base/words.ts";
import { correctedFrom } from "./corrections.ts";
import { remindersIn, severalIn, type IsAnswered } from "./joined.ts";
import type { Meant } from "./meaning.ts";
import { changes, keptIn } from "./meanings.ts";
import { corrected, takesBack } from "./revisions.ts";
import { isThanks, understood, understoodTogether, wordsOf } from "./sentence.ts";

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
/** A longer text joins no requests. In characters. */
const longestJoined = 400;
/** These end in a stop without ending a sentence: "Dr. Silva", "J. Doe", and "7 p.m. tomorrow" but not "7 p.m. Then". */
const shortened = String.raw`\b(?:[Dd]ra?|[Mm]rs?|[Mm]s|[Ss]ra?|[Ss]t|(?<![AaPp]\.\s?)\p{L})\.`;
const hour = String.raw`(?<=\b[AaPp]\.\s?[Mm]\.)(?!\s+\p{Lu})`;
const sentenceEnd = new RegExp(String.raw`(?<=[.!?;])(?<!${shortened})(?!${hour})\s+|\n+`, "gu");

/** The sentences in which a word is said. `isAnswered` knows the questions that no hand answers. */
export function partsOf(request: string, language: Language, now: Date, isAnswered: IsAnswered = () => false): RequestPart[] {
  const isShort = request.length <= longestJoined;
  const read = sentencesOf(cut(request, longestRequest)).flatMap(({ text, start }, at): RequestPart[] => {
    const isRead = at < mostSentences && !isTakenBack(text, language, now);
    const other = isRead ? correctedWithin(text, language, now) : undefined;
    if (other) return [{ text, start, meant: other === "none" ? undefined : other }];
    const meant = isRead ? understood(text, language, now) ?? understoodNext(text, language, now) : undefined;
    if (!isShort) return [{ text, start, meant }];
    const several = meant ? remindersIn({ text, start, meant }, language, now) : severalIn(text, start, language, now, isAnswered);
    return several ?? [{ text, start, meant }];
  });
  const sentences = revised(read, language, now);
  const reading = sentences.map(({ meant }) => meant);
  const parts: RequestPart[] = [];
  for (let at = 0; at < sentences.length; ) {
    const first = sentences[at]!;
    let [text, meant, next] = [first.text, reading[at], at + 1];
    const second = sentences[next];
    const after = reading[next];
    if (!meant && second && next < mostSentences && !(after && keptIn(after))) {
      // "Take a note. Anna is allergic to nuts."
      const both = request.slice(first.start, second.start + second.text.length);
      const note = understood(both, language, now);
      // "We are out of milk. Put it on the list."
      const together = note && keptIn(note) === "text" ? note : after ? undefined : understoodTogether(both, language, now);
      if (together) [text, meant, next] = [both, together, next + 1];
    }
    if (meant && keptIn(meant) !== undefined) {
      const more = reading.findIndex((each, index) => index >= next && addsMore(each));
      const rest = sentences.slice(next, more < 0 ? undefined : more);
      next += rest.length;
      while (rest.length > 0 && isThanks(rest.at(-1)!.text, language, now)) rest.pop();
      const last = rest.at(-1);
      if (last) {
        meant = longer(meant, text, rest.map((each) => each.text));
        text = request.slice(first.start, last.start + last.text.length);
      }
    }
    parts.push({ text, start: first.start, meant });
    at = next;
  }
  return parts;
}

/** Without what is taken back, and with what is changed, by the sentence after it. */
function revised(read: readonly RequestPart[], language: Language, now: Date): RequestPart[] {
  const parts: RequestPart[] = [];
  for (const part of read) {
    const before = parts.at(-1);
    const sentence = { text: part.text, tokens: wordsOf(part.text, language), language, now };
    const isOpen = before?.meant !== undefined && canBeTakenBack(before.meant, part.text);
    const other = isOpen ? corrected({ text: before.text, meant: before.meant! }, sentence) : undefined;
    if (other === "none") parts[parts.length - 1] = { ...before!, meant: undefined };
    else if (other) parts[parts.length - 1] = { ...before!, meant: other };
    else if (isOpen && takesBack(sentence)) parts[parts.length - 1] = { ...before, meant: undefined };
    else parts.push(part);
  }
  return parts;
}

/** "Set a timer for ten minutes, actually, never mind." */
function isTakenBack(text: string, language: Language, now: Date): boolean {
  return [...text.matchAll(/[,;–—-]\s+/gu)].some(({ index }) => {
    const rest = text.slice(index);
    if (!takesBack({ text: rest, tokens: wordsOf(rest, language), language, now })) return false;
    const meant = understood(text.slice(0, index), language, now);
    return meant !== undefined && canBeTakenBack(meant, rest);
  });
}

/** "Depois lê a lista": after the sentence before, and not "depois de amanhã". */
function understoodNext(text: string, language: Language, now: Date): Meant | undefined {
  const rest = language === "pt" ? text.replace(/^(?:depois|em seguida),?\s+(?!d[aeo]s?\s|que\s)/iu, "") : text;
  return rest === text ? undefined : understood(rest, language, now);
}

/** "A timer for twenty minutes, I mean thirty." */
function correctedWithin(text: string, language: Language, now: Date): Meant | "none" | undefined {
  for (const { index } of text.matchAll(/[,;–—-]\s+/gu)) {
    const rest = text.slice(index);
    const tokens = wordsOf(rest, language);
    if (correctedFrom(tokens, 0, language) === undefined) continue;
    const before = text.slice(0, index);
    const meant = understood(before, language, now);
    const other = meant && canBeTakenBack(meant, rest) ? corrected({ text: before, meant }, { text: rest, tokens, language, now }) : undefined;
    if (other) return other;
  }
  return undefined;
}

/** "Never mind the timer, cancel it" says twice that it is to be cancelled. */
function canBeTakenBack(meant: Meant, by: string): boolean {
  return changes(meant) && keptIn(meant) !== "text" && !(meant.given.do === "cancel" && /cancel|precis/i.test(by));
}

function sentencesOf(request: string): { text: string; start: number }[] {
  const ends = [...request.matchAll(sentenceEnd)].map((found) => [found.index, found.index + found[0].length] as const);
  const starts = [0, ...ends.map(([, next]) => next)];
  const sentences = starts.map((start, at) => ({ text: request.slice(start, ends[at]?.[0]), start }));
  return sentences.filter(({ text }) => plainWords(text).length > 0);
}

/** After a note, what writes down more is its own request; anything else may be what the note is to say. */
function addsMore(meant: Meant | undefined): boolean {
  return meant !== undefined && (keptIn(meant) !== undefined || (meant.hand === "note" && meant.given.do === "add"));
}

function longer(meant: Meant, sentence: string, rest: readonly string[]): Meant {
  const key = keptIn(meant)!;
  const mark = /[.!?;…]+["'”’»)]*$/u.exec(sentence.trim())?.[0] ?? "";
  const begun = `${meant.given[key]}`;
  const text = [begun.endsWith(mark) ? begun : `${begun}${mark}`, ...rest].join(" ").replace(/\s+/g, " ").replace(/[\s,;:.…]+$/u, "");
  return { ...meant, given: { ...meant.given, [key]: text } };
}
