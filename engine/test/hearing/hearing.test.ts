import { describe, expect, test } from "bun:test";
import type { Utterance } from "../../src/hearing/hearing.ts";
import { FakeSpeechDetector } from "../support/fakeSpeechDetector.ts";
import { listen } from "../support/hearing.ts";
import { hiss as noise, tone } from "../support/sounds.ts";

describe("an utterance", () => {
  test("begins within 120 ms, ends after the silence that is set, and holds what came just before", () => {
    const { hearing, told, utterances, take } = listen();
    hearing.endSilenceMs = 1_200;
    take(noise(1_000, -70));
    take(tone(120, -25));
    expect(told).toEqual(["began"]);
    take(tone(500, -25));
    take(noise(1_150, -70));
    expect(told).toEqual(["began"]);
    take(noise(100, -70));
    expect(told).toEqual(["began", "ended"]);
    expect(utterances[0]?.durationMs).toBeGreaterThan(1_900);
    const first = utterances[0]?.samples.findIndex((sample) => Math.abs(sample) > 500) ?? 0;
    expect(first / 16).toBeGreaterThan(200);
  });

  test("goes on over the pauses between words", () => {
    const { told, take } = listen();
    take(noise(500, -70));
    for (let word = 0; word < 5; word++) {
      take(tone(300, -25));
      take(noise(500, -70));
    }
    take(noise(500, -70));
    expect(told).toEqual(["began", "ended"]);
  });

  test("that is a click, or two, is none", () => {
    const { told, take } = listen();
    take(noise(500, -70));
    for (let click = 0; click < 5; click++) {
      take(tone(40, -15));
      take(noise(400, -70));
    }
    expect(told).toEqual([]);
  });

  test("that is a knock is dropped", () => {
    const { told, take } = listen();
    take(noise(500, -70));
    take(tone(90, -15));
    take(noise(1_000, -70));
    expect(told).toEqual(["began", "dropped"]);
  });

  test("is ended after half a minute", () => {
    const { utterances, take } = listen();
    take(noise(500, -70));
    for (let second = 0; second < 40; second++) {
      take(tone(900, -25));
      take(noise(100, -70));
    }
    expect(utterances[0]?.durationMs).toBe(30_000);
  });

  test("is found in noise, and noise that stays becomes the room's own", () => {
    const { hearing, told, take } = listen();
    take(noise(7_000, -45));
    told.length = 0;
    expect(hearing.isHearing).toBe(false);
    take(noise(3_000, -45));
    expect(told).toEqual([]);
    expect(hearing.noise).toBeCloseTo(-45, 0);
    take(tone(500, -22));
    take(noise(1_000, -45));
    expect(told).toEqual(["began", "ended"]);
  });

  test("is heard over a constant offset, which is no sound", () => {
    const { told, take } = listen();
    const shifted = (samples: Int16Array): Int16Array => samples.map((sample) => sample + 6_000);
    take(shifted(noise(2_000, -70)));
    told.length = 0;
    take(shifted(noise(2_000, -70)));
    expect(told).toEqual([]);
    take(shifted(tone(500, -25)));
    expect(told).toEqual(["began"]);
  });

  test("is not found in digital silence or in full-scale noise that never ends", () => {
    const { hearing, told, take } = listen();
    take(new Int16Array(160_000));
    expect(told).toEqual([]);
    take(noise(8_000, -1));
    told.length = 0;
    take(noise(8_000, -1));
    expect(told).toEqual([]);
    expect(hearing.isHearing).toBe(false);
  });
});

describe("over the agent's own voice", () => {
  function overheard(ms: number): Utterance | undefined {
    const { hearing, utterances, take } = listen();
    take(noise(500, -70));
    hearing.isOwnVoice = true;
    take(noise(500, -60));
    take(tone(ms, -22));
    take(noise(1_000, -70));
    return utterances[0];
  }

  test("a burst may have been that voice", () => {
    expect(overheard(350)).toMatchObject({ overlapsSpeech: true, isSurelySomebody: false });
  });

  test("what goes on when it has fallen silent is somebody", () => {
    expect(overheard(500)).toMatchObject({ overlapsSpeech: true, isSurelySomebody: true });
  });
});

