import { describe, expect, test } from "bun:test";
import type { Row } from "../../src/base/protocol.ts";
import { callMessage, earlierMessages, fitted, type Message, windowFor } from "../../src/thought/chatHistory.ts";

const row = (role: Row["role"], text: string): Row => ({ role, text, at: 0 });

describe("the conversation for a model", () => {
  test("has what was said, turn by turn, and not what the tools did", () => {
    const rows = [row("assistant", "Left over."), row("user", "a"), row("tool", "note: x"), row("assistant", "b"), row("user", "stopped"), row("user", "c"), row("user", " ")];
    expect(earlierMessages(rows)).toEqual([
      { role: "user", content: "a" },
      { role: "assistant", content: "b" },
      { role: "user", content: "stopped\nc" },
    ]);
  });

  test("has arguments that are an object, whatever the model wrote", () => {
    const calls = ['{"a":1}', "", "[1]", "{"].map((given, at) => ({ id: `${at}`, name: "note", given }));
    const message = callMessage("", calls);
    const sent = message.role === "assistant" ? message.tool_calls?.map(({ function: { arguments: given } }) => given) : [];
    expect(sent).toEqual(['{"a":1}', "{}", "{}", "{}"]);
  });
});

describe("a window", () => {
  const system: Message = { role: "system", content: "s".repeat(30) };
  const turns = (count: number): Message[] =>
    Array.from({ length: count }, (_, at): Message[] => [{ role: "user", content: `${at}`.padEnd(300, "q") }, { role: "assistant", content: "a".repeat(300) }]).flat();
  const last: Message = { role: "user", content: "now" };

  test("that is large enough holds everything", () => {
    const all = [system, ...turns(5), last];
    expect(fitted(all, 4_096, 0)).toEqual(all);
  });

  test("leaves out the oldest turns first, begins with what the user said, and keeps a quarter for the answer", () => {
    const all = [system, ...turns(20), last];
    const sent = fitted(all, 2_000, 0);
    expect(sent[0]).toEqual(system);
    expect(sent.at(-1)).toEqual(last);
    expect(sent[1]?.role).toBe("user");
    expect(sent.slice(1)).toEqual(all.slice(all.length - sent.length + 1));
    const bytes = sent.reduce((sum, { content }) => sum + content.length, 0);
    expect(bytes / 3).toBeLessThanOrEqual(1_500);
    expect(bytes / 3).toBeGreaterThan(1_000);
    expect(fitted(all, 2_000, 1_500).length).toBeLessThan(sent.length);
  });

  const [one, other] = [callMessage("", [{ id: "1", name: "note", given: "{}" }]), callMessage("", [{ id: "2", name: "note", given: "{}" }])];
  const said = (length: number, id = "1", mark = "r"): Message => ({ role: "tool", content: mark.repeat(length), tool_call_id: id });

  test("keeps the last turn, however small it is, and a quarter of it for what its tools said", () => {
    const all = [system, ...turns(3), last, one, said(3_000)];
    const sent = fitted(all, 512, 0);
    expect(sent.slice(0, -1)).toEqual([system, last, one]);
    expect(sent.at(-1)).toEqual(said((128 - 8) * 3));
    expect(fitted(all, 0, 0)).toEqual([system, last, one, said(0)]);
    expect(fitted([], 512, 0)).toEqual([]);
  });

  test("cuts what tools said before it leaves out a turn, and the longest first", () => {
    const all = [system, ...turns(3), last, one, said(90), other, said(6_000, "2"), one, said(9_000)];
    const sent = fitted(all, 2_400, 0);
    expect(sent).toHaveLength(all.length);
    const lengths = sent.filter(({ role }) => role === "tool").map(({ content }) => content.length);
    expect(lengths[0]).toBe(90);
    expect(lengths[1]).toBe(lengths[2] as number);
    expect(windowFor(sent, 0)).toBeLessThanOrEqual(2_400);
    expect(windowFor(sent, 0)).toBeGreaterThan(2_390);
  });

  test("cuts what tools said between characters, whatever the script", () => {
    const sent = fitted([system, last, one, said(1_000, "1", "👧")], 512, 0);
    expect(sent.at(-1)?.content).toMatch(/^(👧)+$/u);
    expect(windowFor(sent, 0)).toBeLessThanOrEqual(512);
  });

  test("counts the bytes of other scripts", () => {
    const cyrillic: Message[] = [{ role: "user", content: "я".repeat(600) }, { role: "assistant", content: "да" }];
    expect(fitted([system, ...cyrillic, last], 540, 0)).toEqual([system, last]);
    expect(fitted([system, { role: "user", content: "i".repeat(600) }, { role: "assistant", content: "ok" }, last], 540, 0)).toHaveLength(4);
  });
});
