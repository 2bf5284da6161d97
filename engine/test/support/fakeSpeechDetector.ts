// A speech detector that tests tell what is speech.

import type { SpeechDetector, Verdict } from "../../src/hearing/speechDetector.ts";

const windowLength = 512;

export class FakeSpeechDetector implements SpeechDetector {
  isAnswering = true;
  /** It judges at once; else when `judge` is called. */
  isPrompt = true;
  /** What sounds is speech from now on; else none of it is. */
  isSpeech = true;
  #taker: (verdict: Verdict) => void = () => {};
  #window: number[] = [];
  #from = 0;
  #verdicts: Verdict[] = [];

  take(samples: Int16Array, at: number): void {
    if (this.#window.length === 0) this.#from = at;
    for (const sample of samples) {
      this.#window.push(sample);
      if (this.#window.length < windowLength) continue;
      const isSounding = this.#window.some((value) => Math.abs(value) > 30);
      const probability = isSounding && this.isSpeech ? 0.95 : 0.02;
      this.#verdicts.push({ from: this.#from, to: this.#from + windowLength, probability });
      this.#from += windowLength;
      this.#window = [];
    }
    if (this.isPrompt) this.judge();
  }

  tell(taker: (verdict: Verdict) => void): void {
    this.#taker = taker;
  }

  judge(): void {
    if (!this.isAnswering) return;
    for (const verdict of this.#verdicts.splice(0)) this.#taker(verdict);
  }
}
