import { describe, expect, test } from "bun:test";
import { bench, connect, hear, speak } from "./support/bench.ts";
import { mindOf, modelOf, NotingHand } from "./support/chatMinds.ts";
import { ChatServer } from "./support/chatServer.ts";
import { ManualClock, settle } from "./support/clock.ts";
import { llamaCpp } from "./support/servers/llamaCpp.ts";
import { ollama } from "./support/servers/ollama.ts";
import { program } from "./support/folders.ts";

describe("the microphone that is chosen", () => {
  test("is asked for, and the setting is done when the front end has answered", async () => {
    const it = bench();
    const socket = connect(it);
    let isDone = false;
    const setting = it.engine.set({ inputDevice: "Other microphone" }).then(() => (isDone = true));
    await settle();
    expect(socket.sent).toEqual([{ type: "input", device: "Other microphone" }]);
    expect(isDone).toBe(false);
    it.engine.link.text(socket, '{"type":"device","device":"Other microphone"}');
    await setting;
    expect(it.engine.state.device).toBe("Other microphone");
  });

  test("is not waited for longer than five seconds", async () => {
    const it = bench();
    connect(it);
    const setting = it.engine.set({ inputDevice: "Other microphone" });
    await it.clock.advance(5_000);
    expect(await setting).toBeUndefined();
  });

  test("is told to every front end that connects; none is the system's own", async () => {
    const it = bench();
    await it.engine.set({ inputDevice: "Other microphone" });
    const socket = connect(it);
    await settle();
    expect(socket.sent).toEqual([{ type: "input", device: "Other microphone" }]);
    void it.engine.set({ inputDevice: null });
    await settle();
    expect(socket.sent.at(-1)).toEqual({ type: "input" });
    expect(it.engine.state.settings.inputDevice).toBeUndefined();
  });

  test("is the first preferred one that is there, when none is chosen", async () => {
    const sources = [
      { name: "a", description: "Monitor of Speakers", monitor_source: "speakers" },
      { name: "b", description: "Headset", monitor_source: "" },
    ];
    const folder = program("pactl", `echo '${JSON.stringify(sources)}'`);
    const it = bench(undefined, undefined, folder);
    const socket = connect(it);
    void it.engine.set({ inputPreference: ["Studio", "Headset"] });
    while (!socket.types.includes("input")) await Bun.sleep(1);
    expect(socket.sent).toEqual([{ type: "input", device: "Headset" }]);
    expect((await it.engine.options()).inputs).toEqual(["Desk microphone", "Headset"]);
  });
});

describe("echo cancellation", () => {
  test("is switched in the front end", async () => {
    const it = bench();
    const socket = connect(it);
    await it.engine.set({ isEchoCancelOn: false });
    expect(socket.sent).toEqual([{ type: "enable", on: false }]);
    expect(it.engine.state.isEchoCancelled).toBe(false);
    await it.engine.set({ isEchoCancelOn: true });
    expect(socket.sent.at(-1)).toEqual({ type: "enable", on: true });
  });

  test("when off is off for every front end that connects", async () => {
    const it = bench();
    await it.engine.set({ isEchoCancelOn: false });
    expect(connect(it).sent).toEqual([{ type: "enable", on: false }]);
  });

  test("when off leaves the microphone to the engine", async () => {
    const folder = program("parec", "head -c 64000 /dev/zero; exec sleep 60");
    const it = bench(undefined, undefined, `${folder}:${process.env.PATH}`);
    connect(it);
    await it.clock.advance(5_000);
    expect(it.engine.state.isMicDead).toBe(true);
    await it.engine.set({ isEchoCancelOn: false });
    while (it.engine.state.isMicDead) await Bun.sleep(1);
    it.engine.close();
  });
});

