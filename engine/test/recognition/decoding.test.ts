import { describe, expect, test } from "bun:test";
import { goOn, loopAt, mostTokens, transcribe } from "../../src/recognition/decoding.ts";
import { Expectation, type SpeechModel } from "../../src/recognition/speechModel.ts";
import { endToken } from "../../src/recognition/vocabulary.ts";
import { going } from "../support/processes.ts";

const size = 40;

/** Expects one token much more than the others, and the end token by a share of what is left. */
function expecting(token: number, endScore = 0): Expectation {
  const scores = new Float32Array(size);
  scores[endToken] = endScore;
  scores[token] = 9;
  return new Expectation(scores);
}

/** A model that says these tokens one after another, and over and over once they are said. */
function saying(tokens: number[], first?: Expectation): SpeechModel {
  const follow: SpeechModel["follow"] = async (_features, fed, past) => {
    const length = (past?.length ?? 0) + fed.length;
    const next = length === 1 && first ? first : expecting(tokens[(length - 1) % tokens.length]!);
    return { expected: [next], past: { tensors: {}, length } };
  };
  return { follow } as Partial<SpeechModel> as SpeechModel;
}

const nothing = {} as never;
const heard = async (model: SpeechModel, most = 100): Promise<number[] | undefined> =>
  (await transcribe(model, nothing, most, going))?.tokens;

describe("what was said", () => {
  test("ends with the end token", async () => {
    expect(await heard(saying([7, 8, 9, endToken]))).toEqual([7, 8, 9, endToken]);
  });

  test("is cut where it is longer than anybody speaks", async () => {
    const endless = Array.from({ length: 30 }, (_, index) => index + 3);
    expect(await heard(saying(endless), 5)).toEqual([3, 4, 5, 6, 7]);
    expect(mostTokens(0)).toBeGreaterThan(0);
  });

  test("is said once when the decoder says it over and over", async () => {
    expect(await heard(saying([7, 8, 9]))).toEqual([7, 8, 9]);
    expect(await heard(saying([7, 8, 9, 10, 11, 12, 13, 14]))).toEqual([7, 8, 9, 10, 11, 12, 13, 14]);
  });

  test("may hold a million", () => {
    expect(loopAt([5, 6, 6, 6, 6, 6, 6])).toBe(0);
    expect(loopAt([5, 6, 6, 6, 6, 6, 6, 6, 6])).toBe(7);
    expect(loopAt([])).toBe(0);
  });

  test("is nothing only when the decoder is sure of it", async () => {
    const scores = new Float32Array(size).fill(-20);
    scores[endToken] = 5;
    scores[7] = 4.5;
    expect(await heard(saying([3, 8, endToken], new Expectation(scores.slice())))).toEqual([7, 8, endToken]);
    scores[7] = 0;
    expect(await heard(saying([3, 8, endToken], new Expectation(scores)))).toEqual([endToken]);
  });

  describe("where the likeliest word leads nowhere", () => {
    /** 7 is likelier than 8 at first, but nothing fits after it. */
    const scored = (scores: Record<number, number>): Expectation => {
      const all = new Float32Array(size).fill(-20);
      for (const [token, score] of Object.entries(scores)) all[Number(token)] = score;
      return new Expectation(all);
    };
    const follow: SpeechModel["follow"] = async (_features, fed, past) => {
      const length = (past?.length ?? 0) + fed.length;
      const after7 = scored({ 10: 0, 11: 0, 12: 0, 13: 0 });
      const next = length === 1 ? scored({ 7: 1, 8: 0.5 }) : length > 2 ? scored({ [endToken]: 9 }) : fed.at(-1) === 7 ? after7 : scored({ 9: 9 });
      return { expected: [next], past: { tensors: {}, length } };
    };
    const model = { follow } as Partial<SpeechModel> as SpeechModel;

    test("is what is likeliest as a whole", async () => {
      expect(await heard(model)).toEqual([8, 9, endToken]);
    });

    test("is what comes first when it is to be quick", async () => {
      expect((await transcribe(model, nothing, 100, going, true))?.tokens).toEqual([7, 10, endToken]);
    });
  });

  test("is left when the signal is raised", async () => {
    const model = saying([7, 8, 9, endToken]);
    expect(await transcribe(model, nothing, 100, AbortSignal.abort())).toBeUndefined();
  });

  test("goes on with a token that may be first", async () => {
    const model = saying([3, 8, endToken]);
    const begun = { expected: [expecting(9)], past: { tensors: {}, length: 1 } };
    expect((await goOn(model, nothing, begun, (token) => token > 4 && token !== 9, 100, going))?.tokens).toEqual([5, 8, endToken]);
    expect((await goOn(model, nothing, begun, () => false, 100, going))?.tokens).toEqual([endToken]);
  });
});

test("the likeliest tokens are those that may be, in their order", () => {
  const expected = new Expectation(Float32Array.from([1, 5, 3, 4, 5]));
  expect(expected.likeliest(3)).toEqual([1, 4, 3]);
  expect(expected.likeliest(2, (token) => token % 2 === 0)).toEqual([4, 2]);
  expect(expected.likeliest(2, () => false)).toEqual([]);
});

test("an expectation without any score is no token's", () => {
  const none = new Expectation(new Float32Array(size).fill(NaN));
  expect(none.best).toBe(0);
  expect(none.likeliest(2)).toEqual([0, 1]);
  expect(none.of(3)).toBeNaN();
});
