import { describe, expect, test } from "bun:test";
import { OwnVoice } from "../../src/hearing/ownVoice.ts";
import { FakeSpeechDetector } from "../support/fakeSpeechDetector.ts";
import { listen } from "../support/hearing.ts";
import { hiss as noise, tone } from "../support/sounds.ts";

test("it is known for each sample whether the agent's own voice sounds in it, however late that is asked", () => {
  const it = new OwnVoice();
  it.set(true, 100);
  it.set(true, 150);
  it.set(false, 200);
  it.set(true, 300);
  const heard = (): boolean[] => [100, 101, 200, 201, 300, 301].map((at) => it.isAt(at));
  expect(heard()).toEqual([false, true, true, false, false, true]);
  it.forget(100);
  expect(heard()).toEqual([false, true, true, false, false, true]);
  it.forget(201);
  expect([it.isAt(201), it.isAt(300), it.isAt(301), it.isNow]).toEqual([false, false, true, true]);
});

test("it stays true of now when nothing was ever forgotten", () => {
  const it = new OwnVoice();
  for (let count = 0; count < 1_001; count++) it.set(count % 2 === 0, count);
  expect([it.isNow, it.isAt(1_001), it.isAt(1_000)]).toEqual([true, true, false]);
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

describe("over the agent's own voice", () => {
  function overheard(isSpeech: boolean, dbfs: number): [string[], number | undefined] {
    const speech = new FakeSpeechDetector();
    const { hearing, told, take } = listen(speech);
    take(noise(500, -70));
    hearing.isOwnVoice = true;
    speech.isSpeech = false;
    take(noise(1_000, -60));
    speech.isSpeech = isSpeech;
    let after: number | undefined;
    for (let waited = 10; waited <= 600; waited += 10) {
      take(tone(10, dbfs));
      if (told.length > 0) after ??= waited;
    }
    return [told, after];
  }

  test("a voice that both detectors notice interrupts within 200 ms", () => {
    const [told, after] = overheard(true, -22);
    expect(told).toEqual(["began"]);
    expect(after).toBeLessThanOrEqual(200);
  });

  test("what only one of them notices does not", () => {
    expect(overheard(false, -10)[0]).toEqual([]);
    expect(overheard(true, -50)[0]).toEqual([]);
  });
});
