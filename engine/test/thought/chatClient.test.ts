import { afterEach, describe, expect, test } from "bun:test";
import { systemClock } from "../../src/base/clock.ts";
import { chat } from "../../src/thought/chatClient.ts";
import { ChatServer, type Ways } from "../support/chatServer.ts";
import { ManualClock } from "../support/clock.ts";
import { going } from "../support/processes.ts";
import { jan } from "../support/servers/jan.ts";
import { llamaCpp } from "../support/servers/llamaCpp.ts";
import { lmStudio } from "../support/servers/lmStudio.ts";
import { ollama } from "../support/servers/ollama.ts";

const all: Ways[] = [ollama, llamaCpp, lmStudio, jan];
const servers: ChatServer[] = [];
afterEach(() => servers.splice(0).forEach((server) => server.close()));

async function serve(ways: Ways = ollama): Promise<ChatServer> {
  const server = await ChatServer.open(ways);
  servers.push(server);
  return server;
}

/** An answer that has no end yet. */
const cut = (text: string): string => text.slice(0, text.indexOf('"finish_reason":"stop"'));

async function ask(server: ChatServer, clock = systemClock, signal = going, onText: (text: string) => void = () => {}) {
  const { key, name } = server.ways;
  const known = { name, address: server.address, ...(key === undefined ? {} : { key: () => key }) };
  return await chat({ server: known, wanted: { model: "m", messages: [{ role: "user", content: "x" }] }, onText, clock, signal });
}

for (const ways of all) {
  describe(`${ways.name} is understood`, () => {
    test("in words, and wherever they are cut", async () => {
      const server = await serve(ways);
      for (const pieceBytes of [1, 7, 64, 100_000]) {
        server.answers = [{ body: ways.words("Olá", ", ção 👋🏽", ".\n"), pieceBytes }];
        const pieces: string[] = [];
        expect(await ask(server, systemClock, going, (piece) => pieces.push(piece))).toEqual({ kind: "finished", text: "Olá, ção 👋🏽.\n", calls: [] });
        expect(pieces).toEqual(["Olá", ", ção 👋🏽", ".\n"]);
      }
    });

    test("in tool calls, and wherever they are cut", async () => {
      const server = await serve(ways);
      const wanted = [{ name: "note", given: { text: 'say "é"' } }, { name: "open", given: {} }];
      for (const pieceBytes of [1, 50, 100_000]) {
        server.answers = [{ body: ways.calls(...wanted), pieceBytes }];
        const outcome = await ask(server);
        const calls = outcome.kind === "finished" ? outcome.calls : [];
        expect(calls.map(({ name, given }) => ({ name, given: JSON.parse(given) }))).toEqual(wanted);
        expect(new Set(calls.map(({ id }) => id)).size).toBe(2);
      }
    });

    test("when the model is missing", async () => {
      const server = await serve(ways);
      server.refuses(ways.missing);
      expect(await ask(server)).toMatchObject({ kind: "failed", failure: "missing" });
    });

    test("when something goes wrong in the middle", async () => {
      const server = await serve(ways);
      const begun = ways.words("One.").replace(/data: \[DONE\]\s+$/, "").replace(/"finish_reason":"stop"/, '"finish_reason":null');
      for (const broken of ways.broken) {
        server.answers = [{ body: begun + broken }];
        expect(await ask(server)).toMatchObject({ kind: "failed", failure: "away", detail: expect.stringMatching(/./) });
      }
    });

    test("when it breaks off, in words and in a tool call", async () => {
      const server = await serve(ways);
      const calls = ways.calls({ name: "note", given: { text: "milk" } });
      for (const body of [cut(ways.words("One.")), calls.slice(0, calls.lastIndexOf('"finish_reason":"tool_calls"'))]) {
        server.answers = [{ body }];
        expect(await ask(server)).toMatchObject({ kind: "failed", failure: "cutOff" });
      }
    });

    test("when it says nothing for 60 s, before it answers and in the middle", async () => {
      for (const body of ["", cut(ways.words("One."))]) {
        const server = await serve(ways);
        const clock = new ManualClock();
        server.answers = [{ body, then: "silence" }];
        let hasText = (): void => {};
        const texts = new Promise<void>((resolve) => (hasText = resolve));
        const asked = ask(server, clock, going, hasText);
        await server.asked(1);
        if (body !== "") await texts;
        await clock.advance(59_000);
        expect(server.open).toBe(1);
        await clock.advance(60_000);
        expect(await asked).toEqual({ kind: "failed", failure: "silent", detail: "", ...(body === "" ? {} : { hasBegun: true }) });
        await server.left();
      }
    });
  });
}

test("what cannot be done with tools, or in the model's window, is told apart", async () => {
  const server = await serve(llamaCpp);
  server.refuses(llamaCpp.toolless ?? ollama.missing);
  expect(await ask(server)).toMatchObject({ failure: "toolless" });
  server.answers = [];
  server.refuses(ollama.toolless ?? ollama.missing);
  expect(await ask(server)).toMatchObject({ failure: "toolless" });
  server.answers = [];
  server.refuses(llamaCpp.tooLong ?? ollama.missing);
  expect(await ask(server)).toMatchObject({ failure: "tooLong", window: 1024 });
});

