// To when one that is still to ring is moved: to a time, to so long from now, or by so much.

import { isGiven, numberIn, textsIn, timeIn } from "../given.ts";
import type { Timer } from "./timers.ts";

/** `times`: those of a day, "07:00", one of which is meant, where no day was said. Lengths are in seconds; `by` is negative for an earlier time. */
export type Change = { to: number; times: readonly string[] } | { length: number } | { by: number };

/** Undefined unless it says one of them. */
export function changeIn(given: unknown, longestSeconds: number): Change | undefined {
  const keys = ["to", "length", "by"].filter((key) => isGiven(given, key));
  if (keys.length !== 1) return undefined;
  const to = timeIn(given, "to")?.getTime();
  if (to !== undefined) return { to, times: textsIn(given, "toTimes", 2) };
  const length = numberIn(given, "length", 1, longestSeconds);
  if (length !== undefined) return { length: Math.round(length) };
  const by = numberIn(given, "by", -longestSeconds, longestSeconds);
  return by === undefined || Math.round(by) === 0 ? undefined : { by: Math.round(by) };
}

/** When it rings then, in milliseconds since the Unix epoch, and after which length, in seconds. */
export function changed(timer: Timer, change: Change, now: number): { at: number; seconds?: number } {
  if ("length" in change) return { at: now + change.length * 1_000, seconds: change.length };
  if ("by" in change) {
    const seconds = timer.seconds === undefined ? {} : { seconds: Math.max(1, timer.seconds + change.by) };
    return { at: timer.at + change.by * 1_000, ...seconds };
  }
  // "Move my alarm to eight" is said of its own day, and of the half of it in which it rings.
  const [nearest] = change.times
    .map((time) => onDayOf(timer, time))
    .filter((at) => at > now)
    .sort((a, b) => Math.abs(a - timer.at) - Math.abs(b - timer.at));
  return { at: nearest ?? change.to };
}

function onDayOf({ at }: Timer, time: string): number {
  const [hour = NaN, minute = NaN] = time.split(":").map(Number);
  return new Date(at).setHours(hour, minute, 0, 0);
}
