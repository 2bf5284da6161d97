// Finds out which hand a sentence asks for. What it is not sure of is no request: a sentence counts only as a whole.

import type { Language } from "../../base/language.ts";
import { day } from "./days.ts";
import { english } from "./english.ts";
import { gistOf, prepareGist } from "./gist.ts";
import { matched, phrase, type Phrase, type Sentence } from "./grammar.ts";
import type { Meant } from "./meaning.ts";
import { changes, keptIn, meanings, verbatim, type MeaningName, type Phrasing, type Request } from "./meanings.ts";
import { moment } from "./moments.ts";
import { portuguese } from "./portuguese.ts";
import { withReferences } from "./references.ts";
import { isRemark, questionAtEnd, requestAt, withoutRemarks } from "./remarks.ts";
import { withoutStates } from "./states.ts";
import { withTold } from "./told.ts";
import { isFiller, isPause, said, thinking, tokensOf, withoutAsides, type Token } from "./tokens.ts";

interface Compiled {
  before: Phrase[];
  polite: Phrase[];
  after: Phrase[];
  requests: CompiledRequest[];
  shorthand: CompiledRequest[];
}

interface CompiledRequest {
  meaning: (typeof meanings)[MeaningName];
  isVerbatim: boolean;
  phrases: Phrase[];
}

/** No more than so many polite words are taken off each end of a sentence, and so many of its tokens looked at. */
const mostPolite = 6;
const mostTokens = 200;
const longestManners = 8;
/** In a longer sentence somebody who dictates says where its parts end. */
const longestUnmarked = 20;
/** Nobody is short in more words than these. */
const longestShorthand = 14;

const compiled: { [language in Language]?: Compiled } = {};

function compiledFor(language: Language): Compiled {
  return (compiled[language] ??= compile(language === "pt" ? portuguese : english));
}

/** Makes the first sentence as quick as the others. */
export function prepare(language: Language): void {
  compiledFor(language);
  prepareGist(language);
}

function compile({ parts, before, polite, after, requests, shorthand }: Phrasing): Compiled {
  const all = (sources: readonly string[]): Phrase[] => sources.map((source) => phrase(source, parts));
  const made = ([name, sources]: Request): CompiledRequest => ({ meaning: meanings[name], isVerbatim: verbatim.includes(name), phrases: all(sources) });
  return {
    before: all(before),
    polite: all(polite),
    after: all(after),
    requests: requests.map(made),
    shorthand: shorthand.map(made),
  };
}

/** The hand that the sentence asks for and what it is given, or undefined. `now` is what times are reckoned from. */
export function understood(text: string, language: Language, now: Date): Meant | undefined {
  const tokens = wordsOf(text, language);
  if (tokens.length === 0 || tokens.length > mostTokens) return undefined;
  const found = asked(text, tokens, language, now);
  if (found) return found;
  const fewer = withoutAsides(withoutInnerManners(text, tokens, language, now), language);
  const meant = (fewer.length < tokens.length ? asked(text, fewer, language, now) : undefined) ?? gist(text, fewer, language, now);
  if (meant) return meant;
  const referred = understoodOf(text, tokens, language, now) ?? understoodAfter(text, tokens, language, now);
  if (referred) return referred;
  const starts = ends(tokens.toReversed(), compiledFor(language).before, { text, language, now }, true).map((length) => tokens.length - length);
  const timed = atTimeTold(text, tokens, language, now);
  if (timed) return timed;
  for (const rest of [...new Set([0, ...starts])].flatMap((start) => withoutRemarks(text, tokens.slice(start), language))) {
    const isBefore = rest.at(-1) === tokens.at(-1);
    // "Lock the screen, please pause the music": nothing is only told there.
    const told = isBefore ? tokens.slice(0, tokens.length - rest.length) : [];
    if (!isRemark(text, told, language) && (asked(text, told, language, now) ?? gist(text, told, language, now))) continue;
    const bare = withoutAsides(rest, language);
    const request = asked(text, bare, language, now) ?? gist(text, bare, language, now);
    // What is to be written down may be told like a remark.
    if (request && (isBefore || keptIn(request) === undefined)) return onDayTold(request, text, tokens, rest, language, now);
  }
  const question = questionAtEnd(text, tokens, language);
  const answer = question && (asked(text, question, language, now) ?? gist(text, question, language, now));
  // An answer too many harms nobody.
  if (answer && !changes(answer)) return answer;
  if (tokens.length > longestUnmarked) return undefined;
  const unstated = withoutStates(tokens, language).map((rest) => asked(text, rest, language, now)).find((meant) => meant && isHarmless(meant));
  return unstated ?? (tokens.length <= longestShorthand ? asked(text, tokens, language, now, compiledFor(language).shorthand) : undefined);
}

/** Undone by a word. */
function isHarmless({ hand }: Meant): boolean {
  return /^(volume|media|lock|open|screenshot)$/.test(hand);
}

