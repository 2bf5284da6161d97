import { expect, test } from "bun:test";
import { chmodSync, mkdirSync } from "node:fs";
import { join } from "node:path";
import { chooseLocale } from "../../src/base/language.ts";
import { Children } from "../../src/machine/children.ts";
import { Choices } from "../../src/machine/choices.ts";
import { findShipped } from "../../src/machine/shipped.ts";
import { bench } from "../support/bench.ts";
import { program, temporaryFolder } from "../support/folders.ts";

const tool = join(program("claude", "echo 2.1.0"), "claude");

const nothing = findShipped([]);

test("the recogniser models are those that are installed, the largest first", async () => {
  const home = temporaryFolder();
  const tools = program("whisper-cli", "exit 0");
  program("pocketsphinx_batch", "exit 0", tools);
  const models = join(home, "whisper.cpp/models");
  mkdirSync(models, { recursive: true });
  await Bun.write(join(home, ".local/share/palomet/models/ggml-small-q5_1.bin"), "");
  for (const name of ["ggml-tiny.bin", "ggml-large-v3-turbo.bin", "notes.txt", "for-tests-ggml-base.bin"]) {
    await Bun.write(join(models, name), "");
  }
  const choices = new Choices(new Children({ PATH: tools, HOME: home }), chooseLocale({}), nothing);
  expect(choices.recogniserModels()).toEqual(["large-v3-turbo", "small-q5_1", "tiny", "pocketsphinx"]);
  chmodSync(models, 0o000);
  expect(new Choices(new Children({ PATH: "" }), chooseLocale({}), nothing).recogniserModels()).toEqual([]);
  chmodSync(models, 0o700);
});

test("what the package brings comes first for English, and is not offered for other languages, which it does not know", async () => {
  const home = temporaryFolder();
  const tools = program("whisper-cli", "exit 0");
  const models = join(home, "whisper.cpp/models");
  mkdirSync(models, { recursive: true });
  for (const name of ["ggml-small.bin", "ggml-base.en.bin"]) await Bun.write(join(models, name), "");
  const model = { encoder: "e", decoder: "d" };
  const brought = { ...nothing, runtime: "r", vocabulary: "v", base: model, tiny: model };
  const modelsFor = (languages: string, have: typeof brought | typeof nothing): string[] =>
    new Choices(new Children({ PATH: tools, HOME: home }), chooseLocale({ PALOMET_LANGUAGES: languages }), have).recogniserModels();
  expect(modelsFor("en", brought)).toEqual(["moonshine-base", "moonshine-tiny", "small", "base.en"]);
  expect(modelsFor("en", { ...brought, base: undefined })).toEqual(["moonshine-tiny", "small", "base.en"]);
  expect(modelsFor("en", { ...brought, runtime: undefined })).toEqual(["small", "base.en"]);
  expect(modelsFor("pt", brought)).toEqual(["small"]);
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
  expect(options.confirmActions.map(({ id }) => id).slice(0, 3)).toEqual(["commands", "files", "web"]);
});

test("one look answers all who ask for the options at the same time, and the next one looks again", async () => {
  const mark = join(temporaryFolder(), "calls");
  const tools = program("claude", `echo call >> ${mark}; echo 2.1.0`);
  program("pactl", `echo call >> ${mark}; echo '[]'`, tools);
  const it = bench(undefined, undefined, `${tools}:/usr/bin:/bin`);
  const calls = async (): Promise<number> => (await Bun.file(mark).text()).trim().split("\n").length;
  const answers = await Promise.all(Array.from({ length: 100 }, () => it.engine.options()));
  expect(answers.every(({ claudePaths }) => claudePaths[0]?.version === "2.1.0")).toBe(true);
  expect(await calls()).toBe(2);
  await it.engine.options();
  expect(await calls()).toBe(4);
});

test("programs that hang, fail or print megabytes leave their list empty", async () => {
  const tools = program("pactl", "yes | head -c 4000000");
  const it = bench(undefined, undefined, `${tools}:${process.env.PATH}`);
  expect(await it.engine.options()).toMatchObject({ inputs: [] });
});

test("the voices are those of the programs that are installed, the user's language and the better programs first", async () => {
  const espeak = program("espeak-ng", "exit 0");
  const voices = (path: string, tag: string): string[] =>
    new Choices(new Children({ PATH: path }), chooseLocale({ PALOMET_LANGUAGES: tag })).voices().map(({ title }) => title);
  expect(voices("", "en-US")).toEqual([]);
  expect(voices(espeak, "en-GB").slice(0, 2)).toEqual(["English (Great Britain)", "English (America)"]);
  const both = program("flite", "exit 0", espeak);
  expect(voices(both, "en-US").slice(0, 5)).toEqual(["Alan (Flite)", "Slt (Flite)", "Rms (Flite)", "Kal (Flite)", "English (America)"]);
  expect(voices(both, "pt-PT").slice(0, 3)).toEqual(["Português (Portugal)", "Português (Brasil)", "Alan (Flite)"]);
  expect(voices(both, "pt-BR").join()).not.toContain("f3");
});
