// What somebody says after a request to change it.

import { expect, test } from "bun:test";
import { partsOf } from "../../../src/hands/parsing/request.ts";

const now = new Date(2026, 10, 18, 10, 20);
const given = (text: string, language: "en" | "pt" = "en"): unknown[] =>
  partsOf(text, language, now).flatMap(({ meant }) => (meant ? [meant.given] : []));

test("a time is corrected after a full stop, without its preposition", () => {
  expect(given("Wake me up at seven. Actually, seven fifteen.")).toEqual([{ do: "alarm", at: "2026-11-19T07:15" }]);
  expect(given("Me acorda às sete. Aliás, sete e quinze.", "pt")).toEqual([{ do: "alarm", at: "2026-11-19T07:15" }]);
});

test("a number is corrected after a comma", () => {
  expect(given("Set a timer for 20 minutes, I mean 30")).toEqual([{ do: "timer", seconds: 1_800 }]);
  expect(given("Coloca um timer de 20 minutos, quer dizer, 30", "pt")).toEqual([{ do: "timer", seconds: 1_800 }]);
});

test("an item is corrected", () => {
  expect(given("Add milk to the shopping list. I mean eggs.")).toEqual([{ do: "add", items: "eggs", list: "shopping" }]);
});

test("one more request beside another is no correction", () => {
  expect(given("Set a timer for ten minutes. Actually, also set a timer for five minutes.")).toHaveLength(2);
});

test("a correction that only points at something counts nothing", () => {
  expect(given("Set a timer for ten minutes. I mean the blue one.")).toEqual([]);
  expect(given("Set a timer for ten minutes. I mean twenty one.")).toEqual([{ do: "timer", seconds: 1_260 }]);
});

test("a request is taken back with a reason, and twice over", () => {
  expect(given("Set a timer for ten minutes, actually forget it, I'll watch it.")).toEqual([]);
  expect(given("Coloca um alarme pras quatro. Não, esquece, não precisa.", "pt")).toEqual([]);
});

test("a time is corrected on reflection", () => {
  const atHalfPast = [{ do: "alarm", at: "2026-11-19T07:30" }];
  expect(given("Please wake me at seven. Or no, on reflection, make that half past seven.")).toEqual(atHalfPast);
});

test("what is said before one more item is no part of it", () => {
  const towels = [{ do: "add", items: "paper towels, and bananas", list: "shopping" }];
  expect(given("Add paper towels, oh, and bananas to the shopping list.")).toEqual(towels);
});
