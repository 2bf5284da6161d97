import { afterAll, beforeAll, describe, expect, test } from "bun:test";
import { serve } from "../../src/port/server.ts";
import { bench, type Bench } from "../support/bench.ts";
import { settle } from "../support/clock.ts";

let it: Bench;
let server: ReturnType<typeof serve>;
let base: string;

beforeAll(() => {
  it = bench();
  server = serve(it.engine, 0, (line) => it.log.push(line));
  base = `http://127.0.0.1:${server.port}`;
});

afterAll(async () => {
  await server.stop(true);
  it.engine.close();
});

function post(path: string, body?: string, headers: Record<string, string> = {}): Promise<Response> {
  return fetch(`${base}/${path}`, { method: "POST", headers, ...(body === undefined ? {} : { body }) });
}

async function get(path: string): Promise<Record<string, unknown>> {
  return (await (await fetch(`${base}/${path}`)).json()) as Record<string, unknown>;
}

describe("the documents", () => {
  test("state holds every required field with its type", async () => {
    const state = await get("state");
    const types: Record<string, string> = {
      state: "string",
      isMuted: "boolean",
      isMicDead: "boolean",
      device: "string",
      conversation: "object",
      session: "object",
      settings: "object",
    };
    for (const [key, type] of Object.entries(types)) expect([key, typeof state[key]]).toEqual([key, type]);
    expect(Object.keys(state.settings as object)).toEqual(
      expect.arrayContaining([
        ..."wakeWords inputPreference whisperModel followUpMs summonMs echoGuardMs voiceId voiceName voiceSpeed".split(" "),
        ..."fishModel fallbackVoice brainModel folders confirmActions workingFolder".split(" "),
      ]),
    );
    expect(Object.keys(state.session as object).sort()).toEqual(
      ["claudePath", "claudeVersion", "isReady", "model", "startedAt"],
    );
  });

  test("history is an array, and options hold every list", async () => {
    expect(await get("history")).toEqual([] as never);
    expect(Object.keys(await get("options")).sort()).toEqual(
      ["claudePaths", "confirmActions", "fishModels", "inputs", "macVoices", "models", "whisperModels"],
    );
  });

  test("are not to be posted, and commands not to be got", async () => {
    expect((await post("state")).status).toBe(405);
    expect((await fetch(`${base}/listen`)).status).toBe(405);
    expect((await fetch(`${base}/nothing`)).status).toBe(404);
    expect((await fetch(`${base}/audio`)).status).toBe(426);
  });
});

describe("the commands", () => {
  test("without a body are taken", async () => {
    for (const path of ["listen", "stop", "mute", "mute", "new", "sample", "stop", "act", "draft/clear"]) {
      expect([path, (await post(path)).status]).toEqual([path, 200]);
    }
  });

  test("say takes a text, and refuses what is none", async () => {
    expect((await post("say", '{"text":" thanks "}', { "content-type": "application/json" })).status).toBe(200);
    await settle();
    expect(it.brain.requests.at(-1)?.text).toBe("thanks");
    it.engine.loop.stop();
    const asked = it.brain.requests.length;
    for (const body of [undefined, "", "{", "[]", "null", '"text"', "{}", '{"text":1}', '{"text":"  "}', '{"text":"\\n"}']) {
      expect([body?.slice(0, 20), (await post("say", body)).status]).toEqual([body?.slice(0, 20), 400]);
    }
    expect(it.brain.requests).toHaveLength(asked);
  });

  test("say takes as much as the front end does, and says aloud that more is too long", async () => {
    for (const text of ["a".repeat(16_385), "ã".repeat(1 << 19), "\u0001".repeat((1 << 20) - 1) + "a"]) {
      expect((await post("say", JSON.stringify({ text }))).status).toBe(200);
      await settle();
      expect(it.brain.requests.at(-1)?.text.length).toBe(text.length);
    }
    it.engine.newConversation();
    const told = it.events.length;
    expect((await post("say", JSON.stringify({ text: "a".repeat((1 << 20) + 1) }))).status).toBe(400);
    await settle();
    expect(it.events.slice(told)).toContainEqual(["spoken", JSON.stringify("That is too long for me.")]);
    expect(it.engine.state.conversation.rows).toEqual([]);
    it.engine.loop.stop();
  });

  test("a body beyond all reason is refused unread", async () => {
    expect((await post("say", `{"text":"${"a".repeat(9 << 20)}"}`)).status).toBe(413);
    expect((await post("settings", `{"voiceName":"${"a".repeat(65 << 10)}"}`)).status).toBe(400);
  });

  test("settings take a good value and refuse a bad one whole", async () => {
    expect((await post("settings", '{"summonMs":6000}')).status).toBe(200);
    expect(((await get("state")).settings as { summonMs: number }).summonMs).toBe(6000);
    for (const body of ['{"summonMs":"x"}', '{"nothing":1}', '{"__proto__":1}', "{}", "7", '{"summonMs":7000,"voiceSpeed":-1}']) {
      expect([body, (await post("settings", body)).status]).toEqual([body, 400]);
    }
    expect(((await get("state")).settings as { summonMs: number }).summonMs).toBe(6000);
  });
});

