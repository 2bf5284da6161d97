import { expect, test } from "bun:test";
import type { Language } from "../../../src/base/language.ts";
import { understood } from "../../../src/hands/parsing/sentence.ts";

const now = new Date(2026, 10, 18, 10, 20);

const told: Record<Language, [string, Record<string, unknown>][]> = {
  en: [
    ["The plumber comes at eight on Friday, so get me up at seven that day.", { do: "alarm", at: "2026-11-20T07:00" }],
    ["The interview is a week today at eleven, so remind me at nine that morning to print my CV.", { do: "reminder", at: "2026-11-25T09:00", about: "print my CV" }],
    ["I want to read for an hour and a half, so put a timer on for that.", { do: "timer", seconds: 5400 }],
    ["The dye stays on for thirty-five minutes, so give me a shout when that's over.", { do: "timer", seconds: 2100 }],
    ["The recipe says a hundred and eighty degrees Celsius, what's that in Fahrenheit?", { expression: "180 degC", to: "degF" }],
  ],
  pt: [
    ["O encanador vem na sexta às oito, então me desperta nesse dia às sete.", { do: "alarm", at: "2026-11-20T07:00" }],
    ["A vaga vale por duas horas, liga um timer disso.", { do: "timer", seconds: 7200 }],
    ["O haltere é de cinco libras, quanto dá isso em quilos?", { expression: "5 lbm", to: "kg" }],
  ],
};

for (const language of ["en", "pt"] as const) {
  for (const [sentence, given] of told[language]) {
    test(`"${sentence}" refers to what it tells first`, () => {
      expect(understood(sentence, language, now)?.given).toEqual(given);
    });
  }
}

test("what somebody else says, or what depends on something, sets nothing that refers to it", () => {
  expect(understood("He said he comes on Friday, wake me at seven that day.", "en", now)).toBeUndefined();
  expect(understood("If it rains on Friday, wake me at seven that day.", "en", now)).toBeUndefined();
  expect(understood("Se chover na sexta, me acorda às sete nesse dia.", "pt", now)).toBeUndefined();
});

test("a measure is put on no list", () => {
  expect(understood("The bag weighs two kilos, add that to the shopping list.", "en", now)?.given.items).not.toBe("two kilos");
});

test("what may be one of several is referred to by nothing", () => {
  expect(understood("It takes ten minutes or twenty minutes, set a timer for that.", "en", now)).toBeUndefined();
});
