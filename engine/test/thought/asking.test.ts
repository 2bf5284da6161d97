import { describe, expect, test } from "bun:test";
import { systemClock } from "../../src/base/clock.ts";
import { phrases } from "../../src/base/phrases.ts";
import type { Request } from "../../src/thought/answer.ts";
import { Asking } from "../../src/thought/asking.ts";
import { closeServers, failure, mind, roles } from "../support/askedMinds.ts";
import { NotingHand, SlowHand } from "../support/chatMinds.ts";
import { ask, request } from "../support/claudeTool.ts";
import { ManualClock } from "../support/clock.ts";
import { ollama } from "../support/servers/ollama.ts";

closeServers();

function asking(language: "en" | "pt" = "en") {
  const clock = new ManualClock();
  const ending = new AbortController();
  const it = new Asking<string>(clock, phrases[language]);
  const heard = it.ask("rm x", ending.signal);
  const say = (text: string): Request => ({ ...request(text), askedAt: clock.now() });
  return { clock, ending, it, heard, reply: (text: string) => it.reply(say(text)) };
}

describe("a question", () => {
  test("is answered by a plain yes or no, once", () => {
    const yes = asking();
    expect(yes.reply("Yes, please!")).toEqual({ isYes: true, what: "rm x" });
    expect(yes.reply("Yes.")).toBeUndefined();
    expect(asking().reply("no")).toEqual({ isYes: false, what: "rm x" });
    expect(asking("pt").reply("Sim.")).toEqual({ isYes: true, what: "rm x" });
    expect(asking("pt").reply("Pode sim, por favor.")).toEqual({ isYes: true, what: "rm x" });
    expect(asking().reply("Sure, go ahead.")).toEqual({ isYes: true, what: "rm x" });
    expect(asking("pt").reply("Não!")).toEqual({ isYes: false, what: "rm x" });
  });

  test("is over when something else is said, and a later yes says yes to nothing", () => {
    for (const other of ["yes and remove y", "Thanks", "", `yes ${" ".repeat(200)}`]) {
      const it = asking();
      expect([other, it.reply(other)]).toEqual([other, undefined]);
      expect(it.reply("yes")).toBeUndefined();
    }
  });

  test("is answered no by ten seconds of nothing after it was heard", async () => {
    for (const [ms, isAnswered] of [[10_000, true], [10_001, false]] as const) {
      const it = asking();
      await it.clock.advance(60_000);
      it.heard();
      await it.clock.advance(ms);
      expect([ms, it.reply("yes") !== undefined]).toEqual([ms, isAnswered]);
    }
  });

  test("has ten seconds from its end, not from its beginning", async () => {
    const it = asking();
    it.heard();
    await it.clock.advance(8_000);
    it.heard();
    await it.clock.advance(8_000);
    expect(it.reply("yes")).toEqual({ isYes: true, what: "rm x" });
  });

  test("that is cut short waits ten seconds as well", async () => {
    for (const [ms, isAnswered] of [[10_000, true], [10_001, false]] as const) {
      const it = asking();
      it.heard();
      await it.clock.advance(5_000);
      it.ending.abort();
      await it.clock.advance(ms);
      it.heard();
      expect([ms, it.reply("yes") !== undefined]).toEqual([ms, isAnswered]);
    }
  });

  test("of which nothing was heard before it was cut short is over", () => {
    const it = asking();
    it.ending.abort();
    it.heard();
    expect(it.reply("yes")).toBeUndefined();
    const second = asking();
    second.it.ask("rm y", new AbortController().signal);
    second.ending.abort();
    expect(second.reply("yes")).toEqual({ isYes: true, what: "rm y" });
  });

  test("is not answered by what was said before it began", async () => {
    const it = asking();
    const early = { ...request("yes"), askedAt: it.clock.now() };
    await it.clock.advance(1);
    it.heard();
    expect(it.it.reply(early)).toBeUndefined();
  });

  test("of an answer that was stopped before is not asked, and leaves what was asked meanwhile", () => {
    const it = asking();
    const stopped = new AbortController();
    stopped.abort();
    it.it.ask("rm y", stopped.signal)();
    expect(it.reply("yes")).toEqual({ isYes: true, what: "rm x" });
    it.it.ask("rm y", stopped.signal)();
    expect(it.reply("yes")).toBeUndefined();
  });

  test("that was refused, or gave way to another, is not answered any more", () => {
    const refused = asking();
    refused.it.refuse();
    expect(refused.reply("yes")).toBeUndefined();
    const second = asking();
    second.it.ask("rm y", second.ending.signal);
    expect(second.reply("yes")).toEqual({ isYes: true, what: "rm y" });
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
