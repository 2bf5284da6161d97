import { afterEach, describe, expect, test } from "bun:test";
import { join } from "node:path";
import { systemClock } from "../../src/base/clock.ts";
import { Keys } from "../../src/machine/keys.ts";
import type { ModelServer } from "../../src/machine/modelServer.ts";
import { localServers, ModelServers } from "../../src/machine/modelServers.ts";
import type { NamedServer } from "../../src/machine/namedServers.ts";
import { chat } from "../../src/thought/chatClient.ts";
import { ChatServer, type Ways } from "../support/chatServer.ts";
import { temporaryFolder } from "../support/folders.ts";
import { going } from "../support/processes.ts";
import { jan } from "../support/servers/jan.ts";
import { llamaCpp } from "../support/servers/llamaCpp.ts";
import { lmStudio } from "../support/servers/lmStudio.ts";
import { ollama } from "../support/servers/ollama.ts";

const open: ChatServer[] = [];
afterEach(() => open.splice(0).forEach((server) => server.close()));

async function serve(ways: Ways = ollama): Promise<ChatServer> {
  const server = await ChatServer.open(ways);
  open.push(server);
  return server;
}

function among(local: ModelServer[], named: NamedServer[] = [], limitMs?: number) {
  const log: string[] = [];
  const keys = new Keys({ HOME: temporaryFolder() });
  return { it: new ModelServers(() => named, keys, (line) => log.push(line), local, limitMs), log };
}

const local = (server: ChatServer): ModelServer => ({ name: server.ways.name, address: server.address });

describe("the servers on this machine", () => {
  test("are those at the ports where they listen by themselves", () => {
    expect(localServers.map(({ name, address }) => `${name} ${address}`)).toEqual([
      "Ollama http://127.0.0.1:11434/v1",
      "llama.cpp http://127.0.0.1:8080/v1",
      "LM Studio http://127.0.0.1:1234/v1",
      "Jan http://127.0.0.1:1337/v1",
    ]);
    expect(localServers.filter(({ isFound }) => !isFound)).toEqual([]);
  });

  for (const ways of [ollama, llamaCpp, lmStudio]) {
    test(`list their models, as ${ways.name} does, without those that cannot talk`, async () => {
      const server = await serve(ways);
      const { it } = among([local(server)]);
      await it.look();
      expect(it.names).toEqual(ways.offered.map((model) => `${model} · ${ways.name}`));
      expect(server.lists[0]).toMatchObject({ method: "GET", path: "/v1/models" });
      expect(server.lists[0]?.headers.authorization).toBeUndefined();
    });
  }

  test("that come and go are noticed at the next look", async () => {
    const first = await serve(ollama);
    const { it } = among([local(first), { name: "Jan", address: "http://127.0.0.1:1/v1" }]);
    expect(it.names).toEqual([]);
    await it.look();
    expect(it.names).toEqual(["qwen3:8b · Ollama"]);
    first.close();
    await it.look();
    expect(it.names).toEqual([]);
  });

  test("that are slow are as they were before, and hold up nobody for longer than the limit", async () => {
    const server = await serve();
    const { it } = among([local(server)], [], 50);
    while (it.names.length === 0) await it.look();
    server.list = { body: '{"data":', type: "application/json", then: "silence" };
    await it.look();
    expect(it.names).toEqual(["qwen3:8b · Ollama"]);
    await server.left();
  });

  test("that want a key are not listed, and the log says so", async () => {
    const { it, log } = among([local(await serve(jan))]);
    await it.look();
    expect([it.names, log]).toEqual([[], ["o servidor Jan quer uma chave (401)"]]);
  });

  // Only the superuser can start a program for another.
  const asAnother = ["setpriv", "--reuid=12345", "--clear-groups", process.execPath];
  const canBeAnother = process.geteuid?.() === 0 && Bun.spawnSync([...asAnother, "--version"], { cwd: "/" }).success;

  test.if(canBeAnother)("that are another person's are neither listed nor asked, and the log says so", async () => {
    const script = 'const { port } = Bun.serve({ port: 0, hostname: "127.0.0.1", fetch: () => process.exit(1) }); console.log(port);';
    const child = Bun.spawn([...asAnother, "-e", script], { cwd: "/", stdout: "pipe", stderr: "ignore" });
    const { value } = await child.stdout.getReader().read();
    const theirs = { name: "Ollama", address: `http://127.0.0.1:${new TextDecoder().decode(value).trim()}/v1`, isFound: true };
    const { it, log } = among([theirs]);
    await it.look();
    expect([it.names, log]).toEqual([[], ["outro usuário serve na porta de Ollama; não uso"]]);
    const call = { server: theirs, wanted: { model: "m", messages: [] }, onText: () => {}, clock: systemClock, signal: going };
    expect(await chat(call)).toMatchObject({ failure: "away", detail: "outro usuário serve na porta" });
    expect(child.exitCode).toBeNull();
    child.kill();
    await child.exited;
  });

  test("that are something else list nothing", async () => {
    const server = await serve();
    const { it } = among([local(server)]);
    const lists = ["", "<html>", "[]", '{"data":7}', '{"data":[7,{},{"id":7},{"id":""},{"id":"a\\u202eb"},{"id":" x"}]}', `{"data":"${"x".repeat(2 << 20)}"}`];
    for (const body of lists) {
      server.list = { body, type: "application/json" };
      await it.look();
      expect([body.slice(0, 20), it.names]).toEqual([body.slice(0, 20), []]);
    }
    const elsewhere = await serve();
    server.list = { status: 302, body: "", headers: [`location: ${elsewhere.address}/models`] };
    await it.look();
    expect([it.names, elsewhere.lists]).toEqual([[], []]);
  });

  test("list a bounded number of models, each once, with names that the settings can keep", async () => {
    const server = await serve();
    const ids = [...Array.from({ length: 500 }, (_, at) => `m${at}`), "m1", "x".repeat(300)];
    server.list = { body: JSON.stringify({ data: ["m0", ...ids].map((id) => ({ id })) }), type: "application/json" };
    const { it } = among([local(server)]);
    await it.look();
    expect(it.names.length).toBe(199);
  });
});

