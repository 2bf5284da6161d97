// The time as the engine sees it. Tests replace it with a clock that they move.

import { readFileSync } from "node:fs";
import { uptime } from "node:os";

export interface Clock {
  /** Milliseconds since the Unix epoch. Somebody may set it. */
  now(): number;
  /** Milliseconds since the machine started, to a second: they go on while it sleeps, and nobody sets them. */
  uptime(): number;
  /** Names this run of the machine, since its start; "" where the system does not tell. */
  readonly run: string;
  /** Runs `work` once, `ms` from now; the returned function cancels it. */
  after(ms: number, work: () => void): () => void;
}

function runOfMachine(): string {
  try {
    return readFileSync("/proc/sys/kernel/random/boot_id", "utf8").trim();
  } catch {
    return "";
  }
}

export const systemClock: Clock = {
  now: () => Date.now(),
  uptime: () => uptime() * 1_000,
  run: runOfMachine(),
  after(ms, work) {
    const timer = setTimeout(work, ms);
    return () => clearTimeout(timer);
  },
};
