// The second reading of a sentence that no phrase takes: what it speaks of, in whatever order. Each word has to stand for something that
// the request is about, or be one that changes nothing: of a sentence with a word that is neither nothing is understood.

import type { Language } from "../../base/language.ts";
import { conceptsOf, expressionAt, type Concepts, type Expression } from "./concepts.ts";
import { day, type Day } from "./days.ts";
import { duration } from "./durations.ts";
import { englishConcepts } from "./englishConcepts.ts";
import { rules, type Rule } from "./gistRules.ts";
import { isQuestion, type Sentence, type Slots } from "./grammar.ts";
import type { Meant } from "./meaning.ts";
import { meanings } from "./meanings.ts";
import { moment, type Moment } from "./moments.ts";
import { number } from "./numbers.ts";
import { portugueseConcepts } from "./portugueseConcepts.ts";
import { measure, unit } from "./sums.ts";
import { said, type Token } from "./tokens.ts";
import { isInfinitive } from "./verbs.ts";

/** Some words of a sentence, and all that they may stand for. */
interface Piece {
  from: number;
  to: number;
  concepts: ReadonlySet<string>;
  /** What its words stand for one by one, where they are several. */
  words?: readonly ReadonlySet<string>[] | undefined;
  value?: number | Moment | Day | string;
}

/** One that is longer is no single request. In words. */
const longest = 30;
const longestName = 3;

const compiled: { [language in Language]?: Concepts } = {};

function conceptsFor(language: Language): Concepts {
  return (compiled[language] ??= conceptsOf(language === "pt" ? portugueseConcepts : englishConcepts, language));
}

/** Makes the first sentence as quick as the others. */
export function prepareGist(language: Language): void {
  conceptsFor(language);
}

/** What one of the parts of a sentence asks for by the words that it is made of, in the first of these that does; undefined where none does. */
export function gistOf(sentence: Sentence, parts: Iterable<readonly [number, number]>): Meant | undefined {
  const { tokens } = sentence;
  if (tokens.length === 0 || tokens.length > longest) return undefined;
  const readings = [false, true].map((isMeasure) => piecesOf(sentence, isMeasure));
  for (const [start, stop] of parts) {
    if (isSomebodys(tokens, start)) continue;
    const meant = gistOfPart(sentence, readings, start, stop);
    if (meant) return meant;
  }
  return undefined;
}

/** "I am going to lock the screen", "eu bloqueio a tela" and "você acorda às sete?" only tell, or ask, what somebody does. */
function isSomebodys(tokens: readonly Token[], start: number): boolean {
  const said = tokens.slice(Math.max(0, start - 2), start).map(({ plain }) => plain).join(" ");
  return (start > 0 && tokens[start]!.plain === "to") || /(^| )(voce|eu|voce vai)$/.test(said);
}

function gistOfPart(sentence: Sentence, readings: readonly Piece[][], start: number, stop: number): Meant | undefined {
  const asks = isQuestion(sentence.text) && !forAdvice.test(sentence.tokens[0]!.plain);
  for (const [at, reading] of readings.entries()) {
    const isMeasure = at === 1;
    const within = reading.filter(({ from, to }) => from >= start && to <= stop);
    // What stands around it has taken a word of it.
    if (within[0]?.from !== start || within.at(-1)?.to !== stop) continue;
    const pieces = asked(within);
    // "Can you set a reminder?" asks for it to be done.
    const isOrder = orders.some((concept) => pieces[0]!.concepts.has(concept));
    const isTold = !asks && isToldOf(pieces, sentence);
    for (const rule of rules) {
      if ((rule.needs.includes("measure")) !== isMeasure) continue;
      if (!rule.isAsked && isTold) continue;
      const slots = slotsFor(rule, pieces, sentence, asks && !isOrder);
      const meant = slots && meanings[rule.meaning](slots, sentence.now);
      if (meant) return meant;
    }
  }
  return undefined;
}

/** "Should I set an alarm?" wants advice. */
const orders: readonly string[] = ["set", "wake", "off", "alerts", "change", "turn", "take", "lock", "mute", "pause", "play"];
const forAdvice = /^(should|shall|must|may|devo|deveria|posso|convem)$/;

