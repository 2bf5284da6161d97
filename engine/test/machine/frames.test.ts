import { describe, expect, test } from "bun:test";
import { FrameReader, longestFrame, writeFrame, type Frame } from "../../src/machine/frames.ts";

const samples = Int16Array.from({ length: 300 }, (_, index) => index * 7 - 900);
const sent = [writeFrame({ id: 1, words: "olá" }, new Uint8Array(samples.buffer)), writeFrame({}), writeFrame({ id: 2 }, Uint8Array.of(5))];

/** Reads the bytes in pieces of this length. */
function read(bytes: Uint8Array, length: number): Frame[] {
  const reader = new FrameReader();
  const frames: Frame[] = [];
  for (let at = 0; at < bytes.length; at += length) frames.push(...reader.take(bytes.subarray(at, at + length)));
  return frames;
}

describe("frames", () => {
  test("are read as they were written, wherever the pieces end", () => {
    const bytes = Buffer.concat(sent);
    for (const length of [1, 3, 8, 100, bytes.length]) {
      const frames = read(bytes, length);
      expect(frames.map(({ head }) => head)).toEqual([{ id: 1, words: "olá" }, {}, { id: 2 }]);
      expect(new Int16Array(frames[0]!.body.buffer)).toEqual(samples);
      expect(frames[2]?.body).toEqual(Uint8Array.of(5));
    }
  });

  test("that are none, or too long, are refused at once", () => {
    expect(() => read(Uint8Array.of(2, 0, 0, 0, 0, 0, 0, 0, 91, 93), 100)).toThrow();
    expect(() => read(new Uint8Array(8).fill(255), 100)).toThrow();
    const long = new Uint8Array(8);
    new DataView(long.buffer).setUint32(4, longestFrame, true);
    expect(() => read(long, 100)).toThrow();
  });
});
