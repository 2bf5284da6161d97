// Writes down what was said, token by token. More than one way to go on is followed while they are about as likely: the
// likeliest word may lead to none that fits (beam search).

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
/** So many ways are followed, and none that is so much less likely than the likeliest, the logarithm of a ratio. */
const ways = 2;
const mostBehind = 2;
/** Nothing was said when the decoder is so sure of it from the first. It overlooks speech now and then when it is less sure. */
const sureSilence = Math.log(0.85);

export function mostTokens(seconds: number): number {
  return leastTokens + Math.ceil(seconds * tokensASecond);
}

/** Gives undefined when the signal is raised. One that is quick follows one way alone. */
export async function transcribe(
  model: SpeechModel,
  features: Tensor,
  most: number,
  signal: AbortSignal,
  isQuick = false,
): Promise<Transcript | undefined> {
  const begun = await model.follow(features, [beginToken]);
  const first = begun.expected[0]!;
  const mayBeNothing = first.best === endToken && first.of(endToken) >= sureSilence;
  return await goOn(model, features, begun, (token) => mayBeNothing || token !== endToken, most, signal, isQuick ? 1 : ways);
}

/** What was written so far, what is expected next, and what has led there. */
interface Way extends Transcript {
  likelihood: number;
  next: Expectation;
}

/** Goes on after what was expected last, with one of the tokens that may be first. Gives undefined when the signal is raised. */
export async function goOn(
  model: SpeechModel,
  features: Tensor,
  begun: { expected: Expectation[]; past: Past },
  mayBeFirst: (token: number) => boolean,
  most: number,
  signal: AbortSignal,
  atOnce = ways,
): Promise<Transcript | undefined> {
  let open: Way[] = [{ tokens: [], expected: [], past: begun.past, likelihood: 0, next: begun.expected.at(-1)! }];
  let best: (Transcript & { likelihood: number }) | undefined;
  while (open.length > 0) {
    const steps = open.flatMap((way) => stepsOf(way, way.tokens.length === 0 ? mayBeFirst : undefined, atOnce));
    steps.sort((a, b) => b.likelihood - a.likelihood);
    const least = steps[0]!.likelihood - mostBehind;
    open = [];
    for (const { way, token, likelihood } of steps.slice(0, atOnce)) {
      if (likelihood < least || (best && likelihood <= best.likelihood)) break;
      if (signal.aborted) return undefined;
      const tokens = [...way.tokens, token];
      const expected = [...way.expected, way.next];
      const round = loopAt(tokens);
      if (token === endToken || tokens.length >= most || round > 0) {
        // What was said once was perhaps meant.
        const kept = tokens.length - round;
        if (!best || likelihood > best.likelihood) best = { tokens: tokens.slice(0, kept), expected: expected.slice(0, kept), past: way.past, likelihood };
        continue;
      }
      const step = await model.follow(features, [token], way.past);
      open.push({ tokens, expected, past: step.past, likelihood, next: step.expected[0]! });
    }
  }
  return best;
}

/** The likeliest tokens by which a way may go on; the end token where none may be. */
function stepsOf(way: Way, mayBe: ((token: number) => boolean) | undefined, count: number): { way: Way; token: number; likelihood: number }[] {
  const tokens = way.next.likeliest(count, mayBe);
  return (tokens.length > 0 ? tokens : [endToken]).map((token) => ({ way, token, likelihood: way.likelihood + way.next.of(token) }));
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
