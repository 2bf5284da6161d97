// Cuts a stream of server-sent events, which comes in pieces cut anywhere, into their data.
// The format is that of the HTML standard (WHATWG), "Server-sent events", "Parsing an event stream".

import { LineReader } from "../machine/lineReader.ts";

/** The longest event that is held, in characters. */
const longestEvent = 1 << 20;

export class EventReader {
  #data: string[] = [];
  #length = 0;
  #isTooLong = false;
  readonly #lines: LineReader;

  constructor(
    private readonly onData: (data: string) => void,
    /** An event was too long, and is skipped. */
    private readonly onTooLong: () => void,
    longest = longestEvent,
  ) {
    this.#lines = new LineReader((line) => this.#line(line.replace(/\r$/, ""), longest), longest, () => this.#tooLong());
  }

  take(piece: Uint8Array): void {
    this.#lines.take(piece);
  }

  /** Takes what came last for an event, though the empty line after it is missing: some servers leave it out. */
  end(): void {
    this.#lines.end();
    this.#dispatch();
  }

  #line(line: string, longest: number): void {
    if (line === "") return this.#dispatch();
    // Some servers write the error that ends an answer under a name of its own instead of in the data, or bare.
    const [, name, value = ""] = line.startsWith("{") ? ["", "data", line] : (/^(data|error):(?: ?)([^]*)$/.exec(line) ?? []);
    if (name === undefined) return;
    this.#length += value.length;
    if (this.#length > longest) return this.#tooLong();
    this.#data.push(name === "error" ? `{"error":${value}}` : value);
  }

  #tooLong(): void {
    this.#data = [];
    if (!this.#isTooLong) this.onTooLong();
    this.#isTooLong = true;
  }

  #dispatch(): void {
    const data = this.#data.join("\n");
    const isEvent = this.#data.length > 0 && !this.#isTooLong;
    this.#data = [];
    this.#length = 0;
    this.#isTooLong = false;
    if (isEvent) this.onData(data);
  }
}
