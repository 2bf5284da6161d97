// Finds out which hand a sentence asks for. What it is not sure of is no request: a sentence counts only as a whole.

import type { Language } from "../../base/language.ts";
import { english } from "./english.ts";
import { matched, phrase, type Phrase, type Sentence } from "./grammar.ts";
import { meanings, type Meant, type Phrasing } from "./meanings.ts";
import { portuguese } from "./portuguese.ts";
import { isPause, tokensOf, type Token } from "./tokens.ts";

interface Compiled {
  before: Phrase[];
  after: Phrase[];
  requests: { meaning: (typeof meanings)[keyof typeof meanings]; phrases: Phrase[] }[];
}

/** No more than so many polite words are taken off each end of a sentence, and so many of its tokens looked at. */
const mostPolite = 6;
const mostTokens = 200;

const compiled: { [language in Language]?: Compiled } = {};

function compiledFor(language: Language): Compiled {
  return (compiled[language] ??= compile(language === "pt" ? portuguese : english));
}

function compile({ parts, before, after, requests }: Phrasing): Compiled {
  const all = (sources: readonly string[]): Phrase[] => sources.map((source) => phrase(source, parts));
  return {
    before: all(before),
    after: all(after),
    requests: requests.map(([name, sources]) => ({ meaning: meanings[name], phrases: all(sources) })),
  };
}

/** The hand that the sentence asks for and what it is given, or undefined. `now` is what times are reckoned from. */
export function understood(text: string, language: Language, now: Date): Meant | undefined {
  const tokens = tokensOf(text, language).filter((token) => !isPause(token));
  if (tokens.length === 0 || tokens.length > mostTokens) return undefined;
  const rules = compiledFor(language);
  for (const part of withoutManners(tokens, rules, text, language, now)) {
    const sentence: Sentence = { text, tokens: part, language, now };
    for (const { meaning, phrases } of rules.requests) {
      for (const each of phrases) {
        const meant = matched(each, sentence, (slots) => meaning(slots, now));
        if (meant) return meant;
      }
    }
  }
  return undefined;
}

/** The sentence, and what remains of it without the polite words at its ends, step by step. */
function* withoutManners(tokens: readonly Token[], rules: Compiled, text: string, language: Language, now: Date): Generator<readonly Token[]> {
  const starts = [0];
  const around = { text, language, now };
  for (let from = 0, step = 0; step < mostPolite; step++) {
    const after = longest(rules.before, tokens.slice(from), around);
    if (after === 0 || from + after >= tokens.length) break;
    starts.push((from += after));
  }
  const ends = [tokens.length];
  for (let to = tokens.length, step = 0; step < mostPolite; step++) {
    const length = longestEnd(rules.after, tokens.slice(0, to), around);
    if (length === 0 || length >= to) break;
    ends.push((to -= length));
  }
  for (const end of ends) for (const start of starts) if (start < end) yield tokens.slice(start, end);
}

type Around = Omit<Sentence, "tokens">;

const longestManners = 8;

function longest(phrases: readonly Phrase[], tokens: readonly Token[], around: Around): number {
  for (let length = Math.min(longestManners, tokens.length); length > 0; length--) {
    if (phrases.some((each) => matched(each, { ...around, tokens: tokens.slice(0, length) }, () => true))) return length;
  }
  return 0;
}

function longestEnd(phrases: readonly Phrase[], tokens: readonly Token[], around: Around): number {
  for (let length = Math.min(longestManners, tokens.length); length > 0; length--) {
    if (phrases.some((each) => matched(each, { ...around, tokens: tokens.slice(-length) }, () => true))) return length;
  }
  return 0;
}
