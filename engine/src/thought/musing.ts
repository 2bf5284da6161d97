// Leaves out what a model writes for itself before it answers: some servers hand on its thoughts between marks in the text.

const begin = "<think>";
const end = "</think>";

export class Musing {
  #state: "beginning" | "musing" | "answering" = "beginning";
  #held = "";

  constructor(private readonly onText: (text: string) => void) {}

  take(piece: string): void {
    if (this.#state === "answering") return this.onText(piece);
    this.#held += piece;
    if (this.#state === "beginning") {
      const text = this.#held.trimStart();
      if (text.length < begin.length && begin.startsWith(text)) return;
      if (!text.startsWith(begin)) return this.#answer(text);
      this.#state = "musing";
      this.#held = text.slice(begin.length);
    }
    const at = this.#held.indexOf(end);
    if (at >= 0) return this.#answer(this.#held.slice(at + end.length).trimStart());
    // The mark may be cut anywhere.
    this.#held = this.#held.slice(-(end.length - 1));
  }

  /** The answer is complete: what looked like the beginning of a mark was none. */
  end(): void {
    if (this.#state === "beginning") this.#answer(this.#held.trimStart());
  }

  #answer(text: string): void {
    this.#state = "answering";
    this.#held = "";
    if (text !== "") this.onText(text);
  }
}
