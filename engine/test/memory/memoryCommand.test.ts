import { Database } from "bun:sqlite";
import { expect, test } from "bun:test";
import { existsSync, mkdirSync, readdirSync, rmSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import { always, search, type ArchivedConversation } from "../../src/memory/archive.ts";
import { Conversations } from "../../src/memory/conversations.ts";
import { prepared } from "../../src/memory/database.ts";
import { memoryCommand } from "../../src/memory/memoryCommand.ts";
import { Store } from "../../src/memory/store.ts";
import { serve } from "../../src/port/server.ts";
import { bench } from "../support/bench.ts";
import { ManualClock } from "../support/clock.ts";
import { temporaryFolder } from "../support/folders.ts";
import { freePort, patient } from "../support/processes.ts";

const dayMs = 86_400_000;

async function commandIn(home: string, LANG = "en_US.UTF-8", port?: number, answerMs = patient) {
  port ??= await freePort();
  return async (...words: string[]) => {
    let output = "";
    const complaints: string[] = [];
    const environment = { XDG_STATE_HOME: home, PALOMET_PORT: String(port), LANG };
    const code = await memoryCommand(words, { environment, answerMs, print: (text) => (output += text), complain: (line) => complaints.push(line) });
    return { code, output, complaints };
  };
}

/** A store with a conversation of yesterday and one of today; today is 5 January 2026. */
function kept(home = temporaryFolder()): string {
  const clock = new ManualClock();
  const store = new Store(join(home, "palomet"), () => {}, clock);
  const conversations = new Conversations(store, clock);
  for (const [question, answer] of [["Yesterday's?", "Line one.\nLine two."], ["Today's?", "Yes."]] as const) {
    clock.time += question.startsWith("Yes") ? -dayMs : dayMs;
    conversations.begin();
    conversations.add("user", question);
    conversations.showAnswer(answer);
    conversations.closeAnswer(7);
  }
  store.close();
  return home;
}

test("conversations are exported as JSON, equal to what was kept", async () => {
  const run = await commandIn(kept());
  const { code, output } = await run("export", "--json");
  const all = JSON.parse(output) as ArchivedConversation[];
  expect(code).toBe(0);
  expect(all.map(({ rows }) => rows.map(({ role, text, durationMs }) => [role, text, durationMs]))).toEqual([
    [["user", "Yesterday's?", undefined], ["assistant", "Line one.\nLine two.", 7]],
    [["user", "Today's?", undefined], ["assistant", "Yes.", 7]],
  ]);
  expect(JSON.parse((await run("export", "--since", "2026-01-05", "--json")).output)).toHaveLength(1);
  expect(JSON.parse((await run("export", "--json", "--since", "2026-01-06")).output)).toEqual([]);
});

test("conversations are exported as Markdown", async () => {
  const run = await commandIn(kept());
  expect((await run("export", "--since", "2026-01-05")).output).toBe("## 2026-01-05 15:20\n\n**You**, 15:20\n\n> Today's?\n\n**Palomet**, 15:20\n\n> Yes.\n");
  expect((await run("export")).output).toContain("> Line one.\n> Line two.\n");
});

test("a day is forgotten, or everything, with what was kept aside", async () => {
  const home = kept();
  const run = await commandIn(home);
  expect(await run("forget", "2026-01-04")).toEqual({ code: 0, output: "1 conversation is forgotten.\n", complaints: [] });
  expect(JSON.parse((await run("export", "--json")).output)).toHaveLength(1);
  const aside = join(home, "palomet/palomet.db.aside-2026");
  writeFileSync(aside, "old");
  expect((await run("forget", "all")).output).toBe("1 conversation is forgotten.\n");
  expect(existsSync(aside)).toBe(false);
  expect((await run("forget", "all")).output).toBe("0 conversations are forgotten.\n");
});

test("what is forgotten is said in the user's language", async () => {
  const run = await commandIn(kept(), "pt_BR.UTF-8");
  expect((await run("forget", "2026-01-04")).output).toBe("1 conversa esquecida.\n");
  expect((await run("forget", "2026-01-04")).output).toBe("0 conversas esquecidas.\n");
});

test("what another program still reads is not said to be forgotten for good", async () => {
  const cases = [["en_US.UTF-8", "all", "another program reads"], ["pt_BR.UTF-8", "2026-01-04", "outro programa está lendo"]] as const;
  for (const [language, what, complaint] of cases) {
    const home = kept();
    const run = await commandIn(home, language);
    const reader = new Database(join(home, "palomet/palomet.db"));
    reader.run("BEGIN");
    reader.query("SELECT COUNT(*) FROM rows").get();
    expect(await run("forget", what)).toMatchObject({ code: 1, complaints: [expect.stringContaining(complaint)] });
    reader.close();
    expect(await run("forget", what)).toMatchObject({ code: 0, complaints: [] });
  }
});

test("an engine that runs keeps its settings and what is said next while everything is forgotten", async () => {
  const home = kept();
  const clock = new ManualClock();
  const log: string[] = [];
  const engine = new Store(join(home, "palomet"), (line) => log.push(line), clock);
  engine.saveSetting("summonMs", "6000");
  expect((await (await commandIn(home))("forget", "all")).output).toBe("2 conversations are forgotten.\n");
  const next = new Conversations(engine, clock);
  next.add("user", "Zanzibar?");
  expect(next.history.map(({ firstQuestion }) => firstQuestion)).toEqual(["Zanzibar?"]);
  expect(engine.search("zanzibar", always, 9)).toHaveLength(1);
  expect(engine.loadSettings().get("summonMs")).toBe("6000");
  expect(log).toEqual([]);
  engine.close();
});

/** An engine that serves, and has two conversations in memory alone: another program held the file. */
async function engineInMemory(home: string) {
  const it = bench(join(home, "palomet"));
  it.clock.time += dayMs;
  const other = new Database(join(home, "palomet/palomet.db"));
  other.run("BEGIN IMMEDIATE");
  for (const question of ["Zanzibar?", "Madagascar?"]) {
    it.engine.newConversation();
    it.engine.loop.say(question);
    await it.clock.advance(10);
  }
  other.close();
  expect(it.log.join()).toContain("guardo só na memória");
  const server = serve(it.engine, 0, () => {});
  const end = async (): Promise<void> => {
    await server.stop(true);
    it.engine.close();
  };
  return { ...it, port: server.port!, end };
}

test("what an engine that runs could not write yet is forgotten too, and not written later", async () => {
  for (const [what, questions] of [["all", []], ["2026-01-06", ["Yesterday's?", "Today's?"]]] as const) {
    const home = kept();
    const it = await engineInMemory(home);
    const run = await commandIn(home, "en_US.UTF-8", it.port);
    expect(await run("forget", what)).toEqual({ code: 0, output: `${4 - questions.length} conversations are forgotten.\n`, complaints: [] });
    expect(it.engine.state.conversation.rows).toEqual([]);
    await it.clock.advance(6_000);
    expect(it.log.join()).toContain("outra vez em disco");
    const all = JSON.parse((await run("export", "--json")).output) as ArchivedConversation[];
    expect(all.map(({ rows }) => rows[0]?.text ?? "")).toEqual([...questions]);
    await it.end();
  }
});

test("what an engine that runs could not write yet is exported with the rest, as it is when it has been written", async () => {
  const home = kept();
  const it = await engineInMemory(home);
  const run = await commandIn(home, "en_US.UTF-8", it.port);
  const everything = ["export", "--json"];
  const waiting = await run(...everything);
  const all = JSON.parse(waiting.output) as ArchivedConversation[];
  expect(all.map(({ rows }) => rows[0]?.text ?? "")).toEqual(["Yesterday's?", "Today's?", "Zanzibar?", "Madagascar?"]);
  expect(all[2]?.rows.map(({ role }) => role)).toEqual(["user", "assistant"]);
  const since = await run("export", "--since", "2026-01-06");
  expect(since.output.match(/^> .*\?$/gm)).toEqual(["> Zanzibar?", "> Madagascar?"]);
  expect((await (await commandIn(home))(...everything)).output).not.toContain("Zanzibar");
  expect((await (await commandIn(kept(), "en_US.UTF-8", it.port))(...everything)).output).not.toContain("Zanzibar");
  rmSync(join(home, "palomet/palomet.db"));
  expect(await run(...everything)).toEqual(waiting);
  await it.clock.advance(6_000);
  expect(it.log.join()).toContain("outra vez em disco");
  expect(await run(...everything)).toEqual(waiting);
  await it.end();
});

test("an engine that runs is asked by itself, whatever proxy the environment names", async () => {
  const home = kept();
  const it = await engineInMemory(home);
  const before = { ...process.env };
  const proxy = `http://127.0.0.1:${await freePort()}`;
  Object.assign(process.env, { http_proxy: proxy, HTTP_PROXY: proxy });
  const { output } = await (await commandIn(home, "en_US.UTF-8", it.port))("export");
  for (const name of ["http_proxy", "HTTP_PROXY"]) delete process.env[name];
  Object.assign(process.env, before);
  expect(output).toContain("Zanzibar?");
  await it.end();
});

test("an engine that does not answer is said to, for it may hold more", async () => {
  const home = kept();
  const silent = Bun.listen({ hostname: "127.0.0.1", port: 0, socket: { data() {} } });
  for (const [language, complaint] of [["en_US.UTF-8", "does not answer"], ["pt_BR.UTF-8", "não responde"]] as const) {
    const run = await commandIn(home, language, silent.port, 20);
    for (const words of [["export"], ["forget", "all"]]) {
      expect(await run(...words)).toEqual({ code: 1, output: "", complaints: [expect.stringContaining(complaint)] });
    }
  }
  silent.stop(true);
  expect(JSON.parse((await (await commandIn(home))("export", "--json")).output)).toHaveLength(2);
});

test("what another backend answers takes nothing from the export, and adds nothing to it", async () => {
  const row = { role: "user", text: "x", at: 5 };
  const half = { conversationId: "a", startedAt: 5, answers: 0, costUsd: 0 };
  const bad = [{ ...half, rows: [row, { ...row, role: "other" }] }, { ...half, rows: [{ ...row, at: "5" }] }, { ...half, rows: 5 }, { rows: [row] }, half, null];
  const answers = [null, [], {}, { conversations: 5, forgotten: 5 }, { conversations: bad, forgotten: [5, {}] }].map((value) => JSON.stringify(value));
  const home = kept();
  const whole = await (await commandIn(home))("export", "--json");
  for (const answer of [...answers, "{", ""]) {
    const backend = Bun.serve({ hostname: "127.0.0.1", port: 0, fetch: () => new Response(answer) });
    expect([answer, await (await commandIn(home, "en_US.UTF-8", backend.port))("export", "--json")]).toEqual([answer, whole]);
    await backend.stop(true);
  }
});

test("an engine whose conversations lie elsewhere, or in other days, goes on with its own", async () => {
  const it = await engineInMemory(kept());
  expect((await (await commandIn(kept(), "en_US.UTF-8", it.port))("forget", "all")).code).toBe(0);
  expect(it.engine.state.conversation.rows[0]?.text).toBe("Madagascar?");
  const elsewhere = await (await commandIn(join(it.folder, ".."), "en_US.UTF-8", it.port))("forget", "2026-01-04");
  expect(elsewhere.output).toBe("1 conversation is forgotten.\n");
  expect(it.engine.state.conversation.rows[0]?.text).toBe("Madagascar?");
  await it.end();
});

test("where nothing was ever kept nothing is made", async () => {
  const home = temporaryFolder();
  const run = await commandIn(home);
  expect((await run("export", "--json")).output).toBe("[]\n");
  expect((await run("export")).output).toBe("");
  expect((await run("forget", "all")).code).toBe(0);
  expect(existsSync(join(home, "palomet"))).toBe(false);
});

test("wrong arguments and files are said", async () => {
  const home = temporaryFolder();
  const run = await commandIn(home);
  for (const words of [["export", "x"], ["export", "--since"], ["export", "--since", "2026-02-30"], ["forget"], ["forget", "yesterday"], ["forget", "all", "x"]]) {
    expect(await run(...words)).toMatchObject({ code: 2, output: "" });
  }
  mkdirSync(join(home, "palomet"));
  writeFileSync(join(home, "palomet/palomet.db"), "x".repeat(5_000));
  const { code, complaints } = await run("export");
  expect(code).toBe(1);
  expect(complaints[0]).toContain("palomet.db");
  expect((await run("forget", "all")).code).toBe(1);
});

/** Each kill takes a while: so many by default, and as many as are asked for. */
const kills = Number(process.env.PALOMET_KILLS ?? 10);

test(
  `nothing that was kept is lost by ${kills} kills in the middle of writing, and an export gives it back`,
  async () => {
    const home = temporaryFolder();
    const run = await commandIn(home);
    const kept: string[] = [];
    for (let kill = 0; kill < kills; kill++) {
      const writer = Bun.spawn([process.execPath, join(import.meta.dir, "../support/rowWriter.ts"), join(home, "palomet"), String(kept.length)], { stdout: "pipe" });
      const reader = writer.stdout.getReader();
      const decoder = new TextDecoder();
      let printed = "";
      // After a different number of rows each time.
      while (printed.split("\n").length < 2 + (kill * 13) % 40) printed += decoder.decode((await reader.read()).value, { stream: true });
      writer.kill("SIGKILL");
      for (let piece = await reader.read(); !piece.done; piece = await reader.read()) printed += decoder.decode(piece.value, { stream: true });
      const whole = printed.split("\n").slice(0, -1);
      const all = (JSON.parse((await run("export", "--json")).output) as ArchivedConversation[]).flatMap(({ rows }) => rows.map(({ text }) => text));
      // The row that was being kept may be there or not.
      expect(all.slice(0, kept.length + whole.length)).toEqual([...kept, ...whole]);
      expect(all.length - kept.length - whole.length).toBeLessThanOrEqual(1);
      kept.splice(0, kept.length, ...all);
    }
    expect(readdirSync(join(home, "palomet")).filter((name) => name.includes("aside"))).toEqual([]);
    const database = prepared(new Database(join(home, "palomet/palomet.db")));
    expect(search(database, "row", always, kept.length + 1).map(({ text }) => text).reverse()).toEqual(kept);
    database.close();
  },
  600_000,
);
