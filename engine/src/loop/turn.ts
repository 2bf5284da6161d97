// One request and its answer: thought out, written down, and spoken sentence by sentence as it comes.

import type { Clock } from "../base/clock.ts";
import type { Phrases } from "../base/phrases.ts";
import type { Settings, Timings } from "../base/protocol.ts";
import { cut } from "../base/text.ts";
import type { Conversations } from "../memory/conversations.ts";
import type { Brain, Request } from "../thought/answer.ts";
import { speakableLength } from "../voice/markup.ts";
import { plainSentences, sentencesOf } from "../voice/sentences.ts";
import type { Speaker } from "../voice/speaker.ts";

export interface Question {
  text: string;
  /** The question was asked aloud. `askedAt` is then the end of its last word. */
  isSpoken: boolean;
  askedAt: number;
  transcribeMs?: number;
}

export interface TurnPorts {
  clock: Clock;
  brain: Brain;
  speaker: Speaker;
  conversations: Conversations;
  phrases: Phrases;
  settings: () => Settings;
  /** Something of the turn that is shown has changed. */
  changed(): void;
}

/** The length at which an answer is cut off, in characters. */
const longestAnswer = 20_000;

export class Turn {
  #phase: "thinking" | "speaking" = "thinking";
  #isStopped = false;
  #text = "";
  #spokenLength = 0;
  /** The sentences that were handed to the speaker, those that have begun to be heard, and those before the question. */
  #saidCount = 0;
  #begunCount = 0;
  #countBeforeQuestion = Infinity;
  #questionHeard = (): void => {};
  #firstSentenceAt: number | undefined;
  #modelMs: number | undefined;
  #timings: Timings | undefined;
  readonly #abort = new AbortController();

  constructor(
    private readonly question: Question,
    private readonly ports: TurnPorts,
  ) {}

  get phase(): "thinking" | "speaking" {
    return this.#phase;
  }

  get timings(): Timings | undefined {
    return this.#timings;
  }

  /** Resolves when the answer has been heard to its end, or has been stopped. */
  async run(): Promise<void> {
    const { clock, brain, speaker, conversations } = this.ports;
    const request = this.#request();
    const begunAt = clock.now();
    conversations.add("user", this.question.text);
    this.ports.changed();
    const answer = await brain.answer(
      request,
      { text: (piece, spoken) => this.#take(piece, spoken), tool: (text) => this.#tool(text) },
      this.#abort.signal,
    );
    if (this.#isStopped) return;
    this.#modelMs = clock.now() - begunAt;
    this.#speak(this.#text.length);
    conversations.closeAnswer(this.#modelMs);
    conversations.addCost(answer.costUsd, answer.session);
    this.ports.changed();
    this.#questionHeard = answer.heard ?? this.#questionHeard;
    if (this.#hasQuestionBegun) this.#questionHeard();
    await speaker.finished();
    if (!this.#isStopped) this.#questionHeard();
    this.#settleTimings();
  }

  /** Silences the answer and ends it where it is. */
  stop(): void {
    if (this.#isStopped) return;
    this.#isStopped = true;
    this.#abort.abort();
    this.ports.speaker.stop();
    this.ports.conversations.closeAnswer(this.ports.clock.now() - this.question.askedAt);
  }

  /** Takes note that a sentence of the answer begins to be heard. */
  sentenceStarted(): void {
    this.#begunCount++;
    if (this.#hasQuestionBegun) this.#questionHeard();
    if (this.#phase === "speaking") return;
    this.#phase = "speaking";
    this.#settleTimings();
  }

  /** What was said before is not known any more once the conversation is forgotten, which the answer itself may do. */
  #request(): Request {
    const { conversations, settings } = this.ports;
    const { session, lastAnswer } = conversations;
    const { rows, startedAt } = conversations.current;
    const isForgotten = (): boolean => conversations.current.startedAt !== startedAt;
    return {
      text: this.question.text,
      askedAt: this.question.askedAt,
      settings: settings(),
      get earlier() {
        return isForgotten() ? [] : rows;
      },
      get session() {
        return isForgotten() ? undefined : session;
      },
      get lastAnswer() {
        return isForgotten() ? undefined : lastAnswer;
      },
    };
  }

  get #hasQuestionBegun(): boolean {
    return this.#begunCount > this.#countBeforeQuestion;
  }

  #take(piece: string, spoken: string | undefined): void {
    if (this.#isStopped) return;
    if (spoken !== undefined) return this.#takeWithWords(piece, spoken);
    this.#text = cut(this.#text + piece, longestAnswer);
    if (this.#text.trim() === "") return;
    this.ports.conversations.showAnswer(this.#text.trim());
    const complete = speakableLength(this.#text.slice(this.#spokenLength));
    if (complete > 0) this.#speak(this.#spokenLength + complete);
    this.ports.changed();
  }

  /** Writes and speaks a question whole, however long the answer was: a yes allows just what was asked. */
  #takeWithWords(piece: string, spoken: string): void {
    this.#speak(this.#text.length);
    this.#text += piece.toWellFormed();
    this.#spokenLength = this.#text.length;
    this.ports.conversations.showAnswer(this.#text.trim());
    this.#countBeforeQuestion = this.#saidCount;
    this.#say(plainSentences(spoken));
    this.ports.changed();
  }

  #tool(text: string): void {
    if (this.#isStopped) return;
    this.ports.conversations.add("tool", text);
    this.ports.changed();
  }

  #speak(end: number): void {
    const sentences = sentencesOf(this.#text.slice(this.#spokenLength, end), this.ports.phrases.codeShown);
    this.#spokenLength = end;
    this.#say(sentences);
  }

  #say(sentences: string[]): void {
    if (sentences.length > 0) this.#firstSentenceAt ??= this.ports.clock.now();
    this.#saidCount += sentences.length;
    for (const sentence of sentences) this.ports.speaker.say(sentence);
  }

  #settleTimings(): void {
    const { clock } = this.ports;
    const { askedAt, isSpoken, transcribeMs } = this.question;
    const voiceMs = this.#timings?.voiceMs ?? clock.now() - (this.#firstSentenceAt ?? clock.now());
    const totalMs = this.#timings?.totalMs ?? clock.now() - askedAt;
    const modelMs = this.#modelMs ?? (this.#firstSentenceAt ?? clock.now()) - askedAt - (transcribeMs ?? 0);
    this.#timings = { ...(transcribeMs === undefined ? {} : { transcribeMs }), modelMs, voiceMs, totalMs, isSpoken };
  }
}