/** The words of each day that is named. */
function daysIn(tokens: readonly Token[], language: Language, now: Date): (readonly Token[])[] {
  return tokens.flatMap((_, at) => {
    const found = day(tokens, at, language, now);
    return found ? [tokens.slice(at, found.next)] : [];
  });
}

/** Somebody tells that he is to get up. */
const getsUp: Record<Language, RegExp> = {
  en: /\b(to (be|get|wake) up|to (be|stay) (awake|out of bed)|up and about|to rise)\b/, pt: /\b(acordar|levantar|estar (de pe|acordad[oa])|sair da cama)\b/,
};

/** "I need to be up at four for the fishing, wake me": the request has no time, which was told before it. */
function atTimeTold(text: string, tokens: readonly Token[], language: Language, now: Date): Meant | undefined {
  const from = requestAt(text, tokens, language);
  const told = tokens.slice(0, Math.max(from, 0));
  if (from < 0 || !getsUp[language].test(told.map(({ plain }) => plain).join(" "))) return undefined;
  for (let at = 0; at < told.length; at++) {
    const time = moment(told, at, language, now);
    if (!time?.value.clock) continue;
    const [on] = time.value.day ? [] : daysIn(told, language, now);
    const meant = asked(text, [...tokens.slice(from), ...told.slice(at, time.next), ...(on ?? [])], language, now);
    return meant?.given.do === "alarm" ? meant : undefined;
  }
  return undefined;
}

/** "I have a train to catch on Tuesday, wake me at five": on Tuesday, or not at all. */
function onDayTold(request: Meant, text: string, tokens: readonly Token[], rest: readonly Token[], language: Language, now: Date): Meant | undefined {
  if (request.hand !== "timer" || request.given.at === undefined) return request;
  const [told] = daysIn(tokens.filter((token) => !rest.includes(token)), language, now);
  if (!told || daysIn(rest, language, now).length > 0) return request;
  if (request.given.do !== "alarm") return undefined;
  const { polite, after } = compiledFor(language);
  // "Could you set an alarm for five, please" ends before the thanks.
  return ends(rest, [...polite, ...after], { text, language, now })
    .map((end) => asked(text, [...rest.slice(0, end), ...told], language, now)).findLast((meant) => meant !== undefined);
}

/** What is asked for of a thing that the text speaks of first, as two sentences or as one: "We are out of milk. Put it on the list." */
export function understoodTogether(text: string, language: Language, now: Date): Meant | undefined {
  return understoodOf(text, wordsOf(text, language), language, now);
}

function understoodOf(text: string, tokens: readonly Token[], language: Language, now: Date): Meant | undefined {
  for (const request of withReferences({ text, tokens, language, now })) {
    const words = wordsOf(request, language);
    const meant = asked(request, words, language, now) ?? gist(request, words, language, now);
    if (meant && isOfThing(meant)) return meant;
  }
  return undefined;
}

/** What is asked for of a day, a length or a measure that was told before it. */
function understoodAfter(text: string, tokens: readonly Token[], language: Language, now: Date): Meant | undefined {
  for (const told of withTold({ text, tokens, language, now })) {
    const words = wordsOf(told.text, language);
    const meant = asked(told.text, words, language, now) ?? gist(told.text, words, language, now);
    if (meant && !(told.isToAnswer && changes(meant))) return meant;
  }
  return undefined;
}

/** It is done with a thing that somebody names: it goes on a list or off it, or its timer is stopped. */
function isOfThing({ hand, given }: Meant): boolean {
  return hand === "note" ? given.do !== "note" : hand === "timer" && given.do === "cancel";
}

/** What it asks for by its words, with the polite ones around it or without. */
function gist(text: string, tokens: readonly Token[], language: Language, now: Date): Meant | undefined {
  const { before, polite, after } = compiledFor(language);
  const around = { text, language, now };
  const starts = [...ends(tokens.toReversed(), before, around, true)].map((length) => tokens.length - length);
  const stops = ends(tokens, [...polite, ...after], around);
  const parts = [...new Set([...starts, 0])].flatMap((start) => stops.toReversed().map((stop) => [start, stop] as const));
  return gistOf({ ...around, tokens }, parts.filter(([start, stop]) => start < stop));
}

function asked(text: string, tokens: readonly Token[], language: Language, now: Date, requests = compiledFor(language).requests): Meant | undefined {
  const { before, polite, after } = compiledFor(language);
  const around = { text, language, now };
  const starts = [...ends(tokens.toReversed(), before, around, true)].map((length) => tokens.length - length);
  const [whole = tokens.length] = ends(tokens, polite, around);
  const shorter = ends(tokens.slice(0, whole), [...polite, ...after], around);
  const parts = (to: readonly number[]): (readonly Token[])[] =>
    to.flatMap((end) => starts.filter((start) => start < end).map((start) => tokens.slice(start, end)));
  const asSaid = parts([whole, tokens.length, ...shorter.toReversed()]);
  const bare = parts([...shorter, tokens.length]);
  for (const { meaning, isVerbatim, phrases } of requests) {
    for (const part of isVerbatim ? asSaid : bare) {
      for (const each of phrases) {
        const meant = matched(each, { ...around, tokens: part }, (slots) => meaning(slots, now));
        if (meant) return meant;
      }
    }
  }
  return undefined;
}

