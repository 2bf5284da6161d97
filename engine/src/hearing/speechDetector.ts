// Tells speech from other sounds.

/** How likely these samples are speech; they are numbered from the beginning of the stream. */
export interface Verdict {
  from: number;
  to: number;
  probability: number;
}

export interface SpeechDetector {
  /** It is there, and not late: what it does not call speech is none. */
  readonly isAnswering: boolean;
  /**
   * Takes the samples of the stream that follow number `at`. Verdicts come somewhat later, in their order. It may wait for
   * more samples, for a tenth of a second, unless it is urgent.
   */
  take(samples: Int16Array, at: number, isUrgent: boolean): void;
  /** Has the verdicts told to this function. */
  tell(taker: (verdict: Verdict) => void): void;
}
