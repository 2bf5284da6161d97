// Timers, alarms and reminders: kept over restarts until they were stopped, and on time over a machine that slept.

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

  /** Called when one rings; it is then among those that ring until it is stopped or snoozed. */
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
    // Those that ring count, too: there is always room to snooze them.
    return this.#all.length + this.#ringing.length < mostTimers ? this.#add(kind, at, more) : undefined;
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
    if (stopped.length === 0) return;
    this.#ringing = this.#ringing.filter((timer) => !stopped.includes(timer));
    this.#save();
    for (const timer of stopped) this.onStopped(timer);
  }

  /** Sets those that ring again, so many seconds from now, and gives them. */
  snooze(seconds: number, timers: readonly Timer[] = this.#ringing): Timer[] {
    const snoozed = this.#ringing.filter((timer) => timers.includes(timer));
    const at = this.clock.now() + seconds * 1_000;
    const again = snoozed.map(({ kind, name }) => this.#add(kind, at, name === undefined ? {} : { name }));
    this.stop(snoozed);
    return again;
  }

  /** Writes them again, after the store was replaced. */
  saveAgain(): void {
    if (this.#all.length + this.#ringing.length > 0) this.#save();
  }

  close(): void {
    this.#cancel();
  }

  #add(kind: Kind, at: number, more: { seconds?: number; name?: string }): Timer {
    const id = Math.max(0, ...[...this.#all, ...this.#ringing].map((timer) => timer.id)) + 1;
    const timer: Timer = { id, kind, at, ...more };
    this.#keep([...this.#all, timer]);
    return timer;
  }

  #keep(timers: Timer[]): void {
    this.#all = timers.sort((a, b) => a.at - b.at);
    this.#save();
    this.#watch();
  }

  /** What rings is kept, too: an engine that ends in the middle of it goes on when it is back. */
  #save(): void {
    this.shelf.save(JSON.stringify([...this.#ringing, ...this.#all]));
  }

  #watch(): void {
    this.#cancel();
    const now = this.clock.now();
    const due = this.#all.filter(({ at }) => at <= now);
    this.#all = this.#all.filter(({ at }) => at > now);
    this.#ringing = [...this.#ringing, ...due];
    for (const timer of due) this.onRing(timer);
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
