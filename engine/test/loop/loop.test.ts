import { describe, expect, test } from "bun:test";
import { bench, connect, hear, speak, utter } from "../support/bench.ts";
import { settle } from "../support/clock.ts";

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

describe("a typed request", () => {
  test("is thought out, spoken, and ends where it began, in that order", async () => {
    const it = bench();
    const socket = connect(it);
    it.brain.isSlow = true;
    it.engine.loop.say("What time is it?");
    expect(it.engine.state.state).toBe("thinking");
    it.brain.release();
    await settle();
    expect(it.engine.state.state).toBe("speaking");
    expect(socket.sent).toMatchObject([{ type: "play", format: "wav" }]);
    expect(it.events).toContainEqual(["spoken", JSON.stringify("It is 3:20 PM.")]);
    it.engine.link.text(socket, socket.played(0));
    await settle();
    expect(it.engine.state.state).toBe("waiting");
    expect(it.phases()).toEqual(["waiting", "thinking", "speaking", "waiting"]);
    expect(it.events.at(-1)).toEqual(["turnEnd", ""]);
  });

  test("is written down with its answer, its time and its cost", async () => {
    const it = bench();
    it.brain.costUsd = 0.25;
    it.engine.loop.say("Thanks");
    await it.clock.advance(10_000);
    const { conversation, timings } = it.engine.state;
    expect(conversation).toMatchObject({ answers: 1, costUsd: 0.25 });
    expect(conversation.rows).toMatchObject([
      { role: "user", text: "Thanks" },
      { role: "assistant", text: "You are welcome.", durationMs: 0 },
    ]);
    expect(timings).toMatchObject({ isSpoken: false });
    expect(timings?.transcribeMs).toBeUndefined();
    expect(it.engine.history).toMatchObject([{ firstQuestion: "Thanks", answers: 1, costUsd: 0.25 }]);
  });

  test("during another replaces it", async () => {
    const it = bench();
    const socket = connect(it);
    it.engine.loop.say("What time is it?");
    await settle();
    it.engine.loop.say("Thanks");
    await settle();
    expect(socket.types).toEqual(["play", "stop", "play"]);
    expect(it.engine.state.state).toBe("speaking");
  });

  test("to stop is what the command does, and no request", async () => {
    for (const text of ["Stop.", "never mind", "Palomet, be quiet!"]) {
      const it = bench();
      const socket = connect(it);
      it.engine.loop.say("What time is it?");
      await settle();
      it.engine.loop.say(text);
      await settle();
      expect(socket.types).toEqual(["play", "stop"]);
      expect(it.engine.state).toMatchObject({ state: "waiting", conversation: { rows: [{ text: "What time is it?" }, { role: "assistant" }] } });
    }
  });

  test("can begin a new conversation, or mute the microphone, and only in just these words", async () => {
    const it = bench();
    it.engine.loop.say("Thanks");
    await settle();
    it.engine.loop.say("Quite!");
    await settle();
    expect(it.engine.state.conversation.rows.map(({ text }) => text)).toContain("Quite!");
    it.engine.loop.say("New conversation");
    expect(it.engine.state.conversation.rows).toEqual([]);
    it.engine.loop.say("mute yourself");
    expect(it.engine.state.isMuted).toBe(true);
  });

  test("without a front end is shown line by line for as long as it takes to read", async () => {
    const it = bench();
    it.engine.loop.say("What can you do?");
    await settle();
    expect(it.events.filter(([name]) => name === "spoken")).toHaveLength(1);
    await it.clock.advance(60_000);
    expect(it.events.filter(([name]) => name === "spoken")).toHaveLength(2);
    expect(it.engine.state.state).toBe("waiting");
    expect(it.clock.pending).toBe(0);
  });
});

describe("stop", () => {
  test("silences an answer at once and keeps what was said", async () => {
    const it = bench();
    const socket = connect(it);
    it.engine.loop.say("What can you do?");
    await settle();
    it.engine.loop.stop();
    expect(socket.types.at(-1)).toBe("stop");
    expect(it.engine.state.state).toBe("waiting");
    expect(it.engine.state.conversation.rows).toHaveLength(2);
    expect(it.engine.state.conversation.rows[1]?.isOpen).toBeUndefined();
  });

  test("while it thinks gives up the answer", async () => {
    const it = bench();
    it.brain.isSlow = true;
    it.engine.loop.say("What can you do?");
    it.engine.loop.stop();
    await settle();
    expect(it.engine.state.state).toBe("waiting");
    expect(it.engine.state.conversation.rows).toMatchObject([{ role: "user" }]);
    expect(it.engine.state.conversation.answers).toBe(0);
  });

  test("with nothing going on sends nothing", () => {
    const it = bench();
    const socket = connect(it);
    it.engine.loop.stop();
    expect(socket.sent).toEqual([]);
  });
});

describe("mute", () => {
  test("hears nothing, shows no level, and is lifted by listening", async () => {
    const it = bench();
    const socket = connect(it);
    await hear(it, socket, 500);
    it.engine.loop.toggleMute();
    expect(it.engine.state).toMatchObject({ state: "muted", isMuted: true });
    it.events.length = 0;
    await hear(it, socket, 1_000, -22);
    expect(it.events).toEqual([]);
    it.engine.loop.listen();
    expect(it.engine.state).toMatchObject({ state: "listening", isMuted: false });
  });

  test("takes back what was asked leave for, and lifting it does not", () => {
    const it = bench();
    let refused = 0;
    it.brain.refuse = () => void refused++;
    it.engine.loop.toggleMute();
    expect(refused).toBe(1);
    it.engine.loop.toggleMute();
    expect(refused).toBe(1);
  });

  test("lets typed requests be answered, and returns to muted", async () => {
    const it = bench();
    it.engine.loop.toggleMute();
    it.engine.loop.say("Thanks");
    await settle();
    expect(it.engine.state.state).toBe("speaking");
    await it.clock.advance(10_000);
    expect(it.engine.state.state).toBe("muted");
  });
});

test("a sample is spoken, belongs to no conversation, and can be stopped", async () => {
  const it = bench();
  const socket = connect(it);
  it.engine.loop.sample();
  await settle();
  expect(it.engine.state.state).toBe("speaking");
  expect(it.synthesiser.spoken[0]).toContain("Palomet");
  it.engine.loop.sample();
  await settle();
  expect(it.engine.state.state).toBe("speaking");
  it.engine.loop.stop();
  await settle();
  expect(socket.types.at(-1)).toBe("stop");
  expect(it.engine.state).toMatchObject({ state: "waiting", conversation: { rows: [] } });
});

test("a new conversation is empty, and the old one is in the history", async () => {
  const it = bench();
  it.engine.loop.say("Thanks");
  await it.clock.advance(10_000);
  it.engine.newConversation();
  expect(it.engine.state.conversation).toMatchObject({ rows: [], answers: 0, costUsd: 0 });
  expect(it.engine.history).toMatchObject([{ firstQuestion: "Thanks" }]);
  it.engine.loop.say("Hello");
  await it.clock.advance(10_000);
  expect(it.engine.history.map(({ firstQuestion }) => firstQuestion)).toEqual(["Hello", "Thanks"]);
});

test("rows have times of their own, even when they come at once", async () => {
  const it = bench();
  for (const text of ["a", "b", "c"]) it.engine.loop.say(text);
  await it.clock.advance(20_000);
  const times = it.engine.state.conversation.rows.map(({ at }) => at);
  expect(new Set(times).size).toBe(times.length);
});
