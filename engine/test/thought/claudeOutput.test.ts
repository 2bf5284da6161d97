import { describe, expect, test } from "bun:test";
import { LineReader, readClaudeLine } from "../../src/thought/claudeOutput.ts";

describe("its output", () => {
  test("is read whatever it holds", () => {
    for (const line of ["", "x", "[]", "null", '{"type":7}', '{"type":"assistant"}', '{"type":"assistant","message":{"content":[7,{"type":"text"}]}}', '{"type":"other"}']) {
      expect([line, readClaudeLine(line)]).toEqual([line, []]);
    }
    expect(readClaudeLine('{"type":"result","total_cost_usd":"x","permission_denials":[7]}')).toEqual([
      { kind: "result", text: "", isError: false, costUsd: 0, session: undefined, denied: [] },
    ]);
  });

  test("is cut into lines wherever the pieces end, letting go of endless ones", () => {
    const lines: string[] = [];
    const reader = new LineReader((line) => lines.push(line));
    const bytes = new TextEncoder().encode("olá\nção\n");
    for (const byte of bytes) reader.take(Uint8Array.of(byte));
    for (let piece = 0; piece < 10; piece++) reader.take(new Uint8Array(1 << 20).fill(120));
    reader.take(new TextEncoder().encode("\nlast"));
    reader.end();
    expect(lines).toEqual(["olá", "ção", "last"]);
  });
});
