import { expect, test } from "bun:test";
import type { Language } from "../../../src/base/language.ts";
import { CalculateHand } from "../../../src/hands/facts/calculateHand.ts";
import { shipped } from "../../../src/machine/shipped.ts";

const hand = new CalculateHand(shipped.mathematics);
const ask = (given: unknown, language: Language = "en"): Promise<string> => hand.act(given, language);

test("sums are worked out, with the marks of the language", async () => {
  expect(await ask({ expression: "5 * 3 + 2" })).toBe("That is 17.");
  expect(await ask({ expression: "15 / 100 * 80" })).toBe("That is 12.");
  expect(await ask({ expression: "0.1 + 0.2" })).toBe("That is 0.3.");
  expect(await ask({ expression: "sqrt(144) - (2 + 3)^2" })).toBe("That is -13.");
  expect(await ask({ expression: "10000 / 3" }, "pt")).toBe("Dá 3.333,33333333.");
});

test("measures are converted", async () => {
  expect(await ask({ expression: "10 km", to: "mile" })).toBe("That is 6.2137 miles.");
  expect(await ask({ expression: "70 degF", to: "degC" })).toBe("That is 21.111 degrees Celsius.");
  expect(await ask({ expression: "-40 degC", to: "degF" }, "pt")).toBe("Dá -40 graus Fahrenheit.");
  expect(await ask({ expression: "60 mile/hour", to: "km/hour" })).toBe("That is 96.561 km/hour.");
});

test("what cannot be worked out is said", async () => {
  expect(await ask({ expression: "2 +" })).toBe("I cannot work that out.");
  expect(await ask({ expression: "10 km", to: "kg" })).toBe("I cannot work that out.");
  expect(await ask({ expression: "10 km" })).toBe("That makes no number.");
  expect(await ask({ expression: "sqrt(-1)" })).toBe("That makes no number.");
  expect(await ask({ expression: "9^9^9^9" })).toBe("That number is too large.");
  expect(await ask({ expression: "1 / 0" })).toBe("That number is too large.");
});

test("nothing but sums is given to the library", async () => {
  const attempts = [
    "import({})", "evaluate('1')", 'createUnit("x")', "f(x) = x", "a = 5", "[1, 2, 3]", "ones(1e9)", "1:1e9", "cos.constructor('return 1')()", "parse('1')", "1; 2",
    "x'", "1 ? 2 : 3", "{a: 1}", "range(1, 1e9)", "zeros (5)", "1".repeat(301),
  ];
  for (const expression of attempts) {
    expect(hand.intent({ expression }, "en")).toBeUndefined();
    expect(await ask({ expression })).toBe("I did not understand the sum.");
  }
  for (const given of [undefined, {}, { expression: 5 }, { expression: "1", to: 5 }, { expression: "1", to: "a = 5" }]) {
    expect(await ask(given)).toBe("I did not understand the sum.");
  }
});

test("where the library is not installed that is said", async () => {
  expect(await new CalculateHand(undefined).act({ expression: "1 + 1" }, "en")).toBe("The calculator is not installed.");
  expect(await new CalculateHand("/nonexistent.js").act({ expression: "1 + 1" }, "pt")).toBe("A calculadora não está instalada.");
});
