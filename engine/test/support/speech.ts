// Sentences as `espeak-ng` says them, and other sounds, in the samples of the audio link.

import { readClip } from "../../src/sound/wav.ts";
import { installed } from "./recognition.ts";

export const hasVoice = installed.find("espeak-ng") !== undefined;

/** A sentence in the samples of the audio link, with some silence around it. */
export async function said(sentence: string, voice: string): Promise<Int16Array> {
  const outcome = await installed.run(["espeak-ng", "-v", voice, "-s", "145", "--stdin", "--stdout"], {
    input: sentence,
    timeoutMs: 10_000,
    maxOutput: 1 << 24,
  });
  const clip = outcome.kind === "ended" ? readClip(outcome.output) : undefined;
  if (!clip) throw new Error("no speech");
  const samples = new Int16Array(clip.file.slice(44).buffer);
  const spoken = resampled(samples, 22_050, 16_000);
  const padded = new Int16Array(4_800 + spoken.length + 3_200);
  padded.set(spoken, 4_800);
  return padded;
}

const reach = 24;

/** A windowed sinc, which leaves out what the lower rate cannot hold. */
function resampled(samples: Int16Array, from: number, to: number): Int16Array {
  const cutoff = (0.95 * to) / from;
  return Int16Array.from({ length: Math.floor((samples.length * to) / from) }, (_, index) => {
    const at = (index * from) / to;
    let sum = 0;
    for (let tap = Math.ceil(at - reach); tap <= at + reach; tap++) {
      const x = tap - at;
      const sinc = x === 0 ? cutoff : Math.sin(Math.PI * cutoff * x) / (Math.PI * x);
      sum += (samples[tap] ?? 0) * sinc * (0.5 + 0.5 * Math.cos((Math.PI * x) / reach));
    }
    return Math.max(-32_768, Math.min(32_767, Math.round(sum / 2)));
  });
}

export const hasSpeech = installed.find("espeak-ng") !== undefined;

/** Says a sentence, with a quarter of a second of silence before it and half a second after it. */
export async function spoken(sentence: string, voice = "en-us"): Promise<Int16Array> {
  const outcome = await installed.run(["espeak-ng", "-v", voice, "--stdin", "--stdout"], { input: sentence, maxOutput: 1 << 24 });
  const clip = outcome.kind === "ended" ? readClip(outcome.output) : undefined;
  if (!clip) throw new Error("no speech");
  const samples = new Int16Array(clip.file.slice(44).buffer);
  const length = Math.floor((samples.length * 16_000) / 22_050);
  const result = hiss(250 + length / 16 + 500, -68);
  for (let index = 0; index < length; index++) {
    const at = (index * 22_050) / 16_000;
    const [before, after] = [samples[Math.floor(at)] ?? 0, samples[Math.ceil(at)] ?? 0];
    result[4_000 + index] = result[4_000 + index]! + (before + (after - before) * (at % 1)) / 2;
  }
  return result;
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
