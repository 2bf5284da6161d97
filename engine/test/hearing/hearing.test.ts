import { describe, expect, test } from "bun:test";
import { Hearing, type Utterance } from "../../src/hearing/hearing.ts";
import { tone } from "../support/sounds.ts";

function listen() {
  const told: string[] = [];
  const utterances: Utterance[] = [];
  const hearing = new Hearing({
    began: () => told.push("began"),
    ended: (utterance) => {
      told.push("ended");
      utterances.push(utterance);
    },
    paused: () => {},
    resumed: () => {},
    dropped: () => told.push("dropped"),
  });
  const take = (samples: Int16Array): void => {
    for (let at = 0; at < samples.length; at += 341) hearing.take(samples.subarray(at, at + 341));
  };
  return { hearing, told, utterances, take };
}

/** White noise at this level, the same every time. */
function noise(ms: number, dbfs: number): Int16Array {
  let seed = 7;
  const peak = 32_768 * Math.sqrt(3) * 10 ** (dbfs / 20);
  return Int16Array.from({ length: ms * 16 }, () => {
    seed = (seed * 1_103_515_245 + 12_345) % 2_147_483_648;
    return Math.round((seed / 1_073_741_824 - 1) * peak);
  });
}

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
