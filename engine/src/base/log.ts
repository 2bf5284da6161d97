// The engine's log, which is its standard error: the application's own file. It may be on a full disk, and it must not
// grow without end when something fails again and again.

import { mkdirSync, readFileSync, rmSync, writeFileSync, writeSync } from "node:fs";
import { dirname } from "node:path";
import type { Clock } from "./clock.ts";
import { isRecord, parseJson } from "./protocol.ts";

/** Appends one line to the log. */
export type Log = (line: string) => void;

const standardError = 2;
/** A line that is said again after so long is news again. */
const newsAgainMs = 3_600_000;
const minuteMs = 60_000;
const mostLinesAMinute = 100;
const mostRemembered = 50;

/** What cannot be written is dropped: the engine goes on without a log. */
export const standardErrorLog: Log = (line) => {
  try {
    writeSync(standardError, `motor: ${line}\n`);
  } catch {
    // There is nobody to tell.
  }
};

/** A log in which the same line over and over is counted, and which takes so many lines a minute. */
export function bounded(log: Log, clock: Clock): Log {
  const said = new Map<string, { times: number; at: number }>();
  let minute = { at: -Infinity, lines: 0 };
  return (line) => {
    const now = clock.now();
    const before = said.get(line);
    const isAgain = before !== undefined && isRecent(before.at, now);
    const entry = isAgain ? { times: before.times + 1, at: before.at } : { times: 1, at: now };
    said.delete(line);
    said.set(line, entry);
    if (said.size > mostRemembered) said.delete(said.keys().next().value ?? "");
    if (!isTold(entry.times)) return;
    if (now - minute.at >= minuteMs || now < minute.at) {
      if (minute.lines > mostLinesAMinute) log(`mais ${minute.lines - mostLinesAMinute} linhas ficaram de fora`);
      minute = { at: now, lines: 0 };
    }
    if (++minute.lines <= mostLinesAMinute) log(counted(line, entry.times));
  };
}

/** Tells why the engine ends at its start, or soon after; it is started again and again, and what ends it is counted. */
export class StartFailures {
  constructor(
    /** Where the last one is noted. */
    readonly path: string,
    readonly log: Log,
    readonly clock: Clock,
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
      // Then it is told each time.
    }
    if (isTold(entry.times)) this.log(counted(line, entry.times));
  }

  /** Whether it ended lately for a reason that was told. */
  get isAgain(): boolean {
    const before = this.#noted();
    return before !== undefined && isRecent(before.at, this.clock.now());
  }

  /** It has started, and has not ended at once. */
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

function isRecent(at: number, now: number): boolean {
  return Math.abs(now - at) < newsAgainMs;
}

/** The first, the tenth, the hundredth and so on. */
function isTold(times: number): boolean {
  return /^10*$/.test(String(times));
}

function counted(line: string, times: number): string {
  return times === 1 ? line : `${line} (${times} vezes)`;
}
