import { describe, expect, test } from "bun:test";
import { systemClock } from "../../src/base/clock.ts";
import type { Row } from "../../src/base/protocol.ts";
import { closeServers, failure, mind } from "../support/askedMinds.ts";
import { NotingHand } from "../support/chatMinds.ts";
import type { ChatServer } from "../support/chatServer.ts";
import { ask } from "../support/claudeTool.ts";
import { llamaCpp } from "../support/servers/llamaCpp.ts";
import { ollama } from "../support/servers/ollama.ts";

closeServers();

describe("a request to a model", () => {
  test("goes with its part and the conversation, and its words come back", async () => {
    const it = await mind();
    it.server.says("It is ", "noon. ", "Really.");
    const rows: Row[] = [{ role: "user", text: "Hi", at: 1 }, { role: "assistant", text: "Hello!", at: 2 }];
    expect(await it.say("What time is it?", rows)).toEqual({ text: "It is noon. Really.", tools: [], costUsd: 0 });
    const { model, messages, tools } = it.server.chats[0]?.body ?? { messages: [] };
    expect([model, tools]).toEqual(["qwen3:8b", undefined]);
    expect(messages[0]?.content).toMatch(/^You are Palomet, a voice assistant\..*language of the question\.$/);
    expect(messages.slice(1)).toEqual([{ role: "user", content: "Hi" }, { role: "assistant", content: "Hello!" }, { role: "user", content: "What time is it?" }]);
  });

  test("offers the hands as tools, and says what they are for", async () => {
    const it = await mind([new NotingHand("note")]);
    it.server.says("Hi.");
    await it.say("x");
    const { tools, messages } = it.server.chats[0]?.body ?? { messages: [] };
    const parameters = { type: "object", properties: { text: { type: "string" } }, required: ["text"] };
    expect(tools).toEqual([{ type: "function", function: { name: "note", description: "Takes a note.", parameters } }] as never);
    expect(messages[0]?.content).toContain("only by your tools");
  });

  test("is asked again without tools of a model that cannot use them, and from then on", async () => {
    const it = await mind([new NotingHand("note")], systemClock, llamaCpp);
    it.server.refuses(llamaCpp.toolless ?? ollama.missing);
    it.server.says("Hi.");
    expect((await it.say("x")).text).toBe("Hi.");
    expect((await it.say("y")).text).toBe("Hi.");
    expect(it.server.chats.map(({ body }) => body.tools !== undefined)).toEqual([true, false, false]);
    expect(it.server.chats[2]?.body.messages[0]?.content).not.toContain("tools");
    expect(it.server.chats[2]?.body.messages[0]?.content).toContain("done without you");
  });

  test("is asked again with less of the conversation when that is too long for the model", async () => {
    const it = await mind([], systemClock, llamaCpp);
    it.server.refuses(llamaCpp.tooLong ?? ollama.missing);
    it.server.says("Hi.");
    const rows = Array.from({ length: 20 }, (_, at): Row => ({ role: at % 2 === 0 ? "user" : "assistant", text: "word ".repeat(80), at }));
    expect((await it.say("x", rows)).text).toBe("Hi.");
    expect((await it.say("y", rows)).text).toBe("Hi.");
    const [first = 0, second = 0, ...next] = it.server.chats.map(({ body }) => body.messages.length);
    expect(first).toBeGreaterThan(second);
    expect(second).toBeGreaterThan(2);
    expect(next).toEqual([second]);
  });

  const long = Array.from({ length: 10 }, (_, at): Row => ({ role: at % 2 === 0 ? "user" : "assistant", text: "word ".repeat(60), at }));
  const counts = (server: ChatServer): number[] => server.chats.map(({ body }) => body.messages.length);
  /** A server that does not tell how long its window is. */
  const refusal = { status: 400, body: { error: { message: "the request exceeds the available context size", type: "exceed_context_size_error" } } };

  test("that stays too long with less of the conversation takes nothing from the next", async () => {
    const it = await mind([], systemClock, llamaCpp);
    for (let attempt = 0; attempt < 3; attempt++) it.server.refuses(refusal);
    it.server.says("Hi.");
    expect((await it.say("x", long)).text).toBe("That is too long for me.");
    expect((await it.say("y", long)).text).toBe("Hi.");
    const [first = 0, second = 0, third = 0, ...next] = counts(it.server);
    expect(first).toBe(12);
    expect(first).toBeGreaterThan(second);
    expect(second).toBeGreaterThan(third);
    expect(next).toEqual([12]);
  });

  test("is asked again with less of what a tool said, before anything of the conversation is left out", async () => {
    const hand = new NotingHand("note");
    hand.result = "x".repeat(5_000);
    const it = await mind([hand], systemClock, llamaCpp);
    it.server.calls({ name: "note", given: { text: "a" } });
    it.server.refuses(refusal);
    it.server.says("Hi.");
    expect((await it.say("x", long.slice(0, 4))).text).toBe("Hi.");
    expect(counts(it.server)).toEqual([6, 8, 8]);
    const [whole = 0, less = 0] = it.server.chats.slice(1).map(({ body }) => body.messages.at(-1)?.content.length);
    expect([whole, less < 2_500, less > 1_000]).toEqual([5_000, true, true]);
  });

  test("is not asked again when there is nothing to leave out, and takes nothing from the next", async () => {
    const hand = new NotingHand("note");
    const it = await mind([hand], systemClock, llamaCpp);
    for (let time = 0; time < 3; time++) {
      it.server.calls({ name: "note", given: { text: "a" } });
      it.server.refuses(refusal);
    }
    it.server.says("Hi.");
    for (let time = 0; time < 3; time++) await it.say("x");
    await it.say("y", long);
    expect(counts(it.server)).toEqual([2, 4, 2, 4, 2, 4, 12]);
  });

  test("that is too long by itself is said to be", async () => {
    const it = await mind([], systemClock, llamaCpp);
    it.server.refuses(llamaCpp.tooLong ?? ollama.missing);
    expect((await it.say("word ".repeat(20_000))).text).toBe("That is too long for me.");
    expect(it.server.chats).toHaveLength(1);
  });
});

