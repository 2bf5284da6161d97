import { afterEach, describe, expect, test } from "bun:test";
import { existsSync, readFileSync } from "node:fs";
import { DateHand } from "../../src/hands/facts/dateHand.ts";
import type { Hand } from "../../src/hands/hand.ts";
import { mindOf, modelOf, NotingHand } from "../support/chatMinds.ts";
import { ChatServer } from "../support/chatServer.ts";
import { ask, brainOf, init, print, request, result, text, tool } from "../support/claudeTool.ts";
import { ManualClock } from "../support/clock.ts";
import { jan } from "../support/servers/jan.ts";
import { llamaCpp } from "../support/servers/llamaCpp.ts";
import { lmStudio } from "../support/servers/lmStudio.ts";
import { ollama } from "../support/servers/ollama.ts";

describe("a claude tool", () => {
  const failures: [string, string][] = [
    ["fails", "exit 3"],
    ["crashes", "kill -SEGV $$"],
    ["says that it failed", print('{"type":"result","subtype":"error_during_execution","is_error":true,"session_id":"s1"}')],
    ["prints nonsense", "head -c 3000000 /dev/zero; exit 1"],
    ["hangs", "exec sleep 60"],
  ];
  for (const [does, script] of failures) {
    test(`that ${does} leaves the built-in answers, and the engine says so`, async () => {
      const { brain, log } = await brainOf(tool(script), 200);
      expect((await ask(brain, request("thank you"))).text).toBe("The language model did not answer. You are welcome.");
      expect((await ask(brain, request("Explain this"))).text).toBe("The language model did not answer.");
      expect(log[0]).toContain("o claude falhou");
    });
  }

  test("that is missing leaves the built-in answers", async () => {
    const { brain } = await brainOf("");
    expect((await ask(brain, request("Explain this"))).text).toBe("You said: Explain this.");
    expect(brain.session(request("").settings)).toMatchObject({ model: "built-in", claudePath: "", isReady: true });
  });

  test("is not asked when the built-in answers are chosen", async () => {
    const path = tool(print(init, result));
    const { brain } = await brainOf(path);
    const what = request("thanks");
    expect((await ask(brain, { ...what, settings: { ...what.settings, brainModel: "built-in" } })).text).toBe("You are welcome.");
    expect(existsSync(`${path}.args`)).toBe(false);
  });

  test("that is stopped is ended, and says no more", async () => {
    const { brain } = await brainOf(tool(`${print(init, text("One."))}; sleep 60`));
    const ending = new AbortController();
    const pieces: string[] = [];
    const answering = {
      text(piece: string): void {
        pieces.push(piece);
        ending.abort();
      },
      tool(): void {},
    };
    await brain.answer(request("x"), answering, ending.signal);
    expect(pieces).toEqual(["One."]);
  });
});

