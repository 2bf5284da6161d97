// What the agent has asked leave for, until the reply: a yes allows just that, once. A no refuses it, and so do ten seconds of
// nothing after the question was heard. A question that nobody has heard a word of is none.

import type { Clock } from "../base/clock.ts";
import type { Phrases } from "../base/phrases.ts";
import { replyIn } from "../base/replies.ts";
import type { Request } from "./answer.ts";

const replyMs = 10_000;
/** A longer text is no plain yes or no. */
const longestReply = 100;

interface Asked<What> {
  what: What;
  /** The times at which it began to be heard, and at which it was heard as far as it goes. */
  begunAt?: number;
  heardAt?: number;
}

export class Asking<What> {
  #asked: Asked<What> | undefined;

  constructor(
    private readonly clock: Clock,
    private readonly phrases: Phrases,
  ) {}

  /**
   * Takes note of what is asked for, in the place of what was. Gives the function that is to be called when the question begins to be
   * heard, and when it has been heard to its end. A question that `signal` cuts short has been heard as far as it goes, and is over
   * when it had not begun. An answer that was stopped before asks nothing.
   */
  ask(what: What, signal: AbortSignal): () => void {
    if (signal.aborted) return () => {};
    const asked: Asked<What> = { what };
    this.#asked = asked;
    signal.addEventListener("abort", () => {
      if (asked.begunAt !== undefined) asked.heardAt = this.clock.now();
      else if (this.#asked === asked) this.#asked = undefined;
    });
    return () => {
      if (signal.aborted) return;
      asked.begunAt ??= this.clock.now();
      asked.heardAt = this.clock.now();
    };
  }

  /** Takes what was asked for, and tells what the request says to it. Gives undefined when it is no reply to it. */
  reply({ text, askedAt }: Request): { isYes: boolean; what: What } | undefined {
    const asked = this.#asked;
    this.#asked = undefined;
    if (asked === undefined) return undefined;
    const { begunAt = askedAt, heardAt = askedAt } = asked;
    if (askedAt < begunAt || askedAt - heardAt > replyMs) return undefined;
    const reply = text.length > longestReply ? undefined : replyIn(text, this.phrases.language);
    return reply === undefined ? undefined : { isYes: reply === "yes", what: asked.what };
  }

  refuse(): void {
    this.#asked = undefined;
  }
}
