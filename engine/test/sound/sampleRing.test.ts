import { expect, test } from "bun:test";
import { SampleRing } from "../../src/sound/sampleRing.ts";

const numbers = (from: number, to: number): Int16Array => Int16Array.from({ length: to - from }, (_, index) => from + index);

test("the latest samples are given by their numbers, and those that are gone or still to come are left out", () => {
  const ring = new SampleRing(100);
  expect(ring.slice(0, 10)).toEqual(new Int16Array(0));
  for (let at = 0; at < 1_001; at += 7) {
    ring.add(numbers(at, at + 7));
    expect(ring.end).toBe(at + 7);
    expect(ring.slice(at - 10, at + 3)).toEqual(numbers(Math.max(0, at - 10), at + 3));
  }
  expect(ring.slice(0, 2_000)).toEqual(numbers(901, 1_001));
  expect(ring.slice(950, 960)).toEqual(numbers(950, 960));
  expect(ring.slice(960, 950)).toEqual(new Int16Array(0));
  expect(ring.slice(3_000, 4_000)).toEqual(new Int16Array(0));
});
