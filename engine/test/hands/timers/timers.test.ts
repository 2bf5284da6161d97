import { describe, expect, test } from "bun:test";
import { mostTimers, Timers, type Timer } from "../../../src/hands/timers/timers.ts";
import { ManualClock } from "../../support/clock.ts";

function timersOf(clock = new ManualClock(), kept: { text?: string } = {}) {
  const timers = new Timers(clock, { load: () => kept.text, save: (text) => (kept.text = text) });
  const rung: Timer[] = [];
  timers.onRing = (timer) => rung.push(timer);
  timers.start();
  return { timers, clock, kept, rung };
}

describe("timers", () => {
  test("ring in their order, each once", async () => {
    const { timers, clock, rung } = timersOf();
    timers.set("timer", clock.now() + 60_000, { seconds: 60 });
    timers.set("timer", clock.now() + 30_000, { seconds: 30, name: "tea" });
    await clock.advance(29_999);
    expect(rung).toEqual([]);
    await clock.advance(1);
    expect(rung.map(({ name }) => name)).toEqual(["tea"]);
    await clock.advance(600_000);
    expect(rung.map(({ seconds }) => seconds)).toEqual([30, 60]);
  });

  test("are kept over a restart, and ring then if they fell due meanwhile", async () => {
    const first = timersOf();
    first.timers.set("alarm", first.clock.now() + 60_000, { name: "work" });
    first.timers.close();
    first.clock.time += 3_600_000;
    const second = timersOf(first.clock, first.kept);
    expect(second.rung).toMatchObject([{ kind: "alarm", name: "work" }]);
  });

  test("that ring when the engine ends ring again after a restart, until they are stopped", async () => {
    const first = timersOf();
    first.timers.set("alarm", first.clock.now() + 1_000, { name: "work" });
    first.timers.set("timer", first.clock.now() + 60_000, { seconds: 60 });
    await first.clock.advance(1_000);
    first.timers.close();
    const second = timersOf(first.clock, first.kept);
    expect(second.rung).toMatchObject([{ kind: "alarm", name: "work" }]);
    second.timers.stop();
    second.timers.close();
    const third = timersOf(first.clock, first.kept);
    expect(third.rung).toEqual([]);
    expect(third.timers.pending).toMatchObject([{ kind: "timer" }]);
  });

  test("that ring are written again after the store was replaced", async () => {
    const { timers, clock, kept } = timersOf();
    timers.set("alarm", clock.now() + 1_000, { name: "work" });
    await clock.advance(1_000);
    kept.text = "";
    timers.saveAgain();
    expect(kept.text).toContain("work");
  });

  test("that were set for a while ring after it, whatever the clock on the wall is set to", async () => {
    for (const shift of [-3_600_000, 3_600_000]) {
      const { timers, clock, rung } = timersOf();
      timers.set("timer", clock.now() + 300_000, { seconds: 300 });
      await clock.advance(2_000);
      clock.set(shift);
      // One that is set by the new time is not moved along.
      timers.set("reminder", clock.now() + 600_000, { seconds: 600, name: "tea" });
      await clock.advance(297_999);
      expect(rung).toEqual([]);
      await clock.advance(1);
      expect(rung).toMatchObject([{ seconds: 300 }]);
      await clock.advance(300_000 + 2_000);
      expect(rung).toMatchObject([{ seconds: 300 }, { name: "tea" }]);
    }
  });

  test("that were set for a time of day ring by the clock on the wall, when that is set too", async () => {
    const { timers, clock, rung } = timersOf();
    timers.set("alarm", clock.now() + 3_600_000, {});
    clock.set(-1_800_000);
    await clock.advance(3_600_000);
    expect(rung).toEqual([]);
    clock.set(1_800_000);
    await clock.advance(5_000);
    expect(rung).toHaveLength(1);
  });

  test("that were set for a while ring after it over a restart of the engine, whatever the clock is set to meanwhile or later", async () => {
    for (const shift of [-3_600_000, 3_600_000]) {
      const first = timersOf();
      first.timers.set("timer", first.clock.now() + 300_000, { seconds: 300 });
      await first.clock.advance(100_000);
      first.timers.close();
      first.clock.set(shift);
      const second = timersOf(first.clock, first.kept);
      await second.clock.advance(100_000);
      second.timers.close();
      const { clock, rung } = timersOf(first.clock, first.kept);
      clock.set(-shift / 2);
      await clock.advance(99_999);
      expect(rung).toEqual([]);
      await clock.advance(1);
      expect(rung).toHaveLength(1);
    }
  });

  test("that are snoozed ring after the while, whatever the clock is set to, and are of the same length", async () => {
    for (const shift of [-3_600_000, 3_600_000]) {
      const { timers, clock, rung } = timersOf();
      timers.set("timer", clock.now() + 60_000, { seconds: 60 });
      timers.set("alarm", clock.now() + 60_000, { name: "up" });
      await clock.advance(60_000);
      expect(timers.snooze(300)).toMatchObject([{ seconds: 60 }, { name: "up" }]);
      clock.set(shift);
      await clock.advance(299_999);
      expect(rung).toHaveLength(2);
      await clock.advance(1);
      expect(rung).toHaveLength(4);
      await clock.advance(7_200_000);
      expect(rung).toHaveLength(4);
    }
  });

  test("that were set for a while before a restart of the machine ring by the clock on the wall", async () => {
    const first = timersOf();
    first.timers.set("timer", first.clock.now() + 3_600_000, { seconds: 3_600 });
    first.timers.close();
    first.clock.run = "second";
    const { clock, rung } = timersOf(first.clock, first.kept);
    clock.set(3_600_000);
    await clock.advance(5_000);
    expect(rung).toHaveLength(1);
  });

  test("go on while the machine sleeps", async () => {
    const { timers, clock, rung } = timersOf();
    timers.set("timer", clock.now() + 300_000, { seconds: 300 });
    await clock.advance(10_000);
    clock.time += 300_000;
    await clock.advance(5_000);
    expect(rung).toHaveLength(1);
  });

  test("ring within five seconds of the machine's waking, by the clock on the wall", async () => {
    const { timers, clock, rung } = timersOf();
    timers.set("alarm", clock.now() + 8 * 3_600_000, {});
    await clock.advance(10_000);
    // The clock goes on while the machine sleeps; what waits for the time does not.
    clock.time += 8 * 3_600_000;
    expect(rung).toEqual([]);
    await clock.advance(5_000);
    expect(rung).toHaveLength(1);
  });

  test("can be found by each part of what was said of them", () => {
    const { timers, clock } = timersOf();
    timers.set("timer", clock.now() + 300_000, { seconds: 300, name: "Massa do pão" });
    timers.set("timer", clock.now() + 600_000, { seconds: 600 });
    timers.set("alarm", clock.now() + 900_000, {});
    expect(timers.find({ name: "pao" })).toHaveLength(1);
    expect(timers.find({ kind: "timer" })).toHaveLength(2);
    expect(timers.find({ seconds: 600 })).toHaveLength(1);
    expect(timers.find({ at: clock.now() + 900_000 })).toMatchObject([{ kind: "alarm" }]);
    expect(timers.find({ name: "arroz" })).toEqual([]);
    expect(timers.find({ kind: "alarm", day: new Date(clock.now()) })).toHaveLength(1);
    expect(timers.find({ day: new Date(clock.now() + 86_400_000) })).toEqual([]);
  });

  test("that ring can be snoozed or stopped, and say so", async () => {
    const { timers, clock, rung } = timersOf();
    const stopped: number[] = [];
    timers.onStopped = ({ id }) => stopped.push(id);
    timers.set("alarm", clock.now() + 1_000, { name: "up" });
    await clock.advance(1_000);
    expect(timers.snooze(300)).toMatchObject([{ name: "up", at: clock.now() + 300_000 }]);
    expect(stopped).toHaveLength(1);
    await clock.advance(300_000);
    expect(rung).toHaveLength(2);
    timers.stop();
    expect(timers.ringing).toEqual([]);
    expect(stopped).toHaveLength(2);
  });

  test("are no more than a hundred", () => {
    const { timers, clock } = timersOf();
    for (let count = 0; count < mostTimers; count++) expect(timers.set("timer", clock.now() + 60_000, {})).toBeDefined();
    expect(timers.set("timer", clock.now() + 60_000, {})).toBeUndefined();
  });

  test("can be snoozed however many there are: those that ring count among them", async () => {
    const { timers, clock, kept } = timersOf();
    timers.set("alarm", clock.now() + 1_000, { name: "up" });
    for (let count = 1; count < mostTimers; count++) timers.set("timer", clock.now() + 60_000, {});
    await clock.advance(1_000);
    expect(timers.set("timer", clock.now() + 60_000, {})).toBeUndefined();
    expect(timers.snooze(300)).toMatchObject([{ kind: "alarm", name: "up" }]);
    expect(timersOf(clock, kept).timers.pending).toHaveLength(mostTimers);
  });

  test("of a store that holds something else are left out", () => {
    const kept = (text: string): readonly Timer[] => timersOf(new ManualClock(), { text }).timers.pending;
    for (const text of ["", "nonsense", "{}", "null", '[1, null, {"kind": "bomb", "at": 9e15}, {"kind": "timer", "at": "soon"}]']) expect(kept(text)).toEqual([]);
    expect(kept('[{"kind": "timer", "at": 9000000000000, "name": 5}]')).toEqual([{ id: 1, kind: "timer", at: 9_000_000_000_000 }]);
  });
});
