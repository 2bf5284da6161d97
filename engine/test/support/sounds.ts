// Sounds for the microphone and for the agent's voice.

import { readClip, writeWav, type Clip } from "../../src/sound/wav.ts";

export function clipOf(durationMs: number): Clip {
  const samples = new Int16Array((16_000 * durationMs) / 1000).fill(8_000);
  const clip = readClip(writeWav(samples, 16_000));
  if (!clip) throw new Error("not a clip");
  return clip;
}

/** A sine of 200 Hz whose root mean square is at this level. */
export function tone(ms: number, dbfs: number): Int16Array {
  const peak = 32_768 * Math.SQRT2 * 10 ** (dbfs / 20);
  return Int16Array.from({ length: (16_000 * ms) / 1000 }, (_, index) =>
    Math.round(peak * Math.sin((2 * Math.PI * 200 * index) / 16_000)),
  );
}

/** White noise at this level, the same every time. */
export function hiss(ms: number, dbfs: number): Int16Array {
  let seed = 7;
  const peak = 32_768 * Math.sqrt(3) * 10 ** (dbfs / 20);
  return Int16Array.from({ length: Math.round(ms * 16) }, () => {
    seed = (seed * 1_103_515_245 + 12_345) % 2_147_483_648;
    return Math.round((seed / 1_073_741_824 - 1) * peak);
  });
}
