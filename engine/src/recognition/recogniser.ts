// Turns an utterance into words.

export type Recognition =
  /** The words that were said. `isUnderstood` is false when the recogniser does not know them. */
  | { kind: "text"; text: string; isUnderstood: boolean }
  /** No recogniser is installed. */
  | { kind: "none" }
  /** The recogniser did not give an answer. `problem` tells the log why. */
  | { kind: "failed"; problem: string };

export interface Recogniser {
  /** Never rejects. */
  recognise(samples: Int16Array, signal: AbortSignal): Promise<Recognition>;
}

/** Asks one recogniser after another until one answers. */
export class FirstOf implements Recogniser {
  constructor(private readonly recognisers: () => Recogniser[]) {}

  async recognise(samples: Int16Array, signal: AbortSignal): Promise<Recognition> {
    let last: Recognition = { kind: "none" };
    for (const recogniser of this.recognisers()) {
      if (signal.aborted) return { kind: "none" };
      const found = await recogniser.recognise(samples, signal);
      if (found.kind === "text") return found;
      if (found.kind === "failed" || last.kind === "none") last = found;
    }
    return last;
  }
}
