// The speech detector, which runs in a companion: its model and its runtime are kept out of the engine's own process.

import { fileURLToPath } from "node:url";
import type { Clock } from "../base/clock.ts";
import type { Log } from "../base/log.ts";
import type { Children } from "../machine/children.ts";
import { Companion } from "../machine/companion.ts";
import type { Head } from "../machine/frames.ts";
import type { SpeechDetector, Verdict } from "./speechDetector.ts";

const script = fileURLToPath(new URL("listenerChild.ts", import.meta.url));
const startMs = 30_000;
/** A microphone that is away or muted for this long needs no listener. */
const idleMs = 60_000;
/** The model judges windows of so many samples. */
const windowLength = 512;
/** Samples that may wait while nothing is to be heard: each message costs two processes their sleep. */
const mostWaiting = 4 * windowLength;
/** Verdicts that take longer than this are too late to be waited for. */
const lateMs = 1_000;
/** It has hung when it has not read so many bytes of samples, ten seconds. */
const mostUnread = 320_000;

/** The C library raises this by itself when something large is freed, and keeps what is smaller: 5 MB of what loading the
 * model took, for as long as the listener runs. */
const allocation = { MALLOC_MMAP_THRESHOLD_: "65536" };

export class Listener implements SpeechDetector {
  readonly #companion: Companion;
  #taker: (verdict: Verdict) => void = () => {};
  #waiting = new Int16Array(mostWaiting);
  #count = 0;
  /** The number of the first sample that waits. */
  #at = 0;
  /** Samples since the last window was complete. */
  #filled = 0;
  #hasAnswered = false;
  /** What it was given and has not answered: up to where, and since when. */
  #given: { to: number; since: number }[] = [];
  #isLate = false;
  #cancelLate = (): void => {};

  constructor(
    children: Children,
    private readonly clock: Clock,
    log: Log,
    /** The paths of the runtime and of the model. */
    files: { runtime: string; model: string },
  ) {
    this.#companion = new Companion(children, clock, log, {
      name: "o detector de fala",
      script,
      arguments: [files.runtime, files.model],
      environment: allocation,
      startMs,
      idleMs,
      mostWaiting: mostUnread,
      told: (message) => this.#hear(message),
      changed: (isRunning) => {
        if (isRunning) return;
        this.#hasAnswered = false;
        this.#given = [];
        this.#filled = 0;
        this.#awaitAnswer();
      },
    });
  }

  get isAnswering(): boolean {
    return this.#hasAnswered && !this.#isLate;
  }

  tell(taker: (verdict: Verdict) => void): void {
    this.#taker = taker;
  }

  take(samples: Int16Array, at: number, isUrgent: boolean): void {
    if (this.#companion.isDown) return;
    if (at !== this.#at + this.#count) {
      this.#at = at;
      this.#count = 0;
      this.#filled = 0;
    }
    for (let from = 0; from < samples.length; ) {
      const part = samples.subarray(from, from + mostWaiting - this.#count);
      this.#waiting.set(part, this.#count);
      this.#count += part.length;
      from += part.length;
      if (this.#count === mostWaiting) this.#give();
    }
    if (isUrgent && this.#filled + this.#count >= windowLength) this.#give();
  }

  #give(): void {
    const samples = this.#waiting.subarray(0, this.#count);
    const to = this.#at + this.#count;
    this.#given.push({ to, since: this.clock.now() });
    if (this.#given.length === 1) this.#awaitAnswer();
    const isGiven = this.#companion.tell({ at: this.#at }, new Uint8Array(samples.buffer, 0, samples.byteLength));
    if (!isGiven) {
      this.#given = [];
      this.#awaitAnswer();
    }
    this.#filled = (this.#filled + this.#count) % windowLength;
    this.#at = to;
    this.#count = 0;
  }

  #hear({ from, to, p }: Head): void {
    if (typeof from !== "number" || typeof to !== "number" || !Array.isArray(p)) return;
    this.#hasAnswered = true;
    this.#given = this.#given.filter((part) => part.to > to);
    this.#awaitAnswer();
    p.forEach((probability: unknown, index) => {
      const begin = from + index * windowLength;
      if (typeof probability === "number") this.#taker({ from: begin, to: begin + windowLength, probability });
    });
  }

  /** Notices when what was given first is not answered in time. */
  #awaitAnswer(): void {
    this.#cancelLate();
    this.#isLate = false;
    const [oldest] = this.#given;
    if (oldest === undefined) return;
    const leftMs = Math.max(0, oldest.since + lateMs - this.clock.now());
    // Where the engine itself was held up the answer may be there, and is read before the second look.
    this.#cancelLate = this.clock.after(leftMs, () => {
      this.#cancelLate = this.clock.after(0, () => (this.#isLate = true));
    });
  }
}
