import { describe, expect, test } from "bun:test";
import { readClip, writeWav } from "../../src/sound/wav.ts";
import { bench, connect } from "../support/bench.ts";
import { settle } from "../support/clock.ts";
import { FakeSocket } from "../support/fakes.ts";

describe("a clip", () => {
  test("that is never reported is given up", async () => {
    const it = bench();
    connect(it);
    it.engine.loop.say("Thanks");
    await it.clock.advance(4_900);
    expect(it.engine.state.state).toBe("speaking");
    await it.clock.advance(200);
    expect(it.engine.state.state).toBe("waiting");
  });

  test("of another answer, or of none, changes nothing when it is reported", async () => {
    const it = bench();
    const socket = connect(it);
    it.engine.loop.say("Thanks");
    await settle();
    for (const id of [0, -1, 99]) it.engine.link.text(socket, JSON.stringify({ type: "played", id }));
    await settle();
    expect(it.engine.state.state).toBe("speaking");
  });

  test("that was being played is not waited for when the front end is gone; the rest is shown", async () => {
    const it = bench();
    const socket = connect(it);
    it.engine.loop.say("What can you do?");
    await settle();
    it.engine.link.closed(socket);
    await settle();
    expect(it.engine.state.state).toBe("waiting");
    it.engine.link.opened(new FakeSocket());
    it.engine.loop.say("Thanks");
    await settle();
    expect(it.engine.state.state).toBe("speaking");
  });

  test("begins with its sound when somebody waits for it, and with a pause when another stands before it", async () => {
    const it = bench();
    const socket = connect(it);
    it.synthesiser.clip = readClip(writeWav(Int16Array.from({ length: 32_000 }, (_, at) => (at < 16_000 ? 0 : 9_000)), 16_000));
    it.engine.loop.say("One. Two.");
    await settle();
    const lengths = socket.sent.map(({ data }) => readClip(Buffer.from(String(data), "base64"))?.durationMs);
    expect(lengths).toEqual([1_040, 2_000]);
  });

  test("is spoken when the one before it was played, and no more than three wait", async () => {
    const it = bench();
    const socket = connect(it);
    it.engine.loop.say("One. Two. Three. Four. Five.");
    await settle();
    const spoken = (): string[] => it.events.filter(([name]) => name === "spoken").map(([, data]) => JSON.parse(data));
    expect(spoken()).toEqual(["You said: One."]);
    const [id = 0] = socket.ids;
    expect(socket.ids).toEqual([id, id + 1, id + 2]);
    it.engine.link.text(socket, socket.played(0));
    await settle();
    expect(spoken()).toEqual(["You said: One.", "You said: Two."]);
    expect(socket.ids).toEqual([id, id + 1, id + 2, id + 3]);
  });

  test("bears an id that no other clip has had, of this engine or of one before it", async () => {
    const ids: number[] = [];
    for (let engines = 0; engines < 20; engines++) {
      const it = bench();
      for (let connections = 0; connections < 3; connections++) {
        const socket = connect(it);
        it.engine.loop.say("One. Two. Three.");
        await settle();
        ids.push(...socket.ids);
        it.engine.link.closed(socket);
        await settle();
      }
      it.engine.close();
    }
    expect(ids).toHaveLength(180);
    expect(new Set(ids).size).toBe(180);
    expect(ids.every((id) => Number.isSafeInteger(id) && id >= 0)).toBe(true);
  });

  test("that an engine before it gave is not taken for its own when it is reported", async () => {
    const before = bench();
    const socket = connect(before);
    before.engine.loop.say("Thanks");
    await settle();
    const it = bench();
    const next = connect(it);
    it.engine.loop.say("Thanks");
    await settle();
    it.engine.link.text(next, socket.played(0));
    await settle();
    expect(it.engine.state.state).toBe("speaking");
    before.engine.close();
    it.engine.close();
  });

  test("that could not be made is shown in its place", async () => {
    const it = bench();
    const socket = connect(it);
    it.synthesiser.clip = undefined;
    it.engine.loop.say("Thanks");
    await settle();
    expect(it.engine.state.state).toBe("speaking");
    expect(socket.sent).toEqual([]);
    await it.clock.advance(5_000);
    expect(it.engine.state.state).toBe("waiting");
  });
});