describe("a server's model", () => {
  const servers: ChatServer[] = [];
  afterEach(() => servers.splice(0).forEach((server) => server.close()));

  async function mind(ways = ollama, language: "en" | "pt" = "en", clock = new ManualClock(), hands: readonly Hand[] = []) {
    const server = await ChatServer.open(ways);
    servers.push(server);
    const what = (words: string, brainModel = modelOf(server)) => {
      const plain = request(words);
      return { ...plain, settings: { ...plain.settings, brainModel } };
    };
    const it = mindOf(server, hands, clock, language);
    return { ...it, server, clock, what, say: async (words: string, model?: string) => (await ask(it.brain, what(words, model))).text };
  }

  test("that is missing is said to be, in the log as well, and the built-in answers are there", async () => {
    const it = await mind();
    it.server.refuses(ollama.missing);
    expect(await it.say("Explain this")).toBe("The model qwen3:8b is not there.");
    expect(await it.say("thank you")).toBe("The model qwen3:8b is not there. You are welcome.");
    expect(it.log[0]).toBe("o modelo qwen3:8b · Ollama falhou (não está no servidor; 404: model 'qwen3:8b' not found)");
    expect(await it.say("x", "m · Nobody")).toBe("The model m is not there.");
    expect(it.log.at(-1)).toContain("não conheço o servidor");
  });

  test("whose server has gone, refuses or breaks off is said to have, in the user's language", async () => {
    const it = await mind(lmStudio, "pt");
    it.server.refuses({ status: 500, body: { error: "sem memória" } });
    expect(await it.say("obrigado")).toBe("O modelo de linguagem não respondeu. De nada.");
    it.server.answers = [{ body: lmStudio.words("Um.", " Dois").slice(0, -200) }];
    expect(await it.say("obrigado")).toBe("Um. Dois\nO modelo de linguagem parou no meio.");
    it.server.answers = [{ body: `${lmStudio.words("Um.").slice(0, lmStudio.words("Um.").indexOf("\n\n") + 2)}${lmStudio.broken[0]}` }];
    expect(await it.say("obrigado")).toBe("Um.\nO modelo de linguagem parou no meio.");
    it.server.close();
    expect(await it.say("Explique isto")).toBe("O modelo de linguagem não respondeu.");
    const told = ["500: sem memória", "a resposta acabou no meio", "o servidor não respondeu", "o servidor não respondeu"];
    expect(it.log).toEqual(told.map((words) => expect.stringContaining(words)));
  });

  test("that cannot use tools leaves the hands to plain sentences, from the first one on, and gets the rest", async () => {
    const hand = new NotingHand("note");
    const it = await mind(llamaCpp, "en", new ManualClock(), [hand]);
    const say = async (words: string) => {
      const what = it.what(words);
      return (await ask(it.brain, { ...what, settings: { ...what.settings, confirmActions: [] } })).text;
    };
    it.server.refuses(llamaCpp.toolless ?? ollama.missing);
    it.server.says("It is warm.");
    expect(await say("Add milk to the shopping list. How is the weather?")).toBe("Noted. It is warm.");
    expect(await say("Note that it pours.")).toBe("Noted.");
    expect(hand.done).toEqual([{ do: "add", items: "milk", list: "shopping" }, { do: "note", text: "it pours" }]);
    expect(it.server.chats.map(({ body }) => [body.messages.at(-1)?.content, body.tools !== undefined])).toEqual([
      ["Add milk to the shopping list. How is the weather?", true],
      ["How is the weather?", false],
    ]);
  });

  test("that uses tools decides itself what to do", async () => {
    const hand = new NotingHand("note");
    const it = await mind(ollama, "en", new ManualClock(), [hand]);
    it.server.says("I would rather not.");
    expect(await it.say("note that it rains")).toBe("I would rather not.");
    expect(hand.done).toEqual([]);
  });

  test("that is missing leaves the hands, and the yes to what they ask", async () => {
    const hand = new NotingHand("note");
    const it = await mind(ollama, "en", new ManualClock(), [hand]);
    it.server.refuses(ollama.missing);
    const asking = it.what("note that the tea is in the tin");
    asking.settings.confirmActions = ["note"];
    const asked = await ask(it.brain, asking);
    expect(asked.text).toMatch(/^The model qwen3:8b is not there\. .*Note the tea is in the tin/);
    expect(hand.done).toEqual([]);
    expect(await it.say("yes")).toBe("Noted.");
    expect(hand.done).toEqual([{ do: "note", text: "the tea is in the tin" }]);
  });

  test("that is not chosen leaves questions for the hour and the day to be answered one after the other", async () => {
    const clock = new ManualClock();
    const english = await mind(ollama, "en", clock, [new DateHand(clock)]);
    const answer = /^It is \d+:\d\d [AP]M\. Today is Monday, January 5, 2026\.$/;
    expect(await english.say("What time is it? What day is it today?", "built-in")).toMatch(answer);
    const portuguese = await mind(ollama, "pt", clock, [new DateHand(clock)]);
    expect(await portuguese.say("Que horas são? Que dia é hoje?", "built-in")).toMatch(/^(São|É) .*\. Hoje é segunda-feira, 5 de janeiro de 2026\.$/);
  });

  test("that is silent for a minute is said not to have answered", async () => {
    const it = await mind();
    it.server.answers = [{ body: "", then: "silence" }];
    const said = it.say("thank you");
    await it.server.asked(1);
    await it.clock.advance(120_000);
    expect(await said).toBe("The language model did not answer. You are welcome.");
    expect(it.log).toEqual([expect.stringContaining("calou-se por 60 s")]);
  });

  test("that is stopped says nothing, and the log neither", async () => {
    const it = await mind();
    it.server.answers = [{ body: "", then: "silence" }];
    const ending = new AbortController();
    const said = ask(it.brain, it.what("x"), ending.signal);
    await it.server.asked(1);
    ending.abort();
    expect([(await said).text, it.log]).toEqual(["", []]);
    await it.server.left();
  });

  test("is what the session shows, and its key stands nowhere", async () => {
    const it = await mind(jan);
    it.server.answers = [{ status: 401, type: "application/json", body: `{"error":{"message":"no such key: ${jan.key}"}}` }];
    await it.say("x");
    const shown = JSON.stringify([it.brain.session(it.what("").settings), it.log, await it.choices.options("")]);
    expect(shown).toContain("jan-v3-4b-base-instruct · Jan");
    expect(shown).toContain("no such key: …");
    expect(shown).not.toContain(jan.key);
  });

  test("is not asked when another one is chosen", async () => {
    const it = await mind();
    expect(await it.say("thanks", "built-in")).toBe("You are welcome.");
    expect(await it.say("thanks", "haiku")).toBe("You are welcome.");
    expect(it.server.chats).toEqual([]);
  });
});

