// Logs why the engine ended at its start, once, however often it is started again.

import { mkdirSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { dirname } from "node:path";
import type { Clock } from "./clock.ts";
import { isRecord, parseJson } from "./json.ts";
import type { Log } from "./log.ts";
import { counted, isRecent, isTold } from "./repetition.ts";

/** Counts over all starts of the engine how often the same reason has ended it at its start, or soon after. */
export class StartFailures {
  constructor(
    /** The file that holds the last failure. */
    private readonly path: string,
    private readonly log: Log,
    private readonly clock: Clock,
  ) {}

  tell(line: string): void {
    const now = this.clock.now();
    const before = this.#noted();
    const isAgain = before?.line === line && isRecent(before.at, now);
    const entry = isAgain ? { line, times: before.times + 1, at: before.at } : { line, times: 1, at: now };
    try {
      mkdirSync(dirname(this.path), { recursive: true, mode: 0o700 });
      writeFileSync(this.path, JSON.stringify(entry), { mode: 0o600 });
    } catch {
      // The reason is then logged each time.
    }
    if (isTold(entry.times)) this.log(counted(line, entry.times));
  }

  /** The last start failed, not long ago. */
  get isAgain(): boolean {
    const before = this.#noted();
    return before !== undefined && isRecent(before.at, this.clock.now());
  }

  /** Forgets the failures: this start has succeeded. */
  settle(): void {
    try {
      rmSync(this.path, { force: true });
    } catch {
      // The next failure is counted as one more, at worst.
    }
  }

  #noted(): { line: string; times: number; at: number } | undefined {
    try {
      const value = parseJson(readFileSync(this.path, "utf8"));
      if (!isRecord(value)) return undefined;
      const { line, times, at } = value;
      return typeof line === "string" && typeof times === "number" && typeof at === "number" ? { line, times, at } : undefined;
    } catch {
      return undefined;
    }
  }
}
