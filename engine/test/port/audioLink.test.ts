import { describe, expect, test } from "bun:test";
import { bench, connect } from "../support/bench.ts";
import { settle } from "../support/clock.ts";
import { tone } from "../support/sounds.ts";

describe("several front ends", () => {
  test("the newest is heard and spoken through, and the other again when it goes", async () => {
    const it = bench();
    const first = connect(it, "First");
    const second = connect(it, "Second");
    it.engine.link.audio(first, new Uint8Array(tone(1_000, -10).buffer));
    expect(it.engine.state).toMatchObject({ state: "waiting", device: "Second" });
    it.engine.loop.say("Thanks");
    await settle();
    expect([first.sent.length, second.sent.length]).toEqual([0, 1]);
    it.engine.link.closed(second);
    await settle();
    expect(it.engine.state.state).toBe("waiting");
    it.engine.loop.say("Thanks");
    await settle();
    expect(first.types).toEqual(["play"]);
  });
});