/** "Is my alarm set?" asks, and "my alarm is set" tells. */
function asked([first, ...others]: readonly Piece[]): Piece[] {
  if (!first?.concepts.has("inverted")) return first ? [first, ...others] : [];
  return [{ ...first, concepts: new Set([...first.concepts, "ask", "yesno"]) }, ...others];
}

/** "O meu alarme toca às sete" tells of it: the verb stands after what it is said of, as nobody asks. */
function isToldOf(pieces: readonly Piece[], { tokens, language }: Sentence): boolean {
  if (language !== "pt" || !/^(o|a|os|as|meu|minha|meus|minhas|esse|essa|este|nosso|nossa)$/.test(tokens[pieces[0]!.from]!.plain)) return false;
  return pieces.slice(1).some(({ from }) => tokens[from]!.lemma !== tokens[from]!.plain);
}

const forIt: ReadonlySet<string> = new Set(["light", "names", "conversion"]);

/** `isMeasure`: numbers are read with their units. */
function piecesOf(sentence: Sentence, isMeasure: boolean): Piece[] {
  const { tokens, language, now } = sentence;
  const pieces: Piece[] = [];
  for (let at = 0; at < tokens.length; ) {
    const found = expressionAt(conceptsFor(language), tokens, at);
    // "Para" stops what stands after it; after a timer it tells what that is for.
    const isFor = found?.words.join(" ") === "para" && pieces.some(({ concepts }) => concepts.has("timer") || concepts.has("alarm"));
    const word = isFor ? { words: found.words, concepts: forIt } : found;
    const value = isMeasure ? measured(sentence, at) : timed(sentence, at, now);
    const piece = value && (!word || value.to - at >= word.words.length) ? value : undefined;
    if (piece && word && value!.to - at === word.words.length) pieces.push({ ...piece, concepts: new Set([...piece.concepts, ...word.concepts]) });
    else if (piece) pieces.push(piece);
    else if (word) pieces.push({ from: at, to: at + word.words.length, concepts: word.concepts, words: apart(sentence, at, word) });
    else pieces.push({ from: at, to: at + 1, concepts: new Set(["unknown"]) });
    at = pieces.at(-1)!.to;
  }
  return pieces;
}

/** "Is this" is one expression in "who is this", and two words in "is this laptop online". */
function apart({ tokens, language }: Sentence, at: number, { words, concepts }: Expression): Piece["words"] {
  if (words.length === 1 || concepts.has("definition")) return undefined;
  const none = new Set<string>();
  return words.map((_, offset) => expressionAt(conceptsFor(language), tokens.slice(at + offset, at + offset + 1), 0)?.concepts ?? none);
}

function measured({ tokens, language }: Sentence, at: number): Piece | undefined {
  const length = measure(tokens, at, language);
  if (length) return { from: at, to: length.next, concepts: new Set(["measure"]), value: length.value };
  const name = unit(tokens, at, language);
  return name && { from: at, to: name.next, concepts: new Set(["unit"]), value: name.value };
}

/** What stands before a level of the volume, and not before a step. */
const levels: Record<Language, RegExp> = { en: /^(to|at)$/, pt: /^(para|a|ate|no|nos)$/ };

function timed({ tokens, language }: Sentence, at: number, now: Date): Piece | undefined {
  const length = duration(tokens, at, language);
  if (length) return { from: at, to: length.next, concepts: new Set(["duration"]), value: length.value };
  const date = day(tokens, at, language, now);
  const time = moment(tokens, at, language, now);
  if (time && (time.value.clock || !date || time.next > date.next)) {
    const isDay = time.value.day !== undefined && !time.value.clock && !time.value.part;
    return { from: at, to: time.next, concepts: new Set(isDay ? ["day", "moment"] : ["moment"]), value: isDay ? time.value.day! : time.value };
  }
  if (date) return { from: at, to: date.next, concepts: new Set(["day", "moment"]), value: date.value };
  const count = number(tokens, at, language);
  if (!count) return undefined;
  const isLevel = levels[language].test(tokens[at - 1]?.plain ?? "");
  return { from: at, to: count.next, concepts: new Set([isLevel ? "level" : "number"]), value: count.value };
}

