import { describe, expect, test } from "bun:test";
import { readClip, writeWav } from "../../src/sound/wav.ts";

describe("a clip", () => {
  test("from a pipe is given its true lengths", () => {
    const file = writeWav(new Int16Array(22_050), 22_050);
    const piped = Buffer.from(file);
    piped.writeUInt32LE(0x7fff_f000, 4);
    piped.writeUInt32LE(0x7fff_f000, 40);
    const clip = readClip(piped);
    expect(clip?.durationMs).toBe(1_000);
    expect(clip?.file).toEqual(file);
    expect(clip?.envelope).toHaveLength(20);
  });

  test("begins with its first sound, and a breath before it", () => {
    const rate = 16_000;
    const silence = Int16Array.from({ length: 0.3 * rate }, (_, at) => 40 * (at % 3));
    const word = new Int16Array(rate).fill(12_000);
    const clip = readClip(writeWav(Int16Array.of(...silence, ...word), rate));
    expect(clip?.durationMs).toBe(1_050);
    expect(clip?.file).toEqual(writeWav(Int16Array.of(...silence.slice(0.25 * rate), ...word), rate));
    expect(clip?.envelope).toHaveLength(21);
  });

  test("keeps the whole of a sound that begins at once", () => {
    const file = writeWav(new Int16Array(8_000).fill(-9_000), 16_000);
    expect(readClip(file)?.file).toEqual(file);
  });

  test("that is none is refused", () => {
    const file = writeWav(new Int16Array(100), 22_050);
    const stereo = Buffer.from(file);
    stereo.writeUInt16LE(2, 22);
    for (const bytes of [new Uint8Array(0), file.slice(0, 40), file.slice(0, 44), new Uint8Array(200), stereo]) {
      expect(readClip(bytes)).toBeUndefined();
    }
  });
});
