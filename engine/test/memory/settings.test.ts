import { describe, expect, test } from "bun:test";
import { mkdirSync, rmSync, symlinkSync } from "node:fs";
import { join } from "node:path";
import { Store } from "../../src/memory/store.ts";
import { bench } from "../support/bench.ts";
import { ManualClock } from "../support/clock.ts";
import { program, temporaryFolder } from "../support/folders.ts";

const folder = temporaryFolder();
const tool = join(program("claude", "echo 2.1.0"), "claude");

const good: Record<string, unknown[]> = {
  inputDevice: ["Headset", null, ""],
  wakeWords: [["palomet"], [], [" ana ", "ana"]],
  inputPreference: [["a", "b"]],
  followUpMs: [0, 15_000, 120_000],
  summonMs: [4_000, 20_000],
  echoGuardMs: [0, 500, 2_000],
  endSilenceMs: [800, 2_500],
  isDraftOn: [true, false],
  isEchoCancelOn: [true, false],
  isDirectedOn: [true, false],
  actionPhrases: [["pode fazer", "manda"]],
  draftMaxAgeMs: [300_000, 3_600_000],
  voiceId: ["", "pt-br+f3", "a1b2c3"],
  voiceName: ["Ana"],
  voiceSpeed: [1, 1.25, 2],
  fallbackVoice: ["English (Caribbean)", "Alan (Flite)", "Letícia (RHVoice)"],
  brainModel: ["haiku", "claude-sonnet-4-5", "built-in", "qwen3:8b · Ollama", "../models/My Model.gguf · llama.cpp", "a · b · Work"],
  claudePath: [tool, null],
  folders: [[], [folder]],
  confirmActions: [[], ["web", "commands"]],
  workingFolder: [folder],
};

const bad: Record<string, unknown[]> = {
  inputDevice: [7, true, ["Headset"], "a\nb", "x".repeat(201)],
  wakeWords: ["palomet", null, [7], [""], Array.from({ length: 51 }, (_, index) => `n${index}`), ["x".repeat(61)]],
  inputPreference: [{}, [null]],
  whisperModel: ["", "none-such", null, 3],
  followUpMs: [-1, "15000", null, 1e12],
  summonMs: [0, -5, true],
  echoGuardMs: [-1, 60_000],
  endSilenceMs: [0, 1e9, "800"],
  isDraftOn: [1, "true", null],
  isEchoCancelOn: [0],
  isDirectedOn: ["on"],
  actionPhrases: ["pode fazer", [["a"]]],
  draftMaxAgeMs: [0, -1],
  voiceId: [7, null],
  voiceName: ["", null],
  voiceSpeed: [0, -1, 99, "1.5", null],
  fishModel: ["other", "RHVoice", null],
  fallbackVoice: ["", "-x", "a b", "../voices", null],
  brainModel: ["", "-x", "a b", "--dangerous", null, " · Ollama", "x · ", " x · Ollama", "x\ny · Ollama", "a\u202eb · Ollama", `${"x".repeat(200)} · Ollama`],
  claudePath: [tool, "/none/such", folder, "claude", 7, join(import.meta.dir, "settings.test.ts")],
  folders: [["relative"], ["/none/such"], folder, [7]],
  confirmActions: [["none-such"], "web"],
  workingFolder: ["relative", "/none/such", tool, null],
  noSuchSetting: [1],
  toString: [1],
};

describe("a good value is kept", () => {
  for (const [key, values] of Object.entries(good)) {
    test(key, async () => {
      const it = bench(undefined, undefined, `${join(tool, "..")}:/usr/bin:/bin`);
      for (const value of values) expect([value, await it.engine.set({ [key]: value })]).toEqual([value, undefined]);
      it.engine.close();
    });
  }
});

describe("a bad value is refused and changes nothing", () => {
  for (const [key, values] of Object.entries(bad)) {
    test(key, async () => {
      const it = bench();
      const before = it.engine.state;
      for (const value of values) expect([value, await it.engine.set({ [key]: value })]).toEqual([value, expect.any(String)]);
      expect(it.engine.state).toEqual(before);
      it.engine.close();
    });
  }
});

