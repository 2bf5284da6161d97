import { Database } from "bun:sqlite";
import { describe, expect, test } from "bun:test";
import { readdirSync, readFileSync, statSync } from "node:fs";
import { join } from "node:path";
import { always, conversations, daySpan, forgetAll, forgetSpan, scrub, search } from "../../src/memory/archive.ts";
import type { Row } from "../../src/base/protocol.ts";
import { prepared } from "../../src/memory/database.ts";
import { temporaryFolder } from "../support/folders.ts";

const at = (day: number, hour = 12): number => new Date(2026, 0, day, hour).getTime();

/** A file with a conversation on the third and one that lasted from the fourth to the fifth. */
function archive(folder = temporaryFolder()) {
  const database = prepared(new Database(join(folder, "palomet.db"), { create: true }));
  const add = (id: string, startedAt: number, rows: [string, string, number][]): void => {
    database.query("INSERT INTO conversations VALUES (?, ?, ?, 1, 0, NULL)").run(id, startedAt, rows[0]![1]);
    for (const row of rows) database.query("INSERT INTO rows (conversation, role, text, at) VALUES (?, ?, ?, ?)").run(id, ...row);
  };
  add("a", at(3), [["user", "first zanzibar", at(3)], ["assistant", "answer one", at(3) + 1]]);
  add("b", at(4, 23), [["user", "second", at(4, 23)], ["tool", "zanzibar tool", at(4, 23) + 1], ["user", "third zanzibar", at(5, 1)]]);
  return { database, folder };
}

test("a search goes by words and by days, the newest first, and leaves tools out", () => {
  const { database } = archive();
  const texts = (words: string, span = always, limit = 9): string[] => search(database, words, span, limit).map(({ text }) => text);
  expect(texts("zanzibar")).toEqual(["third zanzibar", "first zanzibar"]);
  expect(texts("zanz", daySpan(new Date(2026, 0, 3)))).toEqual(["first zanzibar"]);
  expect(texts("", daySpan(new Date(2026, 0, 5)))).toEqual(["third zanzibar"]);
  expect(texts("zanzibar", always, 1)).toEqual(["third zanzibar"]);
  expect(texts("zanzibar third")).toEqual(["third zanzibar"]);
});

test("conversations are written out whole, the oldest first", () => {
  const { database } = archive();
  expect([...conversations(database, always.from)].map(({ conversationId, rows }) => [conversationId, rows.length])).toEqual([["a", 2], ["b", 3]]);
  expect([...conversations(database, at(5, 0))].map(({ conversationId }) => conversationId)).toEqual(["b"]);
});

test("what waits to be written is written out with the rest: new rows once, new conversations in their place, forgotten ones not", () => {
  const { database } = archive();
  const row = (text: string, when: number): Row => ({ role: "user", text, at: when });
  const one = { answers: 2, costUsd: 0.5 };
  const waiting = {
    conversations: [
      { ...one, conversationId: "b", startedAt: at(4, 23), rows: [row("third zanzibar", at(5, 1)), row("fourth", at(6))] },
      { ...one, conversationId: "c", startedAt: at(4), rows: [row("between", at(4))] },
      { ...one, conversationId: "d", startedAt: at(7), rows: [] },
    ],
    forgotten: ["a", "e"],
  };
  const texts = (since: number): [string, string[]][] =>
    [...conversations(database, since, waiting)].map(({ conversationId, rows }) => [conversationId, rows.map(({ text }) => text)]);
  const b = ["b", ["second", "zanzibar tool", "third zanzibar", "fourth"]];
  expect(texts(always.from)).toEqual([["c", ["between"]], b] as never);
  expect(texts(at(6))).toEqual([b] as never);
  expect([...conversations(database, at(6), waiting)][0]).toMatchObject(one);
  expect([...conversations(undefined, always.from, waiting)].map(({ conversationId }) => conversationId)).toEqual(["c", "b"]);
});

/** The text lies in a file of the folder: the database or the log beside it. */
function isIn(folder: string, text: string): boolean {
  return readdirSync(folder).some((name) => readFileSync(join(folder, name)).includes(text));
}

