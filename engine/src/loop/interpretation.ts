// Decides what an utterance asks for, by its words and by what was going on when it was said.

import type { Phrases } from "../base/phrases.ts";
import type { HeardAction } from "../base/protocol.ts";
import { isNearly, plainWords } from "../base/words.ts";

export interface Speech {
  text: string;
  isUnderstood: boolean;
  hasRecogniser: boolean;
}

export interface Circumstances {
  wakeWords: string[];
  actionPhrases: string[];
  /** An utterance counts only when it is addressed to the agent. */
  isDirected: boolean;
  isDraftOn: boolean;
  isDraftOpen: boolean;
  /** A listening window was open: no name is needed. */
  isWindowOpen: boolean;
  /** The utterance began while the agent was speaking or had just spoken. */
  overlapsSpeech: boolean;
  /** The utterance silenced the agent. */
  hasInterrupted: boolean;
  /** The utterance went on when the agent had fallen silent, or was not over the agent's voice at all. */
  isSurelySomebody: boolean;
  /** An answer is being thought out. */
  isThinking: boolean;
  /** The sentences that the agent was saying. */
  spoken: string;
  phrases: Phrases;
}

const housekeeping = ["stop", "clearDraft", "newConversation", "mute"] as const;
/** What needs nothing but the words that name it. */
export type Housekeeping = (typeof housekeeping)[number];
export type Command = Housekeeping | "runDraft" | "draft" | "ask";

export interface Interpretation {
  action: HeardAction;
  reason?: string;
  command?: Command;
  /** The words that count, as they were said; for "ask", "draft" and "runDraft". */
  text?: string;
}

/** An utterance over the agent's voice is taken for that voice when it shares this part of its words with it. */
const echoShare = 0.7;

export function interpret(speech: Speech, around: Circumstances): Interpretation {
  const { reasons } = around.phrases;
  const words = speech.isUnderstood ? wordsOf(speech.text) : [];
  if (words.length > 0 && around.overlapsSpeech && resembles(words, around.spoken)) {
    return { action: "echo", reason: reasons.ownVoice };
  }
  const named = withoutName(words, around);
  const rest = named ?? words;
  const isSaid = (list: string[]): boolean => list.some((phrase) => equals(rest, plainWords(phrase)));

  if (isSaid(around.phrases.stop) && (around.hasInterrupted || (around.isThinking && (named || !around.isDirected)))) {
    return { action: "interrupted", command: "stop" };
  }
  if (words.length === 0) {
    const why = speech.hasRecogniser ? reasons.notUnderstood : reasons.noRecogniser;
    if (around.hasInterrupted) return { action: "interrupted", reason: why };
    return { action: "ignored", reason: why };
  }
  // A recogniser that knows few phrases may find one of them in the rest of the agent's own voice.
  if (named === undefined && !around.isSurelySomebody) {
    return { action: around.hasInterrupted ? "interrupted" : "ignored", reason: reasons.tooShort };
  }
  const isMeant = named !== undefined || around.isWindowOpen || around.isDraftOpen || around.hasInterrupted;
  if (!isMeant && around.isDirected) return { action: "ignored", reason: reasons.noName };
  if (around.isThinking && named === undefined) return { action: "ignored", reason: reasons.thinking };
  if (rest.length === 0) return { action: "summoned" };
  if (isSaid(around.phrases.stop)) return { action: "accepted", command: "stop" };
  const isHousekeeping = [around.phrases.newConversation, around.phrases.mute, around.phrases.clearDraft].some(isSaid);
  if (isHousekeeping && around.hasInterrupted && named === undefined) {
    return { action: "interrupted", reason: reasons.noName };
  }
  if (isSaid(around.phrases.newConversation)) return { action: "accepted", command: "newConversation" };
  if (isSaid(around.phrases.mute)) return { action: "accepted", command: "mute" };
  if (isSaid(around.phrases.clearDraft)) return { action: "cleared", command: "clearDraft" };

  if (around.isDraftOn || around.isDraftOpen) {
    const before = withoutActionPhrase(rest, around.actionPhrases);
    if (before === undefined) return { action: "drafted", command: "draft", text: said(rest) };
    if (before.length === 0 && !around.isDraftOpen) return { action: "ignored", reason: reasons.draftEmpty };
    return { action: "acted", command: "runDraft", text: said(before) };
  }
  const over = around.hasInterrupted ? { reason: reasons.overAnswer } : {};
  return { action: "accepted", command: "ask", text: said(rest), ...over };
}

