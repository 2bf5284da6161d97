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

test("who looks for the word and who says that something else is not meant adds neither", () => {
  const milk = [{ do: "add", items: "milk, eggs", list: "shopping" }];
  expect(given("Uh, put milk and, what was it, eggs on the shopping list.")).toEqual(milk);
  expect(given("Add oat milk, not the normal one, to my groceries.")).toEqual([{ do: "add", items: "oat milk", list: "" }]);
  const lemons = [{ do: "add", items: "kettle descaler", list: "" }, { do: "remove", item: "the lemons", list: "" }];
  expect(given("Pop kettle descaler on the list, and take off the lemons, we've loads.")).toEqual(lemons);
});

test("a reminder has nothing in it of what was said while thinking", () => {
  const mince = [{ do: "reminder", at: "2026-11-18T16:00", about: "defrost the mince" }];
  expect(given("Remind me to, what is it, oh yeah, to defrost the mince, at four this afternoon.")).toEqual(mince);
  const carne = [{ do: "reminder", at: "2026-11-18T16:00", about: "descongelar a carne" }];
  expect(given("Me lembra de, como é que é, ah, de descongelar a carne, às quatro da tarde.", "pt")).toEqual(carne);
});

test("a number is corrected in the next sentence, with the reason behind it", () => {
  const twoMinutes = (name: string): unknown[] => [{ do: "timer", seconds: 120, name }];
  expect(given("Time three minutes for my plank. Actually two, I'm out of shape.")).toEqual(twoMinutes("plank"));
  expect(given("Cronometra três minutos de prancha. Ai, não, dois, que eu tô fora de forma.", "pt")).toEqual(twoMinutes("prancha"));
});

test("what is meant instead is done alone", () => {
  expect(given("Start the meditation, I mean a timer, twenty minutes, call it meditation.")).toEqual([{ do: "timer", seconds: 1_200, name: "meditation" }]);
});

test("a word that is begun twice is said once", () => {
  expect(given("Só amanhã, alarme às quinze pras, pras oito.", "pt")).toEqual([{ do: "alarm", at: "2026-11-19T07:45" }]);
});

test("what is to ring more than once is not set to ring once", () => {
  expect(given("Tell me to take my blood pressure tablet every morning at eight.")).toEqual([]);
  expect(given("Alarme pras seis, não, quer saber, seis e vinte, todo dia.", "pt")).toEqual([]);
  expect(given("Remind me to water every plant at six")).toHaveLength(1);
});

test("an alarm is moved by so much, not set to that hour", () => {
  const earlier = { do: "change", kind: "alarm", day: "2026-11-19", by: -3_600 };
  expect(given("Quero o alarme de amanhã uma hora mais cedo.", "pt")).toEqual([earlier]);
});

test("two reminders of one sentence are two, also behind their times", () => {
  const [bank, sheila] = given("Hoje meio-dia e meia me lembra de ligar no banco, e às duas de ligar pra Sheila.", "pt");
  expect(bank).toEqual({ do: "reminder", at: "2026-11-18T12:30", about: "ligar no banco" });
  expect(sheila).toEqual({ do: "reminder", at: "2026-11-18T14:00", about: "ligar pra Sheila" });
});

test("what follows the clearing of a list is another request", () => {
  const clear = { do: "clear", list: "" };
  expect(given("Limpa a lista e põe leite.", "pt")).toEqual([clear, { do: "add", items: "leite", list: "" }]);
  expect(given("Clear the list and add milk.")).toEqual([clear, { do: "add", items: "milk", list: "" }]);
});

test("what follows on a list goes on the same one", () => {
  const turkey = [{ do: "remove", item: "queijo e presunto", list: "" }, { do: "add", items: "peito de peru", list: "" }];
  expect(given("Tira queijo e presunto da lista e põe peito de peru.", "pt")).toEqual(turkey);
});
