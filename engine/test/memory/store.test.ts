import { Database } from "bun:sqlite";
import { describe, expect, test } from "bun:test";
import { chmodSync, existsSync, mkdirSync, readdirSync, readFileSync, rmSync, statSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import type { Snapshot } from "../../src/base/protocol.ts";
import { always } from "../../src/memory/archive.ts";
import { Store } from "../../src/memory/store.ts";
import { bench } from "../support/bench.ts";
import { ManualClock } from "../support/clock.ts";
import { temporaryFolder } from "../support/folders.ts";
import { freePort, serving } from "../support/processes.ts";

function open(folder: string, mostPages?: number) {
  const log: string[] = [];
  const clock = new ManualClock();
  return { store: new Store(folder, (line) => log.push(line), clock, mostPages), log, clock };
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
  test("is for this user's eyes only, also where it was there already and was not", () => {
    const folder = join(temporaryFolder(), "a/b");
    const path = join(folder, "palomet.db");
    const modes = (): number[] => [folder, path, `${path}-wal`, `${path}-shm`].map((each) => statSync(each).mode & 0o777);
    const first = open(folder);
    expect(modes()).toEqual([0o700, 0o600, 0o600, 0o600]);
    first.store.close();
    chmodSync(folder, 0o755);
    chmodSync(path, 0o644);
    writeFileSync(`${path}-wal`, "", { mode: 0o644 });
    const second = open(folder);
    second.store.saveSetting("a", "1");
    expect(modes()).toEqual([0o700, 0o600, 0o600, 0o600]);
    second.store.close();
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

  /** Overwrites the length in the head of each page of the index that begins with this word. */
  function damageIndex(folder: string, word: string): void {
    const path = join(folder, "palomet.db");
    const bytes = readFileSync(path);
    for (let at = 0; (at = bytes.indexOf(`0${word}`, at)) >= 0; at++) {
      if (bytes[at - 1] === word.length + 1 && bytes.readUInt16BE(at - 5) === 0) bytes.writeUInt16BE(0xffff, at - 3);
    }
    writeFileSync(path, bytes);
  }

  function talk(folder: string): void {
    const { store } = open(folder);
    store.saveConversation(conversation);
    for (let at = 0; at < 20; at++) store.addRow("c1", { role: "user", text: `aardvark zebra${at}`, at });
    store.close();
  }

  test("whose index alone is damaged keeps all that it holds, and finds it again", () => {
    const folder = temporaryFolder();
    talk(folder);
    damageIndex(folder, "aardvark");
    const { store } = open(folder);
    expect(store.history(10)).toHaveLength(1);
    expect(store.search("aardvark", always, 99)).toHaveLength(20);
    store.close();
    expect(readdirSync(folder)).toEqual(["palomet.db"]);
  });

  test("whose index is found damaged later on keeps all that it holds, and finds it again", () => {
    const folder = temporaryFolder();
    talk(folder);
    const { store, log } = open(folder);
    damageIndex(folder, "aardvark");
    // After another program has written, the engine reads the file anew.
    const other = new Database(join(folder, "palomet.db"));
    other.run("INSERT INTO settings VALUES ('a', '1')");
    other.close();
    expect(store.search("zebra", always, 99)).toHaveLength(20);
    store.addRow("c1", { role: "user", text: "aardvark zebra", at: 30 });
    expect(store.search("aardvark", always, 99)).toHaveLength(21);
    expect(log).toEqual([expect.stringContaining("índice de busca")]);
    store.close();
    expect(readdirSync(folder)).toEqual(["palomet.db"]);
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

  /** Holds the file as another program does that writes. */
  function held(folder: string, how: "IMMEDIATE" | "EXCLUSIVE" = "IMMEDIATE"): Database {
    const other = new Database(join(folder, "palomet.db"));
    other.run(`BEGIN ${how}`);
    return other;
  }

  for (const how of ["IMMEDIATE", "EXCLUSIVE"] as const) {
    test(`that another program holds (${how}) stays in its place, and what changed meanwhile is written when it is let go`, async () => {
      const folder = temporaryFolder();
      const before = open(folder);
      before.store.saveConversation(conversation);
      before.store.addRow("c1", conversation.rows[0]!);
      const other = held(folder, how);
      const { store, log, clock } = open(folder);
      expect(log).toEqual([expect.stringContaining("outro programa ocupa o banco de dados (database is locked)")]);
      store.saveSetting("a", "1");
      store.addRow("c1", { role: "assistant", text: "Oi", at: 2 });
      expect(store.latestConversation(9)?.rows.map(({ text }) => text)).toEqual(["Olá", "Oi"]);
      await clock.advance(6_000);
      expect(log).toHaveLength(1);
      other.close();
      await clock.advance(60_000);
      expect(log.at(-1)).toContain("outra vez em disco");
      store.close();
      before.store.close();
      expect(readdirSync(folder)).toEqual(["palomet.db"]);
      const again = open(folder).store;
      expect(again.latestConversation(9)?.rows.map(({ text }) => text)).toEqual(["Olá", "Oi"]);
      expect(again.loadSettings()).toEqual(new Map([["a", "1"]]));
      again.close();
    });
  }

  test("that another program holds later on stays in its place, with the settings and the conversations", async () => {
    const it = bench();
    await it.engine.set({ summonMs: 6_000 });
    it.engine.loop.say("Thanks");
    await it.clock.advance(10_000);
    const other = held(it.folder);
    await it.engine.set({ voiceSpeed: 2 });
    expect(it.log.join()).toContain("guardo só na memória");
    expect(it.engine.history).toHaveLength(1);
    other.close();
    it.engine.close();
    expect(asides(it.folder)).toEqual([]);
    const again = bench(it.folder, it.clock);
    expect(again.engine.state.settings).toMatchObject({ summonMs: 6_000, voiceSpeed: 2 });
    expect(again.engine.state.conversation.rows).toHaveLength(2);
    again.engine.close();
  });

  test("that another program empties while it holds it stays empty but for what is said meanwhile", async () => {
    const folder = temporaryFolder();
    const { store, clock } = open(folder);
    store.saveConversation(conversation);
    store.addRow("c1", conversation.rows[0]!);
    const other = held(folder);
    store.saveConversation({ ...conversation, conversationId: "c2" });
    store.addRow("c2", { role: "user", text: "Now", at: 9 });
    other.run("DELETE FROM rows");
    other.run("DELETE FROM conversations");
    other.run("COMMIT");
    other.close();
    await clock.advance(5_000);
    expect(store.history(9).map(({ conversationId }) => conversationId)).toEqual(["c2"]);
    expect(store.search("", always, 9).map(({ text }) => text)).toEqual(["Now"]);
    store.close();
  });

  test("that is lost while the engine is in memory is written whole", async () => {
    const folder = temporaryFolder();
    const { store, clock } = open(folder);
    store.saveConversation(conversation);
    store.addRow("c1", conversation.rows[0]!);
    const other = held(folder);
    store.saveSetting("a", "1");
    other.close();
    for (const name of readdirSync(folder)) rmSync(join(folder, name));
    await clock.advance(5_000);
    expect(readdirSync(folder)).toContain("palomet.db");
    expect(store.latestConversation(9)?.rows).toHaveLength(1);
    expect(store.loadSettings()).toEqual(new Map([["a", "1"]]));
    store.close();
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

describe("a full disk", () => {
  /** Makes a small file system that nobody else sees. */
  const alone = process.getuid?.() === 0 ? ["unshare", "-m"] : ["unshare", "-Urm"];
  const onSmallDisk = (folder: string, command: string, size: string): string[] => [
    ...alone, "sh", "-c", `mount -t tmpfs -o size=${size} tmpfs ${folder} && ${command}`,
  ];
  const canMount = Bun.spawnSync(onSmallDisk(temporaryFolder(), "true", "64k")).success;

  test.if(canMount)("loses nothing while there is no room, and everything is on disk when there is room again", async () => {
    const folder = temporaryFolder();
    const command = `exec ${process.execPath} ${join(import.meta.dir, "fullDisk.ts")} ${folder}`;
    const child = Bun.spawn(onSmallDisk(folder, command, "1024k"), { stdout: "pipe" });
    expect(JSON.parse(await new Response(child.stdout).text())).toEqual({
      full: { log: [expect.stringContaining("só na memória")], rows: 59, settings: ["kept", "changed"] },
      room: { log: ["o banco de dados está outra vez em disco"] },
      kept: { rows: 60, answers: 7, last: "last", settings: [["kept", "1"], ["changed", "2"]] },
      begunFull: { log: 1, rows: 60, settings: 2 },
      closed: { log: ["o banco de dados está outra vez em disco"], last: "added", rows: 61, settings: [["kept", "1"], ["changed", "3"]] },
    });
  });

  test.if(canMount)("with the log on it does not end the engine", async () => {
    const folder = temporaryFolder();
    const port = await freePort();
    const settings = `XDG_STATE_HOME=${folder} PALOMET_PORT=${port} PATH=/none`;
    const command = `cat /dev/zero > ${folder}/filler; ${settings} exec ${process.execPath} src/main.ts 2>> ${folder}/log`;
    const engine = Bun.spawn(onSmallDisk(folder, command, "64k"), { cwd: join(import.meta.dir, "../.."), stderr: "ignore" });
    await serving(port);
    const post = (path: string, body: string) => fetch(`http://127.0.0.1:${port}/${path}`, { method: "POST", body });
    const state = async () => (await fetch(`http://127.0.0.1:${port}/state`)).json() as Promise<Snapshot>;
    for (let n = 0; n < 50; n++) {
      expect((await post("settings", `{"followUpMs":${n}}`)).status).toBe(200);
      expect((await post("say", '{"text":"Thanks"}')).status).toBe(200);
    }
    expect((await state()).settings.followUpMs).toBe(49);
    expect((await state()).conversation.rows.length).toBeGreaterThanOrEqual(50);
    rmSync(`/proc/${engine.pid}/root${folder}/filler`);
    while (!existsSync(`/proc/${engine.pid}/root${folder}/log`)) await Bun.sleep(10);
    engine.kill("SIGTERM");
    expect(await engine.exited).toBe(0);
  });
});
