// A grammar of requests. A phrase is a sequence of words, "[optional]" ones, "(one|of several)", "<part>"s that stand elsewhere,
// "{slots}" for numbers, times and free words, ":" and "," where one is written, and "?" in what is written as a question. A sentence
// is a request only when a phrase takes all of it.

import type { Language } from "../../base/language.ts";
import { day, type Day } from "./days.ts";
import { correctedFrom } from "./corrections.ts";
import { duration } from "./durations.ts";
import { moment, type Moment } from "./moments.ts";
import { number, type Found } from "./numbers.ts";
import { added, measure, sum, unit } from "./sums.ts";
import { said, type Token } from "./tokens.ts";
import { lemmaOf } from "./verbs.ts";

/** What the slots of a phrase have found, by name. */
export interface Slots {
  readonly [name: string]: string | number | Moment | Day | undefined;
}

type Node =
  | { kind: "word"; word: string }
  | { kind: "sequence"; nodes: Node[] }
  | { kind: "choice"; nodes: Node[] }
  | { kind: "optional"; node: Node }
  | { kind: "slot"; type: SlotType; name: string };

type SlotType = "duration" | "moment" | "day" | "past" | "number" | "numbers" | "sum" | "measure" | "unit" | "text" | "few" | "word";

const slotTypes: readonly string[] = ["duration", "moment", "day", "past", "number", "numbers", "sum", "measure", "unit", "text", "few", "word"];
/** May stand between a correction and what it says: "de cinco, não, de dez". */
const isSmall = /^(for|at|to|de|para|em|as)$/;
/** A name is no longer than so many words. */
const fewWords = 4;

export interface Sentence {
  text: string;
  tokens: readonly Token[];
  language: Language;
  now: Date;
}

/** A compiled phrase. */
export interface Phrase {
  node: Node;
  /** The words with which it can begin; undefined where any can stand there. */
  first: ReadonlySet<string> | undefined;
}

/** Compiles a phrase. Throws for one that is malformed: phrases are part of the program. */
export function phrase(source: string, parts: Readonly<Record<string, string>>): Phrase {
  const node = nodeOf(source, parts);
  const words = new Set<string>();
  return { node, first: begin(node, words) === "word" ? words : undefined };
}

/** Collects the words with which the node can begin. Tells whether a word has to stand there, nothing may, or anything. */
function begin(node: Node, words: Set<string>): "word" | "nothing" | "anything" {
  switch (node.kind) {
    case "word":
      if (/^[:,?]$/.test(node.word)) return "nothing";
      words.add(node.word).add(lemmaOf(node.word, "pt"));
      return "word";
    case "slot":
      return "anything";
    case "optional":
      return begin(node.node, words) === "anything" ? "anything" : "nothing";
    case "choice": {
      const kinds = node.nodes.map((each) => begin(each, words));
      return kinds.includes("anything") ? "anything" : kinds.includes("nothing") ? "nothing" : "word";
    }
    case "sequence":
      for (const each of node.nodes) {
        const kind = begin(each, words);
        if (kind !== "nothing") return kind;
      }
      return "nothing";
  }
}

function nodeOf(source: string, parts: Readonly<Record<string, string>>): Node {
  const pieces = [...source.matchAll(/[[\]()|]|\{(\w+)(?::(\w+))?\}|<(\w+)>|[^\s[\]()|{}<>]+/g)];
  let at = 0;
  const choice = (): Node => {
    const nodes = [sequence()];
    while (pieces[at]?.[0] === "|") {
      at++;
      nodes.push(sequence());
    }
    if (nodes.length === 1) return nodes[0]!;
    // Of "that" and "that says" the longer one is tried first: the rest may be free words.
    return { kind: "choice", nodes: nodes.sort((a, b) => lengthOf(b) - lengthOf(a)) };
  };
  const closed = (mark: string): Node => {
    at++;
    const node = choice();
    if (pieces[at++]?.[0] !== mark) throw new Error(`no ${mark} in "${source}"`);
    return node;
  };
  const sequence = (): Node => {
    const nodes: Node[] = [];
    for (let piece = pieces[at]; piece && !/^[\])|]$/.test(piece[0]); piece = pieces[at]) {
      const [text, type, name, part] = piece;
      if (text === "[") nodes.push({ kind: "optional", node: closed("]") });
      else if (text === "(") nodes.push(closed(")"));
      else {
        at++;
        if (part !== undefined) nodes.push(nodeOf(known(parts, part), parts));
        else if (type !== undefined) nodes.push(slot(type, name ?? type));
        else nodes.push({ kind: "word", word: text });
      }
    }
    return { kind: "sequence", nodes };
  };
  const node = choice();
  if (at < pieces.length) throw new Error(`"${pieces[at]?.[0]}" is out of place in "${source}"`);
  return node;
}

function lengthOf(node: Node): number {
  return node.kind === "sequence" ? node.nodes.length : 1;
}

function known(parts: Readonly<Record<string, string>>, name: string): string {
  const part = parts[name];
  if (part === undefined) throw new Error(`no part <${name}>`);
  return part;
}

function slot(type: string, name: string): Node {
  if (!slotTypes.includes(type)) throw new Error(`no slot {${type}}`);
  return { kind: "slot", type: type as SlotType, name };
}

