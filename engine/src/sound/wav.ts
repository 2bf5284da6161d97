// WAV files as the speech synthesiser writes them and as the recogniser reads them: 16-bit mono PCM.

import { decibels, levelOf } from "./loudness.ts";

export interface Clip {
  /** The WAV file. */
  file: Uint8Array;
  durationMs: number;
  /** Loudness from 0 to 1, one value each `envelopeStepMs`. */
  envelope: number[];
}

export const envelopeStepMs = 50;
/** What is so soft beside the loudest sample is silence. */
const silence = 0.01;
/** So much of the silence before the first sound stays: many words begin softly. */
const keptLeadMs = 40;

/**
 * Reads a WAV file and writes the true lengths into its header, which a program that writes to a pipe cannot know.
 * Gives undefined when the file is not 16-bit mono PCM or holds no sample.
 */
export function readClip(file: Uint8Array): Clip | undefined {
  const found = samplesIn(file);
  if (!found) return undefined;
  const { samples, rate, at } = found;
  const whole = new Uint8Array(file.subarray(0, at + samples.byteLength));
  const lengths = new DataView(whole.buffer);
  lengths.setUint32(4, whole.length - 8, true);
  lengths.setUint32(at - 4, samples.byteLength, true);
  return { file: whole, durationMs: (samples.length * 1000) / rate, envelope: envelopeOf(samples, rate) };
}

/** The samples, their rate, and where they begin. */
function samplesIn(file: Uint8Array): { samples: Int16Array; rate: number; at: number } | undefined {
  if (file.length < 44 || tag(file, 0) !== "RIFF" || tag(file, 8) !== "WAVE") return undefined;
  const view = new DataView(file.buffer, file.byteOffset, file.byteLength);
  let rate = 0;
  for (let at = 12; at + 8 <= file.length; ) {
    const length = view.getUint32(at + 4, true);
    if (tag(file, at) === "fmt " && at + 24 <= file.length) {
      const isPcm = view.getUint16(at + 8, true) === 1;
      if (!isPcm || view.getUint16(at + 10, true) !== 1 || view.getUint16(at + 22, true) !== 16) return undefined;
      rate = view.getUint32(at + 12, true);
    }
    if (tag(file, at) === "data") {
      const bytes = Math.min(length, file.length - at - 8) & ~1;
      if (rate === 0 || bytes === 0) return undefined;
      return { samples: new Int16Array(new Uint8Array(file.subarray(at + 8, at + 8 + bytes)).buffer), rate, at: at + 8 };
    }
    at += 8 + length + (length & 1);
  }
  return undefined;
}

/** Makes a WAV file of these samples. */
export function writeWav(samples: Int16Array, rate: number): Uint8Array {
  const file = new Uint8Array(44 + samples.byteLength);
  const view = new DataView(file.buffer);
  const put = (at: number, text: string): void => file.set(new TextEncoder().encode(text), at);
  put(0, "RIFF");
  view.setUint32(4, file.length - 8, true);
  put(8, "WAVEfmt ");
  view.setUint32(16, 16, true);
  view.setUint16(20, 1, true);
  view.setUint16(22, 1, true);
  view.setUint32(24, rate, true);
  view.setUint32(28, rate * 2, true);
  view.setUint16(32, 2, true);
  view.setUint16(34, 16, true);
  put(36, "data");
  view.setUint32(40, samples.byteLength, true);
  file.set(new Uint8Array(samples.buffer, samples.byteOffset, samples.byteLength), 44);
  return file;
}

function tag(file: Uint8Array, at: number): string {
  return String.fromCharCode(...file.subarray(at, at + 4));
}

function envelopeOf(samples: Int16Array, rate: number): number[] {
  const step = Math.max(1, Math.round((rate * envelopeStepMs) / 1000));
  const levels: number[] = [];
  for (let from = 0; from < samples.length; from += step) {
    const part = samples.subarray(from, from + step);
    let sum = 0;
    for (const sample of part) sum += (sample / 32768) ** 2;
    levels.push(levelOf(decibels(sum / part.length)));
  }
  return levels;
}

/** A copy of a WAV file that `readClip` has given, its samples times `gain`. */
export function withGain(file: Uint8Array, gain: number): Uint8Array {
  const found = samplesIn(file);
  if (!found) return file;
  return writeWav(found.samples.map((sample) => Math.round(sample * gain)), found.rate);
}

/** The clip without the silence that it begins with. */
export function withoutLead(clip: Clip): Clip {
  const found = samplesIn(clip.file);
  if (!found) return clip;
  const { samples, rate } = found;
  let loudest = 0;
  for (const sample of samples) loudest = Math.max(loudest, Math.abs(sample));
  const first = samples.findIndex((sample) => Math.abs(sample) > silence * loudest);
  const from = first - Math.round((rate * keptLeadMs) / 1000);
  return from > 0 ? (readClip(writeWav(samples.subarray(from), rate)) ?? clip) : clip;
}
