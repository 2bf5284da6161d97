// The latest samples of a stream, each by its number since the beginning.

export class SampleRing {
  readonly #samples: Int16Array;
  #end = 0;

  constructor(length: number) {
    this.#samples = new Int16Array(length);
  }

  /** The number of the sample that comes next. */
  get end(): number {
    return this.#end;
  }

  /** Takes no more samples at once than it can hold. */
  add(samples: Int16Array): void {
    const at = this.#end % this.#samples.length;
    const first = samples.subarray(0, this.#samples.length - at);
    this.#samples.set(first, at);
    this.#samples.set(samples.subarray(first.length));
    this.#end += samples.length;
  }

  /** Gives these samples, without those that are held no longer or not yet. */
  slice(from: number, to: number): Int16Array {
    const length = this.#samples.length;
    const begin = Math.max(from, this.#end - length, 0);
    const result = new Int16Array(Math.max(0, Math.min(to, this.#end) - begin));
    const at = begin % length;
    const first = this.#samples.subarray(at, at + result.length);
    result.set(first);
    result.set(this.#samples.subarray(0, result.length - first.length), first.length);
    return result;
  }
}
