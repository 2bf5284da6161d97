import { Database } from "bun:sqlite";
import { describe, expect, test } from "bun:test";
import { mkdirSync, readFileSync, readdirSync, statSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import { Store } from "../src/store.ts";
import { bench, ManualClock, temporaryFolder } from "./support.ts";

function open(folder: string, mostPages?: number) {
  const log: string[] = [];
  return { store: new Store(folder, (line) => log.push(line), mostPages), log };
}

const conversation = {
  conversationId: "c1",
  startedAt: 1_000,
  costUsd: 0.5,
  answers: 1,
  rows: [{ role: "user" as const, text: "Olá", at: 1_000 }],
  session: "s1",
};

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

  test("is for this user's eyes only", () => {
    const folder = join(temporaryFolder(), "a/b");
    open(folder).store.close();
    expect(statSync(folder).mode & 0o077).toBe(0);
  });

  test("of a setting that is no longer good is the default", () => {
    const folder = temporaryFolder();
    const { store } = open(folder);
    store.saveSetting("summonMs", '"six"');
    store.saveSetting("followUpMs", "{");
    store.saveSetting("forgotten", "1");
    store.saveSetting("voiceSpeed", "2");
    store.close();
    const it = bench(folder);
    expect(it.engine.state.settings).toMatchObject({ summonMs: 8_000, followUpMs: 15_000, voiceSpeed: 2 });
    it.engine.close();
  });
});

function asides(folder: string): string[] {
  return readdirSync(folder).filter((name) => /^palomet\.db\.aside-[^-]*-[^-]*-[^.]*$/.test(name));
}

describe("a database", () => {
  test("that is no database is kept aside, and a new one made", () => {
    const folder = temporaryFolder();
    writeFileSync(join(folder, "palomet.db"), "x".repeat(5_000));
    const { store, log } = open(folder);
    store.saveSetting("a", "1");
    expect(store.loadSettings()).toEqual(new Map([["a", "1"]]));
    expect(asides(folder)).toHaveLength(1);
    expect(log).toHaveLength(1);
    expect(log[0]).toContain("começo um novo");
    store.close();
  });

  test("that is damaged inside is kept aside", () => {
    const folder = temporaryFolder();
    const { store } = open(folder);
    store.saveConversation(conversation);
    for (let at = 0; at < 300; at++) store.addRow("c1", { role: "user", text: "x".repeat(100), at });
    store.close();
    const path = join(folder, "palomet.db");
    const bytes = new Uint8Array(statSync(path).size).fill(0xff, 4_096);
    bytes.set(readFileSync(path).subarray(0, 4_096));
    writeFileSync(path, bytes);
    const again = open(folder);
    expect(again.store.history(10)).toEqual([]);
    expect(asides(folder)).toHaveLength(1);
    again.store.close();
  });

  test("of a later version is kept aside", () => {
    const folder = temporaryFolder();
    const other = new Database(join(folder, "palomet.db"), { create: true });
    other.run("PRAGMA user_version = 99");
    other.close();
    const { store, log } = open(folder);
    expect(store.loadSettings().size).toBe(0);
    expect(log[0]).toContain("99");
    store.close();
  });

  test("that another program holds locked is kept aside", () => {
    const folder = temporaryFolder();
    open(folder).store.close();
    const other = new Database(join(folder, "palomet.db"));
    other.run("BEGIN EXCLUSIVE");
    const { store, log } = open(folder);
    store.saveSetting("a", "1");
    expect(store.loadSettings().get("a")).toBe("1");
    expect(log[0]).toContain("locked");
    other.close();
    store.close();
  });

  test("that is locked later on is replaced, with the settings and the conversation of now", async () => {
    const it = bench();
    await it.engine.set({ summonMs: 6_000 });
    it.engine.loop.say("Thanks");
    await it.clock.advance(10_000);
    const other = new Database(join(it.folder, "palomet.db"));
    other.run("BEGIN EXCLUSIVE");
    await it.engine.set({ voiceSpeed: 2 });
    expect(it.log.join()).toContain("começo um novo");
    other.close();
    it.engine.close();
    const again = bench(it.folder, it.clock);
    expect(again.engine.state.settings).toMatchObject({ summonMs: 6_000, voiceSpeed: 2 });
    expect(again.engine.state.conversation.rows).toHaveLength(2);
    again.engine.close();
  });

  test("that is full goes on in memory with all it holds, and says so", () => {
    const folder = temporaryFolder();
    const { store, log } = open(folder, 12);
    store.saveConversation(conversation);
    for (let at = 0; at < 100; at++) store.addRow("c1", { role: "assistant", text: "x".repeat(1_000), at });
    expect(log).toHaveLength(1);
    expect(log[0]).toContain("memória");
    expect(store.history(10)).toHaveLength(1);
    expect(store.latestConversation(1_000)?.rows).toHaveLength(100);
    expect(asides(folder)).toEqual([]);
    store.close();
  });

  test("in a folder that cannot be made is in memory", () => {
    const file = join(temporaryFolder(), "file");
    writeFileSync(file, "");
    const { store, log } = open(join(file, "folder"));
    store.saveSetting("a", "1");
    expect(store.loadSettings().get("a")).toBe("1");
    expect(log[0]).toContain("memória");
  });

  test("whose place is taken by a folder is kept aside", () => {
    const folder = temporaryFolder();
    mkdirSync(join(folder, "palomet.db"));
    const { store } = open(folder);
    store.saveSetting("a", "1");
    expect(store.loadSettings().get("a")).toBe("1");
    store.close();
  });
});

