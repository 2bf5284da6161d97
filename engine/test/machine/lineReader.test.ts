import { expect, test } from "bun:test";
import { LineReader } from "../../src/machine/lineReader.ts";

test("a program's output is cut into lines wherever the pieces end, letting go of endless ones", () => {
  const lines: string[] = [];
  const reader = new LineReader((line) => lines.push(line));
  const bytes = new TextEncoder().encode("olá\nção\n");
  for (const byte of bytes) reader.take(Uint8Array.of(byte));
  for (let piece = 0; piece < 10; piece++) reader.take(new Uint8Array(1 << 20).fill(120));
  reader.take(new TextEncoder().encode("\nlast"));
  reader.end();
  expect(lines).toEqual(["olá", "ção", "last"]);
});
