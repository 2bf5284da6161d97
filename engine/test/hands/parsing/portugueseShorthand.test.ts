import { expect, test } from "bun:test";
import { understood } from "../../../src/hands/parsing/sentence.ts";

const now = new Date(2026, 10, 18, 10, 20);

const short: [string, Record<string, unknown>][] = [
  ["ovo sete minutos", { do: "timer", seconds: 420, name: "ovo" }],
  ["um quarto de hora pro chimarrão", { do: "timer", seconds: 900, name: "chimarrão" }],
  ["ligar pro Zé me lembra meio-dia", { do: "reminder", at: "2026-11-18T12:00", about: "ligar pro Zé" }],
  ["leite na lista de compras", { do: "add", items: "leite", list: "compras" }],
  ["calculadora", { name: "calculadora" }],
  ["pasta downloads", { folder: "downloads" }],
];
const talk: string[] = [
  "o bolo ficou quarenta minutos no forno", "dez minutos depois ele chegou", "pasta de dente", "ele falou me lembra às cinco", "me lembra às cinco", "pão dez reais", "eu ia colocar leite na lista de compras"
];

for (const [sentence, given] of short) {
  test(`"${sentence}" is enough`, () => {
    expect(understood(sentence, "pt", now)?.given).toEqual(given);
  });
}

for (const sentence of talk) {
  test(`"${sentence}" asks for nothing`, () => {
    expect(understood(sentence, "pt", now)).toBeUndefined();
  });
}
