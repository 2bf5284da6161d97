import { expect, test } from "bun:test";
import { understood } from "../../../src/hands/parsing/sentence.ts";

const now = new Date(2026, 10, 18, 10, 20);

const short: [string, Record<string, unknown>][] = [
  ["eggs six minutes", { do: "timer", seconds: 360, name: "eggs" }],
  ["hour and a half on the brisket", { do: "timer", seconds: 5400, name: "brisket" }],
  ["nap half an hour wake me", { do: "alarm", seconds: 1800 }],
  ["call Jim remind me at noon", { do: "reminder", at: "2026-11-18T12:00", about: "call Jim" }],
  ["six tonight remind me feed the cat", { do: "reminder", at: "2026-11-18T18:00", about: "feed the cat" }],
  ["milk on the shopping list", { do: "add", items: "milk", list: "shopping" }],
  ["eggs off the shopping list", { do: "remove", item: "eggs", list: "shopping" }],
  ["shopping list", { list: "shopping" }],
  ["calculator", { name: "calculator" }],
  ["downloads folder", { folder: "downloads" }],
];
const talk: string[] = [
  "the eggs took six minutes", "the bread needs attention in ten minutes", "dinner ten minutes", "ten minutes later", "hold on five minutes", "calculator broke", "she said call Jim and remind me at noon", "can you remind me at noon", "remind me who won the game tonight", "I was to add milk on the shopping list", "guest list", "bread on the table", "two minutes on the phone",
];

for (const [sentence, given] of short) {
  test(`"${sentence}" is enough`, () => {
    expect(understood(sentence, "en", now)?.given).toEqual(given);
  });
}

for (const sentence of talk) {
  test(`"${sentence}" asks for nothing`, () => {
    expect(understood(sentence, "en", now)).toBeUndefined();
  });
}
