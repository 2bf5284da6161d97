import { Database } from "bun:sqlite";
import { describe, expect, test } from "bun:test";
import { readdirSync, readFileSync } from "node:fs";
import { join } from "node:path";
import { Conversations } from "../../src/memory/conversations.ts";
import { Store } from "../../src/memory/store.ts";
import { bench } from "../support/bench.ts";
import { ManualClock } from "../support/clock.ts";
import { temporaryFolder } from "../support/folders.ts";

describe("what is kept", () => {
  test("is there again after a restart", async () => {
    const folder = temporaryFolder();
    const clock = new ManualClock();
    const first = bench(folder, clock);
    await first.engine.set({ summonMs: 6_000, wakeWords: ["ana", "bia"], inputDevice: "Headset" });
    first.engine.loop.say("Thanks");
    await clock.advance(10_000);
    first.engine.close();
    const second = bench(folder, clock);
    expect(second.engine.state.settings).toMatchObject({ summonMs: 6_000, wakeWords: ["ana", "bia"], inputDevice: "Headset" });
    expect(second.engine.state.conversation.rows).toEqual(first.engine.state.conversation.rows);
    expect(second.engine.state.memory).toEqual({ isResumed: true, journalDays: 1 });
    expect(second.engine.history).toHaveLength(1);
    second.engine.close();
  });

  test("is a new conversation when the last one was left half an hour ago", async () => {
    const folder = temporaryFolder();
    const clock = new ManualClock();
    const first = bench(folder, clock);
    first.engine.loop.say("Thanks");
    await clock.advance(31 * 60_000);
    first.engine.close();
    const second = bench(folder, clock);
    expect(second.engine.state).toMatchObject({ conversation: { rows: [] }, memory: { isResumed: false } });
    expect(second.engine.history).toHaveLength(1);
    second.engine.close();
  });

  test("is a new conversation when the last one lies in the future, also at the start after the next", async () => {
    const folder = temporaryFolder();
    const clock = new ManualClock();
    const now = clock.time;
    clock.time += 10 * 86_400_000;
    const wrong = bench(folder, clock);
    wrong.engine.loop.say("Thanks");
    await clock.advance(10_000);
    wrong.engine.close();
    clock.time = now;
    const second = bench(folder, clock);
    expect(second.engine.state).toMatchObject({ conversation: { rows: [] }, memory: { isResumed: false } });
    second.engine.loop.say("Hello");
    await clock.advance(10_000);
    second.engine.close();
    const third = bench(folder, clock);
    expect(third.engine.state).toMatchObject({ conversation: { rows: [{ text: "Hello" }, {}] }, memory: { isResumed: true } });
    expect(third.engine.history).toHaveLength(2);
    third.engine.close();
  });

  test("is a conversation that was written a moment ahead of the clock", async () => {
    const folder = temporaryFolder();
    const clock = new ManualClock();
    const first = bench(folder, clock);
    first.engine.loop.say("Thanks");
    await clock.advance(10_000);
    first.engine.close();
    clock.time -= 11_000;
    const second = bench(folder, clock);
    expect(second.engine.state.memory?.isResumed).toBe(true);
    second.engine.close();
  });

  test("is told in documents of bounded size, however long the requests were", async () => {
    const it = bench();
    const brief = "\u0001".repeat(1 << 20);
    it.brain.answer = async (_request, answering) => {
      answering.text("Yes.");
      return { costUsd: 0 };
    };
    for (let n = 0; n < 4; n++) {
      it.engine.loop.say(brief);
      await it.clock.advance(5_000);
      it.engine.newConversation();
      it.engine.loop.say(brief);
      for (let more = 0; more < 8; more++) it.engine.loop.say(brief);
      await it.clock.advance(5_000);
    }
    expect(JSON.stringify(it.engine.state).length).toBeLessThan(32 << 20);
    expect(it.engine.state.conversation.rows.length).toBeGreaterThan(3);
    expect(JSON.stringify(it.engine.history).length).toBeLessThan(1 << 20);
    it.engine.close();
    const again = bench(it.folder, it.clock);
    expect(JSON.stringify(again.engine.state).length).toBeLessThan(32 << 20);
    again.engine.close();
  });
});

describe("a conversation that is forgotten", () => {
  function talk(folder: string) {
    const clock = new ManualClock();
    const store = new Store(folder, () => {}, clock);
    const conversations = new Conversations(store, clock);
    for (let at = 0; at < 200; at++) conversations.add("user", `zanzibar ${at}`);
    const other = new Database(join(folder, "palomet.db"));
    return { store, conversations, clock, other, rows: () => other.query<{ n: number }, []>("SELECT COUNT(*) AS n FROM rows").get()?.n };
  }
  const isIn = (folder: string): boolean => readdirSync(folder).some((name) => readFileSync(join(folder, name)).includes("zanzibar"));

  test("goes little by little, and the engine hears and stops meanwhile", async () => {
    const folder = temporaryFolder();
    const { store, conversations, rows, other } = talk(folder);
    const seen = new Set([rows()]);
    let isDone = false;
    const forgotten = conversations.forget().finally(() => (isDone = true));
    while (!isDone) {
      seen.add(rows());
      await new Promise(setImmediate);
    }
    expect(await forgotten).toBe(true);
    expect(seen.size).toBeGreaterThan(10);
    expect(conversations.history).toEqual([]);
    expect(isIn(folder)).toBe(false);
    other.close();
    store.close();
  });

  test("is forgotten also when the engine ends in the middle", async () => {
    const folder = temporaryFolder();
    const { store, conversations, other } = talk(folder);
    other.close();
    const forgotten = conversations.forget();
    store.close();
    expect(await forgotten).toBe(false);
    expect(readdirSync(folder)).toEqual(["palomet.db"]);
    expect(isIn(folder)).toBe(false);
  });

  test("while the file cannot be written is said to be still there, and leaves it when it can be", async () => {
    const folder = temporaryFolder();
    const { store, conversations, other, clock, rows } = talk(folder);
    other.run("BEGIN IMMEDIATE");
    expect(await conversations.forget()).toBe(false);
    expect(conversations.history).toEqual([]);
    other.run("COMMIT");
    expect(rows()).toBe(200);
    await clock.advance(5_000);
    expect(rows()).toBe(0);
    expect(isIn(folder)).toBe(false);
    other.close();
    store.close();
  });

  test("while another program reads the file is said to be still there", async () => {
    const { store, conversations, other, rows } = talk(temporaryFolder());
    other.run("BEGIN");
    rows();
    expect(await conversations.forget()).toBe(false);
    other.close();
    store.close();
  });
});
