// How likely the decoder finds words when it hears none of them: its taste, which is no evidence of what was said.

import type { Tensor } from "onnxruntime-common";
import { likelihood, type SpeechModel } from "./speechModel.ts";
import { beginToken, endToken } from "./vocabulary.ts";

/** A second of faint noise: in full silence the decoder knows that there is nothing to write. */
const noiseSamples = 16_000;
const noisePeak = 0.003;

export class Taste {
  #silence: Promise<Tensor> | undefined;

  constructor(private readonly model: SpeechModel) {}

  /** The logarithm of the probability of these tokens after others, given that a text goes on there. */
  async of(before: readonly number[], tokens: readonly number[]): Promise<number> {
    const all = [beginToken, ...before, ...tokens];
    this.#silence ??= this.model.hear(noise());
    const { expected } = await this.model.follow(await this.#silence, all.slice(0, -1));
    const own = expected.slice(before.length);
    const goesOn = own.filter((_, index) => tokens[index] !== endToken).map((each) => Math.log1p(-Math.exp(Math.min(-1e-6, each.of(endToken)))));
    return likelihood(tokens, own) - goesOn.reduce((sum, each) => sum + each, 0);
  }
}

function noise(): Float32Array {
  let seed = 7;
  return Float32Array.from({ length: noiseSamples }, () => {
    seed = (seed * 1_103_515_245 + 12_345) % 2_147_483_648;
    return (seed / 1_073_741_824 - 1) * noisePeak;
  });
}
