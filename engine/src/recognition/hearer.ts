// Recognises an utterance with a model: what was said, with the agent's name where it was called.

import type { Tensor } from "onnxruntime-common";
import { sampleRate } from "../base/protocol.ts";
import { goOn, mostTokens, transcribe, type Transcript } from "./decoding.ts";
import { NameFinder, type Naming } from "./naming.ts";
import type { SpeechModel } from "./speechModel.ts";
import { endToken, type Vocabulary } from "./vocabulary.ts";

/** The model was trained on no longer pieces; time and memory grow with the square of the length. */
const longestSamples = 20 * sampleRate;
/** A longer utterance is cut where it is softest, not before half of the longest piece. */
const windowSamples = sampleRate / 5;
/** The decoder takes a second of silence at the beginning for all that there is. Silence is so much softer than the loudest. */
const silenceShare = 1 / 32;
const leadSamples = (3 * sampleRate) / 10;

export interface Wanted {
  names: string[];
  /** Words that may stand before a name. */
  calls: string[];
}

export class Hearer {
  readonly #names: NameFinder;

  constructor(
    private readonly model: SpeechModel,
    private readonly vocabulary: Vocabulary,
  ) {
    this.#names = new NameFinder(model, vocabulary);
  }

  /** Gives the text, which is empty when nothing was said, or undefined when the signal is raised. */
  async recognise(samples: Int16Array, { names, calls }: Wanted, signal: AbortSignal): Promise<string | undefined> {
    const texts: string[] = [];
    for (const piece of piecesOf(samples).map(withoutLead)) {
      const features = await this.model.hear(Float32Array.from(piece, (sample) => sample / 32_768));
      const most = mostTokens(piece.length / sampleRate);
      const heard = await transcribe(this.model, features, most, signal);
      if (heard === undefined) return undefined;
      const naming = await this.#names.find(features, heard, names, calls, signal);
      const text = naming ? await this.#named(features, heard, naming, most, signal) : this.#textOf(heard.tokens);
      if (text === undefined || signal.aborted) return undefined;
      texts.push(text);
    }
    return texts.filter((text) => text !== "").join(" ");
  }

  /** What follows a name is heard anew when the name was misheard: the decoder was on a wrong track. */
  async #named(features: Tensor, heard: Transcript, naming: Naming, most: number, signal: AbortSignal): Promise<string | undefined> {
    const { start, end, text, after } = naming;
    const before = this.#textOf(heard.tokens.slice(0, start));
    const misheard = this.#textOf(heard.tokens.slice(start, end));
    const isAsHeard = misheard.toLowerCase() === text.toLowerCase();
    const left = heard.tokens.slice(end);
    const isLast = left.every((token) => token === endToken || this.vocabulary.isMark(token));
    const isWhole = (token: number): boolean => token === endToken || this.vocabulary.beginsWord(token) || this.vocabulary.isMark(token);
    const rest = isAsHeard || isLast ? { tokens: left } : await goOn(this.model, features, after, isWhole, most, signal);
    if (rest === undefined) return undefined;
    // Some tokens are a word with its mark.
    const mark = isLast ? (/[.,?!]+$/.exec(misheard)?.[0] ?? "") : "";
    return `${before === "" ? sentenceOf(text) : `${before} ${text}`}${mark}${this.vocabulary.textOf(rest.tokens)}`.trim();
  }

  #textOf(tokens: readonly number[]): string {
    return this.vocabulary.textOf(tokens).trim();
  }
}

function sentenceOf(text: string): string {
  return text.charAt(0).toUpperCase() + text.slice(1);
}

/** Cuts a long utterance where it is softest. */
function piecesOf(samples: Int16Array): Int16Array[] {
  const pieces: Int16Array[] = [];
  let rest = samples;
  while (rest.length > longestSamples) {
    const at = softest(rest.subarray(longestSamples / 2, longestSamples)) + longestSamples / 2;
    pieces.push(rest.subarray(0, at));
    rest = rest.subarray(at);
  }
  return rest.length > 0 ? [...pieces, rest] : pieces;
}

function withoutLead(piece: Int16Array): Int16Array {
  const loudest = piece.reduce((most, sample) => Math.max(most, Math.abs(sample)), 0);
  const begin = piece.findIndex((sample) => Math.abs(sample) > loudest * silenceShare);
  return piece.subarray(Math.max(0, begin - leadSamples));
}

/** The middle of the softest fifth of a second. */
function softest(samples: Int16Array): number {
  let best = 0;
  let least = Infinity;
  for (let from = 0; from + windowSamples <= samples.length; from += windowSamples / 4) {
    const energy = samples.subarray(from, from + windowSamples).reduce((sum, sample) => sum + sample * sample, 0);
    if (energy >= least) continue;
    least = energy;
    best = from;
  }
  return best + windowSamples / 2;
}
