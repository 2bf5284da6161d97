// Cuts a program's output, which comes in pieces, into lines.

/** Skips a longer line. */
const longestLine = 4 << 20;

/** Holds no more than one line of bounded length. */
export class LineReader {
  #decoder = new TextDecoder();
  #rest = "";
  #isSkipping = false;

  constructor(
    private readonly onLine: (line: string) => void,
    private readonly longest = longestLine,
    /** A line was too long, and is skipped. */
    private readonly onTooLong = (): void => {},
  ) {}

  take(piece: Uint8Array): void {
    const lines = this.#decoder.decode(piece, { stream: true }).split("\n");
    const last = lines.pop() ?? "";
    for (const line of lines) {
      const whole = this.#rest + line;
      this.#rest = "";
      if (!this.#isSkipping) this.onLine(whole);
      this.#isSkipping = false;
    }
    this.#rest += last;
    if (this.#rest.length > this.longest) {
      this.#rest = "";
      if (!this.#isSkipping) this.onTooLong();
      this.#isSkipping = true;
    }
  }

  end(): void {
    if (this.#rest !== "" && !this.#isSkipping) this.onLine(this.#rest);
    this.#rest = "";
  }
}
