// Turns an utterance into words.

export type Recognition =
  /** The words that were said. `isUnderstood` is false when the recogniser does not know them. */
  | { kind: "text"; text: string; isUnderstood: boolean }
  /** No recogniser is installed. */
  | { kind: "none" }
  /** The recogniser did not give an answer. `problem` tells the log why. */
  | { kind: "failed"; problem: string };

export interface RecogniseOptions {
  /** The words are shown while they are spoken, and nothing more: whoever is not fast does without. */
  isPartial?: boolean;
}

export interface Recogniser {
  /** Somebody begins to speak. */
  prepare(): void;
  /** Never rejects. The samples end with up to a fifth of a second of silence. */
  recognise(samples: Int16Array, signal: AbortSignal, options?: RecogniseOptions): Promise<Recognition>;
}

/** Asks one recogniser after another until one answers. */
export class FirstOf implements Recogniser {
  constructor(private readonly recognisers: () => Recogniser[]) {}

  prepare(): void {
    this.recognisers()[0]?.prepare();
  }

  async recognise(samples: Int16Array, signal: AbortSignal, options: RecogniseOptions = {}): Promise<Recognition> {
    let last: Recognition = { kind: "none" };
    for (const recogniser of this.recognisers()) {
      if (signal.aborted) return { kind: "none" };
      const found = await recogniser.recognise(samples, signal, options);
      if (found.kind === "text") return found;
      if (found.kind === "failed" || last.kind === "none") last = found;
    }
    return last;
  }
}
