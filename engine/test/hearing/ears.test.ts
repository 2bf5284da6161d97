import { describe, expect, test } from "bun:test";
import { bench, connect, hear, speak, utter, type BenchOptions } from "../support/bench.ts";
import { ManualClock, settle } from "../support/clock.ts";
import { FakeSpeechDetector } from "../support/fakeSpeechDetector.ts";
import { temporaryFolder } from "../support/folders.ts";

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

  test("is not what its echo does that reaches the engine late", async () => {
    const { it, socket } = await answering();
    for (let clip = 0; clip < 10; clip++) {
      it.engine.link.text(socket, socket.played(clip));
      await settle();
    }
    expect(it.engine.state.state).toBe("waiting");
    // The engine was held up: the sound comes long after the clip had ended.
    await it.clock.advance(3_000);
    await hear(it, socket, 200, -40);
    await hear(it, socket, 1_500);
    expect(it.engine.state).toMatchObject({ state: "waiting", heard: [] });
  });

  test("is not possible without echo cancellation", async () => {
    const { it, socket } = await answering();
    await it.engine.set({ isEchoCancelOn: false });
    await hear(it, socket, 600, -22);
    expect(socket.types).not.toContain("stop");
  });
});

describe("somebody who speaks", () => {
  async function listening(options: BenchOptions = {}) {
    const it = bench(temporaryFolder(), new ManualClock(), "", options);
    const socket = connect(it);
    await hear(it, socket, 500);
    return { it, socket };
  }

  test("has the recogniser prepared, and recognised ahead of the end", async () => {
    const { it, socket } = await listening();
    it.recogniser.will("Palomet, help");
    await hear(it, socket, 200, -22);
    expect(it.recogniser.prepared).toBe(1);
    await hear(it, socket, 400, -22);
    await hear(it, socket, 300);
    expect(it.recogniser.heard).toHaveLength(1);
    expect(it.engine.state).toMatchObject({ state: "hearing", heard: [] });
    await hear(it, socket, 600);
    expect(it.engine.state.heard).toMatchObject([{ text: "Palomet, help", action: "accepted" }]);
    expect(it.engine.state.timings?.transcribeMs).toBe(0);
    expect(it.recogniser.heard).toHaveLength(1);
  });

  test("and goes on after a pause is understood whole", async () => {
    const { it, socket } = await listening();
    it.recogniser.will("Palomet, what");
    it.recogniser.will("Palomet, what time is it?");
    await hear(it, socket, 600, -22);
    await hear(it, socket, 400);
    expect(it.recogniser.signals[0]?.aborted).toBe(false);
    await hear(it, socket, 150, -22);
    expect(it.recogniser.signals[0]?.aborted).toBe(true);
    await hear(it, socket, 450, -22);
    await hear(it, socket, 1_000);
    expect(it.engine.state.heard).toMatchObject([{ text: "Palomet, what time is it?" }]);
    expect(it.recogniser.heard[1]!.length).toBeGreaterThan(it.recogniser.heard[0]!.length + 12_000);
  });

  test("is not heard when it is muted in the middle, nor afterwards by what was said before", async () => {
    const { it, socket } = await listening();
    it.recogniser.will("Palomet");
    await hear(it, socket, 600, -22);
    await hear(it, socket, 300);
    it.engine.loop.toggleMute();
    expect(it.recogniser.signals[0]?.aborted).toBe(true);
    await hear(it, socket, 1_000);
    expect(it.engine.state).toMatchObject({ state: "muted", heard: [] });
    it.engine.loop.toggleMute();
    await hear(it, socket, 2_000);
    expect(it.engine.state).toMatchObject({ state: "waiting", heard: [] });
  });

  test("goes on being heard when the agent's own voice or another microphone comes in between", async () => {
    for (const between of ["voice", "device"]) {
      const { it, socket } = await listening();
      it.recogniser.will("not yet");
      it.recogniser.will("Palomet, help");
      await hear(it, socket, 600, -22);
      if (between === "voice") it.engine.loop.ears.ownVoice(true);
      else it.engine.link.text(socket, JSON.stringify({ type: "device", device: "Another" }));
      await hear(it, socket, 600, -22);
      await hear(it, socket, 1_000);
      expect(it.engine.state.heard).toHaveLength(1);
      expect(it.recogniser.heard.at(-1)!.length).toBeGreaterThan(16 * 1_400);
    }
  });

  test("is shown as the words come, in one entry that the whole replaces", async () => {
    const { it, socket } = await listening({ speechDetector: new FakeSpeechDetector(), isCaptioning: true });
    it.recogniser.glimpse = "Palomet what";
    await hear(it, socket, 1_400, -22);
    const [first] = it.engine.state.heard;
    expect(it.engine.state.heard).toMatchObject([{ text: "Palomet what", action: "…" }]);
    it.recogniser.glimpse = "Palomet what time";
    await hear(it, socket, 700, -22);
    expect(it.engine.state.heard).toEqual([{ ...first!, text: "Palomet what time" }]);
    it.recogniser.will("Palomet, what time is it?");
    await hear(it, socket, 1_000);
    expect(it.engine.state.heard).toMatchObject([{ text: "Palomet, what time is it?", action: "accepted" }]);
  });

  test("is shown no longer when the microphone is muted or gone", async () => {
    for (const end of ["mute", "gone"]) {
      const { it, socket } = await listening({ speechDetector: new FakeSpeechDetector(), isCaptioning: true });
      it.recogniser.glimpse = "Palomet what";
      await hear(it, socket, 1_400, -22);
      expect(it.engine.state.heard).toHaveLength(1);
      if (end === "mute") it.engine.loop.toggleMute();
      else it.engine.link.closed(socket);
      expect(it.engine.state.heard).toEqual([]);
      await it.clock.advance(5_000);
      expect(it.engine.state.heard).toEqual([]);
    }
  });

  test("is not shown before the end where the machine has no time for it", async () => {
    const { it, socket } = await listening({ speechDetector: new FakeSpeechDetector() });
    it.recogniser.glimpse = "Palomet what";
    await hear(it, socket, 3_000, -22);
    expect(it.engine.state.heard).toEqual([]);
  });

  test("is not shown before the end over the agent's own voice, nor by the words of somebody before", async () => {
    const { it, socket } = await listening({ speechDetector: new FakeSpeechDetector(), isCaptioning: true });
    it.recogniser.glimpse = "mumbled";
    it.engine.loop.ears.ownVoice(true);
    await hear(it, socket, 1_500, -22);
    expect(it.engine.state).toMatchObject({ state: "hearing", heard: [] });
    await hear(it, socket, 1_000);
    it.engine.loop.stop();
    it.engine.loop.ears.ownVoice(false);
    await hear(it, socket, 1_500);
    const before = it.engine.state.heard.length;
    await hear(it, socket, 1_500, -22);
    expect(it.engine.state.heard).toHaveLength(before + 1);
    it.engine.loop.stop();
    await hear(it, socket, 500, -22);
    expect(it.engine.state.state).toBe("hearing");
    expect(it.engine.state.heard).toHaveLength(before);
  });
});
