// The words of somebody who still speaks, as they come. They cost time on top of the recognition that counts: no more than
// a fifth of it is spent on them, and they give way to it.

import type { Clock } from "../base/clock.ts";

/** The first words are worth showing after this time, and new ones no sooner than this after the last. */
const firstMs = 1_000;
const leastPauseMs = 600;
/** The pause after a caption, by the time that it took. */
const pauses = 4;

export class Captions {
  #isOn = false;
  #cancel = (): void => {};

  constructor(
    private readonly clock: Clock,
    /** Recognises what was said so far; undefined when that is not possible now. */
    private readonly recognise: () => Promise<string | undefined>,
    private readonly show: (text: string) => void,
  ) {}

  start(): void {
    this.stop();
    this.#isOn = true;
    this.#after(firstMs);
  }

  stop(): void {
    this.#isOn = false;
    this.#cancel();
  }

  #after(ms: number): void {
    this.#cancel = this.clock.after(ms, () => void this.#look());
  }

  async #look(): Promise<void> {
    const begun = this.clock.now();
    const cancel = this.#cancel;
    const text = await this.recognise();
    // It was stopped meanwhile, or began anew.
    if (!this.#isOn || cancel !== this.#cancel) return;
    if (text) this.show(text);
    this.#after(Math.max(leastPauseMs, pauses * (this.clock.now() - begun)));
  }
}
