// Moonshine: an encoder, which makes features of samples, and a decoder, which tells after some tokens how likely each token is
// to be the next. (Jeffries et al., "Moonshine: speech recognition for live transcription and voice commands", 2024.) This
// module runs in a companion only.

import type { InferenceSession, Tensor, TypedTensor } from "onnxruntime-common";

export interface ModelFiles {
  encoder: string;
  decoder: string;
}

type Runtime = typeof import("onnxruntime-common");
type Tensors = Record<string, Tensor>;

/** One thread: two take two to three times the processor's time for the same, and are slower. */
const settings: InferenceSession.SessionOptions = {
  intraOpNumThreads: 1,
  interOpNumThreads: 1,
  executionMode: "sequential",
  logSeverityLevel: 3,
};
/** The decoder's table of tokens is unpacked once, and not for each token: a third less work for 80 MB more. */
const decoderSettings: InferenceSession.SessionOptions = { ...settings, extra: { session: { disable_quant_qdq: "1" } } };
/** The encoder expects some silence around an utterance, 0.1 s. */
const marginSamples = 1_600;

/** The past that the decoder was given, up to some token. */
export interface Past {
  tensors: Tensors;
  length: number;
}

/** How likely each token is to be the next. */
export class Expectation {
  /** The likeliest token. */
  readonly best: number;
  readonly #total: number;

  constructor(private readonly scores: Float32Array) {
    let best = 0;
    for (let token = 1; token < scores.length; token++) if (scores[token]! > scores[best]!) best = token;
    const most = scores[best]!;
    let sum = 0;
    for (const score of scores) sum += Math.exp(score - most);
    this.best = best;
    this.#total = most + Math.log(sum);
  }

  /** The logarithm of a token's probability. */
  of(token: number): number {
    return (this.scores[token] ?? -Infinity) - this.#total;
  }

  /** The likeliest of the tokens that may be, at most so many, the likeliest first. */
  likeliest(count: number, mayBe: (token: number) => boolean = () => true): number[] {
    const likeliest: number[] = [];
    this.scores.forEach((score, token) => {
      if (likeliest.length === count && !(score > this.scores[likeliest[count - 1]!]!)) return;
      if (!mayBe(token)) return;
      const after = likeliest.findIndex((other) => score > this.scores[other]!);
      likeliest.splice(after < 0 ? likeliest.length : after, 0, token);
      likeliest.length = Math.min(likeliest.length, count);
    });
    return likeliest;
  }
}

export class SpeechModel {
  readonly #heads: number;
  readonly #width: number;
  readonly #pastNames: string[];

  private constructor(
    private readonly runtime: Runtime,
    private readonly encoder: InferenceSession,
    private readonly decoder: InferenceSession,
  ) {
    const pasts = decoder.inputMetadata.filter(({ name }) => name.startsWith("past_key_values."));
    const [, heads, , width] = (pasts[0] && "shape" in pasts[0] && pasts[0].shape) || [];
    if (typeof heads !== "number" || typeof width !== "number") throw new Error("the decoder takes no past");
    this.#heads = heads;
    this.#width = width;
    this.#pastNames = pasts.map(({ name }) => name);
  }

  /** Throws when a file is damaged, or is none of such a model. */
  static async load(runtime: Runtime, files: ModelFiles): Promise<SpeechModel> {
    const encoder = await runtime.InferenceSession.create(files.encoder, settings);
    return new SpeechModel(runtime, encoder, await runtime.InferenceSession.create(files.decoder, decoderSettings));
  }

  /** The features of samples between -1 and 1. */
  async hear(samples: Float32Array): Promise<Tensor> {
    const padded = new Float32Array(samples.length + 2 * marginSamples);
    padded.set(samples, marginSamples);
    const found = await this.encoder.run({ input_values: new this.runtime.Tensor("float32", padded, [1, padded.length]) });
    return found.last_hidden_state!;
  }

  /** Tells what is expected after each of these tokens, which follow on a past; without one they begin. */
  async follow(features: Tensor, tokens: readonly number[], past?: Past): Promise<{ expected: Expectation[]; past: Past }> {
    const { Tensor } = this.runtime;
    const known = past?.tensors ?? this.#nothing();
    // The cross attention's part of the past is that of the features, and does not change.
    const changing = this.#pastNames.filter((name) => past === undefined || name.includes(".decoder."));
    const found = await this.decoder.run(
      {
        input_ids: new Tensor("int64", BigInt64Array.from(tokens, BigInt), [1, tokens.length]),
        encoder_hidden_states: features,
        use_cache_branch: new Tensor("bool", [past !== undefined], [1]),
        ...known,
      },
      ["logits", ...changing.map(presentName)],
    );
    const logits = found.logits as TypedTensor<"float32">;
    const size = logits.dims[2]!;
    const expected = tokens.map((_, index) => new Expectation(logits.data.subarray(index * size, (index + 1) * size)));
    const tensors = { ...known };
    for (const name of changing) tensors[name] = found[presentName(name)]!;
    return { expected, past: { tensors, length: (past?.length ?? 0) + tokens.length } };
  }

  /** The past as it was after so many tokens, at least one. */
  cut({ tensors, length }: Past, kept: number): Past {
    const size = this.#heads * this.#width;
    const cut: Tensors = { ...tensors };
    for (const name of this.#pastNames) {
      if (!name.includes(".decoder.")) continue;
      const { data } = tensors[name] as TypedTensor<"float32">;
      const part = new Float32Array(kept * size);
      for (let head = 0; head < this.#heads; head++) {
        const from = head * length * this.#width;
        part.set(data.subarray(from, from + kept * this.#width), head * kept * this.#width);
      }
      cut[name] = new this.runtime.Tensor("float32", part, [1, this.#heads, kept, this.#width]);
    }
    return { tensors: cut, length: kept };
  }

  #nothing(): Tensors {
    const empty = new this.runtime.Tensor("float32", new Float32Array(0), [1, this.#heads, 0, this.#width]);
    return Object.fromEntries(this.#pastNames.map((name) => [name, empty]));
  }
}

function presentName(pastName: string): string {
  return pastName.replace("past_key_values", "present");
}

/** The logarithm of the probability of tokens, each by what was expected in its place. */
export function likelihood(tokens: readonly number[], expected: readonly Expectation[]): number {
  return tokens.reduce((sum, token, index) => sum + expected[index]!.of(token), 0);
}
