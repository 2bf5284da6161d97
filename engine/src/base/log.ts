// The engine's log: its standard error, which the application writes to a file. The disk may be full, and the file must
// not grow without end when something fails again and again.

import { writeSync } from "node:fs";
import type { Clock } from "./clock.ts";
import { counted, isRecent, isTold } from "./repetition.ts";

/** Appends one line to the log. */
export type Log = (line: string) => void;

const standardError = 2;
const minuteMs = 60_000;
const mostLinesAMinute = 100;
const mostRemembered = 50;

/** Drops what cannot be written: the engine goes on without a log. */
export const standardErrorLog: Log = (line) => {
  try {
    writeSync(standardError, `motor: ${line}\n`);
  } catch {
    // There is no other place to say so.
  }
};

/** Counts a line that is repeated instead of writing it each time, and limits the lines of a minute. */
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
