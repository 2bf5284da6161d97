// Adds up how likely the last windows were speech: a sequential test on their log-odds (Wald, "Sequential Analysis", 1947;
// restarted at zero, as Page did, "Continuous inspection schemes", 1954). A single window says little, an animal or an
// instrument is taken for speech for a moment; a word goes on.

import type { Verdict } from "./speechDetector.ts";

/** One window says no more than this. */
const mostOdds = 4;
/** Evidence from which somebody is taken to speak. */
const enoughToBegin = 3;
/** Evidence without which it was no speech after all: a short word has more, almost all other sounds have less. */
const enoughToBeSure = 22;
/** Speech that ends is over after a few windows, however long it was. */
const mostEvidence = 24;

export class SpeechEvidence {
  /** The number of the first sample of what speaks for speech. */
  begunAt = 0;
  #evidence = 0;

  get hasBegun(): boolean {
    return this.#evidence >= enoughToBegin;
  }

  get isSure(): boolean {
    return this.#evidence >= enoughToBeSure;
  }

  take({ from, probability }: Verdict): void {
    if (this.#evidence === 0) this.begunAt = from;
    const odds = Math.log((probability + 1e-4) / (1 - probability + 1e-4));
    const evidence = this.#evidence + Math.max(-mostOdds, Math.min(mostOdds, odds));
    this.#evidence = Math.max(0, Math.min(mostEvidence, evidence));
  }

  rest(): void {
    this.#evidence = 0;
  }
}