describe("with a speech detector", () => {
  test("what is no speech is no utterance, however loud", () => {
    const speech = new FakeSpeechDetector();
    const { told, take } = listen(speech);
    speech.isSpeech = false;
    for (let bark = 0; bark < 20; bark++) {
      take(tone(400, -10));
      take(noise(300, -70));
    }
    expect(told).toEqual([]);
  });

  test("what is speech for a moment begins, and is dropped", () => {
    const { told, pauses, utterances, take } = listen(new FakeSpeechDetector());
    take(noise(500, -70));
    take(tone(64, -20));
    take(noise(1_500, -70));
    expect([told, pauses, utterances]).toEqual([["began", "dropped"], [], []]);
  });

  test("an utterance holds nothing of the one before it", () => {
    const { hearing, utterances, take } = listen(new FakeSpeechDetector());
    hearing.endSilenceMs = 200;
    take(noise(500, -70));
    take(tone(600, -25));
    take(noise(260, -70));
    take(tone(600, -25));
    take(noise(500, -70));
    expect(utterances).toHaveLength(2);
    expect(Math.abs(utterances[1]!.samples[0]!)).toBeLessThan(100);
  });

  test("a silence that is not judged yet does not end an utterance", () => {
    const speech = new FakeSpeechDetector();
    const { told, take } = listen(speech);
    take(noise(500, -70));
    take(tone(600, -25));
    speech.isPrompt = false;
    take(noise(1_000, -70));
    expect(told).toEqual(["began"]);
    speech.judge();
    expect(told).toEqual(["began", "ended"]);
  });

  test("soft speech is heard where the energy says nothing", () => {
    const { told, take } = listen(new FakeSpeechDetector());
    take(noise(500, -70));
    for (let word = 0; word < 3; word++) {
      take(tone(400, -56));
      take(noise(200, -70));
    }
    take(noise(1_000, -70));
    expect(told).toEqual(["began", "ended"]);
  });

  test("an utterance begins within 100 ms, and holds 350 ms of what came before and 200 ms of the silence after it", () => {
    const { told, utterances, take } = listen(new FakeSpeechDetector());
    take(noise(1_000, -70));
    take(tone(100, -25));
    expect(told).toEqual(["began"]);
    take(tone(900, -25));
    take(noise(1_000, -70));
    const { samples } = utterances[0]!;
    const isLoud = (sample: number): boolean => Math.abs(sample) > 500;
    expect(Math.abs(samples.findIndex(isLoud) / 16 - 350)).toBeLessThanOrEqual(40);
    expect(Math.abs((samples.length - samples.findLastIndex(isLoud)) / 16 - 200)).toBeLessThanOrEqual(10);
  });

  test("an utterance may be over after 200 ms, and is when its silence is", () => {
    const { told, pauses, paused, utterances, take } = listen(new FakeSpeechDetector());
    take(noise(500, -70));
    take(tone(600, -25));
    take(noise(150, -70));
    expect(pauses).toEqual([]);
    take(noise(80, -70));
    expect(pauses).toEqual(["paused"]);
    take(tone(400, -25));
    expect(pauses).toEqual(["paused", "resumed"]);
    take(noise(770, -70));
    expect([told, pauses]).toEqual([["began"], ["paused", "resumed", "paused"]]);
    take(noise(60, -70));
    expect(told).toEqual(["began", "ended"]);
    expect(paused[1]).toEqual(utterances[0]!.samples);
  });

  test("sound that comes in a burst is cut like any other", () => {
    const speech = new FakeSpeechDetector();
    speech.isPrompt = false;
    const { hearing, told, utterances } = listen(speech);
    const words = [noise(600, -70), tone(600, -25), noise(1_200, -70), tone(900, -25), noise(1_500, -70)];
    hearing.take(Int16Array.from(words.flatMap((part) => [...part])));
    expect(told).toEqual([]);
    speech.judge();
    expect(told).toEqual(["began", "ended", "began", "ended"]);
    for (const [index, ms] of [600, 900].entries()) {
      const loud = utterances[index]!.samples.filter((sample) => Math.abs(sample) > 100);
      expect(Math.abs(loud.length / 16 - ms)).toBeLessThan(0.1 * ms);
    }
  });

  test("that is away, the energy tells speech until it is back", () => {
    const speech = new FakeSpeechDetector();
    speech.isAnswering = false;
    speech.isSpeech = false;
    const { told, take } = listen(speech);
    take(noise(500, -70));
    take(tone(600, -25));
    take(noise(1_000, -70));
    expect(told).toEqual(["began", "ended"]);
    speech.isAnswering = true;
    take(tone(600, -25));
    take(noise(1_000, -70));
    expect(told).toEqual(["began", "ended"]);
  });

  test("that dies in the middle of an utterance does not cut it", () => {
    const speech = new FakeSpeechDetector();
    const { told, utterances, take } = listen(speech);
    take(noise(500, -70));
    take(tone(1_000, -25));
    speech.isAnswering = false;
    take(tone(2_000, -25));
    speech.isAnswering = true;
    take(tone(1_000, -25));
    take(noise(1_000, -70));
    expect(told).toEqual(["began", "ended"]);
    expect(utterances[0]?.durationMs).toBeGreaterThan(4_800);
  });

  test("that is late in the pause after a word does not cut what was said meanwhile, or drop it", () => {
    // It knows the first word only, or nothing at all.
    for (const judgedMs of [300, 100]) {
      const speech = new FakeSpeechDetector();
      const { told, utterances, take } = listen(speech);
      take(noise(500, -70));
      take(tone(judgedMs, -25));
      speech.isPrompt = false;
      take(tone(1_000, -25));
      speech.isAnswering = false;
      take(noise(300, -70));
      take(tone(600, -25));
      take(noise(900, -70));
      expect([judgedMs, told]).toEqual([judgedMs, ["began", "ended"]]);
      expect(utterances[0]!.durationMs).toBeGreaterThan(judgedMs + 1_000 + 300 + 600);
    }
  });

  test("what was said before it was told to forget is not heard later", () => {
    const speech = new FakeSpeechDetector();
    speech.isPrompt = false;
    const { hearing, told, take } = listen(speech);
    take(noise(500, -70));
    take(tone(600, -25));
    hearing.reset();
    speech.judge();
    take(noise(1_000, -70));
    speech.judge();
    expect([told, hearing.isHearing]).toEqual([[], false]);
  });
});