const denial = '{"type":"result","subtype":"success","is_error":false,"result":"","session_id":"s1","permission_denials":[{"tool_name":"Bash","tool_input":{"command":"make"}}]}';

/** A brain with the claude tool and two hands: "note", and "open", which opens nothing but example.org. */
async function beside(script: string) {
  const path = tool(script);
  const note = new NotingHand("note");
  const open = new NotingHand("open", () => "open example.org");
  open.intent = (given) => ((given as { address?: string }).address === "example.org" ? "open example.org" : undefined);
  open.act = async (given) => (open.done.push(given), open.intent(given) ? "Opening it." : "I find no such thing.");
  const { brain, log } = await brainOf(path, 5_000, [note, open]);
  const say = async (words: string, confirmActions: string[] = ["open"], session?: string) => {
    const what = request(words, { session });
    return await ask(brain, { ...what, settings: { ...what.settings, confirmActions } });
  };
  const asked = (): string | undefined => (existsSync(`${path}.input`) ? readFileSync(`${path}.input`, "utf8") : undefined);
  return { brain, log, say, note, open, asked, path };
}

describe("beside the claude tool", () => {
  test("what sentences plainly ask of a hand is done without it", async () => {
    const { say, note, asked } = await beside(print(init, result));
    expect(await say("Note that it rains. Note that it pours.")).toMatchObject({ text: "Noted. Noted.", tools: [], costUsd: 0 });
    expect(note.done).toEqual([{ do: "note", text: "it rains" }, { do: "note", text: "it pours" }]);
    expect(asked()).toBeUndefined();
  });

  test("what a hand asks leave for is done at a yes, and not at a no", async () => {
    const { say, open, asked } = await beside(print(init, result));
    for (const [reply, answer] of [["no", "All right, I will not."], ["yes", "Opening it."]] as const) {
      expect((await say("Open example.org")).text).toBe("May I? Open example.org.");
      expect((await say(reply)).text).toBe(answer);
    }
    expect(open.done).toEqual([{ address: "example.org" }]);
    expect(asked()).toBeUndefined();
  });

  test("the tool answers what else was said, once, after what was done and before the question", async () => {
    const { say, asked } = await beside(print(init, text("Good morning to you."), result));
    const { text: said, session, costUsd } = await say("Good morning. Open example.org. Add milk to the shopping list. How are you?");
    expect(said).toBe("Noted. Good morning to you.\nMay I? Open example.org.");
    expect([session, costUsd]).toEqual(["s1", 0.02]);
    expect(asked()).toBe("Good morning. How are you?");
    expect((await say("yes")).text).toBe("Opening it.");
  });

  test("the tool is told what is done without it", async () => {
    const { say, path } = await beside(print(init, result));
    await say("How are you?");
    expect(readFileSync(`${path}.args`, "utf8")).toContain("are done without you");
  });

  test("what hands understand and cannot do is the tool's to answer", async () => {
    const { say, open, asked } = await beside(print(init, text("I have opened it."), result));
    expect((await say("Open main.ts")).text).toBe("I have opened it.");
    expect(open.done).toEqual([]);
    expect(asked()).toBe("Open main.ts");
  });

  test("a question of the tool's is not mixed with one of the hands': that is to be asked for again", async () => {
    const { say, open } = await beside(print(init, denial));
    expect((await say("Open example.org. Build it")).text).toBe("\nMay I? make\nAsk me again afterwards to open example.org.");
    await say("yes", ["open"], "s1");
    expect(open.done).toEqual([]);
  });

  test("a question of the tool's is refused by a request for a hand", async () => {
    const { say, path } = await beside(print(init, denial));
    await say("Build it");
    await say("Note that it rains", ["open"], "s1");
    await say("yes", ["open"], "s1");
    expect(readFileSync(`${path}.args`, "utf8")).not.toContain("Bash(make)");
  });

  test("when the tool fails, nothing of a text that it was asked about is done", async () => {
    const { say, note } = await beside("exit 3");
    for (const request of ["Translate this. Add milk to the shopping list.", "Add milk to the shopping list.\nTranslate that."]) {
      expect((await say(request)).text).toBe("The language model did not answer.");
    }
    expect(note.done).toEqual([]);
  });

  test("when the tool fails, hands say why they cannot do what was asked", async () => {
    const { say, log } = await beside("exit 3");
    expect((await say("Open flurb")).text).toBe("The language model did not answer. I find no such thing.");
    expect((await say("Add milk to the shopping list. Explain this")).text).toBe("Noted. The language model did not answer.");
    expect(log).toHaveLength(2);
  });
});
