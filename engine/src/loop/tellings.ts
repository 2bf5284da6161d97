// What the agent says without being asked: it waits until nobody speaks and nothing is being answered, and begins with a chime.

import type { Clock } from "../base/clock.ts";

export interface TellingPorts {
  clock: Clock;
  /** Nobody speaks, and nothing is being answered. */
  isQuiet(): boolean;
  isMuted(): boolean;
  chime(): void;
  say(sentences: string): void;
}

/** It is looked so often whether it is quiet. */
const lookMs = 250;
/** The chime is over by then. */
const chimeMs = 400;
/** Nobody wants to hear more than this; the oldest are left out. */
const most = 10;

export class Tellings {
  #waiting: string[] = [];
  #hasChimed = false;
  #cancel = (): void => {};

  constructor(private readonly ports: TellingPorts) {}

  add(sentence: string): void {
    this.#waiting = [...this.#waiting.filter((other) => other !== sentence), sentence].slice(-most);
    if (!this.#hasChimed) this.#look();
  }

  /** The user wants silence: what waits is not said. */
  clear(): void {
    this.#cancel();
    this.#waiting = [];
    this.#hasChimed = false;
  }

  #look(): void {
    this.#cancel();
    const { clock, isQuiet, isMuted, chime, say } = this.ports;
    if (isMuted()) return this.clear();
    if (!isQuiet()) {
      this.#cancel = clock.after(lookMs, () => this.#look());
    } else if (!this.#hasChimed) {
      this.#hasChimed = true;
      chime();
      this.#cancel = clock.after(chimeMs, () => this.#look());
    } else {
      const sentences = this.#waiting.join(" ");
      this.clear();
      say(sentences);
    }
  }
}