test("a day is forgotten with every conversation that touched it, and leaves nothing in the files", () => {
  const { database, folder } = archive();
  // While an engine has the database open its log stays.
  const engine = prepared(new Database(join(folder, "palomet.db")));
  const add = "INSERT INTO rows (conversation, role, text, at) VALUES ('b', 'user', ?, 9)";
  for (let word = 0; word < 500; word++) engine.query(add).run(`zanzibar${word} third`);
  expect(isIn(folder, "third zanzibar")).toBe(true);
  expect(forgetSpan(database, daySpan(new Date(2026, 0, 5)))).toHaveLength(1);
  expect(scrub(database)).toBe(true);
  expect(search(database, "zanzibar", always, 9).map(({ text }) => text)).toEqual(["first zanzibar"]);
  expect(isIn(folder, "third")).toBe(false);
  expect(forgetSpan(database, always)).toHaveLength(1);
  expect(scrub(database)).toBe(true);
  expect([...conversations(database, always.from)]).toEqual([]);
  for (const word of ["zanzibar", "first ", "answer o"]) expect([word, isIn(folder, word)]).toEqual([word, false]);
  engine.close();
});

test("everything is forgotten at one go, and leaves nothing in the files, which are small again; the next words are found", () => {
  const { database, folder } = archive();
  const engine = prepared(new Database(join(folder, "palomet.db")));
  engine.run("INSERT INTO settings VALUES ('summonMs', '6000')");
  const add = "INSERT INTO rows (conversation, role, text, at) VALUES ('a', 'user', ?, 9)";
  const some = Array.from({ length: 2_000 }, (_, at) => `word${at} zanzibar${at} `.repeat(10));
  database.transaction(() => some.forEach((text) => database.query(add).run(text)))();
  expect(forgetAll(database)).toBe(2);
  expect(scrub(database)).toBe(true);
  expect(isIn(folder, "zanzibar")).toBe(false);
  expect(isIn(folder, "summonMs")).toBe(true);
  expect(statSync(join(folder, "palomet.db")).size).toBeLessThan(100_000);
  engine.query(add).run("another zanzibar");
  expect(search(engine, "zanzibar", always, 9).map(({ text }) => text)).toEqual(["another zanzibar"]);
  expect(forgetAll(database)).toBe(0);
  engine.close();
});

describe("a database of before", () => {
  function prepareOld(more: string): Database {
    const path = join(temporaryFolder(), "palomet.db");
    const old = new Database(path, { create: true });
    old.run(`
      CREATE TABLE settings (key TEXT PRIMARY KEY, value TEXT NOT NULL);
      CREATE TABLE conversations (id TEXT PRIMARY KEY, startedAt REAL NOT NULL, firstQuestion TEXT NOT NULL, answers INTEGER NOT NULL, costUsd REAL NOT NULL, session TEXT);
      CREATE TABLE rows (id INTEGER PRIMARY KEY, conversation TEXT NOT NULL, role TEXT NOT NULL, text TEXT NOT NULL, at REAL NOT NULL, durationMs REAL);
      ${more};
      PRAGMA user_version = 1;`);
    old.close();
    return prepared(new Database(path));
  }

  test("can be searched", () => {
    const database = prepareOld(`
      INSERT INTO conversations VALUES ('a', 1, 'x', 1, 0, NULL);
      INSERT INTO rows (conversation, role, text, at) VALUES ('a', 'user', 'Olá, Zanzibar', 1)`);
    expect(search(database, "ola", always, 9)).toEqual([{ role: "user", text: "Olá, Zanzibar", at: 1 }]);
  });

  test("asks before it does what it could not do then, beside what it was asked about", () => {
    for (const [before, after] of [
      ['["web"]', ["forget", "lock", "note", "open", "screenshot", "web"]],
      ["[]", ["forget", "lock", "note", "open", "screenshot"]],
    ] as const) {
      const database = prepareOld(`INSERT INTO settings VALUES ('confirmActions', '${before}'), ('voiceName', '"Ana"')`);
      const { value } = database.query<{ value: string }, []>("SELECT value FROM settings WHERE key = 'confirmActions'").get()!;
      expect(JSON.parse(value)).toEqual([...after]);
    }
  });
});
