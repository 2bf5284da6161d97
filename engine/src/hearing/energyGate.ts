// Tells speech by its energy alone, where no speech detector runs: whatever is loud for long enough is taken for speech.

/** Speech is louder than this, dBFS. */
const leastSpeech = -52;
/** Speech stands this far above the noise to begin, and this far to go on, dB. */
const onsetMargin = 12;
const continueMargin = 8;
/** Speech begins when so many of the last `onsetWindow` frames are loud. */
export const onsetFrames = 8;
const onsetWindow = 12;

export class EnergyGate {
  #loud: boolean[] = [];

  /** Takes the level of one frame of 10 ms, dBFS. Gives true when speech begins. */
  take(level: number, noise: number): boolean {
    this.#loud.push(level > Math.max(leastSpeech, noise + onsetMargin));
    if (this.#loud.length > onsetWindow) this.#loud.shift();
    return this.#loud.filter(Boolean).length >= onsetFrames;
  }

  /** Speech that has begun goes on with a frame of this level. */
  goesOn(level: number, noise: number): boolean {
    return level > Math.max(leastSpeech, noise + continueMargin);
  }

  rest(): void {
    if (this.#loud.length > 0) this.#loud = [];
  }
}
