import { describe, expect, test } from "bun:test";
import type { Language } from "../../../src/base/language.ts";
import { partsOf } from "../../../src/hands/parsing/request.ts";

const now = new Date(2026, 10, 18, 14, 30);
/** What a request asks for: its hands, with what they are to keep. */
const asked = (request: string, language: Language = "en"): string[] =>
  partsOf(request, language, now).flatMap(({ meant }) => (meant ? [`${meant.hand} ${meant.given.text ?? meant.given.about ?? meant.given.do}`] : []));

describe("a request", () => {
  test("is cut into its sentences, each as it was said and where it stands", () => {
    const request = "Hello!  Set a timer for 5 minutes;\nIt is 7 p.m. in Lisbon, 7 a. m. here. ... Dr. Silva and J. R. left at 9 pm. At 5 p.m. They had tea";
    const parts = partsOf(request, "en", now);
    expect(parts.map(({ text }) => text)).toEqual([
      "Hello!", "Set a timer for 5 minutes;", "It is 7 p.m. in Lisbon, 7 a. m. here.", "Dr. Silva and J. R. left at 9 pm.", "At 5 p.m.", "They had tea",
    ]);
    for (const { text, start } of parts) expect(request.slice(start, start + text.length)).toBe(text);
  });
});

describe("what is noted", () => {
  test("goes on to the end of the request", () => {
    expect(asked("Note that the plumber comes at nine. He needs the blue key.")).toEqual(["note the plumber comes at nine. He needs the blue key"]);
    expect(asked("Note: milk is out; so is bread! Is there tea?\n  Ask Ana.")).toEqual(["note milk is out; so is bread! Is there tea? Ask Ana"]);
    expect(asked("Anota que o encanador vem às nove; ele precisa da chave azul.", "pt")).toEqual([
      "note o encanador vem às nove; ele precisa da chave azul",
    ]);
  });

  test("is not done", () => {
    expect(asked("Take a note: Anna is allergic to nuts. Cancel all timers.")).toEqual(["note Anna is allergic to nuts. Cancel all timers"]);
    expect(asked("Faz uma nota: a Ana é alérgica. Cancela todos os timers.", "pt")).toEqual(["note a Ana é alérgica. Cancela todos os timers"]);
  });

  test("may stand in the sentence after the one that asks for it, or in the next line", () => {
    expect(asked("Take a note. Cancel all timers. Pause the music.")).toEqual(["note Cancel all timers. Pause the music"]);
    expect(asked("Take a note:\nPause the music\nCancel all timers")).toEqual(["note Pause the music Cancel all timers"]);
  });

  test("ends where more is to be written down, and before thanks", () => {
    expect(asked("Note that it rains. Note that it pours. Add milk to the shopping list. Thanks.")).toEqual(["note it rains", "note it pours", "note add"]);
    expect(asked("Set a timer for 5 minutes. Note that it rains. It pours. Thank you!")).toEqual(["timer timer", "note it rains. It pours"]);
  });
});

test("what one is to be reminded of goes on to the end of the request", () => {
  expect(asked("Remind me at 9 pm to call Bob. It is about the car; ask for the price.")).toEqual([
    "timer call Bob. It is about the car; ask for the price",
  ]);
  expect(asked("Remind me to call Bob at 9 pm. Cancel all timers.")).toEqual(["timer call Bob. Cancel all timers"]);
  expect(asked("Me lembra às nove da noite de ligar para o Beto. É sobre o carro.", "pt")).toEqual(["timer ligar para o Beto. É sobre o carro"]);
});

test("a request of any length is read", () => {
  for (const request of ["", " \n ", "...", "Note that it rains. ".repeat(60_000), "a;\n".repeat(300_000), "\ud800. Note that it rains"]) {
    expect(partsOf(request, "en", now).length).toBeLessThan(10_000);
  }
});
