import { expect, test } from "bun:test";
import { syllablesOf } from "../../src/recognition/syllables.ts";

const counted: [text: string, syllables: number][] = [
  ["Palomet", 3],
  ["poor man", 2],
  ["Pearl omelette", 4],
  ["Zéphyrine", 3],
  ["Maria Clara", 4],
  ["hmm, 10", 0],
  ["日本", 0],
  ["", 0],
];
for (const [text, syllables] of counted) {
  test(`"${text}" is written with the vowels of ${syllables} syllables`, () => expect(syllablesOf(text)).toBe(syllables));
}