/** It says thanks or please, and nothing else. */
export function isThanks(text: string, language: Language, now: Date): boolean {
  return isMade(text, compiledFor(language).polite, language, now);
}

/** It says nothing but what may stand around a request: "Good morning", "it is too loud", "thank you". */
export function isPolite(text: string, language: Language, now: Date): boolean {
  const { before, polite, after } = compiledFor(language);
  return isMade(text, [...before, ...polite, ...after], language, now);
}

/** The sentence without what is polite before it or around it; none where nothing is. */
export function withoutManners(text: string, language: Language, now: Date): string[] {
  const { before, polite, after } = compiledFor(language);
  const tokens = wordsOf(text, language);
  if (tokens.length > mostTokens) return [];
  const around = { text, language, now };
  const stops = [...ends(tokens, [...polite, ...after], around)].reverse();
  const starts = ends(tokens.toReversed(), before, around, true).map((length) => tokens.length - length);
  const isPart = (start: number, stop: number): boolean => start < stop && stop - start < tokens.length;
  return starts.flatMap((start) => stops.filter((stop) => isPart(start, stop)).map((stop) => said(text, tokens, start, stop)));
}

/** Without what is polite at the beginning of each of its parts: "I have to be up by seven, so could you please set an alarm". */
function withoutInnerManners(text: string, tokens: readonly Token[], language: Language, now: Date): readonly Token[] {
  const kept: Token[] = [];
  for (let at = 0; at < tokens.length; at++) {
    const isMarked = at > 0 && /[,;:.!?–—]/.test(text.slice(tokens[at - 1]!.end, tokens[at]!.start));
    if (isMarked) {
      const rest = tokens.slice(at);
      const [left = rest.length] = ends(rest.toReversed(), compiledFor(language).before, { text, language, now }, true);
      at = tokens.length - left;
    }
    kept.push(tokens[at]!);
  }
  return kept;
}

function isMade(text: string, of: readonly Phrase[], language: Language, now: Date): boolean {
  let tokens: readonly Token[] = wordsOf(text, language);
  if (tokens.length === 0) return false;
  for (let count = 0; count < mostPolite && tokens.length > 0; count++) {
    const length = longestAtEnd(tokens, of, { text, language, now }, false);
    if (length === 0) return false;
    tokens = tokens.slice(0, -length);
  }
  return tokens.length === 0;
}

/** The words of a text that count. */
export function wordsOf(text: string, language: Language): Token[] {
  const words = tokensOf(withoutHesitations(text), language).filter((token) => !isPause(token) && !isFiller(token, language));
  return words.filter(({ plain }, at) => plain !== words[at + 1]?.plain || !smallWord.test(plain));
}

/** Who looks for his words says these twice. */
const smallWord = /^(the|an?|my|to|is|for|of|o|os?|as?|um|uma|de|do|da|meu|minha|para)$/;
/** Where marks stand before and after it, it only gains time. */
const hesitations = new RegExp(`,\\s*(?:${thinking}|you know|how do you say|like|hmm|sei lá|tipo(?: assim)?|digamos)\\s*(?=,|$)`, "giu");

/** "Quarter, pras, pras oito". */
const stutters = /(?<!\p{L})(to|at|for|of|in|on|the|an?|pras?|pros?|de|d[ao]s?|às|as?|os?)[,…]\s+(?=\1(?!\p{L}))/giu;
const blank = (found: string): string => " ".repeat(found.length);

/** Of the same length, so that places in it are places in the text. */
function withoutHesitations(text: string): string {
  return text.replace(hesitations, blank).replace(stutters, blank);
}

/** Where the sentence may end when polite words are taken off it, the shortest first; its beginning for reversed tokens. */
function ends(tokens: readonly Token[], phrases: readonly Phrase[], around: Omit<Sentence, "tokens">, isReversed = false): number[] {
  const places = [tokens.length];
  for (let to = tokens.length; places.length <= mostPolite; ) {
    const length = longestAtEnd(tokens.slice(0, to), phrases, around, isReversed);
    if (length === 0 || length >= to) break;
    places.unshift((to -= length));
  }
  return places;
}

function longestAtEnd(tokens: readonly Token[], phrases: readonly Phrase[], around: Omit<Sentence, "tokens">, isReversed: boolean): number {
  for (let length = Math.min(longestManners, tokens.length); length > 0; length--) {
    const piece = isReversed ? tokens.slice(-length).toReversed() : tokens.slice(-length);
    if (phrases.some((each) => matched(each, { ...around, tokens: piece }, () => true))) return length;
  }
  return 0;
}
