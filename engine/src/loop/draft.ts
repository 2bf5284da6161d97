// The dictation draft: keeps what was taken down until it is carried out, cleared, or too old.

import type { Clock } from "../base/clock.ts";
import type { DraftEntry } from "../base/protocol.ts";

const mostEntries = 100;

export class Draft {
  #entries: DraftEntry[] = [];
  #cancel = (): void => {};

  constructor(
    private readonly clock: Clock,
    private readonly maxAgeMs: () => number,
    /** Entries have lapsed. */
    private readonly lapsed: () => void,
  ) {}

  get entries(): DraftEntry[] {
    return this.#entries;
  }

  get isOpen(): boolean {
    return this.#entries.length > 0;
  }

  add(text: string): void {
    const at = Math.max(this.clock.now(), (this.#entries.at(-1)?.at ?? 0) + 1);
    this.#entries = [...this.#entries, { at, text }].slice(-mostEntries);
    this.dropOld();
  }

  /** Gives everything that was taken down as one request, and empties the draft. */
  take(): string {
    const texts = this.#entries.map(({ text }) => (/[.!?…]$/.test(text) ? text : `${text}.`));
    this.clear();
    return texts.join(" ");
  }

  clear(): void {
    this.#entries = [];
    this.#cancel();
  }

  /** Drops the entries that are too old. Call it as well when the age was set anew. */
  dropOld(): void {
    this.#cancel();
    const oldest = this.clock.now() - this.maxAgeMs();
    const kept = this.#entries.filter(({ at }) => at > oldest);
    const hasLapsed = kept.length < this.#entries.length;
    this.#entries = kept;
    const first = kept[0];
    if (first) this.#cancel = this.clock.after(first.at - oldest, () => this.dropOld());
    if (hasLapsed) this.lapsed();
  }
}
