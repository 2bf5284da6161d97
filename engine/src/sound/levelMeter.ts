// Sends live levels to the front end's meters: seldom, rounded, and only while they change.

import type { Clock } from "../base/clock.ts";

const intervalMs = 50;
const step = 0.02;

export class LevelMeter {
  #sent = 0;
  #sentAt = -Infinity;
  #highest = 0;

  constructor(
    private readonly clock: Clock,
    private readonly send: (level: number) => void,
  ) {}

  /** Takes a level from 0 to 1. Of levels that come faster than the meter sends, it sends the highest. */
  show(level: number): void {
    this.#highest = Math.max(this.#highest, level);
    const now = this.clock.now();
    if (now - this.#sentAt < intervalMs) return;
    this.#put(Math.round(this.#highest / step) * step, now);
    this.#highest = 0;
  }

  /** Falls to zero at once: nothing is to be heard any more. */
  clear(): void {
    this.#highest = 0;
    this.#put(0, this.clock.now());
  }

  #put(level: number, now: number): void {
    if (Math.abs(level - this.#sent) < step / 2) return;
    this.#sent = level;
    this.#sentAt = now;
    this.send(Number(level.toFixed(2)));
  }
}
