import { describe, expect, test } from "bun:test";
import { phrases } from "../../src/base/phrases.ts";
import type { Request } from "../../src/thought/answer.ts";
import { Asking } from "../../src/thought/asking.ts";
import { request } from "../support/claudeTool.ts";
import { ManualClock } from "../support/clock.ts";

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
