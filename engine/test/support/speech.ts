// Speech for the tests of recognisers: sentences as `espeak-ng` says them.

import { readClip } from "../../src/sound/wav.ts";
import { installed } from "./recognition.ts";

export const hasVoice = installed.find("espeak-ng") !== undefined;

/** A sentence in the samples of the audio link, with some silence around it. */
export async function said(sentence: string, voice: string, wordsAMinute = 145): Promise<Int16Array> {
  const outcome = await installed.run(["espeak-ng", "-v", voice, "-s", String(wordsAMinute), "--stdin", "--stdout"], {
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
