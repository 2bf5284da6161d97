import { describe, expect, test } from "bun:test";
import { readClip, withGain, withoutLead, writeWav } from "../../src/sound/wav.ts";

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

  test("that is none is refused", () => {
    const file = writeWav(new Int16Array(100), 22_050);
    const stereo = Buffer.from(file);
    stereo.writeUInt16LE(2, 22);
    for (const bytes of [new Uint8Array(0), file.slice(0, 40), file.slice(0, 44), new Uint8Array(200), stereo]) {
      expect(readClip(bytes)).toBeUndefined();
    }
  });

  test("loses the silence before its first sound, but for a soft beginning, and no sound", () => {
    // A second of a voice's own noise, then a second of sound.
    const samples = Int16Array.from({ length: 32_000 }, (_, at) => (at < 16_000 ? 50 : 9_000) * (at % 2 === 0 ? 1 : -1));
    const clip = withoutLead(readClip(writeWav(samples, 16_000))!);
    expect(clip.durationMs).toBe(1_040);
    expect(clip.file).toEqual(writeWav(samples.subarray(16_000 - 640), 16_000));
    expect(withoutLead(clip)).toBe(clip);
  });

  test("that is silent, or begins with its sound, stays as it is", () => {
    for (const level of [0, 5_000]) {
      const clip = readClip(writeWav(new Int16Array(16_000).fill(level), 16_000))!;
      expect(withoutLead(clip)).toBe(clip);
    }
  });

  test("is made softer, and nothing else", () => {
    expect(withGain(writeWav(Int16Array.of(1_000, -3, 32_767), 8_000), 0.5)).toEqual(writeWav(Int16Array.of(500, -1, 16_384), 8_000));
  });
});
