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

/**
 * Reads a WAV file and writes the true lengths into its header, which a program that writes to a pipe cannot know.
 * Gives undefined when the file is not 16-bit mono PCM or holds no sample.
 */
export function readClip(file: Uint8Array): Clip | undefined {
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
      const whole = new Uint8Array(file.subarray(0, at + 8 + bytes));
      const lengths = new DataView(whole.buffer);
      lengths.setUint32(4, whole.length - 8, true);
      lengths.setUint32(at + 4, bytes, true);
      const samples = new Int16Array(whole.slice(at + 8).buffer);
      return { file: whole, durationMs: (samples.length * 1000) / rate, envelope: envelopeOf(samples, rate) };
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
  const copy = new Uint8Array(file);
  const view = new DataView(copy.buffer);
  for (let at = 12; at + 8 <= copy.length; ) {
    const length = view.getUint32(at + 4, true);
    const end = Math.min(at + 8 + length, copy.length);
    if (tag(copy, at) === "data") {
      for (let place = at + 8; place + 2 <= end; place += 2) view.setInt16(place, Math.round(view.getInt16(place, true) * gain), true);
    }
    at += 8 + length + (length & 1);
  }
  return copy;
}