test("a model that the user has is chosen, answers aloud, and does what it was allowed to", async () => {
  const clock = new ManualClock();
  const server = await ChatServer.open(llamaCpp);
  const hand = new NotingHand("files");
  const { brain, servers, log } = mindOf(server, [hand], clock);
  const it = bench(undefined, clock, "", { brain: () => brain, servers });
  const socket = connect(it);
  const spoken = (): string[] => it.synthesiser.spoken;
  const rows = (): string[] => it.engine.state.conversation.rows.map(({ role, text }) => `${role}: ${text}`);
  /** The front end plays all that it is given, until this sentence is spoken and heard. */
  const heard = async (sentence: string): Promise<void> => {
    let played = 0;
    while (!spoken().includes(sentence) || it.engine.state.state === "thinking" || it.engine.state.state === "speaking") {
      if (played < socket.ids.length) it.engine.link.text(socket, socket.played(played++));
      await Bun.sleep(1);
    }
    spoken().length = 0;
    socket.sent.length = 0;
  };

  const { models } = await it.engine.options();
  expect(models).toEqual([modelOf(server), "built-in"]);
  expect(await it.engine.set({ brainModel: models[0] })).toBeUndefined();
  expect(it.engine.state.session).toMatchObject({ model: modelOf(server), claudePath: "", isReady: true });

  server.says("**Paris** is it. ", "It lies on", " the Seine. 🇫🇷");
  await hear(it, socket, 500);
  await speak(it, socket, "Palomet, what is the capital of France?");
  await heard("It lies on the Seine.");
  expect(rows().at(-1)).toBe("assistant: **Paris** is it. It lies on the Seine. 🇫🇷");

  const wish = async (): Promise<void> => {
    server.answers = [];
    server.calls({ name: "files", given: { text: "milk" } });
    server.says("It is on", " your list.");
    await speak(it, socket, "Palomet, put milk on my list");
    await heard("Note milk");
  };
  await wish();
  await speak(it, socket, "No");
  await heard("All right, I will not.");
  expect([hand.done, server.chats.length]).toEqual([[], 2]);

  await wish();
  await speak(it, socket, "Yes");
  await heard("It is on your list.");
  expect(hand.done).toEqual([{ text: "milk" }]);
  expect(rows().slice(-5)).toEqual([
    "user: Put milk on my list",
    "assistant: May I? Note milk",
    "user: Yes",
    "tool: files: Note milk",
    "assistant: It is on your list.",
  ]);
  expect(server.chats.at(-1)?.body.messages.map(({ role }) => role).slice(-3)).toEqual(["user", "assistant", "tool"]);

  const isTooLate = async (): Promise<void> => {
    const { length } = server.chats;
    it.engine.loop.say("Yes");
    await server.asked(length + 1);
    await heard("It is on your list.");
    expect(hand.done).toHaveLength(1);
  };
  await wish();
  await clock.advance(10_001);
  await isTooLate();
  await wish();
  it.engine.loop.stop();
  await isTooLate();
  expect(log).toEqual([]);
  it.engine.close();
  server.close();
});

test("stop closes a model's stream within 50 ms of a bare connection that is dropped in the same moment", async () => {
  const clock = new ManualClock();
  const [server, control] = [await ChatServer.open(ollama), await ChatServer.open(ollama)];
  const { brain, servers } = mindOf(server, [], clock);
  const it = bench(undefined, clock, "", { brain: () => brain, servers });
  connect(it);
  await it.engine.set({ brainModel: modelOf(server) });
  const sentence = ollama.words("One. ", "Two").split("\n\n")[0] + "\n\n";
  const later: number[] = [];
  for (let round = 1; round <= 10; round++) {
    // Now while it waits for the first word, now while it speaks.
    const body = round % 2 === 0 ? sentence : "";
    for (const each of [server, control]) each.answers = [{ body, then: "silence" }];
    it.engine.loop.say("Tell me.");
    const dropping = new AbortController();
    await fetch(`${control.address}/chat/completions`, { method: "POST", body: "{}", signal: dropping.signal });
    await server.asked(round);
    while (body !== "" && !it.synthesiser.spoken.includes("One.")) await Bun.sleep(1);
    it.synthesiser.spoken.length = 0;
    const closed = [server, control].map(async (each) => (await each.left(), performance.now()));
    it.engine.loop.stop();
    dropping.abort();
    const [mine = 0, least = 0] = await Promise.all(closed);
    later.push(mine - least);
  }
  expect(later.sort((a, b) => a - b)[5]).toBeLessThan(50);
  it.engine.close();
  for (const each of [server, control]) each.close();
});
