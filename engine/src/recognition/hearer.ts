// Recognises an utterance with a model: what was said, with the agent's name where it was called.

import type { Tensor } from "onnxruntime-common";
import { sampleRate } from "../base/protocol.ts";
import { goOn, mostTokens, transcribe, type Transcript } from "./decoding.ts";
import { NameFinder, type Naming } from "./naming.ts";
import { likelihood, type SpeechModel } from "./speechModel.ts";
import { Taste } from "./taste.ts";
import { beginToken, endToken, type Vocabulary } from "./vocabulary.ts";

/** The model was trained on no longer pieces; time and memory grow with the square of the length. */
const longestSamples = 20 * sampleRate;
/** A longer utterance is cut where it is softest, not before half of the longest piece. */
const windowSamples = sampleRate / 5;
/** The decoder takes a second of silence at the beginning for all that there is. Silence is so much softer than the loudest. */
const silenceShare = 1 / 32;
const leadSamples = (3 * sampleRate) / 10;

/**
 * After a name that is set off, a comma and what follows it may be so much less likely than what follows without one, the
 * logarithm of a ratio; and so much less likely than that nothing follows.
 */
const callGain = 7;
const moreGain = 4;

const endMarks = ["", ".", "?"];

export interface Wanted {
  names: string[];
  /** Words that may stand before a name. */
  calls: string[];
  /** Fewer words may be right. */
  isQuick?: boolean;
}

export class Hearer {
  readonly #names: NameFinder;
  readonly #taste: Taste;

  constructor(
    private readonly model: SpeechModel,
    private readonly vocabulary: Vocabulary,
  ) {
    this.#taste = new Taste(model);
    this.#names = new NameFinder(model, vocabulary, this.#taste);
  }

  /**
   * How much likelier the sound makes a phrase, the logarithm of a ratio: more than 0 speaks for the phrase. The decoder need
   * not know the phrase's language; that it would never write such words counts on both sides.
   */
  async evidence(samples: Int16Array, phrase: string): Promise<number> {
    const features = await this.model.hear(floats(withoutLead(samples).subarray(0, longestSamples)));
    let best = -Infinity;
    for (const mark of endMarks) {
      const tokens = [...this.vocabulary.tokensOf(`${phrase}${mark}`), endToken];
      const { expected } = await this.model.follow(features, [beginToken, ...tokens.slice(0, -1)]);
      best = Math.max(best, likelihood(tokens, expected));
    }
    return best - (await this.#taste.of([], [...this.vocabulary.tokensOf(phrase), endToken]));
  }

  /** Gives the text, which is empty when nothing was said, or undefined when the signal is raised. */
  async recognise(samples: Int16Array, { names, calls, isQuick }: Wanted, signal: AbortSignal): Promise<string | undefined> {
    const texts: string[] = [];
    for (const piece of piecesOf(samples).map(withoutLead)) {
      const features = await this.model.hear(floats(piece));
      const most = mostTokens(piece.length / sampleRate);
      const heard = await transcribe(this.model, features, most, signal, isQuick);
      if (heard === undefined) return undefined;
      const naming = await this.#names.find(features, heard, names, calls, signal);
      const text = naming ? await this.#named(features, heard, naming, most, signal) : this.#textOf(heard.tokens);
      if (text === undefined || signal.aborted) return undefined;
      texts.push(text);
    }
    return texts.filter((text) => text !== "").join(" ");
  }

  async #named(features: Tensor, heard: Transcript, naming: Naming, most: number, signal: AbortSignal): Promise<string | undefined> {
    const { start, end, text } = naming;
    const before = this.#textOf(heard.tokens.slice(0, start));
    const misheard = this.#textOf(heard.tokens.slice(start, end));
    const isAsHeard = misheard.toLowerCase() === text.toLowerCase();
    const left = heard.tokens.slice(end);
    const rest = await this.#rest(features, left, isAsHeard, naming, most, signal);
    if (rest === undefined) return undefined;
    // Some tokens are a word with its mark.
    const mark = rest === left && this.#isNothing(left) ? (/[.,?!]+$/.exec(misheard)?.[0] ?? "") : "";
    return `${before === "" ? sentenceOf(text) : `${before} ${text}`}${mark}${this.vocabulary.textOf(rest)}`.trim();
  }

  /**
   * What follows a name: the likeliest of what was heard, of what is heard anew after a name that was misheard, for the decoder
   * may have been on a wrong track, and of what is heard when the name calls somebody. Without that the decoder ends after
   * some names although more is said, and takes others for who does something: "Palomet opened the window".
   */
  async #rest(
    features: Tensor,
    left: number[],
    isAsHeard: boolean,
    { after, isSetOff }: Naming,
    most: number,
    signal: AbortSignal,
  ): Promise<number[] | undefined> {
    const next = after.expected.at(-1)!;
    const isLast = this.#isNothing(left);
    const found: { tokens: number[]; likelihood: number }[] = [];
    if (isAsHeard || isLast || left.at(-1) === endToken) {
      const follows = left.length > 1 ? (await this.model.follow(features, left.slice(0, -1), after.past)).expected : [];
      found.push({ tokens: left, likelihood: likelihood(left, [next, ...follows]) });
    }
    if (!isAsHeard && !isLast) {
      const isWhole = (token: number): boolean => token === endToken || this.vocabulary.beginsWord(token) || this.vocabulary.isMark(token);
      const anew = await goOn(this.model, features, after, isWhole, most, signal);
      if (anew === undefined) return undefined;
      found.push({ tokens: anew.tokens, likelihood: likelihood(anew.tokens, anew.expected) });
    }
    const comma = this.vocabulary.tokenOf(",");
    if (isSetOff && comma !== undefined) {
      const isCall = ({ tokens }: { tokens: number[] }): boolean => tokens[0] === comma && !this.#isNothing(tokens);
      if (!isCall(found.at(-1)!)) {
        const begun = await this.model.follow(features, [comma], after.past);
        const called = await goOn(this.model, features, begun, (token) => this.vocabulary.beginsWord(token), most, signal);
        if (called === undefined) return undefined;
        found.push({ tokens: [comma, ...called.tokens], likelihood: next.of(comma) + likelihood(called.tokens, called.expected) });
      }
      for (const way of found.filter(isCall)) way.likelihood += isLast ? moreGain : callGain;
    }
    return found.reduce((best, way) => (way.likelihood > best.likelihood ? way : best)).tokens;
  }

  /** These tokens hold no word. */
  #isNothing(tokens: readonly number[]): boolean {
    return this.#textOf(tokens).search(/[\p{L}\p{N}]/u) < 0;
  }

  #textOf(tokens: readonly number[]): string {
    return this.vocabulary.textOf(tokens).trim();
  }
}

function floats(samples: Int16Array): Float32Array {
  return Float32Array.from(samples, (sample) => sample / 32_768);
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
