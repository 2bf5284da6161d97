import { describe, expect, test } from "bun:test";
import { ChatReader } from "../../src/thought/chatReader.ts";
import { EventReader } from "../../src/thought/eventReader.ts";
import { jan } from "../support/servers/jan.ts";
import { llamaCpp } from "../support/servers/llamaCpp.ts";
import { lmStudio } from "../support/servers/lmStudio.ts";
import { ollama } from "../support/servers/ollama.ts";

function read(...events: unknown[]) {
  let text = "";
  const reader = new ChatReader((piece) => (text += piece));
  for (const event of events) reader.take(typeof event === "string" ? event : JSON.stringify(event));
  reader.end();
  return { text, calls: reader.calls, ending: reader.ending };
}

const delta = (value: object, reason: string | null = null): object => ({ choices: [{ index: 0, delta: value, finish_reason: reason }] });
const call = (value: object): object => delta({ tool_calls: [value] });
const finished = { kind: "finished" } as const;

describe("an answer", () => {
  test("ends with its mark, or with the reason why the model stopped", () => {
    expect(read(delta({ content: "a" }), "[DONE]")).toEqual({ text: "a", calls: [], ending: finished });
    expect(read(delta({ content: "a" }, "length"))).toEqual({ text: "a", calls: [], ending: finished });
    expect(read(delta({ content: "a" })).ending).toBeUndefined();
  });

  test("holds what is understood of each piece, and nothing else", () => {
    const pieces = [delta({ content: 7 }), delta({ content: null, reasoning_content: "hm" }), { choices: null }, { usage: {} }, { choices: [7] }];
    expect(read(...pieces, delta({ content: "a" }), "[DONE]").text).toBe("a");
    expect(read({ choices: [{ index: 1, delta: { content: "other" } }] }, "[DONE]").text).toBe("");
    expect(read(delta({ content: [{ type: "text", text: "a" }, { type: "image" }, 7, { type: "text", text: "b" }] }), "[DONE]").text).toBe("ab");
  });

  test("that is not streamed is taken whole", () => {
    const message = { role: "assistant", content: "a", tool_calls: [{ id: "1", function: { name: "note", arguments: "{}" } }] };
    expect(read({ choices: [{ index: 0, message, finish_reason: "stop" }] })).toEqual({ text: "a", calls: [{ id: "1", name: "note", given: "{}" }], ending: finished });
  });

  test("ends with an error in any of its forms, and what comes after it is not read", () => {
    const kinds = [{ message: "m", type: "t", code: 5, n_ctx: 9 }, "m", { message: 7 }, {}];
    const read1 = kinds.map((error) => read({ error }, delta({ content: "late" })));
    expect(read1.map(({ text }) => text)).toEqual(["", "", "", ""]);
    expect(read1.map(({ ending }) => ending)).toEqual([
      { kind: "error", message: "m", code: "5 t", window: 9 },
      { kind: "error", message: "m", code: "" },
      { kind: "error", message: "", code: "" },
      { kind: "error", message: "", code: "" },
    ]);
  });

  test("that is no JSON, or none of its objects, is nonsense", () => {
    for (const bad of ["{", "nothing", "[]", "7", "null", '"text"']) expect([bad, read(bad).ending]).toEqual([bad, { kind: "nonsense" }]);
    expect(read({ error: null }, "[DONE]").ending).toEqual(finished);
  });
});

describe("a tool call", () => {
  test("comes in pieces of name and arguments", () => {
    const pieces = [
      call({ index: 0, id: "a", function: { name: "no", arguments: "" } }),
      call({ index: 0, id: null, function: { name: "te", arguments: null } }),
      call({ index: 1, id: "b", function: { name: "open", arguments: "{}" } }),
      call({ index: 0, function: { arguments: '{"text":' } }),
      call({ index: 0, function: { arguments: '"x"}' } }),
    ];
    expect(read(...pieces, delta({}, "tool_calls")).calls).toEqual([
      { id: "a", name: "note", given: '{"text":"x"}' },
      { id: "b", name: "open", given: "{}" },
    ]);
  });

  test("is told from others by its id where it has no number, and gets an id where it has none", () => {
    const byId = [call({ id: "a", function: { name: "note", arguments: "{" } }), call({ id: "b", function: { name: "open" } }), call({ id: "a", function: { arguments: "}" } })];
    expect(read(...byId, "[DONE]").calls).toEqual([{ id: "a", name: "note", given: "{}" }, { id: "b", name: "open", given: "" }]);
    expect(read(call({ function: { name: "note" } }), call({ function: { arguments: "{}" } }), "[DONE]").calls).toEqual([{ id: "call_0", name: "note", given: "{}" }]);
  });

  test("may repeat its name, and give its arguments as an object", () => {
    const again = [call({ index: 0, function: { name: "note", arguments: { a: 1 } } }), call({ index: 0, function: { name: "note", arguments: "" } })];
    expect(read(...again, "[DONE]").calls).toEqual([{ id: "call_0", name: "note", given: '{"a":1}' }]);
  });

  test("is held up to a bound: of calls, of names, of arguments", () => {
    const many = Array.from({ length: 17 }, (_, index) => call({ index, function: { name: "note" } }));
    const longName = Array.from({ length: 30 }, (_, at) => call({ index: 0, function: { name: `abc${at}` } }));
    const longArguments = Array.from({ length: 70 }, () => call({ index: 0, function: { arguments: "x".repeat(1_000) } }));
    for (const pieces of [many, longName, longArguments]) expect(read(...pieces, "[DONE]").ending).toEqual({ kind: "nonsense" });
    expect(read(call({ index: -1, function: { name: "a" } }), call({ index: 0.5, function: { arguments: "{}" } }), "[DONE]").calls).toHaveLength(1);
  });

  test("that is none is left out", () => {
    expect(read(delta({ tool_calls: [7, null, {}, { function: "x" }] }), delta({ tool_calls: "x" }), "[DONE]").calls).toEqual([]);
  });
});

test("no bytes make it throw, or call what was not asked for in whole", () => {
  // A generator of numbers (Park and Miller): each run is the same.
  let seed = 1;
  const random = (below: number): number => (seed = (seed * 48_271) % 2_147_483_647) % below;
  const call = { name: "note", given: { text: "milk" } };
  for (const ways of [ollama, llamaCpp, lmStudio, jan]) {
    const bytes = new TextEncoder().encode(ways.words("One.", " Two.") + ways.calls(call, call));
    for (let round = 0; round < 500; round++) {
      const changed = bytes.slice(random(50), bytes.length - random(50));
      for (let change = random(5); change >= 0; change--) changed[random(changed.length)] = random(256);
      const reader = new ChatReader(() => {});
      const events = new EventReader((data) => reader.take(data), () => reader.tooLong());
      for (let at = 0; at < changed.length; at += 97) events.take(changed.subarray(at, at + 97));
      events.end();
      reader.end();
      for (const { id, name, given } of reader.calls) expect([typeof id, typeof name, typeof given, name.length <= 64]).toEqual(["string", "string", "string", true]);
    }
  }
});