/** What is typed, when it is nothing but such a command. Who types misspells no sound: it has to be in just these words. */
export function commandIn(text: string, wakeWords: string[], phrases: Phrases): Housekeeping | undefined {
  const words = wordsOf(text);
  const said = (withoutName(words, { wakeWords, phrases }) ?? words).map(({ plain }) => plain).join(" ");
  return housekeeping.find((command) => phrases[command].some((phrase) => plainWords(phrase).join(" ") === said));
}

/** A word in the form in which it is compared, and the piece of the text that it came from. */
interface Word {
  plain: string;
  original: string;
}

function wordsOf(text: string): Word[] {
  const pieces = text.trim().split(/\s+/);
  return pieces.flatMap((original) => {
    const plain = plainWords(original).join("");
    return plain === "" ? [] : [{ plain, original }];
  });
}

function said(words: Word[]): string {
  const text = words.map(({ original }) => original).join(" ").replace(/^[\s,;:.!?-]+|[\s,;:-]+$/g, "");
  return text.charAt(0).toUpperCase() + text.slice(1);
}

function equals(words: Word[], phrase: string[]): boolean {
  return words.length === phrase.length && startsWith(words, phrase, 0);
}

function startsWith(words: Word[], phrase: string[], at: number): boolean {
  return phrase.length > 0 && phrase.every((part, index) => isNearly(words[at + index]?.plain, plainWords(part).join("")));
}

/**
 * Gives the words without the agent's name, which stands first, last, or between pauses, or undefined when it was not said. It
 * is the recogniser that spells it right.
 */
function withoutName(words: Word[], { wakeWords, phrases }: Pick<Circumstances, "wakeWords" | "phrases">): Word[] | undefined {
  const names = wakeWords.map(plainWords).sort((a, b) => b.length - a.length);
  const calls = phrases.calls.map((call) => plainWords(call).join(""));
  for (const name of names) {
    const isAt = (at: number): boolean => name.length > 0 && name.every((part, index) => words[at + index]?.plain === part);
    const from = calls.includes(words[0]?.plain ?? "") && !isAt(0) ? 1 : 0;
    if (isAt(from)) {
      const rest = words.slice(from + name.length);
      return from === 0 && isToldOf(rest) ? undefined : rest;
    }
    const tail = words.length - name.length;
    if (tail > 0 && isAt(tail)) return endedLike(words.slice(0, tail), words.at(-1)!);
    for (let at = 1; at < tail; at++) {
      const [before, last] = [words[at - 1]!, words[at + name.length - 1]!];
      if (isAt(at) && (hasPause(before) || hasPause(last))) return [...words.slice(0, at - 1), unpaused(before), ...words.slice(at + name.length)];
    }
  }
  return undefined;
}

/** So an English sentence goes on that tells of whom it names, and asks nothing: "Palomet is on the phone". */
const tellsOf = new RegExp(
  "^(is|was|isnt|wasnt) (on|in|at|off|out|up|down|over|not|never|always|really|very|so|too|quite|just|still|already|also|now|going|coming|" +
    "being|gone|home|away|asleep|busy|late|ready|broken|good|great|nice|wrong|right|slow|fast|called)( |$)|" +
    "^(has|hasnt|had) (been|gone|got|done|become|had|left|come)( |$)",
);

function isToldOf(words: Word[]): boolean {
  return !/\?$/.test(words.at(-1)?.original ?? "") && tellsOf.test(words.map(({ plain }) => plain).join(" "));
}

function hasPause({ original }: Word): boolean {
  return /[,;:.?!…]$/.test(original);
}

/** The pause before a name is no longer one without the name. */
function unpaused(word: Word): Word {
  return { ...word, original: word.original.replace(/,$/, "") };
}

/** Gives the words the mark that the whole ended with: "What time is it, Palomet?" becomes "What time is it?". */
function endedLike(words: Word[], end: Word): Word[] {
  const mark = /[.?!…]+$/.exec(end.original)?.[0] ?? "";
  const last = words.at(-1)!;
  return [...words.slice(0, -1), { ...last, original: last.original.replace(/[,;:]+$/, "") + mark }];
}

/** Gives the words before the action phrase that ends the utterance, or undefined when none does. */
function withoutActionPhrase(words: Word[], actionPhrases: string[]): Word[] | undefined {
  for (const phrase of actionPhrases.map(plainWords)) {
    const at = words.length - phrase.length;
    if (at >= 0 && startsWith(words, phrase, at)) return words.slice(0, at);
  }
  return undefined;
}

function resembles(words: Word[], spoken: string): boolean {
  const own = new Set(plainWords(spoken));
  const shared = words.filter((word) => own.has(word.plain)).length;
  return shared / words.length >= echoShare;
}
