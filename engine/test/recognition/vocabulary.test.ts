import { describe, expect, test } from "bun:test";
import { shipped } from "../../src/machine/shipped.ts";
import { Vocabulary } from "../../src/recognition/vocabulary.ts";

const path = shipped.vocabulary;
const real = path === undefined ? undefined : new Vocabulary(await Bun.file(path).json());

describe.skipIf(real === undefined)("the vocabulary", () => {
  const texts = ["Palomet, what time is it?", "ação não é", "日本 ☃ 🦊", "a  b", "x".repeat(300), ""];
  for (const text of texts) {
    test(`gives "${text.slice(0, 30)}" back`, () => expect(real!.textOf(real!.tokensOf(text))).toBe(` ${text}`));
  }

  test("joins letters to the tokens that were learned first", () => {
    expect(real!.tokensOf("Palomet is it?").map((token) => real!.textOf([token]))).toEqual([" Pal", "omet", " is", " it", "?"]);
  });

  test("knows which tokens begin a word, and which are punctuation", () => {
    const [word, mark, part] = [real!.tokensOf("Hey")[0]!, real!.tokensOf("x,")[1]!, real!.tokensOf("Palomet")[1]!];
    expect([word, mark, part].map((token) => real!.beginsWord(token))).toEqual([true, false, false]);
    expect([word, mark, part].map((token) => real!.isMark(token))).toEqual([false, true, false]);
  });

  test("knows the token of a text that is one", () => {
    expect(real!.textOf([real!.tokenOf(",")!])).toBe(",");
    expect(real!.tokenOf("a comma")).toBeUndefined();
  });

  test("has no text for tokens that it does not know", () => {
    expect(real!.textOf([0, 1, 2, 32_700, 1e9, -1, NaN])).toBe("");
    expect(real!.beginsWord(32_700)).toBe(false);
  });
});

test("what is no list of tokens is refused", () => {
  for (const broken of [null, {}, [], ["a"], Array.from({ length: 300 }, (_, index) => (index === 7 ? 1 : "a"))]) {
    expect(() => new Vocabulary(broken as string[])).toThrow("no list of texts");
  }
});
