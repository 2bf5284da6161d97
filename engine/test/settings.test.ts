import { describe, expect, test } from "bun:test";
import { chmodSync, mkdirSync, rmSync, symlinkSync } from "node:fs";
import { join } from "node:path";
import { bench, program, temporaryFolder } from "./support.ts";

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
  fishModel: ["espeak-ng"],
  fallbackVoice: ["en-gb", "pt-br+f3"],
  brainModel: ["haiku", "claude-sonnet-4-5", "built-in"],
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
  fishModel: ["other"],
  fallbackVoice: ["", "-x", "a b", "../voices"],
  brainModel: ["", "-x", "a b", "--dangerous", null],
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

test("the recogniser models are those that are installed, the largest first", async () => {
  const home = temporaryFolder();
  const tools = program("whisper-cli", "exit 0");
  program("pocketsphinx_batch", "exit 0", tools);
  const models = join(home, "whisper.cpp/models");
  mkdirSync(models, { recursive: true });
  for (const name of ["ggml-tiny.bin", "ggml-large-v3-turbo.bin", "notes.txt", "for-tests-ggml-base.bin"]) {
    await Bun.write(join(models, name), "");
  }
  const { Children } = await import("../src/machine/children.ts");
  const { Choices } = await import("../src/machine/choices.ts");
  const { chooseLocale } = await import("../src/base/language.ts");
  const choices = new Choices(new Children({ PATH: tools, HOME: home }), chooseLocale({}));
  expect(choices.recogniserModels()).toEqual(["large-v3-turbo", "tiny", "pocketsphinx"]);
  chmodSync(models, 0o000);
  expect(new Choices(new Children({ PATH: "" }), chooseLocale({})).recogniserModels()).toEqual([]);
  chmodSync(models, 0o700);
});

test("the options name every claude tool that tells its version", async () => {
  const second = program("claude", "echo '1.0.3 (some build)'");
  const broken = program("claude", "exit 1");
  const it = bench(undefined, undefined, [join(tool, ".."), second, broken, second].join(":"));
  const options = await it.engine.options();
  expect(options.claudePaths).toEqual([
    { path: tool, version: "2.1.0" },
    { path: join(second, "claude"), version: "1.0.3" },
  ]);
  expect(options.models).toContain("haiku");
  expect(options.confirmActions.map(({ id }) => id)).toEqual(["commands", "files", "web"]);
});

test("one look answers all who ask for the options at the same time, and the next one looks again", async () => {
  const mark = join(temporaryFolder(), "calls");
  const tools = program("claude", `echo call >> ${mark}; echo 2.1.0`);
  program("pactl", `echo call >> ${mark}; echo '[]'`, tools);
  program("espeak-ng", `echo call >> ${mark}`, tools);
  const it = bench(undefined, undefined, `${tools}:/usr/bin:/bin`);
  const calls = async (): Promise<number> => (await Bun.file(mark).text()).trim().split("\n").length;
  const answers = await Promise.all(Array.from({ length: 100 }, () => it.engine.options()));
  expect(answers.every(({ claudePaths }) => claudePaths[0]?.version === "2.1.0")).toBe(true);
  expect(await calls()).toBe(3);
  await it.engine.options();
  expect(await calls()).toBe(6);
});

test("programs that hang, fail or print megabytes leave their list empty", async () => {
  const tools = program("pactl", "yes | head -c 4000000");
  program("espeak-ng", "exit 3", tools);
  const it = bench(undefined, undefined, `${tools}:${process.env.PATH}`);
  expect(await it.engine.options()).toMatchObject({ inputs: [], macVoices: [] });
});
