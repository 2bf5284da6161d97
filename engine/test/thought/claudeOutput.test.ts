import { describe, expect, test } from "bun:test";
import { readClaudeLine } from "../../src/thought/claudeOutput.ts";

describe("its output", () => {
  test("is read whatever it holds", () => {
    for (const line of ["", "x", "[]", "null", '{"type":7}', '{"type":"assistant"}', '{"type":"assistant","message":{"content":[7,{"type":"text"}]}}', '{"type":"other"}']) {
      expect([line, readClaudeLine(line)]).toEqual([line, []]);
    }
    expect(readClaudeLine('{"type":"result","total_cost_usd":"x","permission_denials":[7]}')).toEqual([
      { kind: "result", text: "", isError: false, costUsd: 0, session: undefined, denied: [] },
    ]);
  });
});