/** What the rule's meaning is given, when the sentence is all of what the rule speaks of. */
function slotsFor(rule: Rule, pieces: readonly Piece[], sentence: Sentence, asks: boolean): Slots | undefined {
  const has = (piece: Piece, concepts: readonly string[]): boolean => concepts.some((concept) => piece.concepts.has(concept));
  const needs = rule.needs.map((need) => need.split("|"));
  // What is written as a question needs no word that asks.
  const isThere = (need: readonly string[]): boolean => (asks && /\b(ask|yesno)\b/.test(need.join(" "))) || pieces.some((piece) => has(piece, need));
  if (!needs.every(isThere)) return undefined;
  const taken = [...needs.flat(), ...rule.may, rule.isAsked ? "asking" : "", "light"];
  const isTaken = (piece: Piece): boolean =>
    has(piece, taken) || (piece.words?.every((concepts) => taken.some((each) => concepts.has(each))) ?? false);
  const unknown = pieces.filter((piece) => !isTaken(piece));
  const slots = valuesOf(pieces.filter(isTaken), taken);
  if (slots === undefined || unknown.length === 0) return slots;
  if (rule.name === undefined) return undefined;
  const called = nameIn(rule, unknown, pieces, sentence);
  return called === undefined ? undefined : { ...slots, [rule.name]: called };
}

/** The values of the pieces by what they are; undefined where there are two of one kind. */
function valuesOf(pieces: readonly Piece[], taken: readonly string[]): Slots | undefined {
  const slots: Record<string, Slots[string]> = {};
  let time: Moment = {};
  for (const { concepts, value } of pieces) {
    if (value === undefined) continue;
    const kind = (["duration", "measure", "unit"] as const).find((each) => concepts.has(each) && taken.includes(each));
    if (kind !== undefined) {
      if (slots[kind] !== undefined) return undefined;
      slots[kind] = value;
    } else if (concepts.has("day") || concepts.has("moment")) {
      // "Tomorrow I need an alarm at seven" says the day and the time apart.
      const said: Moment = concepts.has("day") ? { day: value as Day } : (value as Moment);
      if (Object.keys(said).some((key) => Object.hasOwn(time, key))) return undefined;
      time = { ...time, ...said };
    } else if (!concepts.has("light") && typeof value === "number") slots.number = value;
  }
  if (taken.includes("moment") && (time.clock || time.part || (time.day && !taken.includes("day")))) slots.moment = time;
  else if (time.day && !time.clock) slots.day = time.day;
  return slots;
}

/** The words that stand for nothing else, where they can be a name: together, and beside what has one. */
function nameIn(rule: Rule, unknown: readonly Piece[], pieces: readonly Piece[], sentence: Sentence): string | undefined {
  const { text, tokens } = sentence;
  const [from, to] = [unknown[0]!.from, unknown.at(-1)!.to];
  const isWhole = unknown.every((piece, at) => piece.concepts.has("unknown") && (at === 0 || piece.from === unknown[at - 1]!.to));
  const isBroken = /[,;:.!?…]/.test(text.slice(tokens[from]!.start, tokens[to - 1]!.end));
  // "Fala para a Ana colocar um timer" wants somebody else to do it.
  const isDoer = sentence.language === "pt" && isInfinitive(tokens[to]?.plain ?? "");
  if (!isWhole || isBroken || isDoer || to - from > longestName) return undefined;
  const before = pieces.find((piece) => piece.to === from);
  const after = pieces.find((piece) => piece.from === to);
  const isCalled = before?.concepts.has("names") === true || (after !== undefined && rule.named !== undefined && after.concepts.has(rule.named));
  const beforeArticle = before && pieces.find((piece) => piece.to === before.from);
  const isWithArticle = before?.concepts.has("article") === true && beforeArticle?.concepts.has("names") === true;
  return isCalled || isWithArticle ? said(text, tokens, from, to) : undefined;
}