describe("a tool", () => {
  test("that needs no leave is used, and the model told what came of it", async () => {
    const hand = new NotingHand("note");
    const it = await mind([hand]);
    it.server.answers.push({ body: ollama.words("Let me see.").replace(/data: .*"stop"[^]*$/, "") + ollama.calls({ name: "note", given: { text: "milk" } }) });
    it.server.says("Done.");
    expect(await it.say("Note milk")).toEqual({ text: "Let me see.\nDone.", tools: ["note: Note milk"], costUsd: 0 });
    expect(hand.done).toEqual([{ text: "milk" }]);
    expect(it.server.chats[1]?.body.messages.slice(-2)).toEqual([
      { role: "assistant", content: "Let me see.", tool_calls: [{ id: "call_px63ad00", type: "function", function: { name: "note", arguments: '{"text":"milk"}' } }] },
      { role: "tool", content: "Noted.", tool_call_id: "call_px63ad00" },
    ]);
  });

  test("that is none, or makes no sense, is not used, and the model is told", async () => {
    const hand = new NotingHand("note");
    const it = await mind([hand]);
    it.server.calls({ name: "other", given: {} }, { name: "note", given: { text: 7 } }, { name: "note", given: [] });
    it.server.says("Sorry.");
    expect((await it.say("x")).text).toBe("Sorry.");
    const results = it.server.chats[1]?.body.messages.filter(({ role }) => role === "tool").map(({ content }) => content);
    expect(results).toEqual(["There is no tool of this name.", "The arguments make no sense for this tool.", "The arguments make no sense for this tool."]);
    expect(hand.done).toEqual([]);
  });

  test("that fails against its promise ends nothing", async () => {
    const hand = new NotingHand("note");
    hand.act = () => {
      throw new Error("a flaw");
    };
    const other = new NotingHand("other", () => {
      throw new Error("another flaw");
    });
    const it = await mind([hand, other]);
    it.server.calls({ name: "note", given: { text: "a" } }, { name: "other", given: { text: "b" } });
    it.server.says("Sorry.");
    expect((await it.say("x")).text).toBe("Sorry.");
    expect(it.server.chats[1]?.body.messages.slice(-2).map(({ content }) => content)).toEqual(["It failed: Error: a flaw", "The arguments make no sense for this tool."]);
  });

  test("that the model calls again and again is taken from it, so that it has to answer", async () => {
    const hand = new NotingHand("note");
    const it = await mind([hand]);
    it.server.calls({ name: "note", given: { text: "x" } });
    expect((await it.say("x")).text).toBe("Noted.\nThe language model did not answer.");
    expect(it.server.chats.map(({ body }) => body.tools !== undefined)).toEqual([...Array(7).fill(true), false]);
    expect(hand.done).toHaveLength(7);
  });

  test("says itself what it did when the model fails afterwards", async () => {
    const it = await mind([new NotingHand("note")]);
    it.server.calls({ name: "note", given: { text: "milk" } });
    it.server.refuses(failure);
    expect((await it.say("Note milk")).text).toBe("Noted.\nThe language model did not answer.");
    expect(it.log).toEqual([expect.stringContaining("500: out of memory")]);
  });

  test("that fails is said to have in the user's words when the model fails afterwards", async () => {
    for (const [language, words] of [["en", "That did not work."], ["pt", "Não deu certo."]] as const) {
      const hand = new NotingHand("note");
      hand.act = () => Promise.reject(new Error("a flaw"));
      const it = await mind([hand], systemClock, ollama, language);
      it.server.calls({ name: "note", given: { text: "milk" } });
      it.server.refuses(failure);
      expect((await it.say("x")).text).toStartWith(`${words}\n`);
      expect(it.log[0]).toBe("a ação note falhou (Error: a flaw)");
    }
  });

  test("is not used any more when the answer was stopped", async () => {
    const ending = new AbortController();
    const hand = new NotingHand("note", (text) => (ending.abort(), `Note ${text}`));
    const it = await mind([hand]);
    it.server.calls({ name: "note", given: { text: "x" } });
    await ask(it.brain, it.what("x"), ending.signal);
    expect([hand.done, it.server.chats.length]).toEqual([[], 1]);
  });
});
