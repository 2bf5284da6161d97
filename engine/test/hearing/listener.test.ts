import { afterAll, describe, expect, test } from "bun:test";
import { readdirSync, readFileSync } from "node:fs";
import { systemClock, type Clock } from "../../src/base/clock.ts";
import { Hearing, type Utterance } from "../../src/hearing/hearing.ts";
import { Listener } from "../../src/hearing/listener.ts";
import type { SpeechDetector, Verdict } from "../../src/hearing/speechDetector.ts";
import { Children } from "../../src/machine/children.ts";
import { shipped } from "../../src/machine/shipped.ts";
import { ManualClock } from "../support/clock.ts";
import { gone } from "../support/processes.ts";
import { hiss, tone } from "../support/sounds.ts";
import { hasVoice, said } from "../support/speech.ts";

const { runtime, speechDetector } = shipped;
const children = new Children({ PATH: process.env.PATH });
afterAll(() => children.endAll());

/** The processes of listeners that this one runs, the newest last: numbers of processes begin anew now and then. */
function listeners(): number[] {
  const started = readdirSync("/proc").map(Number).flatMap((id) => {
    try {
      // After the name: the state, the parent, and as the twentieth when it was started.
      const fields = readFileSync(`/proc/${id}/stat`, "latin1").split(") ")[1]?.split(" ") ?? [];
      const isOurs = fields[1] === String(process.pid) && readFileSync(`/proc/${id}/cmdline`, "latin1").includes("listenerChild");
      return isOurs ? [{ id, start: Number(fields[19]) }] : [];
    } catch {
      return [];
    }
  });
  return started.sort((one, other) => one.start - other.start).map(({ id }) => id);
}

function bench(clock: Clock = systemClock, files = { runtime: runtime ?? "", model: speechDetector ?? "" }) {
  const log: string[] = [];
  const verdicts: Verdict[] = [];
  let look = (): void => {};
  let at = 0;
  const listener = new Listener(children, clock, (line) => log.push(line), files);
  listener.tell((verdict) => {
    verdicts.push(verdict);
    look();
  });
  /** Resolves when there is a verdict on this sample. */
  const judged = (sample: number): Promise<void> =>
    new Promise((resolve) => {
      look = () => (verdicts.at(-1)?.to ?? 0) >= sample && resolve();
      look();
    });
  const take = (samples: Int16Array, isUrgent = true): void => {
    for (let from = 0; from < samples.length; from += 341) {
      const part = samples.subarray(from, from + 341);
      listener.take(part, at, isUrgent);
      at += part.length;
    }
  };
  const hear = async (samples: Int16Array, isUrgent = true): Promise<void> => {
    take(samples, isUrgent);
    await judged(at - 2_100);
  };
  return { listener, log, verdicts, take, hear, judged, place: () => at };
}

const likely = (verdicts: Verdict[]): Verdict[] => verdicts.filter(({ probability }) => probability > 0.5);

