import { describe, expect, test } from "bun:test";
import { SpeechEvidence } from "../../src/hearing/speechEvidence.ts";

function weigh(probabilities: number[]): SpeechEvidence {
  const evidence = new SpeechEvidence();
  probabilities.forEach((probability, index) => evidence.take({ from: index * 512, to: index * 512 + 512, probability }));
  return evidence;
}

describe("evidence for speech", () => {
  test("begins with a likely window, at its first sample, and is sure after a short word", () => {
    const begun = weigh([0.02, 0.1, 0.97]);
    expect([begun.hasBegun, begun.isSure, begun.begunAt]).toEqual([true, false, 1_024]);
    expect(weigh([0.02, 0.7, 0.97, 0.99, 0.99, 0.99, 0.99, 0.99, 0.99]).isSure).toBe(true);
  });

  test("is not found in windows that are likely now and then", () => {
    for (const period of [2, 3, 5]) {
      expect(weigh(Array.from({ length: 400 }, (_, index) => (index % period === 0 ? 0.9 : 0.05))).isSure).toBe(false);
    }
    expect(weigh(new Array<number>(4_000).fill(0.45)).hasBegun).toBe(false);
  });

  test("is gone soon after the longest speech", () => {
    const silence = new Array<number>(10).fill(0.01);
    expect(weigh([...new Array<number>(900).fill(1), ...silence]).hasBegun).toBe(false);
    expect(weigh([...new Array<number>(900).fill(1), ...silence, 0.3]).begunAt).toBeGreaterThan(900 * 512);
  });

  test("is counted where the detector is certain", () => {
    expect(weigh([0, 0, 0]).hasBegun).toBe(false);
    expect(weigh([0, 1, 1]).hasBegun).toBe(true);
  });
});
