// Answers requests by hands, without a language model or beside one that cannot use hands: each sentence that asks for one is done, or
// asked about first as the settings say. What was asked is what a yes does.

import type { Hand } from "../hands/hand.ts";
import type { Meant } from "../hands/parsing/meaning.ts";
import { longestRequest, mostSentences, partsOf } from "../hands/parsing/request.ts";
import { isPolite } from "../hands/parsing/sentence.ts";
import { asksForTime } from "./builtInAnswers.ts";
import type { Answer, Answering, Request } from "./answer.ts";
import { apart, watch } from "./answering.ts";
import { Asking } from "./asking.ts";
import { isSpelled, readAloud } from "./consent.ts";
import type { MindParts } from "./mind.ts";

/** In characters. An utterance of twenty seconds has fewer. */
const longestSaid = 400;

interface Deed {
  hand: Hand;
  given: Record<string, unknown>;
  /** What was asked; undefined for what would do nothing, and says so. */
  intent: string | undefined;
}

interface Sentence {
  text: string;
  /** Where it begins in the request. */
  start: number;
  deed: Deed | undefined;
}

/** A model that cannot use hands. */
export interface HandlessModel {
  answer(request: Request, answering: Answering): Promise<Answer>;
  /** What it has asked leave for is refused. */
  refuse(): void;
}

export class SentenceMind {
  readonly #asking: Asking<Deed[]>;

  constructor(private readonly parts: MindParts) {
    this.#asking = new Asking(parts.clock, parts.phrases);
  }

  /** Answers a request that says yes or no to what was asked; undefined for any other request, which ends the asking. */
  async reply(request: Request, answering: Answering, signal: AbortSignal): Promise<Answer | undefined> {
    const reply = this.#asking.reply(request);
    if (reply === undefined) return undefined;
    const done = reply.isYes ? await this.#actAll(reply.what, signal) : [this.parts.phrases.allRight];
    if (!signal.aborted) answering.text(done.join(" "));
    return { costUsd: 0 };
  }

