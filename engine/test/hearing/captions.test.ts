import { describe, expect, test } from "bun:test";
import { Captions } from "../../src/hearing/captions.ts";
import { ManualClock } from "../support/clock.ts";

function bench(takesMs = 100) {
  const clock = new ManualClock();
  const shown: string[] = [];
  const asked: number[] = [];
  const it = { text: "words" as string | undefined };
  const recognise = (): Promise<string | undefined> =>
    new Promise((resolve) => {
      asked.push(clock.now());
      clock.after(takesMs, () => resolve(it.text));
    });
  return { clock, shown, asked, it, captions: new Captions(clock, recognise, (text) => shown.push(text)) };
}

describe("captions", () => {
  test("come as the words do, until they are stopped", async () => {
    const { clock, shown, it, captions } = bench();
    captions.start();
    await clock.advance(900);
    expect(shown).toEqual([]);
    await clock.advance(200);
    expect(shown).toEqual(["words"]);
    it.text = "words of more";
    await clock.advance(700);
    expect(shown).toEqual(["words", "words of more"]);
    captions.stop();
    await clock.advance(5_000);
    expect(shown).toHaveLength(2);
    expect(clock.pending).toBe(0);
  });

  test("take no more than a fifth of the time", async () => {
    const { clock, asked, captions } = bench(500);
    captions.start();
    await clock.advance(60_000);
    expect(asked.length).toBeGreaterThan(20);
    expect(asked.length * 500).toBeLessThanOrEqual(12_500);
    captions.stop();
  });

  test("that come too late are not shown", async () => {
    const { clock, shown, captions } = bench(300);
    captions.start();
    await clock.advance(1_100);
    captions.stop();
    captions.start();
    await clock.advance(300);
    expect(shown).toEqual([]);
    captions.stop();
  });

  test("without words are left out", async () => {
    const { clock, shown, it, captions } = bench();
    it.text = undefined;
    captions.start();
    await clock.advance(3_000);
    it.text = "at last";
    await clock.advance(1_000);
    expect(shown[0]).toBe("at last");
    captions.stop();
  });
});
