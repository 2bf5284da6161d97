// A clock that tests move.

import type { Clock } from "../../src/base/clock.ts";

export class ManualClock implements Clock {
  time = new Date(2026, 0, 5, 15, 20).getTime();
  run = "first";
  #timers: { at: number; work: () => void }[] = [];
  #wasSet = 0;

  now(): number {
    return this.time;
  }

  uptime(): number {
    return this.time - this.#wasSet;
  }

  /** Somebody sets the clock on the wall so much later; what waits is not touched. */
  set(ms: number): void {
    this.time += ms;
    this.#wasSet += ms;
    for (const timer of this.#timers) timer.at += ms;
  }

  after(ms: number, work: () => void): () => void {
    const timer = { at: this.time + ms, work };
    this.#timers.push(timer);
    return () => (this.#timers = this.#timers.filter((other) => other !== timer));
  }

  get pending(): number {
    return this.#timers.length;
  }

  /** Moves on, running what falls due in its order, and lets what was waiting go on. */
  async advance(ms: number): Promise<void> {
    const end = this.time + ms;
    await settle();
    for (;;) {
      const next = this.#timers.filter(({ at }) => at <= end).sort((a, b) => a.at - b.at)[0];
      if (!next) break;
      this.time = Math.max(this.time, next.at);
      this.#timers = this.#timers.filter((timer) => timer !== next);
      next.work();
      await settle();
    }
    this.time = end;
  }
}

/** Lets every promise that is already fulfilled be followed. */
export async function settle(): Promise<void> {
  for (let turn = 0; turn < 30; turn++) await Promise.resolve();
}
