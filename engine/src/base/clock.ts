// The time as the engine sees it. Tests replace it with a clock that they move.

export interface Clock {
  /** Milliseconds since the Unix epoch. */
  now(): number;
  /** Runs `work` once, `ms` from now; the returned function cancels it. */
  after(ms: number, work: () => void): () => void;
}

export const systemClock: Clock = {
  now: () => Date.now(),
  after(ms, work) {
    const timer = setTimeout(work, ms);
    return () => clearTimeout(timer);
  },
};
