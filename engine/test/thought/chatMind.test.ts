import { afterEach, describe, expect, test } from "bun:test";
import { systemClock } from "../../src/base/clock.ts";
import type { Row } from "../../src/base/protocol.ts";
import { mindOf, modelOf, NotingHand, SlowHand } from "../support/chatMinds.ts";
import { ChatServer, type Ways } from "../support/chatServer.ts";
import { ask, request } from "../support/claudeTool.ts";
import { ManualClock } from "../support/clock.ts";
import { llamaCpp } from "../support/servers/llamaCpp.ts";
import { ollama } from "../support/servers/ollama.ts";

const servers: ChatServer[] = [];
/** What goes wrong after a tool was used. */
const failure = { status: 500, body: { error: "out of memory" } };
afterEach(() => servers.splice(0).forEach((server) => server.close()));

async function mind(hands: NotingHand[] = [], clock = systemClock, ways: Ways = ollama, language: "en" | "pt" = "en") {
  const server = await ChatServer.open(ways);
  servers.push(server);
  const confirmActions = ["files"];
  const what = (words: string, earlier: Row[] = []) => {
    const plain = request(words, { earlier, askedAt: clock.now() });
    return { ...plain, settings: { ...plain.settings, brainModel: modelOf(server), confirmActions } };
  };
  const it = mindOf(server, hands, clock, language);
  return { ...it, server, what, say: (words: string, earlier?: Row[]) => ask(it.brain, what(words, earlier)) };
}

const roles = (server: ChatServer, at: number): string[] | undefined => server.chats[at]?.body.messages.map(({ role }) => role);

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

describe("a tool that is to be asked about", () => {
  async function asked(given: object[] = [{ text: "milk" }], clock = systemClock) {
    const hand = new NotingHand("files");
    const it = await mind([hand], clock);
    it.server.calls(...given.map((one) => ({ name: "files", given: one })));
    it.server.says("All done.");
    const first = await it.say("Note milk");
    return { ...it, hand, first };
  }

  test("is asked about in words, and used after a yes just as it was asked", async () => {
    const { first, hand, say, server } = await asked();
    expect(first.text).toBe("May I? Note milk");
    expect(hand.done).toEqual([]);
    expect(await say("Yes.")).toMatchObject({ text: "All done.", tools: ["files: Note milk"] });
    expect(hand.done).toEqual([{ text: "milk" }]);
    expect(roles(server, 1)).toEqual(["system", "user", "assistant", "tool"]);
    expect(server.chats[1]?.body.messages.at(-1)?.content).toBe("Noted.");
    await say("Yes.");
    expect(hand.done).toHaveLength(1);
  });

  test("is asked about after what needed no leave was done and told", async () => {
    const it = await mind([new NotingHand("note"), new NotingHand("files")]);
    it.server.calls({ name: "files", given: { text: "a" } }, { name: "note", given: { text: "b" } });
    expect((await it.say("x")).text).toBe("Noted.\nMay I? Note a");
  });

  test("is not used after a no, and the model is not asked about it", async () => {
    const { hand, say, server } = await asked();
    expect((await say("No, thanks.")).text).toBe("All right, I will not.");
    expect([hand.done, server.chats.length]).toEqual([[], 1]);
    await say("Yes");
    expect(hand.done).toEqual([]);
  });

  test("is not used after another request, after stop, or after ten seconds of nothing", async () => {
    const other = await asked();
    await other.say("And the weather?");
    await other.say("Yes");
    const stopped = await asked();
    stopped.brain.refuse();
    await stopped.say("Yes");
    const clock = new ManualClock();
    const late = await asked(undefined, clock);
    late.first.heard?.();
    await clock.advance(10_001);
    await late.say("Yes");
    expect([other, stopped, late].map(({ hand }) => hand.done)).toEqual([[], [], []]);
  });

  test("is not asked about, nor used later, when the answer was stopped while another tool was in use", async () => {
    const [slow, files] = [new SlowHand("note"), new NotingHand("files")];
    const it = await mind([slow, files]);
    it.server.calls({ name: "note", given: { text: "a" } }, { name: "files", given: { text: "b" } });
    it.server.says("All gone.");
    const ending = new AbortController();
    const first = ask(it.brain, it.what("Tidy up"), ending.signal);
    await slow.begun;
    ending.abort();
    slow.finish();
    expect((await first).text).toBe("");
    expect((await it.say("Yes")).text).toBe("All gone.");
    expect(files.done).toEqual([]);
  });

  test("is asked about together with others, up to five, and the rest is not done", async () => {
    const { first, hand, say, server } = await asked(["a", "b", "c", "d", "e", "f"].map((text) => ({ text })));
    expect(first.text).toBe("May I? Note a; Note b; Note c; Note d; Note e");
    await say("yes");
    expect(hand.done).toEqual(["a", "b", "c", "d", "e"].map((text) => ({ text })));
    expect(server.chats[1]?.body.messages.filter(({ content }) => content.includes("too much"))).toHaveLength(1);
  });

  test("is not asked about in words that nobody would understand, and not used", async () => {
    for (const text of ["x".repeat(300), "a\u202eb", "a  b", "a\u200bb"]) {
      const { first, hand } = await asked([{ text }]);
      expect([text, first.text, hand.done]).toEqual([text, "All done.", []]);
    }
  });

  test("is not used when it would do something else by now", async () => {
    const { hand, say, server } = await asked();
    hand.words = (text) => `Shout ${text}`;
    expect((await say("Yes")).text).toBe("All done.");
    expect(hand.done).toEqual([]);
    expect(server.chats[1]?.body.messages.at(-1)?.content).toBe("Not done: it would not be the same any more.");
  });

  test("is said to have been left alone then, when the model fails afterwards", async () => {
    const hand = new NotingHand("files");
    const it = await mind([hand], systemClock, ollama, "pt");
    it.server.calls({ name: "files", given: { text: "milk" } });
    it.server.refuses(failure);
    await it.say("x");
    hand.words = (text) => `Shout ${text}`;
    expect((await it.say("Sim")).text).toStartWith("Isso mudou nesse meio tempo, e não mexi.\n");
  });

  async function spokenQuestion(id: string, text: string) {
    const it = await mind([new NotingHand(id, (words) => words)]);
    it.server.calls({ name: id, given: { text } });
    const spoken: (string | undefined)[] = [];
    const answering = { text: (_: string, words?: string) => void spoken.push(words), tool: () => {} };
    const what = it.what("x");
    await it.brain.answer({ ...what, settings: { ...what.settings, confirmActions: [id] } }, answering, new AbortController().signal);
    return spoken;
  }

  test("is read aloud with the marks that a voice leaves out", async () => {
    const spoken = await spokenQuestion("notes", 'Note "milk" for a_b.txt, now');
    expect(spoken).toEqual(['May I? Note "milk" for a underscore b dot txt, now']);
  });

  test("is read aloud to the letter when it opens, runs or changes something", async () => {
    for (const id of ["open", "commands", "files"]) {
      expect([id, await spokenQuestion(id, 'rm -rf "my folder"; (a b)')]).toEqual([
        id,
        ["May I? rm dash rf quote my folder quote semicolon open parenthesis a b close parenthesis"],
      ]);
    }
  });
});
