import { describe, expect, test } from "bun:test";
import { LevelMeter } from "../../src/sound/levelMeter.ts";
import { bench, connect, hear } from "../support/bench.ts";
import { ManualClock } from "../support/clock.ts";

describe("levels", () => {
  test("follow the microphone, seldom, and cost nothing while it is quiet", async () => {
    const it = bench();
    const socket = connect(it);
    await hear(it, socket, 2_000);
    expect(it.events.filter(([name]) => name === "level")).toEqual([]);
    await hear(it, socket, 500, -23);
    const levels = it.events.filter(([name]) => name === "level").map(([, data]) => Number(data));
    expect(levels.length).toBeGreaterThan(0);
    expect(levels.length).toBeLessThanOrEqual(11);
    expect(Math.max(...levels)).toBeCloseTo(0.45, 1);
    await hear(it, socket, 500);
    expect(it.events.filter(([name]) => name === "level").at(-1)?.[1]).toBe("0");
  });

  test("follow the agent's voice and end at zero", async () => {
    const it = bench();
    const socket = connect(it);
    it.engine.loop.say("Thanks");
    await it.clock.advance(500);
    it.engine.link.text(socket, socket.played(0));
    const levels = it.events.filter(([name]) => name === "outLevel").map(([, data]) => data);
    expect(Number(levels[0])).toBeGreaterThan(0.3);
    expect(levels.at(-1)).toBe("0");
  });

  test("are back at zero when the front end is gone", async () => {
    const it = bench();
    const socket = connect(it);
    await hear(it, socket, 500, -23);
    it.engine.link.closed(socket);
    expect(it.events.filter(([name]) => name === "level").at(-1)?.[1]).toBe("0");
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