describe("web pages of others", () => {
  test("can neither command nor read, nor open the audio link", async () => {
    const origin = "https://example.org";
    expect((await post("listen", undefined, { origin })).status).toBe(403);
    expect((await fetch(`${base}/state`, { headers: { origin } })).status).toBe(403);
    expect((await fetch(`${base}/state`, { headers: { host: "example.org" } })).status).toBe(403);
    for (const [site, status] of [["cross-site", 403], ["same-site", 403], ["same-origin", 200], ["none", 200]] as const) {
      const answer = await fetch(`${base}/state`, { headers: { "sec-fetch-site": site } });
      expect([site, answer.status]).toEqual([site, status]);
    }
    const failed = await new Promise((resolve) => {
      const socket = new WebSocket(`ws://127.0.0.1:${server.port}/audio`, { headers: { origin } } as never);
      socket.onopen = () => resolve(false);
      socket.onerror = () => resolve(true);
    });
    expect(failed).toBe(true);
  });
});

/** Follows the event stream; `next` gives the events as they come, those after the `first`. */
async function follow(): Promise<{ first: string; next: () => Promise<string>; end: () => void }> {
  const ending = new AbortController();
  const response = await fetch(`${base}/events`, { signal: ending.signal });
  const reader = response.body?.getReader();
  const decoder = new TextDecoder();
  let text = "";
  const next = async (): Promise<string> => {
    for (;;) {
      const at = text.indexOf("\n\n");
      if (at >= 0) {
        const event = text.slice(0, at);
        text = text.slice(at + 2);
        return event;
      }
      const piece = await reader?.read();
      if (!piece || piece.done) return "end";
      text += decoder.decode(piece.value, { stream: true });
    }
  };
  return { first: await next(), next, end: () => ending.abort() };
}

describe("the event stream", () => {
  test("tells each of several front ends of a change", async () => {
    const first = await follow();
    const second = await follow();
    await post("listen");
    expect(await first.next()).toBe("event: phase\ndata: listening");
    expect(await second.next()).toBe("event: phase\ndata: listening");
    await post("stop");
    expect(await first.next()).toBe("event: phase\ndata: waiting");
    first.end();
    second.end();
  });

  test("begins with the phase, for what changed before anybody followed", async () => {
    await post("listen");
    const late = await follow();
    expect(late.first).toBe("event: phase\ndata: listening");
    await post("stop");
    expect(await late.next()).toBe("event: phase\ndata: waiting");
    late.end();
  });

  test("survives a front end that goes away", async () => {
    const gone = await follow();
    const stays = await follow();
    gone.end();
    await post("listen");
    await post("stop");
    expect(await stays.next()).toBe("event: phase\ndata: listening");
    stays.end();
  });

  test("cuts off a front end that does not read, and goes on for the others", async () => {
    const follows = Promise.withResolvers<void>();
    const cutOff = Promise.withResolvers<void>();
    let read = 0;
    const deaf = await Bun.connect({
      hostname: "127.0.0.1",
      port: server.port ?? 0,
      socket: {
        open: (socket) => void socket.write(`GET /events HTTP/1.1\r\nHost: 127.0.0.1:${server.port}\r\n\r\n`),
        data(socket, piece) {
          read += piece.length;
          if (read === piece.length) socket.pause();
          follows.resolve();
        },
        close: () => cutOff.resolve(),
      },
    });
    await follows.promise;
    const other = await follow();
    const sent = 2_000;
    for (let n = 1; n <= sent; n++) {
      it.engine.events.send("spoken", JSON.stringify(`${n}`.padEnd(10_000)));
      const event = await other.next();
      if (n === 1 || n === sent) expect(event).toContain(`data: "${n} `);
    }
    deaf.resume();
    await cutOff.promise;
    expect(read).toBeLessThan(sent * 10_000);
    other.end();
  });
});

describe("the audio link", () => {
  test("hears samples, gives its clips, and follows what was played", async () => {
    const socket = new WebSocket(`ws://127.0.0.1:${server.port}/audio`);
    await new Promise((resolve) => (socket.onopen = resolve));
    const messages: Record<string, unknown>[] = [];
    let arrived = (): void => {};
    socket.onmessage = ({ data }) => {
      messages.push(JSON.parse(String(data)));
      arrived();
    };
    socket.send('{"type":"hello","device":"Test microphone"}');
    socket.send(new Int16Array(341));
    for (const nonsense of ["", "{", "[]", '{"type":7}', '{"type":"hello"}', '{"type":"played","id":1.5}', '{"type":"played","id":1e300}', '{"type":"other"}']) {
      socket.send(nonsense);
    }
    socket.send(new Uint8Array(0));
    socket.send(new Uint8Array(683));
    const clip = new Promise<void>((resolve) => (arrived = resolve));
    await post("say", '{"text":"Thanks"}');
    await clip;
    expect(messages[0]).toMatchObject({ type: "play", format: "wav" });
    expect(Buffer.from(String(messages[0]?.data), "base64").toString("latin1", 0, 4)).toBe("RIFF");
    const state = await get("state");
    expect(state).toMatchObject({ device: "Test microphone", isEchoCancelled: true, state: "speaking" });
    const events = await follow();
    socket.send(JSON.stringify({ type: "played", id: messages[0]?.id }));
    expect(await events.next()).toContain("outLevel");
    expect(await events.next()).toBe("event: phase\ndata: waiting");
    events.end();
    const closed = new Promise((resolve) => (socket.onclose = resolve));
    socket.close();
    await closed;
    while (it.engine.link.isConnected) await Bun.sleep(1);
    expect(await get("state")).toMatchObject({ device: "", isEchoCancelled: false });
  });
});
