// How loud it is in the room: the level of each frame of 10 ms, and of the noise that is always there.

import { decibels } from "../sound/loudness.ts";

/** The noise is never taken to be lower than this, dBFS: no microphone is quieter. */
const leastNoise = -72;
/** The noise is the softest tenth of a second of the last five seconds. */
const noiseBlockFrames = 10;
const noiseBlocks = 50;

export class Room {
  /** The noise of the room, dBFS. */
  noise = leastNoise;

  #offset = 0;
  #block: number[] = [];
  #minima: number[] = [];

  /** Gives the mean square of a frame as a level, dBFS, without the constant offset that some microphones add. */
  measure(frame: Int16Array): number {
    let sum = 0;
    let squares = 0;
    for (const sample of frame) {
      sum += sample;
      squares += sample * sample;
    }
    this.#offset += 0.1 * (sum / frame.length - this.#offset);
    const meanSquare = squares / frame.length - (2 * this.#offset * sum) / frame.length + this.#offset ** 2;
    const level = decibels(Math.max(0, meanSquare) / 32768 ** 2);
    this.#learnNoise(level);
    return level;
  }

  #learnNoise(level: number): void {
    this.#block.push(10 ** (level / 10));
    if (this.#block.length < noiseBlockFrames) return;
    this.#minima.push(decibels(this.#block.reduce((sum, power) => sum + power, 0) / this.#block.length));
    if (this.#minima.length > noiseBlocks) this.#minima.shift();
    this.#block = [];
    this.noise = Math.max(leastNoise, Math.min(...this.#minima));
  }
}
