// Turns an utterance into words.

export type Recognition =
  /** What was said. `isUnderstood` is false when it is none of what the recogniser knows. */
  | { kind: "text"; text: string; isUnderstood: boolean }
  /** No recogniser is installed. */
  | { kind: "none" }
  /** The recogniser did not give an answer: why, for the log. */
  | { kind: "failed"; problem: string };

export interface Recogniser {
  /** Never rejects. */
  recognise(samples: Int16Array, signal: AbortSignal): Promise<Recognition>;
}
