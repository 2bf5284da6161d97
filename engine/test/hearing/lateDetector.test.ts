import { expect, test } from "bun:test";
import { FakeSpeechDetector } from "../support/fakeSpeechDetector.ts";
import { listen } from "../support/hearing.ts";
import { hiss as noise, tone } from "../support/sounds.ts";

test("a speech detector that is late in the pause after a word does not cut what was said meanwhile, or drop it", () => {
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

test("a speech detector tells the agent's own voice from what was said before it and after it, however late it is", () => {
  const speech = new FakeSpeechDetector();
  const { hearing, told, utterances, take } = listen(speech);
  take(noise(500, -70));
  speech.isPrompt = false;
  take(noise(200, -70));
  hearing.isOwnVoice = true;
  take(tone(600, -40));
  hearing.isOwnVoice = false;
  take(noise(100, -70));
  speech.judge();
  expect(told).toEqual([]);
  take(noise(500, -70));
  take(tone(500, -40));
  hearing.isOwnVoice = true;
  speech.judge();
  expect(told).toEqual(["began"]);
  hearing.isOwnVoice = false;
  take(noise(1_000, -70));
  speech.judge();
  expect(told).toEqual(["began", "ended"]);
  expect(utterances[0]).toMatchObject({ overlapsSpeech: false, isSurelySomebody: true });
});
