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
