// Time as the engine sees it, so that tests can hold it in their hands.

export interface Clock {
  /** Milliseconds since the Unix epoch. */
  now(): number;
  /** Runs `work` once, `ms` from now, unless the returned function is called before. */
  after(ms: number, work: () => void): () => void;
}

export const systemClock: Clock = {
  now: () => Date.now(),
  after(ms, work) {
    const timer = setTimeout(work, ms);
    return () => clearTimeout(timer);
  },
};
