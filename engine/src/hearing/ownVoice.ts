// Which samples hold the agent's own voice: what is told of them comes later than the voice is switched.

/** Where nobody judges samples nothing is forgotten. */
const mostSwitches = 100;

export class OwnVoice {
  /** The numbers of the samples after which it began and ended, the oldest first. */
  #switches: number[] = [];
  /** It sounded before the first of them. */
  #wasSounding = false;

  get isNow(): boolean {
    return this.#wasSounding !== (this.#switches.length % 2 === 1);
  }

  /** From the sample after `at` on it sounds or is silent. */
  set(isSounding: boolean, at: number): void {
    if (isSounding !== this.isNow) this.#switches.push(at);
    if (this.#switches.length > mostSwitches) this.#switches.splice(0, 2);
  }

  /** It sounds in the sample before number `at`. */
  isAt(at: number): boolean {
    const count = this.#switches.filter((each) => each < at).length;
    return this.#wasSounding !== (count % 2 === 1);
  }

  /** Samples before number `at` are not asked about any more. */
  forget(at: number): void {
    while (this.#switches.length > 0 && this.#switches[0]! < at) {
      this.#switches.shift();
      this.#wasSounding = !this.#wasSounding;
    }
  }
}
