// Timers, alarms and reminders: kept over restarts, and on time over a machine that slept.

import type { Clock } from "../../base/clock.ts";
import { isRecord, parseJson } from "../../base/json.ts";
import { plainWords } from "../../base/words.ts";

export type Kind = "timer" | "alarm" | "reminder";

export interface Timer {
  id: number;
  kind: Kind;
  /** When it rings, in milliseconds since the Unix epoch. */
  at: number;
  /** The length for which it was set, in seconds; none for one that was set for a time of day. */
  seconds?: number;
  /** A timer's name, or what a reminder is about. */
  name?: string;
}

/** Which timers are meant: all that every part fits. */
export interface Which {
  kind?: Kind | undefined;
  name?: string | undefined;
  seconds?: number | undefined;
  at?: number | undefined;
}

/** Where the timers are kept: one text. */
export interface Shelf {
  load(): string | undefined;
  save(text: string): void;
}

export const mostTimers = 100;
/** The clock is looked at this often: it goes on while the machine sleeps, and may be set, where a timer of the system does not. */
const lookMs = 5_000;

export class Timers {
  #all: Timer[];
  #ringing: Timer[] = [];
  #cancel = (): void => {};

  /** Called when one rings; it is then among those that ring until it is stopped, snoozed or released. */
  onRing: (timer: Timer) => void = () => {};
  /** Called when one that rings has been stopped or snoozed. */
  onStopped: (timer: Timer) => void = () => {};

  constructor(
    private readonly clock: Clock,
    private readonly shelf: Shelf,
  ) {
    this.#all = read(shelf.load());
  }

  /** Begins to watch the time: what fell due before rings now. */
  start(): void {
    this.#watch();
  }

  /** What is still to ring, the next first. */
  get pending(): readonly Timer[] {
    return this.#all;
  }

  get ringing(): readonly Timer[] {
    return this.#ringing;
  }

  /** Gives undefined when there are too many. */
  set(kind: Kind, at: number, more: { seconds?: number; name?: string }): Timer | undefined {
    if (this.#all.length >= mostTimers) return undefined;
    const id = Math.max(0, ...this.#all.map((timer) => timer.id), ...this.#ringing.map((timer) => timer.id)) + 1;
    const timer: Timer = { id, kind, at, ...more };
    this.#keep([...this.#all, timer]);
    return timer;
  }

  find(which: Which, among: readonly Timer[] = this.#all): Timer[] {
    const words = which.name === undefined ? [] : plainWords(which.name);
    return among.filter(
      (timer) =>
        (which.kind === undefined || timer.kind === which.kind) &&
        (which.seconds === undefined || timer.seconds === which.seconds) &&
        (which.at === undefined || timer.at === which.at) &&
        words.every((word) => plainWords(timer.name ?? "").includes(word)),
    );
  }

  remove(timers: readonly Timer[]): void {
    this.#keep(this.#all.filter((timer) => !timers.includes(timer)));
    this.stop(timers);
  }

  /** Stops those that ring: all, or these. */
  stop(timers: readonly Timer[] = this.#ringing): void {
    const stopped = this.#ringing.filter((timer) => timers.includes(timer));
    this.#ringing = this.#ringing.filter((timer) => !stopped.includes(timer));
    for (const timer of stopped) this.onStopped(timer);
  }

  /** Sets those that ring again, so many seconds from now, and gives them. */
  snooze(seconds: number, timers: readonly Timer[] = this.#ringing): Timer[] {
    const snoozed = this.#ringing.filter((timer) => timers.includes(timer));
    this.stop(snoozed);
    const at = this.clock.now() + seconds * 1_000;
    return snoozed.flatMap(({ kind, name }) => this.set(kind, at, name === undefined ? {} : { name }) ?? []);
  }

  /** Writes them again, after the store was replaced. */
  saveAgain(): void {
    if (this.#all.length > 0) this.#save();
  }

  close(): void {
    this.#cancel();
  }

  #keep(timers: Timer[]): void {
    this.#all = timers.sort((a, b) => a.at - b.at);
    this.#save();
    this.#watch();
  }

  #save(): void {
    this.shelf.save(JSON.stringify(this.#all));
  }

  #watch(): void {
    this.#cancel();
    const now = this.clock.now();
    const due = this.#all.filter(({ at }) => at <= now);
    if (due.length > 0) {
      this.#all = this.#all.filter(({ at }) => at > now);
      this.#ringing = [...this.#ringing, ...due];
      // What has rung does not ring again after a crash.
      this.#save();
      for (const timer of due) this.onRing(timer);
    }
    const next = this.#all[0];
    this.#cancel = next ? this.clock.after(Math.min(Math.max(next.at - now, 1), lookMs), () => this.#watch()) : () => {};
  }
}

/** Leaves out what is no timer: the file may have been written by anybody. */
function read(text: string | undefined): Timer[] {
  const value = parseJson(text ?? "[]");
  if (!Array.isArray(value)) return [];
  const timers = value.slice(0, mostTimers).flatMap((entry: unknown, index): Timer[] => {
    if (!isRecord(entry) || typeof entry.at !== "number" || !Number.isFinite(entry.at)) return [];
    const kind = (["timer", "alarm", "reminder"] as const).find((each) => each === entry.kind);
    if (!kind) return [];
    const seconds = typeof entry.seconds === "number" ? { seconds: entry.seconds } : {};
    return [{ id: index + 1, kind, at: entry.at, ...seconds, ...(typeof entry.name === "string" ? { name: entry.name } : {}) }];
  });
  return timers.sort((a, b) => a.at - b.at);
}