describe("a model", () => {
  test("is found by its name, also before the first look and when its server does not list it", async () => {
    const server = await serve();
    const { it } = among([local(server)]);
    expect(it.find("other:1b · Ollama")).toMatchObject({ id: "other:1b", server: { address: server.address } });
    await it.look();
    expect(it.find("other:1b · Ollama")).toMatchObject({ id: "other:1b" });
    expect([it.find("x · Nobody"), it.find("haiku"), it.find("")]).toEqual([undefined, undefined, undefined]);
  });

  test("has the window that its server tells, unless the user says another", async () => {
    const server = await serve();
    for (const [entry, window] of [
      [{ meta: { n_ctx: 8192, n_ctx_train: 131072 } }, 8192],
      [{ max_model_len: 16384 }, 16384],
      [{ context_length: 2048 }, 2048],
      [{ meta: { n_ctx_train: 131072 } }, undefined],
      [{ context_length: "many" }, undefined],
    ] as const) {
      server.list = { body: JSON.stringify({ data: [{ id: "m", ...entry }] }), type: "application/json" };
      const { it } = among([local(server)]);
      await it.look();
      expect([entry, it.find("m · Ollama")?.window]).toEqual([entry, window]);
      const { it: said } = among([], [{ name: "Mine", address: server.address, window: 1024 }]);
      await said.look();
      expect(said.find("m · Mine")?.window).toBe(1024);
    }
  });
});

describe("a server that the user names", () => {
  test("stands beside the others, and is asked with its key", async () => {
    const [mine, theirs] = [await serve(jan), await serve(ollama)];
    const file = join(temporaryFolder(), "key");
    await Bun.write(file, jan.key ?? "");
    const { it } = among([local(theirs)], [{ name: "Mine", address: mine.address, key: { file } }]);
    await it.look();
    expect(it.names).toEqual(["qwen3:8b · Ollama", "jan-v3-4b-base-instruct · Mine"]);
    expect(theirs.lists[0]?.headers.authorization).toBeUndefined();
  });

  test("whose key cannot be read is not asked at all", async () => {
    const server = await serve(jan);
    const { it, log } = among([], [{ name: "Mine", address: server.address, key: { file: "/none/such" } }]);
    await it.look();
    expect([it.names, server.lists, log]).toEqual([[], [], ["não consigo ler a chave do servidor Mine"]]);
  });

  test("with one model is not asked for a list", async () => {
    const server = await serve();
    const { it } = among([], [{ name: "Mine", address: server.address, model: "big" }]);
    await it.look();
    expect([it.names, server.lists]).toEqual([["big · Mine"], []]);
  });

  test("takes the place of the one that would be found there", async () => {
    const server = await serve();
    const { it } = among([local(server)], [{ name: "Mine", address: server.address }]);
    await it.look();
    expect(it.names).toEqual(["qwen3:8b · Mine"]);
  });

  test("is known at the next look when it was named meanwhile", async () => {
    const server = await serve();
    const named: NamedServer[] = [];
    const { it } = among([], named);
    await it.look();
    named.push({ name: "Mine", address: server.address });
    await it.look();
    expect(it.names).toEqual(["qwen3:8b · Mine"]);
  });
});
