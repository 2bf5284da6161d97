import { Database } from "bun:sqlite";
import { describe, expect, test } from "bun:test";
import { join } from "node:path";
import { systemClock } from "../../src/base/clock.ts";
import { parseJson } from "../../src/base/json.ts";
import { cut } from "../../src/base/text.ts";
import { Store } from "../../src/memory/store.ts";
import { parseLinkEvent } from "../../src/port/linkMessages.ts";
import { readClaudeLine } from "../../src/thought/claudeOutput.ts";
import { sentencesOf } from "../../src/voice/sentences.ts";
import { bench, connect } from "../support/bench.ts";
import { settle } from "../support/clock.ts";
import { temporaryFolder } from "../support/folders.ts";

const family = "👩‍👧";
 // five units of UTF-16: two people and a joiner
const half = "\ud83d";

describe("a text that is cut", () => {
  const table: [string, number, string][] = [
    ["short", 5, "short"],
    ["longer", 4, "long"],
    [`ab${family}c`, 8, `ab${family}c`],
    [`ab${family}c`, 7, `ab${family}`],
    [`ab${family}c`, 6, "ab"],
    [`ab${family}c`, 3, "ab"],
    ["e\u0301e\u0301", 3, "e\u0301"],
    ["👩👧", 3, "👩"],
    [`a${"\u0301".repeat(50)}`, 10, `a${"\u0301".repeat(9)}`],
    [`👩${"\u0301".repeat(50)}`, 1, ""],
    [`a${half}`, 9, "a\ufffd"],
    [`${half}bcd`, 2, "\ufffdb"],
    ["", 0, ""],
  ];
  for (const [text, most, kept] of table) {
    test(`at ${most}, ${JSON.stringify(text.slice(0, 12))} keeps whole characters`, () => expect(cut(text, most)).toBe(kept));
  }
});

/** Finds the places of a document that hold a malformed text. */
function malformed(value: unknown, path = ""): string[] {
  if (typeof value === "string") return value.isWellFormed() ? [] : [path];
  if (typeof value !== "object" || value === null) return [];
  return Object.entries(value).flatMap(([key, inner]) => malformed(inner, `${path}/${key}`));
}

describe("half a character", () => {
  test("becomes a replacement character wherever a document is read", () => {
    const read = parseJson(`{"a":["x\\ud83d",{"b":"\\udc00y"}],"c":"\\ud83d\\ude00"}`);
    expect(read).toEqual({ a: ["x\ufffd", { b: "\ufffdy" }], c: "😀" });
    expect(parseLinkEvent('{"type":"device","device":"a\\uD83D"}')).toEqual({ type: "device", device: "a\ufffd" });
    expect(readClaudeLine('{"type":"assistant","message":{"content":[{"type":"text","text":"a\\ud83d"}]}}')).toEqual([
      { kind: "text", text: "a\ufffd" },
    ]);
  });

  test("never enters the state, by a typed request, a setting, a microphone or an answer", async () => {
    const it = bench();
    const socket = connect(it, `${"m".repeat(499)}${family}`);
    it.engine.link.text(socket, `{"type":"device","device":"${"m".repeat(499)}👩"}`);
    expect(it.engine.state.device).toBe("m".repeat(499));
    expect(await it.engine.set(parseJson('{"wakeWords":["ana\\ud83d"],"voiceName":"b\\udc00"}') as never)).toBeUndefined();
    it.brain.answer = async (_request, answering) => {
      answering.text(`${"a".repeat(19_990)}. ${"👩".repeat(20)}`);
      answering.tool(`Bash: ${half}`.toWellFormed());
      return { costUsd: 0 };
    };
    it.engine.loop.say(`x${half}`);
    await settle();
    await it.clock.advance(200);
    const { state, history } = it.engine;
    expect(malformed(state)).toEqual([]);
    expect(malformed(history)).toEqual([]);
    expect(state.conversation.rows.find(({ role }) => role === "assistant")?.text).toEndWith("👩");
    for (const [, data] of it.events) expect(data).not.toMatch(/\\ud[89a-f]/i);
    it.engine.close();
  });

  test("is not said: a sentence without blanks is cut between characters", () => {
    for (const sentence of sentencesOf(`a${family.repeat(400)}`)) {
      expect(sentence.isWellFormed()).toBe(true);
      expect(sentence.startsWith("\u200d") || sentence.endsWith("\u200d")).toBe(false);
    }
  });

  test("does not show in what a tool is used on, nor in what a database holds", () => {
    const [use] = readClaudeLine(
      JSON.stringify({ type: "assistant", message: { content: [{ type: "tool_use", name: "Bash", input: { command: `${"a".repeat(198)}👩b` } }] } }),
    );
    expect(use).toEqual({ kind: "tool", name: "Bash", detail: `${"a".repeat(198)}…` });

    const folder = temporaryFolder();
    new Store(folder, () => {}, systemClock).close();
    const database = new Database(join(folder, "palomet.db"));
    database.run("INSERT INTO conversations VALUES ('c', 1, CAST(x'61EDA0BD' AS TEXT), 0, 0, NULL)");
    database.run("INSERT INTO rows (conversation, role, text, at) VALUES ('c', 'user', CAST(x'61EDA0BD' AS TEXT), 1)");
    database.close();
    const store = new Store(folder, () => {}, systemClock);
    expect(malformed([store.history(1), store.latestConversation(1)])).toEqual([]);
    store.close();
  });
});
