import { describe, expect, test } from "bun:test";
import { bench, connect, hear, speak } from "../support/bench.ts";
import { settle } from "../support/clock.ts";

describe("the draft", () => {
  async function drafting() {
    const it = bench();
    const socket = connect(it);
    await it.engine.set({ isDraftOn: true });
    await hear(it, socket, 500);
    await speak(it, socket, "Palomet, what time is it");
    return { it, socket };
  }

  test("takes down what is said, needing the name only once, and is carried out by the phrase", async () => {
    const { it, socket } = await drafting();
    expect(it.engine.state.state).toBe("drafting");
    await speak(it, socket, "what day is it");
    expect(it.engine.state.draft.map(({ text }) => text)).toEqual(["What time is it", "What day is it"]);
    await speak(it, socket, "go ahead");
    expect(it.brain.requests).toMatchObject([{ text: "What time is it. What day is it." }]);
    expect(it.engine.state.draft).toEqual([]);
    expect(it.engine.state.heard.map(({ action }) => action)).toEqual(["drafted", "drafted", "acted"]);
  });

  test("takes what comes before the phrase with it", async () => {
    const { it, socket } = await drafting();
    await speak(it, socket, "and thank you, go ahead");
    expect(it.brain.requests).toMatchObject([{ text: "What time is it. And thank you." }]);
  });

  test("is carried out, or cleared, by command", async () => {
    const { it } = await drafting();
    it.engine.loop.act();
    await settle();
    expect(it.brain.requests).toHaveLength(1);
    it.engine.loop.act();
    expect(it.brain.requests).toHaveLength(1);
    const other = await drafting();
    other.it.engine.loop.clearDraft();
    expect(other.it.engine.state).toMatchObject({ state: "waiting", draft: [] });
  });

  test("is cleared by voice", async () => {
    const { it, socket } = await drafting();
    await speak(it, socket, "clear the draft");
    expect(it.engine.state.draft).toEqual([]);
    expect(it.engine.state.heard.at(-1)?.action).toBe("cleared");
  });

  test("loses what is too old", async () => {
    const { it } = await drafting();
    await it.clock.advance(300_000);
    expect(it.engine.state.draft).toHaveLength(1);
    await it.clock.advance(300_000);
    expect(it.engine.state).toMatchObject({ state: "waiting", draft: [] });
  });

  test("with nothing in it has nothing to carry out", async () => {
    const it = bench();
    const socket = connect(it);
    await it.engine.set({ isDraftOn: true });
    await hear(it, socket, 500);
    await speak(it, socket, "Palomet, go ahead");
    expect(it.engine.state.heard).toMatchObject([{ action: "ignored", reason: "the draft is empty" }]);
  });
});