  /**
   * Does what the sentences ask for, and answers those that ask for no hand by `known`, each where it stands; leaves out those that it
   * knows no answer to. Undefined when nothing is left. Of a request to a model, which has failed, only what it surely asks for is done,
   * and so of a text that somebody has pasted: what stands in it somebody else may have written.
   */
  async answer(
    request: Request,
    known: (text: string) => string | undefined,
    answering: Answering,
    signal: AbortSignal,
    isForModel = false,
  ): Promise<Answer | undefined> {
    const all = this.#read(request.text);
    const isMeant = ({ deed, text }: Sentence): boolean => deed !== undefined || (!isForModel && known(text) !== undefined);
    const sure = isForModel || isPasted(request.text) ? this.#surely(request.text, all, isMeant) : all;
    const sentences = all.map((one) => (sure.includes(one) ? one : { ...one, deed: undefined }));
    // A request of plain sentences is answered as a whole.
    const isJoined = sentences.length > 1 && sentences.every(({ text }) => this.#isForTime(text));
    if (!isJoined && sentences.every(({ deed }) => deed === undefined)) {
      const text = known(request.text);
      if (text === undefined) return undefined;
      answering.text(text);
      return { costUsd: 0 };
    }
    const { watched, hasAnswered } = watch(answering);
    const asked = await this.#do(sentences.slice(0, mostSentences), known, request, watched, signal);
    if (asked.length === 0 || signal.aborted) return { costUsd: 0 };
    return { costUsd: 0, heard: this.#ask(asked, !hasAnswered(), answering, signal) };
  }

  /**
   * Does what a request surely asks for, for a model that cannot use hands, which gets the rest afterwards as it is. What stands after the
   * first sentence that asks for no hand may be a text that the request is about.
   */
  async answerFor(model: HandlessModel, request: Request, answering: Answering, signal: AbortSignal): Promise<Answer> {
    const sentences = this.#read(request.text);
    const isDeed = ({ deed }: Sentence): boolean => deed?.intent !== undefined;
    const sure = this.#surely(request.text, sentences, isDeed);
    const deeds = sure.filter(isDeed);
    if (deeds.length === 0) return await model.answer(request, answering);
    model.refuse();
    const { watched, hasAnswered } = watch(answering);
    const asked = await this.#do(deeds, () => undefined, request, watched, signal);
    if (signal.aborted) return { costUsd: 0 };
    const manners = sure.filter((one) => !isDeed(one)).map(({ text }) => text);
    const other = sentences[sure.length];
    const rest = other ? [...manners, request.text.slice(other.start)].join(" ") : "";
    const answer = rest === "" ? { costUsd: 0 } : await model.answer({ ...request, text: rest }, hasAnswered() ? apart(watched) : watched);
    if (asked.length === 0 || signal.aborted) return answer;
    if (answer.heard === undefined) return { ...answer, heard: this.#ask(asked, !hasAnswered(), answering, signal) };
    // A yes must not mean two things.
    answering.text(`\n${asked.map(({ intent = "" }) => this.parts.phrases.askAgain(intent)).join(" ")}`);
    return answer;
  }

  /** The user hears no more of it: what was asked is refused. */
  refuse(): void {
    this.#asking.refuse();
  }

  #read(request: string): Sentence[] {
    const now = new Date(this.parts.clock.now());
    const parts = partsOf(request, this.parts.language, now, (text) => this.#isForTime(text));
    return parts.map(({ text, start, meant }) => ({ text, start, deed: meant && this.#deed(meant) }));
  }

  /** No hand tells the time. */
  #isForTime(text: string): boolean {
    return asksForTime(text, this.parts.language, new Date(this.parts.clock.now()));
  }

  /**
   * The sentences that a request begins with, of deeds and polite words alone. Of several lines that are not all such none is: what is
   * pasted may stand before the question about it.
   */
  #surely(request: string, sentences: Sentence[], isDeed: (sentence: Sentence) => boolean): Sentence[] {
    if (request.length > longestRequest) return [];
    const now = new Date(this.parts.clock.now());
    const other = sentences.findIndex((one) => !isDeed(one) && !isPolite(one.text, this.parts.language, now));
    if (other < 0) return sentences;
    return /\n/.test(request.trim()) ? [] : sentences.slice(0, other);
  }

  /** Does what needs no leave. Gives what does. */
  async #do(
    sentences: Sentence[],
    known: (text: string) => string | undefined,
    request: Request,
    answering: Answering,
    signal: AbortSignal,
  ): Promise<Deed[]> {
    const asked: Deed[] = [];
    let isFirst = true;
    for (const { text, deed } of sentences) {
      if (signal.aborted) return [];
      if (deed?.intent !== undefined && request.settings.confirmActions.includes(deed.hand.id)) {
        asked.push(deed);
        continue;
      }
      const answer = deed ? await this.#act(deed, signal) : known(text);
      if (signal.aborted) return [];
      if (answer === undefined) continue;
      answering.text(`${isFirst ? "" : " "}${answer}`);
      isFirst = false;
    }
    return asked;
  }

  #deed(meant: Meant): Deed | undefined {
    const { language, hands } = this.parts;
    const hand = hands.find(({ id, forModelsOnly }) => id === meant.hand && !forModelsOnly);
    return hand && { hand, given: meant.given, intent: hand.intent(meant.given, language) };
  }

  #ask(asked: Deed[], isFirst: boolean, answering: Answering, signal: AbortSignal): () => void {
    const { phrases } = this.parts;
    const written = asked.map(({ intent = "" }) => intent);
    const spoken = asked.map(({ hand, intent = "" }) => (isSpelled(hand.id) ? readAloud(intent, phrases) : intent));
    const heard = this.#asking.ask(asked, signal);
    answering.text(`${isFirst ? "" : "\n"}${phrases.mayI(sentenceOf(written))}`, phrases.mayI(sentenceOf(spoken)));
    return heard;
  }

  async #actAll(deeds: readonly Deed[], signal: AbortSignal): Promise<string[]> {
    const done: string[] = [];
    for (const deed of deeds) {
      if (signal.aborted) break;
      // What would be done now may be another thing than what was asked: another timer, another application of the name.
      const isSame = deed.hand.intent(deed.given, this.parts.language) === deed.intent;
      done.push(isSame ? await this.#act(deed, signal) : this.parts.phrases.notTheSame);
    }
    return done;
  }

  async #act({ hand, given }: Deed, signal: AbortSignal): Promise<string> {
    try {
      return await hand.act(given, this.parts.language, signal);
    } catch (error) {
      this.parts.log(`a ação ${hand.id} falhou (${String(error)})`);
      return this.parts.phrases.handFailed;
    }
  }
}

/** Nobody says so much in one breath, and nobody says lines. */
function isPasted(request: string): boolean {
  return request.length > longestSaid || /\n/.test(request.trim());
}

function sentenceOf(intents: readonly string[]): string {
  const text = intents.join("; ");
  return `${text.charAt(0).toUpperCase()}${text.slice(1)}${/[.!?…]$/.test(text) ? "" : "."}`;
}