test("the request is one for a stream, with the key and nothing that the server need not know", async () => {
  const server = await serve(jan);
  server.says("Hi.");
  await ask(server);
  const [asked] = server.chats;
  expect(asked).toMatchObject({ method: "POST", path: "/v1/chat/completions", body: { model: "m", stream: true } });
  expect(asked?.headers).toMatchObject({ authorization: "Bearer secret-key-123", "content-type": "application/json" });
  expect(Object.keys(asked?.headers ?? {}).filter((name) => /cookie|referer|origin/.test(name))).toEqual([]);
});

describe("a server that fails", () => {
  test("in the middle is told from one that has answered, and its words were handed on", async () => {
    const server = await serve();
    for (const then of ["end", "loss"] as const) {
      server.answers = [{ body: cut(ollama.words("One.", " Two")), then }];
      let text = "";
      expect(await ask(server, systemClock, going, (piece) => (text += piece))).toEqual({ kind: "failed", failure: "cutOff", detail: "", hasBegun: true });
      expect(text).toBe("One. Two");
    }
  });

  test("before it answers is away: nobody there, no answer, another one, a redirection", async () => {
    const server = await serve();
    const gone = await ChatServer.open(ollama);
    gone.close();
    expect(await ask({ ways: ollama, address: "http://127.0.0.1:1/v1" } as ChatServer)).toMatchObject({ failure: "away" });
    const answers = [
      { status: 500, body: "<html>" },
      { status: 503, body: '{"error":{"code":503,"message":"Loading model","type":"unavailable_error"}}' },
      { status: 404, body: "not found" },
      { body: "data: {\n\n" },
      { body: "<html>", type: "text/html" },
      { body: '{"choices":', type: "application/json" },
    ];
    for (const answer of answers) {
      server.answers = [answer];
      const { failure } = (await ask(server)) as { failure: string };
      expect([answer, failure]).toEqual([answer, "away"]);
    }
    const elsewhere = await serve();
    elsewhere.says("Stolen.");
    server.answers = [{ status: 307, body: "", headers: [`location: ${elsewhere.address}/chat/completions`] }];
    expect(await ask(server)).toEqual({ kind: "failed", failure: "away", detail: "307" });
    expect(elsewhere.chats).toEqual([]);
  });

  test("is asked by itself, whatever proxy the environment names", async () => {
    const [server, proxy] = [await serve(), await serve()];
    server.says("Direct.");
    const before = { ...process.env };
    Object.assign(process.env, { http_proxy: proxy.address, HTTP_PROXY: proxy.address, all_proxy: proxy.address });
    const outcome = await ask(server);
    for (const name of ["http_proxy", "HTTP_PROXY", "all_proxy"]) delete process.env[name];
    Object.assign(process.env, before);
    expect(outcome).toMatchObject({ text: "Direct." });
    expect([proxy.chats, proxy.open]).toEqual([[], 0]);
  });

  test("by its slowness is given up after five minutes, though it is never silent for long", async () => {
    const server = await serve();
    const clock = new ManualClock();
    server.answers = [{ body: "", then: "silence" }];
    const texts: (() => void)[] = [];
    const asked = ask(server, clock, going, () => texts.shift()?.());
    await server.asked(1);
    for (let round = 0; round < 10; round++) {
      const came = new Promise<void>((resolve) => texts.push(resolve));
      server.more(ollama.words("x").split("\n\n")[0] + "\n\n");
      await came;
      await clock.advance(29_000);
    }
    await clock.advance(29_000);
    expect(await asked).toMatchObject({ failure: "slow" });
    await server.left();
  });

  test("by talking without end is cut off", async () => {
    const server = await serve();
    server.answers = [{ body: ollama.words(...Array.from({ length: 200 }, () => "word ".repeat(200))), then: "silence" }];
    const outcome = await ask(server);
    expect(outcome.kind === "finished" ? outcome.text.length : 0).toBeLessThan(66_000 + 1_000);
    await server.left();
    server.answers = [{ body: `data: ${"x".repeat(3 << 20)}`, then: "silence" }];
    expect(await ask(server)).toMatchObject({ failure: "away" });
  });

  test("by saying the key that it refuses does not bring it into the detail", async () => {
    const server = await serve(jan);
    const known = { name: "Jan", address: server.address, key: () => "wrong-key-456" };
    const call = { server: known, wanted: { model: "m", messages: [] }, onText: () => {}, clock: systemClock, signal: going };
    const outcome = await chat(call);
    expect(outcome).toEqual({ kind: "failed", failure: "away", detail: "401: Invalid key …" });
    const unreadable = await chat({ ...call, server: { ...known, key: () => undefined } });
    expect([unreadable, server.chats.length]).toEqual([{ kind: "failed", failure: "away", detail: "não consigo ler a chave" }, 1]);
  });
});

test("an answer that is stopped closes its connection at once, and says no more", async () => {
  const server = await serve();
  server.answers = [{ body: ollama.words("One.").slice(0, -60), then: "silence" }];
  const ending = new AbortController();
  const pieces: string[] = [];
  const asked = ask(server, systemClock, ending.signal, (piece) => {
    pieces.push(piece);
    ending.abort();
  });
  expect(await asked).toMatchObject({ failure: "stopped", detail: "" });
  await server.left();
  expect(pieces).toEqual(["One."]);
  expect(await ask(server, systemClock, AbortSignal.abort())).toMatchObject({ failure: "stopped" });
  expect(server.chats).toHaveLength(1);
});
