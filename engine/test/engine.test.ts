import { describe, expect, test } from "bun:test";
import { bench, connect } from "./support/bench.ts";
import { settle } from "./support/clock.ts";
import { program } from "./support/folders.ts";

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
