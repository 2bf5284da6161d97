import { describe, expect, test } from "bun:test";
import { join } from "node:path";
import type { Snapshot } from "../src/base/protocol.ts";
import { ChatServer } from "./support/chatServer.ts";
import { program, temporaryFolder } from "./support/folders.ts";
import { freePort, isAlive, serving } from "./support/processes.ts";
import { jan } from "./support/servers/jan.ts";

const folder = join(import.meta.dir, "..");

function start(port: number, environment: Record<string, string> = {}, options: string[] = []) {
  const child = Bun.spawn([process.execPath, ...options, "src/main.ts"], {
    cwd: folder,
    env: { ...process.env, PALOMET_PORT: String(port), XDG_STATE_HOME: temporaryFolder(), PALOMET_APP_AUDIO: "1", ...environment },
    stdout: "pipe",
    stderr: "pipe",
  });
  const errors = new Response(child.stderr).text();
  return { child, errors };
}

describe("the engine", () => {
  test("says what it serves, keeps others off its port, and ends at once when told to", async () => {
    const port = await freePort();
    const state = temporaryFolder();
    const first = start(port, { XDG_STATE_HOME: state });
    await serving(port);
    expect(await Bun.file(join(state, "palomet/palomet.db")).exists()).toBe(true);

    const second = start(port);
    expect(await second.child.exited).toBe(1);
    expect(await second.errors).toContain("outro motor");

    const force = Bun.spawn(["sleep", "2"]); // then the front end would end it by force
    first.child.kill("SIGTERM");
    expect(await first.child.exited).toBe(0);
    expect(isAlive(force.pid)).toBe(true);
    force.kill();
    const said = await first.errors;
    for (const word of [`http://127.0.0.1:${port}`, "state", "events", "/audio", "draft/clear"]) expect(said).toContain(word);
  });

  test("does what a sentence asks for, and forgets what it is told to while it runs", async () => {
    const port = await freePort();
    const environment = { XDG_STATE_HOME: temporaryFolder(), HOME: temporaryFolder(), PALOMET_LANGUAGES: "en-US", PATH: "" };
    const { child } = start(port, environment);
    await serving(port);
    const state = async () => (await (await fetch(`http://127.0.0.1:${port}/state`)).json()) as Snapshot;
    const ask = async (text: string): Promise<string> => {
      await fetch(`http://127.0.0.1:${port}/say`, { method: "POST", body: JSON.stringify({ text }) });
      for (;;) {
        const last = (await state()).conversation.rows.at(-1);
        if (last?.role === "assistant" && last.durationMs !== undefined) return last.text;
        await Bun.sleep(5);
      }
    };
    expect(await ask("set a timer for ten minutes")).toBe("The timer rings in 10 minutes.");
    expect(await ask("what is 6 times 7")).toBe("That is 42.");
    const command = (...words: string[]): Promise<string> =>
      new Response(Bun.spawn([process.execPath, "src/command.ts", ...words], { cwd: folder, env: { ...environment, PALOMET_PORT: String(port) }, stdout: "pipe" }).stdout).text();
    expect(await command("export")).toContain("> what is 6 times 7");
    expect(await command("forget", "all")).toBe("1 conversation is forgotten.\n");
    expect(await command("export", "--json")).toBe("[]\n");
    const { conversation, memory } = await state();
    expect(conversation.rows).toEqual([]);
    expect(memory).toEqual({ isResumed: false, journalDays: 0 });
    // What was set stays: it is no conversation.
    expect(await ask("how long is left?")).toContain("The timer of 10 minutes rings in");
    child.kill();
    await child.exited;
  });

  test("says so when a stranger holds the port", async () => {
    const stranger = Bun.listen({ hostname: "127.0.0.1", port: 0, socket: { data: (socket) => void socket.end("nonsense") } });
    const engine = start(stranger.port);
    expect(await engine.child.exited).toBe(1);
    expect(await engine.errors).toContain("outro programa");
    stranger.stop(true);
  });

  test("that ends on an error soon after each start says so once, in one line", async () => {
    const state = temporaryFolder();
    const flaw = join(state, "flaw.ts");
    for (const error of ['throw new Error("a flaw")', 'void Promise.reject(new Error("another flaw"))']) {
      const port = await freePort();
      const work = `const ask = () => fetch("http://127.0.0.1:${port}/state").then((answer) => answer.ok).catch(() => false);`;
      await Bun.write(flaw, `${work}\nvoid (async () => { while (!(await ask())) await Bun.sleep(5); setTimeout(() => { ${error}; }); })();`);
      const said: string[] = [];
      for (let n = 0; n < 3; n++) {
        const engine = start(port, { XDG_STATE_HOME: state }, ["--preload", flaw]);
        expect(await engine.child.exited).toBe(1);
        said.push(await engine.errors);
      }
      expect(said[0]?.split("\n").filter((line) => line.includes("flaw"))).toHaveLength(1);
      expect(said.slice(1)).toEqual(["", ""]);
    }
  });

  test("takes the programs that it runs with it", async () => {
    const port = await freePort();
    const mark = join(temporaryFolder(), "pid");
    const tools = program("claude", `[ "$1" = --version ] && echo 2.1.0 && exit\nsleep 600 & echo $! $$ > ${mark}; wait`);
    const engine = start(port, { PATH: `${tools}:${process.env.PATH}` });
    await serving(port);
    const state = async () => (await (await fetch(`http://127.0.0.1:${port}/state`)).json()) as { session: { claudePath: string } };
    while ((await state()).session.claudePath === "") await Bun.sleep(5);
    await fetch(`http://127.0.0.1:${port}/say`, { method: "POST", body: '{"text":"x"}' });
    while (!(await Bun.file(mark).exists()) || (await Bun.file(mark).text()).trim() === "") await Bun.sleep(5);
    const ids = (await Bun.file(mark).text()).trim().split(" ").map(Number);
    engine.child.kill("SIGTERM");
    expect(await engine.child.exited).toBe(0);
    expect(ids).toHaveLength(2);
    expect(ids.filter(isAlive)).toEqual([]);
  });

  test("offers and asks the models of a server that its own file names, and gives the key to nobody else", async () => {
    const port = await freePort();
    const server = await ChatServer.open(jan);
    server.says("It is noon.");
    const config = temporaryFolder();
    const entry = { name: "Mine", address: server.address, keyVariable: "MY_MODEL_KEY" };
    await Bun.write(join(config, "palomet/engine.json"), JSON.stringify({ servers: [entry] }));
    const state = temporaryFolder();
    const tools = program("claude", `env > ${join(state, "environment")}; exit 1`);
    const engine = start(port, { XDG_CONFIG_HOME: config, XDG_STATE_HOME: state, PATH: `${tools}:/usr/bin:/bin`, MY_MODEL_KEY: jan.key ?? "" });
    await serving(port);
    const get = async (what: string) => (await fetch(`http://127.0.0.1:${port}/${what}`)).text();
    const post = async (what: string, body: object) => (await fetch(`http://127.0.0.1:${port}/${what}`, { method: "POST", body: JSON.stringify(body) })).status;
    const model = "jan-v3-4b-base-instruct · Mine";
    expect(JSON.parse(await get("options")).models).toContain(model);
    expect(await post("settings", { brainModel: model })).toBe(200);
    await post("say", { text: "What time is it?" });
    while (!(await get("state")).includes("It is noon.")) await Bun.sleep(5);
    const shown = [await get("state"), await get("options"), await get("history"), await Bun.file(join(state, "environment")).text()];
    engine.child.kill("SIGTERM");
    await engine.child.exited;
    expect([...shown, await engine.errors].filter((text) => text.includes(jan.key ?? ""))).toEqual([]);
    expect(shown[3]).toContain("XDG_STATE_HOME=");
    server.close();
  });

  test("without a voice says that it answers in writing", async () => {
    const port = await freePort();
    const engine = start(port, { PATH: "/none" });
    await serving(port);
    engine.child.kill("SIGTERM");
    await engine.child.exited;
    expect(await engine.errors).toContain("respondo por escrito");
  });
});