describe.skipIf(!runtime || !speechDetector || !hasVoice)("the listener", () => {
  test("tells speech from noise, window after window", async () => {
    const { listener, verdicts, hear, log } = bench();
    await hear(hiss(3_000, -25));
    expect(likely(verdicts)).toEqual([]);
    const before = verdicts.length;
    await hear(await said("Good morning, how are you today?", "en-us"));
    expect(likely(verdicts.slice(before)).length).toBeGreaterThan(20);
    await hear(hiss(1_000, -68), false);
    expect(likely(verdicts.slice(-10))).toEqual([]);
    expect(verdicts.map(({ from, to }) => to - from)).toEqual(verdicts.map(() => 512));
    expect(verdicts.map(({ from }) => from)).toEqual(verdicts.map((_, index) => index * 512));
    expect<boolean>(listener.isAnswering).toBe(true);
    expect(log).toEqual([]);
  });

  test("forgets what was no speech after two seconds: what is said later is judged alike", async () => {
    const speech = await said("Yes.", "en-us");
    const judgements = await Promise.all(
      [hiss(4_000, -75), hiss(4_000, -12)].map(async (before) => {
        const { verdicts, hear, place } = bench();
        await hear(before);
        // The last verdicts may come later.
        const from = Math.floor(place() / 512);
        await hear(hiss(4_000, -75));
        await hear(speech);
        return { before: verdicts.slice(0, from), after: verdicts.slice(from + 70, from + 145).map(({ probability }) => probability) };
      }),
    );
    expect(judgements.map(({ before }) => likely(before))).toEqual([[], []]);
    expect(judgements[0]!.after.some((probability) => probability > 0.5)).toBe(true);
    expect(judgements[0]!.after).toEqual(judgements[1]!.after);
  });

  test("is back when it was killed, and knows where it is", async () => {
    const { listener, verdicts, hear, take, judged, place, log } = bench();
    await hear(hiss(500, -60));
    const [id = 0] = listeners().slice(-1);
    process.kill(id, "SIGKILL");
    await gone([id]);
    while (listener.isAnswering) await Bun.sleep(1);
    take(hiss(500, -60));
    const resumedAt = place();
    take(await said("Good morning, how are you today?", "en-us"));
    await judged(place() - 600);
    expect<boolean>(listener.isAnswering).toBe(true);
    expect(log).toEqual(["o detector de fala parou (SIGKILL)"]);
    expect(likely(verdicts).every(({ from }) => from > resumedAt)).toBe(true);
    expect(likely(verdicts).length).toBeGreaterThan(20);
  });

  test("that hangs is late, and is answering when it has caught up", async () => {
    const clock = new ManualClock();
    const { listener, hear, take, judged, place } = bench(clock);
    await hear(hiss(500, -60));
    const [id = 0] = listeners().slice(-1);
    process.kill(id, "SIGSTOP");
    take(hiss(500, -60));
    expect<boolean>(listener.isAnswering).toBe(true);
    await clock.advance(1_000);
    expect<boolean>(listener.isAnswering).toBe(false);
    process.kill(id, "SIGCONT");
    await judged(place() - 600);
    expect<boolean>(listener.isAnswering).toBe(true);
  });

  test("ends when no samples have come for a minute", async () => {
    const clock = new ManualClock();
    const { hear } = bench(clock);
    const before = new Set(listeners());
    await hear(hiss(500, -60));
    const [id = 0] = listeners().filter((other) => !before.has(other));
    await clock.advance(120_000);
    await gone([id]);
    await hear(hiss(500, -60));
  });

  test("that lacks its model stays down, and says so", async () => {
    const { listener, log, take } = bench(systemClock, { runtime: runtime ?? "", model: "/nowhere" });
    take(hiss(200, -60));
    while (log.length === 0) await Bun.sleep(5);
    take(hiss(200, -60));
    expect(log).toEqual([expect.stringMatching(/^o detector de fala não funciona aqui, sigo sem ele \(.*nowhere/)]);
    expect(listener.isAnswering).toBe(false);
  });
});

describe.skipIf(!runtime || !speechDetector || !hasVoice)("hearing with the listener", () => {
  /** Gives samples at the pace at which they are judged, and notes what is told. */
  function hearing() {
    const { listener } = bench();
    const told: string[] = [];
    let judgedTo = 0;
    let look = (): void => {};
    const speech: SpeechDetector = {
      get isAnswering() {
        return listener.isAnswering;
      },
      take: (samples, at, isUrgent) => listener.take(samples, at, isUrgent),
      tell: (taker) =>
        listener.tell((verdict) => {
          taker(verdict);
          judgedTo = verdict.to;
          look();
        }),
    };
    const note = (what: string) => (): void => void told.push(what);
    const ended = ({ samples }: Utterance): void => void told.push(`${(samples.length / 16_000).toFixed(1)} s`);
    const it = new Hearing({ began: note("began"), paused: () => {}, resumed: () => {}, ended, dropped: note("dropped") }, speech);
    let at = 0;
    const hear = async (samples: Int16Array): Promise<void> => {
      for (let from = 0; from < samples.length; from += 341) {
        it.take(samples.subarray(from, from + 341));
        at += Math.min(341, samples.length - from);
        await new Promise<void>((resolve) => {
          look = () => judgedTo >= at - 2_560 && resolve();
          look();
        });
      }
    };
    return { it, told, hear };
  }

  const shifted = (samples: Int16Array): Int16Array => samples.map((sample) => Math.max(-32_768, Math.min(32_767, sample + 5_000)));
  const clipped = (samples: Int16Array): Int16Array => samples.map((sample) => Math.max(-32_768, Math.min(32_767, sample * 8)));
  const soft = (samples: Int16Array): Int16Array => samples.map((sample) => Math.round(sample / 16));
  const ways: [string, (samples: Int16Array) => Int16Array][] = [
    ["as it is", (samples) => samples],
    ["softly", soft],
    ["into a microphone that clips", clipped],
    ["over a constant offset", shifted],
  ];
  for (const [how, change] of ways) {
    test(`makes one utterance of a sentence that is said ${how}`, async () => {
      const { told, hear } = hearing();
      await hear(change(hiss(1_500, -68)));
      told.length = 0;
      await hear(change(await said("Good morning, how are you today?", "en-us")));
      await hear(change(hiss(1_000, -68)));
      expect(told).toEqual(["began", expect.stringMatching(/^[23]\.\d s$/)]);
    });
  }

  test("makes none of noises, and hears what is said just after them", async () => {
    const { told, hear } = hearing();
    await hear(hiss(1_500, -68));
    told.length = 0;
    await hear(hiss(3_000, -20));
    await hear(hiss(1_500, -68));
    for (let knock = 0; knock < 10; knock++) {
      await hear(tone(120, -15));
      await hear(new Int16Array(3_200));
    }
    await hear(hiss(2_500, -68));
    expect(told).toEqual([]);
    await hear(await said("Yes.", "en-us"));
    await hear(hiss(1_000, -68));
    expect(told).toEqual(["began", expect.stringMatching(/ s$/)]);
  });
});
