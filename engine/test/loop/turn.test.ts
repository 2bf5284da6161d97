import { describe, expect, test } from "bun:test";
import { dirname } from "node:path";
import { phrases } from "../../src/base/phrases.ts";
import { Children } from "../../src/machine/children.ts";
import { Asking } from "../../src/thought/asking.ts";
import type { EngineBrain } from "../../src/thought/brain.ts";
import { bench } from "../support/bench.ts";
import { brainWith } from "../support/brains.ts";
import { mindOf, modelOf } from "../support/chatMinds.ts";
import { ChatServer } from "../support/chatServer.ts";
import { args, init, print, result, tool } from "../support/claudeTool.ts";
import { ManualClock, settle } from "../support/clock.ts";
import { llamaCpp } from "../support/servers/llamaCpp.ts";

test("a question after an answer of the greatest length is written and spoken whole", async () => {
  const it = bench();
  it.brain.answer = async (_request, answering) => {
    answering.text(`${"a".repeat(30_000)}`);
    answering.text("\nMay I? rm -rf x", "May I? rm dash rf x");
    return { costUsd: 0 };
  };
  it.engine.loop.say("x");
  await it.clock.advance(3_600_000);
  expect(it.engine.state.conversation.rows.at(-1)?.text).toEndWith("aa\nMay I? rm -rf x");
  expect(it.events).toContainEqual(["spoken", '"May I? rm dash rf x"']);
  it.engine.close();
});

describe("a yes", () => {
  /** An agent that asks leave after these words, and notes what a yes allows. */
  function asker(words: string, question = "May I? remove x") {
    const it = bench();
    const asking = new Asking<string>(it.clock, phrases.en);
    const done: string[] = [];
    it.brain.refuse = () => asking.refuse();
    it.brain.answer = async (request, answering, signal) => {
      const reply = asking.reply(request);
      if (reply?.isYes) done.push(reply.what);
      if (reply || request.text === "yes") return { costUsd: 0 };
      if (words !== "") answering.text(words);
      answering.text(`\n${question}`, question);
      return { costUsd: 0, heard: asking.ask("remove x", signal) };
    };
    it.engine.loop.say("Tidy up");
    return { ...it, done, spoken: () => it.events.filter(([name]) => name === "spoken").map(([, data]) => data) };
  }

  test("over an answer whose question has not begun to be heard allows nothing", async () => {
    const it = asker("There are nine. Here they are.");
    await it.clock.advance(1_300);
    expect(it.spoken()).toEqual(['"There are nine."', '"Here they are."']);
    it.engine.loop.say("yes");
    await settle();
    expect(it.done).toEqual([]);
    it.engine.close();
  });

  test("over a question that has begun to be heard, or after it, allows what was asked", async () => {
    for (const [words, ms] of [["There are nine.", 1_300], ["There are nine.", 8_000], ["", 0]] as const) {
      const it = asker(words);
      await settle();
      await it.clock.advance(ms);
      expect(it.spoken().at(-1)).toBe('"May I? remove x"');
      it.engine.loop.say("yes");
      await settle();
      expect([ms, it.done]).toEqual([ms, ["remove x"]]);
      it.engine.close();
    }
  });

  test("after the microphone was muted and heard again allows nothing", async () => {
    const it = asker("");
    await settle();
    it.engine.loop.toggleMute();
    it.engine.loop.toggleMute();
    it.engine.loop.say("yes");
    await settle();
    expect(it.done).toEqual([]);
    it.engine.close();
  });

  test("ten seconds after the end of a question, however long it was, allows nothing", async () => {
    for (const [ms, done] of [[9_000, ["remove x"]], [12_000, []]] as const) {
      const it = asker("", `May I? ${"remove all of it, ".repeat(8)}`);
      await settle();
      await it.clock.advance(8_000 + ms);
      it.engine.loop.say("yes");
      await settle();
      expect([ms, it.done]).toEqual([ms, [...done]]);
      it.engine.close();
    }
  });
});

describe("a request that has the conversation forgotten first", () => {
  const wish = "Forget this conversation. And what is a quark?";

  /** Says this, and waits until it is answered. */
  async function answered({ engine, clock }: ReturnType<typeof bench>, words: string): Promise<string | undefined> {
    await clock.advance(60_000);
    engine.loop.say(words);
    while (engine.state.conversation.rows.at(-1)?.durationMs === undefined) await Bun.sleep(1);
    return engine.state.conversation.rows.at(-1)?.text;
  }

  test("goes on in no session, and the next one in its own", async () => {
    const path = tool(print(init, result));
    const children = new Children({ ...process.env, PATH: `${dirname(path)}:/usr/bin:/bin` });
    let brain: EngineBrain | undefined;
    const clock = new ManualClock();
    const it = bench(undefined, clock, "", { brain: (hands) => (brain = brainWith({ clock, children, hands }).brain) });
    await brain?.prepare();
    await it.engine.set({ confirmActions: [] });
    await answered(it, "What is an atom?");
    await answered(it, "What is a quark?");
    expect(args(path)).toContain("--resume");
    expect(await answered(it, wish)).toBe("I have forgotten this conversation. Done.");
    expect(args(path)).not.toContain("--resume");
    await answered(it, "What is an atom?");
    expect(args(path)).toContain("--resume");
    it.engine.close();
  });

  test("tells a model nothing of it", async () => {
    const server = await ChatServer.open(llamaCpp);
    const clock = new ManualClock();
    const { servers } = mindOf(server, [], clock);
    const it = bench(undefined, clock, "", { brain: (hands) => brainWith({ clock, hands, servers }).brain, servers });
    await servers.look();
    await it.engine.set({ confirmActions: [], brainModel: modelOf(server) });
    server.refuses(llamaCpp.toolless ?? llamaCpp.missing);
    server.says("It is small.");
    await answered(it, "What is an atom?");
    expect(await answered(it, wish)).toBe("I have forgotten this conversation. It is small.");
    expect(server.chats.at(-1)?.body.messages.slice(1)).toEqual([{ role: "user", content: "And what is a quark?" }]);
    it.engine.close();
    server.close();
  });

  test("does not repeat what was said in it", async () => {
    const clock = new ManualClock();
    const it = bench(undefined, clock, "", { brain: (hands) => brainWith({ clock, hands }).brain });
    await it.engine.set({ confirmActions: [] });
    const said = await answered(it, "What can you do?");
    expect(await answered(it, "Repeat that")).toBe(said as string);
    expect(await answered(it, "Forget this conversation. Repeat that.")).not.toContain(said as string);
    it.engine.close();
  });
});
