// The time as the engine sees it. Tests replace it with a clock that they move.

import { uptime } from "node:os";

export interface Clock {
  /** Milliseconds since the Unix epoch. Somebody may set it. */
  now(): number;
  /** Milliseconds since the machine started, to a second: they go on while it sleeps, and nobody sets them. */
  uptime(): number;
  /** Runs `work` once, `ms` from now; the returned function cancels it. */
  after(ms: number, work: () => void): () => void;
}

export const systemClock: Clock = {
  now: () => Date.now(),
  uptime: () => uptime() * 1_000,
  after(ms, work) {
    const timer = setTimeout(work, ms);
    return () => clearTimeout(timer);
  },
};