/** Gives what the slots hold when the phrase takes the whole sentence, in the first of all ways that `accept` takes. */
export function matched<T>(what: Phrase, sentence: Sentence, accept: (slots: Slots) => T | undefined): T | undefined {
  const [token] = sentence.tokens;
  if (token && what.first && !what.first.has(token.plain) && !what.first.has(token.lemma)) return undefined;
  let accepted: T | undefined;
  const slots: Record<string, Slots[string]> = {};
  walk(what.node, 0, sentence, slots, (end) => {
    if (end !== sentence.tokens.length) return false;
    accepted = accept({ ...slots });
    return accepted !== undefined;
  });
  return accepted;
}

/** Goes on with each place at which the node may end, until one of them leads to the end. */
function walk(node: Node, at: number, sentence: Sentence, slots: Record<string, Slots[string]>, goOn: (end: number) => boolean): boolean {
  switch (node.kind) {
    case "word":
      if (/^[:,]$/.test(node.word)) return hasMark(sentence, at, node.word) && goOn(at);
      if (node.word === "?") return isQuestion(sentence.text) && goOn(at);
      return isWord(sentence.tokens[at], node.word, sentence.language) && goOn(at + 1);
    case "sequence": {
      const from = (index: number, place: number): boolean => {
        const next = node.nodes[index];
        return next ? walk(next, place, sentence, slots, (end) => from(index + 1, end)) : goOn(place);
      };
      return from(0, at);
    }
    case "choice":
      return node.nodes.some((each) => walk(each, at, sentence, slots, goOn));
    case "optional":
      return walk(node.node, at, sentence, slots, goOn) || goOn(at);
    case "slot": {
      const before = slots[node.name];
      for (const { value, next } of fillings(node.type, at, sentence)) {
        slots[node.name] = value;
        if (goOn(next)) return true;
      }
      if (before === undefined) delete slots[node.name];
      else slots[node.name] = before;
      return false;
    }
  }
}

/** It is the word, or another form of the same verb. */
function isWord(token: Token | undefined, word: string, language: Language): boolean {
  if (token === undefined) return false;
  return token.plain === word || (token.lemma !== token.plain && token.lemma === lemmaOf(word, language));
}

/** It is written as a question. */
export function isQuestion(text: string): boolean {
  return /\?["'”’»)\s]*$/u.test(text);
}

/** The mark stands before this token; a comma or another one that parts words. */
function hasMark({ text, tokens }: Sentence, at: number, mark: string): boolean {
  const [before, after] = [tokens[at - 1], tokens[at]];
  return before !== undefined && after !== undefined && (mark === ":" ? /:/ : /[,:;–—-]/).test(text.slice(before.end, after.start));
}

function fillings(type: SlotType, at: number, { text, tokens, language, now }: Sentence): Iterable<Found<Slots[string]>> {
  const one = (found: Found<Slots[string]> | undefined): Found<Slots[string]>[] => (found ? [found] : []);
  /** What it was corrected to counts, after "no, wait". */
  type Read<T> = (place: number, isAgain: boolean) => Found<T> | undefined;
  const last = <T extends Slots[string]>(read: Read<T>, joined = (_before: T, after: T): T => after): Found<Slots[string]>[] => {
    const first = read(at, false);
    const from = first ?? number(tokens, at, language);
    const again = from && correctedFrom(tokens, from.next, language);
    const second = again === undefined ? undefined : (read(again, true) ?? (isSmall.test(tokens[again]?.plain ?? "") ? read(again + 1, true) : undefined));
    return one(first && second ? { value: joined(first.value, second.value), next: second.next } : (second ?? first));
  };
  switch (type) {
    case "duration":
      return last((place, isAgain) => duration(tokens, place, language) ?? (isAgain ? inSameUnit(tokens, at, place, language) : undefined));
    case "moment":
      // "On Friday at six, no, at seven" is still on Friday.
      return last<Moment>((place, isAgain) => moment(tokens, place, language, now, isAgain), (before, after) => ({ ...before, ...after }));
    case "day":
      return one(day(tokens, at, language, now));
    case "past":
      return one(day(tokens, at, language, now, true));
    case "number":
      return last((place) => number(tokens, place, language));
    case "sum":
      return one(sum(tokens, at, language));
    case "numbers":
      return one(added(tokens, at, language));
    case "measure":
      return one(measure(tokens, at, language));
    case "unit":
      return one(unit(tokens, at, language));
    case "word":
      return words(text, tokens, at, 1);
    case "few":
      return words(text, tokens, at, unbroken(text, tokens, at, fewWords));
    case "text":
      return words(text, tokens, at, tokens.length);
  }
}

/** "Ten minutes, no, twelve" is twelve minutes. */
function inSameUnit(tokens: readonly Token[], at: number, place: number, language: Language): Found<number> | undefined {
  const first = number(tokens, at, language);
  const length = duration(tokens, at, language);
  const again = number(tokens, place, language);
  return first && length && again && first.value > 0 ? { value: (length.value / first.value) * again.value, next: again.next } : undefined;
}

/** How many of the next words stand without a mark between them, and so may be one name. */
function unbroken(text: string, tokens: readonly Token[], at: number, most: number): number {
  let count = 1;
  while (count < most && tokens[at + count] && !/[,;:.!?…]/.test(text.slice(tokens[at + count - 1]!.end, tokens[at + count]!.start))) count++;
  return count;
}

/** Free words, the fewest first. */
function* words(text: string, tokens: readonly Token[], at: number, most: number): Generator<Found<string>> {
  for (let next = at + 1; next <= Math.min(tokens.length, at + most); next++) {
    yield { value: said(text, tokens, at, next), next };
  }
}