test("the ids by which eSpeak knows its voices stand for their names, and the variant that is gone for the voice", async () => {
  const it = bench();
  for (const [id, title] of [["en-gb", "English (Great Britain)"], ["pt-br+f3", "Português (Brasil)"], ["fr+m3", "fr+m3"]]) {
    expect(await it.engine.set({ fallbackVoice: id })).toBeUndefined();
    expect(it.engine.state.settings.fallbackVoice).toBe(title as string);
  }
  it.engine.close();
});

test("a program for the voice brings its best voice, a voice its program, and both stay", async () => {
  const state = temporaryFolder();
  const tools = program("flite", "exit 0", program("espeak-ng", "exit 0"));
  const first = bench(state, undefined, tools);
  const chosen = (it: ReturnType<typeof bench>): string[] => {
    const { fishModel, fallbackVoice } = it.engine.state.settings;
    return [fishModel, fallbackVoice];
  };
  expect(chosen(first)).toEqual(["Flite", "Alan (Flite)"]);
  await first.engine.set({ fishModel: "eSpeak NG" });
  expect(chosen(first)).toEqual(["eSpeak NG", "English (America)"]);
  await first.engine.set({ fallbackVoice: "Slt (Flite)" });
  expect(chosen(first)).toEqual(["Flite", "Slt (Flite)"]);
  await first.engine.set({ fishModel: "Flite" });
  expect(chosen(first)).toEqual(["Flite", "Slt (Flite)"]);
  first.engine.close();
  const without = bench(state);
  expect(chosen(without)).toEqual(["Flite", "Slt (Flite)"]);
  without.engine.close();
});

test("names are trimmed, and said once", async () => {
  const it = bench();
  await it.engine.set({ wakeWords: [" ana ", "bia", "ana"] });
  expect(it.engine.state.settings.wakeWords).toEqual(["ana", "bia"]);
});

test("a folder that is gone can stay listed while another is removed", async () => {
  const [stays, goes] = [join(folder, "a"), join(folder, "b")];
  mkdirSync(stays);
  mkdirSync(goes);
  const it = bench();
  await it.engine.set({ folders: [stays, goes] });
  rmSync(stays, { recursive: true });
  expect(await it.engine.set({ folders: [stays] })).toBeUndefined();
  expect(await it.engine.set({ folders: [stays, goes, "/none/such"] })).toBeString();
});

test("what was set stays while it cannot be looked at, and nothing else is harmed by it", async () => {
  const state = temporaryFolder();
  const loop = join(folder, "loop");
  const dead = join(folder, "dead");
  mkdirSync(dead);
  mkdirSync(loop);
  const first = bench(state, undefined, `${join(tool, "..")}:/usr/bin:/bin`);
  expect(await first.engine.set({ folders: [dead, loop], workingFolder: loop, claudePath: tool })).toBeUndefined();
  first.engine.close();
  rmSync(loop, { recursive: true });
  symlinkSync("loop", loop);
  const second = bench(state);
  const kept = { folders: [dead, loop], workingFolder: loop, claudePath: tool };
  expect(second.engine.state.settings).toMatchObject(kept);
  for (const wrong of [{ workingFolder: loop }, { folders: [join(loop, "x")] }, { claudePath: join(loop, "claude") }]) {
    expect(await second.engine.set(wrong)).toBeString();
  }
  expect(second.engine.state.settings).toMatchObject(kept);
  second.engine.close();
});

test("a setting that has to be looked for is not set after one that was sent later", async () => {
  const it = bench();
  const both = [it.engine.set({ workingFolder: folder }), it.engine.set({ voiceName: "Ana" })];
  const order: string[] = [];
  both.forEach((one, index) => void one.then(() => order.push(`${index}`)));
  await Promise.all(both);
  expect(order).toEqual(["0", "1"]);
  it.engine.close();
});

test("what is kept of a setting that is no longer good is the default", () => {
  const state = temporaryFolder();
  const store = new Store(state, () => {}, new ManualClock());
  store.saveSetting("summonMs", '"six"');
  store.saveSetting("followUpMs", "{");
  store.saveSetting("forgotten", "1");
  store.saveSetting("voiceSpeed", "2");
  store.close();
  const it = bench(state);
  expect(it.engine.state.settings).toMatchObject({ summonMs: 8_000, followUpMs: 15_000, voiceSpeed: 2 });
  it.engine.close();
});
