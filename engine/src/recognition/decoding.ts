// Writes down what was said, token by token, the likeliest one each time.

import type { Tensor } from "onnxruntime-common";
import type { Expectation, Past, SpeechModel } from "./speechModel.ts";
import { beginToken, endToken } from "./vocabulary.ts";

/** The tokens that were heard, the end token last unless they were cut short, and what was expected at each of them. */
export interface Transcript {
  tokens: number[];
  expected: Expectation[];
  past: Past;
}

/** Nobody says more tokens a second. */
const tokensASecond = 8;
const leastTokens = 8;
/** In noise the decoder may say the same over and over. One token may well be: the noughts of a million are six. */
const longestLoop = 8;
const loopRounds = 3;
const loneRounds = 8;
/** Nothing was said when the decoder is so sure of it from the first. It overlooks speech now and then when it is less sure. */
const sureSilence = Math.log(0.85);

export function mostTokens(seconds: number): number {
  return leastTokens + Math.ceil(seconds * tokensASecond);
}

/** Gives undefined when the signal is raised. */
export async function transcribe(
  model: SpeechModel,
  features: Tensor,
  most: number,
  signal: AbortSignal,
): Promise<Transcript | undefined> {
  const begun = await model.follow(features, [beginToken]);
  const first = begun.expected[0]!;
  const mayBeNothing = first.best !== endToken || first.of(endToken) >= sureSilence;
  return await goOn(model, features, begun, (token) => mayBeNothing || token !== endToken, most, signal);
}

/** Goes on after what was expected last, with one of the tokens that may be first. Gives undefined when the signal is raised. */
export async function goOn(
  model: SpeechModel,
  features: Tensor,
  begun: { expected: Expectation[]; past: Past },
  mayBeFirst: (token: number) => boolean,
  most: number,
  signal: AbortSignal,
): Promise<Transcript | undefined> {
  const tokens: number[] = [];
  const expected: Expectation[] = [];
  let next = begun.expected.at(-1)!;
  let { past } = begun;
  for (;;) {
    if (signal.aborted) return undefined;
    const token = tokens.length === 0 ? next.bestOf(mayBeFirst) : next.best;
    tokens.push(token);
    expected.push(next);
    if (token === endToken || tokens.length >= most) return { tokens, expected, past };
    const round = loopAt(tokens);
    if (round > 0) {
      // What was said once was perhaps meant.
      const kept = tokens.length - round;
      return { tokens: tokens.slice(0, kept), expected: expected.slice(0, kept), past };
    }
    const step = await model.follow(features, [token], past);
    next = step.expected[0]!;
    past = step.past;
  }
}

/** The number of tokens that were said too much when the last ones are a loop, else 0. */
export function loopAt(tokens: readonly number[]): number {
  for (let length = 1; length <= longestLoop; length++) {
    const isLone = tokens.slice(-length).every((token) => token === tokens.at(-1));
    const rounds = isLone ? Math.ceil(loneRounds / length) : loopRounds;
    const from = tokens.length - length * rounds;
    if (from >= 0 && tokens.slice(from + length).every((token, index) => token === tokens[from + index])) {
      return length * (rounds - 1);
    }
  }
  return 0;
}
