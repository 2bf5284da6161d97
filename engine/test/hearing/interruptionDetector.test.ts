import { describe, expect, test } from "bun:test";
import { InterruptionDetector } from "../../src/hearing/interruptionDetector.ts";

/** Feeds levels of 10 ms each, and gives how many it took to decide, or undefined. */
function decide(detector: InterruptionDetector, levels: number[], floor = -70): number | undefined {
  const at = levels.findIndex((level) => detector.take(level, floor));
  return at < 0 ? undefined : at + 1;
}

/** The residue of speech as a canceller leaves it: its level varies, with short louder bursts. */
function residue(seconds: number, level: number, burstLevel: number): number[] {
  let seed = 3;
  const random = (): number => (seed = (seed * 16_807) % 2_147_483_647) / 2_147_483_647;
  let burst = 0;
  return Array.from({ length: seconds * 100 }, () => {
    if (burst > 0) burst--;
    else if (random() < 0.005) burst = 4 + Math.floor(random() * 12);
    return (burst > 0 ? burstLevel : level) + 12 * (random() - 0.7);
  });
}

describe("somebody talking over the agent", () => {
  test("is noticed within 100 ms when as loud as speech is", () => {
    const detector = new InterruptionDetector();
    decide(detector, residue(3, -60, -45));
    const speech = Array.from({ length: 50 }, (_, index) => -22 - 6 * Math.sin(index));
    expect(decide(detector, speech)).toBeLessThanOrEqual(10);
  });

  test("is noticed when soft, only later", () => {
    const detector = new InterruptionDetector();
    decide(detector, residue(60, -62, -55));
    const speech = Array.from({ length: 100 }, (_, index) => -36 - 4 * Math.sin(index));
    expect(decide(detector, speech)).toBeLessThanOrEqual(25);
  });

  test("is noticed in the first answer, before anything is known of the residue", () => {
    expect(decide(new InterruptionDetector(), new Array<number>(50).fill(-22))).toBeLessThanOrEqual(12);
  });

  test("is not found in ten minutes of what the canceller leaves", () => {
    expect(decide(new InterruptionDetector(), residue(600, -58, -42))).toBeUndefined();
  });

  test("is not found while a canceller that has just begun learns", () => {
    const detector = new InterruptionDetector();
    const learning = residue(2, -46, -40).map((level, index) => level + 12 * Math.exp(-index / 50));
    expect(decide(detector, learning)).toBeUndefined();
    expect(decide(detector, residue(60, -58, -45))).toBeUndefined();
  });

  test("is noticed soon after a canceller has begun, or has failed for a while", () => {
    const speech = Array.from({ length: 80 }, (_, index) => -21 - 6 * Math.sin(index));
    const begun = new InterruptionDetector();
    decide(begun, residue(2, -42, -36).map((level, index) => level + 14 * Math.exp(-index / 80)));
    expect(decide(begun, speech)).toBeLessThanOrEqual(20);
    const failed = new InterruptionDetector();
    decide(failed, residue(10, -60, -45));
    decide(failed, new Array<number>(200).fill(-29));
    decide(failed, residue(5, -60, -45));
    expect(decide(failed, speech)).toBeLessThanOrEqual(20);
  });

  test("is noticed when soft after a dozen seconds in which the canceller did well", () => {
    const detector = new InterruptionDetector();
    decide(detector, residue(12, -72, -68));
    expect(decide(detector, new Array<number>(40).fill(-37))).toBeLessThanOrEqual(20);
  });

  test("is noticed at once when a word was too short to be noticed and is said again", () => {
    const detector = new InterruptionDetector();
    decide(detector, residue(30, -72, -68));
    expect(decide(detector, new Array<number>(12).fill(-44))).toBeUndefined();
    decide(detector, residue(1, -72, -68));
    expect(decide(detector, new Array<number>(20).fill(-43))).toBeLessThanOrEqual(15);
  });

  test("is noticed sooner where a speech detector has to agree", () => {
    const [alone, agreeing] = [false, true].map((hasToAgree) => {
      const detector = new InterruptionDetector();
      decide(detector, residue(12, -72, -68));
      return [...Array(40).keys()].findIndex(() => detector.take(-34, -70, hasToAgree));
    });
    expect(agreeing).toBeGreaterThan(0);
    expect(agreeing).toBeLessThan(alone!);
  });

  test("does not raise the gate for itself", () => {
    const soft = Array.from({ length: 100 }, (_, index) => -36 - 4 * Math.sin(index));
    const [heard, other] = [new InterruptionDetector(), new InterruptionDetector()];
    for (const detector of [heard, other]) decide(detector, residue(60, -62, -55));
    expect(decide(heard, new Array<number>(20).fill(-22))).toBeDefined();
    other.rest();
    expect(decide(heard, soft)).toBe(decide(other, soft) ?? 0);
  });
});
