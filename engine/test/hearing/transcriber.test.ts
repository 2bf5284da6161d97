import { describe, expect, test } from "bun:test";
import { Transcriber } from "../../src/hearing/transcriber.ts";
import type { RecogniseOptions, Recogniser, Recognition } from "../../src/recognition/recogniser.ts";
import { settle } from "../support/clock.ts";

const samples = (length: number): Int16Array => new Int16Array(length);
const text = (words: string): Recognition => ({ kind: "text", text: words, isUnderstood: true });

/** Answers when it is released, or at once when it is stopped. */
class SlowRecogniser implements Recogniser {
  begun: string[] = [];
  readonly #open: (() => void)[] = [];

  prepare(): void {}

  recognise({ length }: Int16Array, signal: AbortSignal, { isPartial }: RecogniseOptions = {}): Promise<Recognition> {
    if (signal.aborted) return Promise.resolve({ kind: "none" });
    this.begun.push(`${length}${isPartial ? " partly" : ""}`);
    return new Promise((resolve) => {
      this.#open.push(() => resolve(text(`${length}`)));
      signal.addEventListener("abort", () => resolve({ kind: "none" }));
    });
  }

  release(): void {
    for (const resolve of this.#open.splice(0)) resolve();
  }
}

function bench() {
  const recogniser = new SlowRecogniser();
  const told: string[] = [];
  const transcriber = new Transcriber(recogniser);
  const finish = (length: number): Promise<void> =>
    transcriber.finish(samples(length), (found) => told.push(found.kind === "text" ? found.text : found.kind));
  return { recogniser, transcriber, told, finish };
}

describe("speech", () => {
  test("that may be over is recognised at once, and its text waits for the end", async () => {
    const { recogniser, transcriber, told, finish } = bench();
    transcriber.begin(samples(5));
    await settle();
    expect(recogniser.begun).toEqual(["5"]);
    recogniser.release();
    await settle();
    expect([told, transcriber.waiting]).toEqual([[], 0]);
    await finish(5);
    expect([told, recogniser.begun]).toEqual([["5"], ["5"]]);
  });

  test("that goes on is dropped, and recognised whole", async () => {
    const { recogniser, transcriber, told, finish } = bench();
    transcriber.begin(samples(5));
    await settle();
    transcriber.drop();
    transcriber.begin(samples(9));
    await settle();
    expect(recogniser.begun).toEqual(["5", "9"]);
    recogniser.release();
    await finish(9);
    expect(told).toEqual(["9"]);
  });

  test("is recognised one piece after another, and told in that order", async () => {
    const { recogniser, told, finish } = bench();
    void finish(1);
    void finish(2);
    await settle();
    expect(recogniser.begun).toEqual(["1"]);
    recogniser.release();
    await settle();
    expect([told, recogniser.begun]).toEqual([["1"], ["1", "2"]]);
    recogniser.release();
    await settle();
    expect(told).toEqual(["1", "2"]);
  });

  test("that is abandoned is told no more, and keeps nobody waiting", async () => {
    const { recogniser, transcriber, told, finish } = bench();
    void finish(1);
    void finish(2);
    transcriber.begin(samples(3));
    await settle();
    expect(transcriber.waiting).toBe(2);
    transcriber.abandon();
    await settle();
    expect([told, transcriber.waiting]).toEqual([[], 0]);
    void finish(4);
    await settle();
    recogniser.release();
    await settle();
    expect([told, recogniser.begun]).toEqual([["4"], ["1", "4"]]);
  });
});

describe("the beginning of speech", () => {
  test("is recognised when nothing else is to be done", async () => {
    const { recogniser, transcriber, finish } = bench();
    const glimpse = transcriber.glimpse(samples(5));
    await settle();
    recogniser.release();
    expect(await glimpse).toBe("5");
    expect(recogniser.begun).toEqual(["5 partly"]);
    void finish(7);
    expect(await transcriber.glimpse(samples(8))).toBeUndefined();
    await settle();
    expect(recogniser.begun).toEqual(["5 partly", "7"]);
  });

  test("gives way at once to what may be the whole", async () => {
    const { recogniser, transcriber, told, finish } = bench();
    for (const end of [() => transcriber.begin(samples(9)), () => {}]) {
      const glimpse = transcriber.glimpse(samples(5));
      await settle();
      end();
      const finished = finish(9);
      expect(await glimpse).toBeUndefined();
      await settle();
      recogniser.release();
      await finished;
    }
    expect(told).toEqual(["9", "9"]);
    expect(recogniser.begun).toEqual(["5 partly", "9", "5 partly", "9"]);
  });
});
