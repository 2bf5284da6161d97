import { describe, expect, test } from "bun:test";
import { bench, connect, hear, speak, utter } from "../support/bench.ts";
import { settle } from "../support/clock.ts";

describe("speaking over an answer", () => {
  async function answering() {
    const it = bench();
    const socket = connect(it);
    await hear(it, socket, 500);
    it.engine.loop.say("What can you do?");
    await settle();
    await hear(it, socket, 500, -60);
    return { it, socket };
  }

  test("silences it within 150 ms of the first sample", async () => {
    const { it, socket } = await answering();
    const began = it.clock.now();
    while (!socket.types.includes("stop") && it.clock.now() < began + 1_000) await hear(it, socket, 10, -22);
    expect(it.clock.now() - began).toBeLessThanOrEqual(150);
    expect(it.engine.state.state).toBe("hearing");
  });

  test("is understood without the name", async () => {
    const { it, socket } = await answering();
    await speak(it, socket, "thanks");
    expect(it.engine.state.heard).toMatchObject([{ action: "accepted", reason: "asked over the answer" }]);
    expect(it.brain.requests.map(({ text }) => text)).toEqual(["What can you do?", "Thanks"]);
  });

  test("with a word or two carries out nothing that needs to be meant", async () => {
    for (const text of ["mute", "yes", "new conversation"]) {
      const { it, socket } = await answering();
      it.recogniser.will(text);
      await hear(it, socket, 200, -22);
      await hear(it, socket, 1_000);
      expect(it.engine.state).toMatchObject({ state: "listening", isMuted: false, conversation: { answers: 1 } });
      expect(it.engine.state.heard).toMatchObject([{ action: "interrupted", reason: "too short over the agent's voice" }]);
      expect(it.brain.requests).toHaveLength(1);
    }
  });

  test("neither mutes it nor begins a new conversation without the name", async () => {
    for (const text of ["mute yourself", "new conversation", "clear the draft"]) {
      const { it, socket } = await answering();
      await speak(it, socket, text);
      expect(it.engine.state.heard).toMatchObject([{ action: "interrupted", reason: "the name was not said" }]);
      expect(it.engine.state).toMatchObject({ isMuted: false, conversation: { answers: 1 } });
      await hear(it, socket, 2_000);
      await speak(it, socket, `Palomet, ${text}`);
      expect(it.engine.state.heard.at(-1)?.action).toMatch(/accepted|cleared/);
    }
  });

  test("with a word to stop only stops", async () => {
    const { it, socket } = await answering();
    await speak(it, socket, "be quiet");
    expect(it.engine.state.heard).toMatchObject([{ action: "interrupted" }]);
    expect(it.engine.state.state).toBe("waiting");
  });

  test("without being understood makes it listen", async () => {
    const { it, socket } = await answering();
    it.recogniser.answers.push({ kind: "text", text: "", isUnderstood: false });
    await utter(it, socket);
    expect(it.engine.state.heard).toMatchObject([{ action: "interrupted", reason: "not understood" }]);
    expect(it.engine.state.state).toBe("listening");
  });

  test("in the answer's own words is an echo", async () => {
    const { it, socket } = await answering();
    await speak(it, socket, "tell you the time and the date");
    expect(it.engine.state.heard).toMatchObject([{ action: "echo" }]);
    expect(it.brain.requests).toHaveLength(1);
  });

  test("is not possible for what echo cancellation leaves of it", async () => {
    const { it, socket } = await answering();
    for (let burst = 0; burst < 20; burst++) {
      await hear(it, socket, 60, -42);
      await hear(it, socket, 140, -58);
    }
    expect(socket.types).not.toContain("stop");
    expect(it.engine.state.heard).toEqual([]);
  });

  test("is not possible without echo cancellation", async () => {
    const { it, socket } = await answering();
    await it.engine.set({ isEchoCancelOn: false });
    await hear(it, socket, 600, -22);
    expect(socket.types).not.toContain("stop");
  });
});
