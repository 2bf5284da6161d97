// Timers, alarms and reminders: kept over restarts until they were stopped, and on time over a machine that slept. What was set
// for a while is due after it, also when somebody sets the clock meanwhile; what was set for a time of day, when the clock says it.

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
  /** It is due after a while, and not when the clock says a time. After a restart of the machine the clock is all there is. */
  isElapsing?: boolean;
  /** A timer's name, or what a reminder is about. */
  name?: string;
}

/** Which timers are meant: all that every part fits. */
export interface Which {
  kind?: Kind | undefined;
  name?: string | undefined;
  seconds?: number | undefined;
  at?: number | undefined;
  /** The times of a local day, "07:00", at one of which it rings. */
  times?: readonly string[] | undefined;
  /** The local day on which it rings. */
  day?: Date | undefined;
}

/** Where the timers are kept: one text. */
export interface Shelf {
  load(): string | undefined;
  save(text: string): void;
}

interface Times {
  now: number;
  uptime: number;
}

export const mostTimers = 100;
/** The clock is looked at this often: it goes on while the machine sleeps, and may be set, where a timer of the system does not. */
const lookMs = 5_000;
/** The time since the machine started is known to a second: a clock that differs by more was set. */
const leastSetMs = 2_000;

export class Timers {
  #all: Timer[];
  #ringing: Timer[] = [];
  #cancel = (): void => {};
  #seen: Times;

  /** Called when one rings; it is then among those that ring until it is stopped or snoozed. */
  onRing: (timer: Timer) => void = () => {};
  /** Called when one that rings has been stopped or snoozed. */
  onStopped: (timer: Timer) => void = () => {};

  constructor(
    private readonly clock: Clock,
    private readonly shelf: Shelf,
  ) {
    this.#seen = this.#times();
    this.#all = read(shelf.load(), this.#seen, clock.run);
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
    if (this.#all.length + this.#ringing.length >= mostTimers) return undefined;
    return this.#add({ kind, at, ...more, isElapsing: more.seconds !== undefined });
  }

  /** Sets one that is still to ring to another time; by the clock, unless it has a length. */
  move(timer: Timer, to: { at: number; seconds?: number }): Timer {
    this.#followClock();
    const { id, kind, name } = timer;
    const moved: Timer = { id, kind, ...to, isElapsing: to.seconds !== undefined, ...(name === undefined ? {} : { name }) };
    this.#keep([...this.#all.filter((each) => each.id !== id), moved]);
    return moved;
  }

  find(which: Which, among: readonly Timer[] = this.#all): Timer[] {
    const words = which.name === undefined ? [] : plainWords(which.name);
    return among.filter(
      (timer) =>
        (which.kind === undefined || timer.kind === which.kind) &&
        (which.seconds === undefined || timer.seconds === which.seconds) &&
        (which.at === undefined || timer.at === which.at) &&
        (which.times === undefined || which.times.includes(new Date(timer.at).toTimeString().slice(0, 5))) &&
        (which.day === undefined || new Date(timer.at).toDateString() === which.day.toDateString()) &&
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
    const again = snoozed.map((timer) => this.#add({ ...timer, at, isElapsing: true }));
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

  #add(wanted: Omit<Timer, "id">): Timer {
    // The new one is set by the clock as it is now.
    this.#followClock();
    const id = Math.max(0, ...[...this.#all, ...this.#ringing].map((timer) => timer.id)) + 1;
    const timer: Timer = { ...wanted, id };
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
    const { now, uptime } = this.#seen;
    const { run } = this.clock;
    const kept = [...this.#ringing, ...this.#all].map(({ isElapsing, ...timer }) =>
      isElapsing ? { ...timer, due: { run, uptime: timer.at - now + uptime } } : timer,
    );
    this.shelf.save(JSON.stringify(kept));
  }

  #watch(): void {
    this.#cancel();
    this.#followClock();
    const now = this.clock.now();
    const due = this.#all.filter(({ at }) => at <= now);
    this.#all = this.#all.filter(({ at }) => at > now);
    this.#ringing = [...this.#ringing, ...due];
    for (const timer of due) this.onRing(timer);
    const next = this.#all[0];
    this.#cancel = next ? this.clock.after(Math.min(Math.max(next.at - now, 1), lookMs), () => this.#watch()) : () => {};
  }

  /** Moves what was set for a while along with a clock that was set. */
  #followClock(): void {
    const [before, times] = [this.#seen, this.#times()];
    this.#seen = times;
    const setBy = times.now - before.now - (times.uptime - before.uptime);
    if (Math.abs(setBy) < leastSetMs) return;
    for (const timer of this.#all) if (timer.isElapsing) timer.at += setBy;
    this.#all.sort((a, b) => a.at - b.at);
    this.#save();
  }

  #times(): Times {
    return { now: this.clock.now(), uptime: this.clock.uptime() };
  }
}

/** Leaves out what is no timer: the file may have been written by anybody. */
function read(text: string | undefined, times: Times, run: string): Timer[] {
  const value = parseJson(text ?? "[]");
  if (!Array.isArray(value)) return [];
  const timers = value.slice(0, mostTimers).flatMap((entry: unknown, index): Timer[] => {
    if (!isRecord(entry) || typeof entry.at !== "number" || !Number.isFinite(entry.at)) return [];
    const kind = (["timer", "alarm", "reminder"] as const).find((each) => each === entry.kind);
    if (!kind) return [];
    const seconds = typeof entry.seconds === "number" ? { seconds: entry.seconds } : {};
    const name = typeof entry.name === "string" ? { name: entry.name } : {};
    return [{ id: index + 1, kind, ...dueOf(entry.at, entry.due, times, run), ...seconds, ...name }];
  });
  return timers.sort((a, b) => a.at - b.at);
}

/** The clock may have been set while the engine was away. */
function dueOf(at: number, due: unknown, { now, uptime }: Times, run: string): Pick<Timer, "at" | "isElapsing"> {
  if (!isRecord(due) || run === "" || due.run !== run || typeof due.uptime !== "number" || !Number.isFinite(due.uptime)) return { at };
  const elapsed = now + due.uptime - uptime;
  return { at: Math.abs(elapsed - at) < leastSetMs ? at : elapsed, isElapsing: true };
}
