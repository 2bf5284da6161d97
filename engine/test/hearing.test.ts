import { describe, expect, test } from "bun:test";
import { Hearing, type Utterance } from "../src/hearing/hearing.ts";
import { InterruptionDetector } from "../src/hearing/interruptionDetector.ts";
import { LevelMeter } from "../src/sound/levelMeter.ts";
import { ManualClock, tone } from "./support.ts";

function listen() {
  const told: string[] = [];
  const utterances: Utterance[] = [];
  const hearing = new Hearing({
    began: () => told.push("began"),
    ended: (utterance) => {
      told.push("ended");
      utterances.push(utterance);
    },
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

/** Feeds levels of 10 ms each; how many it took to decide, or undefined. */
function decide(detector: InterruptionDetector, levels: number[], floor = -70): number | undefined {
  const at = levels.findIndex((level) => detector.take(level, floor));
  return at < 0 ? undefined : at + 1;
}

/** Residue of speech as it comes out of a canceller: its level varies, with short louder bursts. */
function residue(seconds: number, level: number, burstLevel: number): number[] {
  let seed = 3;
  const random = (): number => (seed = (seed * 16_807) % 2_147_483_647) / 2_147_483_647;
  let burst = 0;
  return Array.from({ length: seconds * 100 }, () => {
    if (burst > 0) burst--;
    else if (random() < 0.005) burst = 4 + Math.floor(random() * 12);
    return (burst > 0 ? burstLevel : level) + 12 * (random() - 0.7);
  });
}

describe("somebody talking over the agent", () => {
  test("is noticed within 100 ms when as loud as speech is", () => {
    const detector = new InterruptionDetector();
    decide(detector, residue(3, -60, -45));
    const speech = Array.from({ length: 50 }, (_, index) => -22 - 6 * Math.sin(index));
    expect(decide(detector, speech)).toBeLessThanOrEqual(10);
  });

  test("is noticed when soft, only later", () => {
    const detector = new InterruptionDetector();
    decide(detector, residue(60, -62, -55));
    const speech = Array.from({ length: 100 }, (_, index) => -36 - 4 * Math.sin(index));
    expect(decide(detector, speech)).toBeLessThanOrEqual(25);
  });

  test("is noticed in the first answer, before anything is known of the residue", () => {
    expect(decide(new InterruptionDetector(), new Array<number>(50).fill(-22))).toBeLessThanOrEqual(12);
  });

  test("is not found in ten minutes of what the canceller leaves", () => {
    expect(decide(new InterruptionDetector(), residue(600, -58, -42))).toBeUndefined();
  });

  test("is not found while a canceller that has just begun learns", () => {
    const detector = new InterruptionDetector();
    const learning = residue(2, -46, -40).map((level, index) => level + 12 * Math.exp(-index / 50));
    expect(decide(detector, learning)).toBeUndefined();
    expect(decide(detector, residue(60, -58, -45))).toBeUndefined();
  });

  test("is noticed soon after a canceller has begun, or has failed for a while", () => {
    const speech = Array.from({ length: 80 }, (_, index) => -21 - 6 * Math.sin(index));
    const begun = new InterruptionDetector();
    decide(begun, residue(2, -42, -36).map((level, index) => level + 14 * Math.exp(-index / 80)));
    expect(decide(begun, speech)).toBeLessThanOrEqual(20);
    const failed = new InterruptionDetector();
    decide(failed, residue(10, -60, -45));
    decide(failed, new Array<number>(200).fill(-29));
    decide(failed, residue(5, -60, -45));
    expect(decide(failed, speech)).toBeLessThanOrEqual(20);
  });

  test("does not raise the gate for itself", () => {
    const detector = new InterruptionDetector();
    decide(detector, residue(5, -60, -50));
    const before = detector.residue;
    decide(detector, new Array<number>(20).fill(-22));
    expect(detector.residue).toBeLessThan(before + 3);
  });
});

test("a meter shows the highest of what comes too fast", async () => {
  const clock = new ManualClock();
  const sent: number[] = [];
  const meter = new LevelMeter(clock, (level) => sent.push(level));
  meter.show(0.2);
  meter.show(0.9);
  await clock.advance(50);
  meter.show(0.4);
  await clock.advance(50);
  meter.show(0.4);
  await clock.advance(50);
  meter.show(0.4);
  meter.clear();
  meter.clear();
  expect(sent).toEqual([0.2, 0.9, 0.4, 0]);
});
