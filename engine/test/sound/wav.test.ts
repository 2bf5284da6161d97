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

  test("that is none is refused", () => {
    const file = writeWav(new Int16Array(100), 22_050);
    const stereo = Buffer.from(file);
    stereo.writeUInt16LE(2, 22);
    for (const bytes of [new Uint8Array(0), file.slice(0, 40), file.slice(0, 44), new Uint8Array(200), stereo]) {
      expect(readClip(bytes)).toBeUndefined();
    }
  });
});
