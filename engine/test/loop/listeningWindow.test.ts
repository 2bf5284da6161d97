import { describe, expect, test } from "bun:test";
import { bench, connect, hear, speak } from "../support/bench.ts";
import { settle } from "../support/clock.ts";

describe("listening", () => {
  test("chimes, and ends by itself after the summon window", async () => {
    const it = bench();
    const socket = connect(it);
    it.engine.loop.listen();
    expect(socket.types).toEqual(["chime"]);
    expect(it.engine.state.state).toBe("listening");
    await hear(it, socket, 7_900);
    expect(it.engine.state.state).toBe("listening");
    await hear(it, socket, 200);
    expect(it.engine.state.state).toBe("waiting");
  });

  test("needs no name, and goes on after the answer for the follow-up window", async () => {
    const it = bench();
    const socket = connect(it);
    it.engine.loop.listen();
    await hear(it, socket, 500);
    await speak(it, socket, "thanks");
    expect(it.engine.state.state).toBe("speaking");
    it.engine.link.text(socket, socket.played(0));
    await settle();
    expect(it.engine.state.state).toBe("listening");
    expect(it.phases()).toEqual(["waiting", "listening", "hearing", "thinking", "speaking", "listening"]);
    expect(it.engine.state.timings).toMatchObject({ isSpoken: true, transcribeMs: 0 });
    await it.clock.advance(15_000);
    expect(it.engine.state.state).toBe("waiting");
  });

  test("is answered with muted when the microphone is dead", async () => {
    const it = bench();
    connect(it);
    await it.clock.advance(5_000);
    expect(it.engine.state.isMicDead).toBe(true);
    it.engine.loop.listen();
    expect(it.engine.state).toMatchObject({ state: "muted", isMuted: false });
    await it.clock.advance(8_000);
    expect(it.engine.state.state).toBe("waiting");
  });

  test("silences an answer", async () => {
    const it = bench();
    const socket = connect(it);
    it.engine.loop.say("What can you do?");
    await settle();
    it.engine.loop.listen();
    expect(socket.types.slice(-2)).toEqual(["stop", "chime"]);
  });
});
