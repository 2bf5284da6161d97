import { describe, expect, test } from "bun:test";
import { bench, connect, FakeSocket, hear, program, settle, tone } from "./support.ts";

describe("the microphone that is chosen", () => {
  test("is asked for, and the setting is done when the front end has answered", async () => {
    const it = bench();
    const socket = connect(it);
    let isDone = false;
    const setting = it.engine.set({ inputDevice: "Other microphone" }).then(() => (isDone = true));
    await settle();
    expect(socket.sent).toEqual([{ type: "input", device: "Other microphone" }]);
    expect(isDone).toBe(false);
    it.engine.link.text(socket, '{"type":"device","device":"Other microphone"}');
    await setting;
    expect(it.engine.state.device).toBe("Other microphone");
  });

  test("is not waited for longer than five seconds", async () => {
    const it = bench();
    connect(it);
    const setting = it.engine.set({ inputDevice: "Other microphone" });
    await it.clock.advance(5_000);
    expect(await setting).toBeUndefined();
  });

  test("is told to every front end that connects; none is the system's own", async () => {
    const it = bench();
    await it.engine.set({ inputDevice: "Other microphone" });
    const socket = connect(it);
    await settle();
    expect(socket.sent).toEqual([{ type: "input", device: "Other microphone" }]);
    void it.engine.set({ inputDevice: null });
    await settle();
    expect(socket.sent.at(-1)).toEqual({ type: "input" });
    expect(it.engine.state.settings.inputDevice).toBeUndefined();
  });

  test("is the first preferred one that is there, when none is chosen", async () => {
    const sources = [
      { name: "a", description: "Monitor of Speakers", monitor_source: "speakers" },
      { name: "b", description: "Headset", monitor_source: "" },
    ];
    const folder = program("pactl", `echo '${JSON.stringify(sources)}'`);
    const it = bench(undefined, undefined, folder);
    const socket = connect(it);
    void it.engine.set({ inputPreference: ["Studio", "Headset"] });
    while (!socket.types.includes("input")) await Bun.sleep(1);
    expect(socket.sent).toEqual([{ type: "input", device: "Headset" }]);
    expect((await it.engine.options()).inputs).toEqual(["Desk microphone", "Headset"]);
  });
});

describe("echo cancellation", () => {
  test("is switched in the front end", async () => {
    const it = bench();
    const socket = connect(it);
    await it.engine.set({ isEchoCancelOn: false });
    expect(socket.sent).toEqual([{ type: "enable", on: false }]);
    expect(it.engine.state.isEchoCancelled).toBe(false);
    await it.engine.set({ isEchoCancelOn: true });
    expect(socket.sent.at(-1)).toEqual({ type: "enable", on: true });
  });

  test("when off is off for every front end that connects", async () => {
    const it = bench();
    await it.engine.set({ isEchoCancelOn: false });
    expect(connect(it).sent).toEqual([{ type: "enable", on: false }]);
  });

  test("when off leaves the microphone to the engine", async () => {
    const folder = program("parec", "head -c 64000 /dev/zero; exec sleep 60");
    const it = bench(undefined, undefined, `${folder}:${process.env.PATH}`);
    connect(it);
    await it.clock.advance(5_000);
    expect(it.engine.state.isMicDead).toBe(true);
    await it.engine.set({ isEchoCancelOn: false });
    while (it.engine.state.isMicDead) await Bun.sleep(1);
    it.engine.close();
  });
});

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
