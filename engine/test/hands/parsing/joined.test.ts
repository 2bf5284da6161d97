import { expect, test } from "bun:test";
import type { Language } from "../../../src/base/language.ts";
import { partsOf } from "../../../src/hands/parsing/request.ts";

const now = new Date(2026, 10, 18, 14, 30);
const asked = (request: string, language: Language): unknown[] => partsOf(request, language, now).map(({ meant }) => meant && { hand: meant.hand, ...meant.given });

const joined: Record<Language, [string, unknown[]][]> = {
  en: [
    ["pause the music and lock the screen", [{ hand: "media", do: "pause" }, { hand: "lock" }]],
    ["cancel the pasta timer and the egg timer", [
      { hand: "timer", do: "cancel", kind: "timer", name: "pasta" }, { hand: "timer", do: "cancel", kind: "timer", name: "egg" },
    ]],
    ["set a pasta timer for eight minutes, and then an alarm for seven thirty tomorrow morning", [
      { hand: "timer", do: "timer", seconds: 480, name: "pasta" }, { hand: "timer", do: "alarm", at: "2026-11-19T07:30" },
    ]],
    ["set two timers, one for ten minutes and one for fifteen", [
      { hand: "timer", do: "timer", seconds: 600 }, { hand: "timer", do: "timer", seconds: 900 },
    ]],
    ["set three timers: 5, 10 and 15 minutes", [
      { hand: "timer", do: "timer", seconds: 300 }, { hand: "timer", do: "timer", seconds: 600 }, { hand: "timer", do: "timer", seconds: 900 },
    ]],
    ["lock the screen and remind me in ten minutes to call Ana and Bob", [
      { hand: "lock" }, { hand: "timer", do: "reminder", seconds: 600, about: "call Ana and Bob" },
    ]],
  ],
  pt: [
    ["pausa a música e bloqueia a tela", [{ hand: "media", do: "pause" }, { hand: "lock" }]],
    ["cancela o timer do macarrão e o timer do ovo", [
      { hand: "timer", do: "cancel", kind: "timer", name: "macarrão" }, { hand: "timer", do: "cancel", kind: "timer", name: "ovo" },
    ]],
    ["coloca dois timers, um de dez minutos e outro de quinze", [
      { hand: "timer", do: "timer", seconds: 600 }, { hand: "timer", do: "timer", seconds: 900 },
    ]],
    ["põe dois temporizadores de 5 e 10 minutos", [{ hand: "timer", do: "timer", seconds: 300 }, { hand: "timer", do: "timer", seconds: 600 }]],
  ],
};

for (const language of ["en", "pt"] as const) {
  for (const [request, given] of joined[language]) {
    test(`"${request}" asks for ${given.length} things`, () => expect(asked(request, language)).toEqual(given));
  }
}

test("a sentence of which not all asks for something asks for nothing", () => {
  const talk = [
    "my boss said pause the music and lock the screen", "pause the music and he was angry", "set three timers for 5 and 10 minutes",
    "set a timer for ten minutes and call my mom", "set a timer for five minutes, then ten minutes or so", "and lock the screen and",
  ];
  for (const request of talk) expect([request, asked(request, "en")]).toEqual([request, [undefined]]);
});

test("what is noted keeps what it is joined with", () => {
  expect(asked("note that I have to lock the screen and open the door", "en")).toEqual([
    { hand: "note", do: "note", text: "I have to lock the screen and open the door" },
  ]);
});

test("each part is as it was said, where it stands in the request", () => {
  const request = "Hello! Pause the music, and then lock the screen.";
  const parts = partsOf(request, "en", now);
  expect(parts.map(({ text }) => text)).toEqual(["Hello!", "Pause the music", "lock the screen."]);
  for (const { text, start } of parts) expect(request.slice(start, start + text.length)).toBe(text);
});

test("a text of nothing but joints is looked through in no time", () => {
  for (const word of ["and ", "pause and ", ", ", "set a timer and "]) {
    expect(partsOf(word.repeat(400 / word.length), "en", now).every(({ meant }) => meant === undefined)).toBe(true);
  }
});

test("the unit is said once, before what each timer is for", () => {
  expect(asked("Marca doze minutos pros salgados e trinta pro bolo.", "pt")).toEqual([
    { hand: "timer", do: "timer", seconds: 720, name: "salgados" }, { hand: "timer", do: "timer", seconds: 1_800, name: "bolo" },
  ]);
});

test("a question after a request is not about what was asked for", () => {
  const isTime = (text: string): boolean => /what time it is/.test(text);
  const parts = partsOf("Please cancel the glue timer and tell me what time it is.", "en", now, isTime);
  expect(parts.map(({ meant }) => meant?.given.do)).toEqual(["cancel", undefined]);
});
