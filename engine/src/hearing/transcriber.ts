// Has speech recognised, one piece after another. Speech that may be over is recognised already, and dropped when it goes
// on; so the text of a whole utterance is mostly there when the utterance ends.

import type { Recogniser, Recognition } from "../recognition/recogniser.ts";

interface Work {
  found: Promise<Recognition>;
  abort: AbortController;
}

export class Transcriber {
  #ahead: Work | undefined;
  #partial: Work | undefined;
  /** Utterances that have ended. */
  readonly #ended = new Set<Work>();
  #line: Promise<unknown> = Promise.resolve();

  constructor(private readonly recogniser: Recogniser) {}

  /** The utterances that have ended and were not told yet. */
  get waiting(): number {
    return this.#ended.size;
  }

  /** Somebody speaks: something will have to be recognised soon. */
  prepare(): void {
    this.recogniser.prepare();
  }

  /** Begins with speech that may be over. */
  begin(samples: Int16Array): void {
    this.drop();
    this.#ahead = this.#work(samples);
  }

  /** Drops speech that was not over, and the words of its beginning. */
  drop(): void {
    this.#ahead?.abort.abort();
    this.#partial?.abort.abort();
    this.#ahead = undefined;
    this.#partial = undefined;
  }

  /** Recognises the beginning of speech that goes on, unless something else is to be done. */
  async glimpse(samples: Int16Array): Promise<string | undefined> {
    if (this.#ahead || this.#partial || this.waiting > 0) return undefined;
    const work = this.#work(samples, true);
    this.#partial = work;
    const found = await work.found;
    if (this.#partial === work) this.#partial = undefined;
    return found.kind === "text" && found.isUnderstood && !work.abort.signal.aborted ? found.text : undefined;
  }

  /** Recognises an utterance that is over, and tells what was found unless it is abandoned. */
  async finish(samples: Int16Array, tell: (found: Recognition) => void): Promise<void> {
    const ahead = this.#ahead;
    if (ahead === undefined) this.drop();
    const work = ahead ?? this.#work(samples);
    this.#ahead = undefined;
    this.#ended.add(work);
    const found = await work.found;
    if (!work.abort.signal.aborted) tell(found);
    this.#ended.delete(work);
  }

  abandon(): void {
    this.drop();
    for (const { abort } of this.#ended) abort.abort();
  }

  /** Recognisers work on one utterance at a time. One that is stopped gives way at once. */
  #work(samples: Int16Array, isPartial = false): Work {
    const abort = new AbortController();
    const found = this.#line.then(() => this.recogniser.recognise(samples, abort.signal, { isPartial }));
    this.#line = found;
    return { found, abort };
  }
}
