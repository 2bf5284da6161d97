// What was heard lately and what was done with it, and the words of somebody who still speaks.

import type { Heard, HeardAction } from "../base/protocol.ts";

const mostHeard = 50;

export class HeardLately {
  entries: Heard[] = [];
  #caption: Heard | undefined;

  get withCaption(): Heard[] {
    return this.#caption ? [...this.entries, this.#caption] : this.entries;
  }

  /** Notes an utterance, in place of its caption. */
  add(at: number, text: string, action: HeardAction, reason: string | undefined): void {
    const entry: Heard = { at: this.#later(at), text, action, ...(reason === undefined ? {} : { reason }) };
    this.entries = [...this.entries, entry].slice(-mostHeard);
    this.#caption = undefined;
  }

  /** Shows the words of somebody who still speaks. The entry keeps its time while its words change. */
  caption(at: number, text: string): void {
    this.#caption = { at: this.#caption?.at ?? this.#later(at), text, action: "…" };
  }

  /** Somebody else speaks. */
  dropCaption(): void {
    this.#caption = undefined;
  }

  /** Entries are told apart by their times. */
  #later(at: number): number {
    return Math.max(at, (this.entries.at(-1)?.at ?? 0) + 1);
  }
}
