// What is said aloud, and what comes of it.

import { describe, expect, test } from "bun:test";
import { bench, connect, hear, settle, speak, utter } from "./support.ts";

describe("listening", () => {
  test("chimes, and ends by itself after the summon window", async () => {
    const it = bench();
    const socket = connect(it);
    it.engine.loop.listen();
    expect(socket.types).toEqual(["chime"]);
    expect(it.engine.state.state).toBe("listening");
    await hear(it, socket, 7_900);
    expect(it.engine.state.state).toBe("listening");
    await hear(it, socket, 200);
    expect(it.engine.state.state).toBe("waiting");
  });

  test("needs no name, and goes on after the answer for the follow-up window", async () => {
    const it = bench();
    const socket = connect(it);
    it.engine.loop.listen();
    await hear(it, socket, 500);
    await speak(it, socket, "thanks");
    expect(it.engine.state.state).toBe("speaking");
    it.engine.link.text(socket, socket.played(0));
    await settle();
    expect(it.engine.state.state).toBe("listening");
    expect(it.phases()).toEqual(["waiting", "listening", "hearing", "thinking", "speaking", "listening"]);
    expect(it.engine.state.timings).toMatchObject({ isSpoken: true, transcribeMs: 0 });
    await it.clock.advance(15_000);
    expect(it.engine.state.state).toBe("waiting");
  });

  test("is answered with muted when the microphone is dead", async () => {
    const it = bench();
    connect(it);
    await it.clock.advance(5_000);
    expect(it.engine.state.isMicDead).toBe(true);
    it.engine.loop.listen();
    expect(it.engine.state).toMatchObject({ state: "muted", isMuted: false });
    await it.clock.advance(8_000);
    expect(it.engine.state.state).toBe("waiting");
  });

  test("silences an answer", async () => {
    const it = bench();
    const socket = connect(it);
    it.engine.loop.say("What can you do?");
    await settle();
    it.engine.loop.listen();
    expect(socket.types.slice(-2)).toEqual(["stop", "chime"]);
  });
});

describe("an utterance", () => {
  test("without the name is ignored, and says why", async () => {
    const it = bench();
    const socket = connect(it);
    await hear(it, socket, 500);
    await speak(it, socket, "what time is it");
    expect(it.engine.state.heard).toMatchObject([
      { text: "what time is it", action: "ignored", reason: "the name was not said" },
    ]);
    expect(it.brain.requests).toEqual([]);
    expect(it.phases()).toEqual(["waiting", "hearing", "waiting"]);
  });

  test("with the name is answered", async () => {
    const it = bench();
    const socket = connect(it);
    await hear(it, socket, 500);
    await speak(it, socket, "Palomet, what time is it?");
    expect(it.brain.requests).toMatchObject([{ text: "What time is it?" }]);
    expect(it.engine.state.heard).toMatchObject([{ action: "accepted" }]);
  });

  test("of the name alone summons", async () => {
    const it = bench();
    const socket = connect(it);
    await hear(it, socket, 500);
    await speak(it, socket, "Hey Palomet");
    expect(it.engine.state.state).toBe("listening");
    expect(socket.types).toEqual(["chime"]);
    expect(it.engine.state.heard).toMatchObject([{ action: "summoned" }]);
  });

  test("needs no name when directed listening is off", async () => {
    const it = bench();
    const socket = connect(it);
    await it.engine.set({ isDirectedOn: false });
    await hear(it, socket, 500);
    await speak(it, socket, "thanks");
    expect(it.brain.requests).toMatchObject([{ text: "Thanks" }]);
  });

  test("that nobody could recognise is shown as ignored", async () => {
    const it = bench();
    const socket = connect(it);
    await hear(it, socket, 500);
    await utter(it, socket);
    expect(it.engine.state.heard).toMatchObject([
      { text: "…", action: "ignored", reason: "there is no speech recogniser" },
    ]);
    expect(it.engine.state.state).toBe("waiting");
  });

  test("that was being recognised when it was muted is left alone", async () => {
    const it = bench();
    const socket = connect(it);
    it.recogniser.isSlow = true;
    await hear(it, socket, 500);
    await speak(it, socket, "Palomet, help");
    it.engine.loop.toggleMute();
    it.recogniser.release();
    await settle();
    expect(it.engine.state.heard).toMatchObject([{ text: "Palomet, help", action: "muted" }]);
    expect(it.brain.requests).toEqual([]);
  });

  test("that was being recognised when stop was pressed is forgotten", async () => {
    const it = bench();
    const socket = connect(it);
    it.recogniser.isSlow = true;
    await hear(it, socket, 500);
    await speak(it, socket, "Palomet, help");
    it.engine.loop.stop();
    it.recogniser.release();
    await settle();
    expect(it.engine.state.heard).toEqual([]);
    expect(it.engine.state.state).toBe("waiting");
  });

  test("can begin a new conversation, or mute the microphone", async () => {
    const it = bench();
    const socket = connect(it);
    it.engine.loop.say("Thanks");
    await settle();
    it.engine.loop.stop();
    await hear(it, socket, 2_000);
    await speak(it, socket, "Palomet, new conversation");
    expect(it.engine.state.conversation.rows).toEqual([]);
    it.engine.link.text(socket, socket.played(1));
    await hear(it, socket, 2_000);
    await speak(it, socket, "Palomet, mute yourself");
    expect(it.engine.state).toMatchObject({ state: "muted", isMuted: true });
  });
});

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
