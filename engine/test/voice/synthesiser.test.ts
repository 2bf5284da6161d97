import { expect, test } from "bun:test";
import { mkdirSync, readdirSync, readFileSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import { chooseLocale } from "../../src/base/language.ts";
import type { Settings } from "../../src/base/protocol.ts";
import { bestFirst, type Voice } from "../../src/base/voices.ts";
import { Children } from "../../src/machine/children.ts";
import { installedVoices } from "../../src/machine/voices.ts";
import { defaultSettings } from "../../src/memory/settings.ts";
import type { Clip } from "../../src/sound/wav.ts";
import { ProgramSynthesiser } from "../../src/voice/synthesiser.ts";
import { program, temporaryFolder } from "../support/folders.ts";
import { clipOf } from "../support/sounds.ts";

const locale = chooseLocale({ PALOMET_LANGUAGES: "en-US" });
const system = "/usr/bin:/bin";

interface Tried {
  speak(sentence?: string): Promise<Clip | undefined>;
  log: string[];
  /** How each program was called, and what it was told to say. */
  runs(): string[];
  /** Where clips lie for a moment. */
  folder: string;
}

/** A synthesiser with programs that note how they were called, and then do what their script says. */
function withPrograms(scripts: Record<string, string>, over: Partial<Settings> = {}): Tried {
  const [folder, tools, rhvoice] = [temporaryFolder(), temporaryFolder(), temporaryFolder()];
  const [calls, clip] = [join(folder, "calls"), join(folder, "clip.wav")];
  writeFileSync(calls, "");
  writeFileSync(clip, clipOf(500).file);
  mkdirSync(join(rhvoice, "slt"));
  for (const [name, script] of Object.entries(scripts)) {
    program(name, `echo "${name} $* <<< $(cat)" >> ${calls}\n${script.replaceAll("CLIP", clip)}`, tools);
  }
  const installed = new Children({ PATH: tools });
  const voices = (): Voice[] => bestFirst(installedVoices(installed, [rhvoice]), locale);
  const settings = defaultSettings({ locale, workingFolder: "/", recogniserModels: [], voices, actionIds: [], askedActionIds: [] });
  const log: string[] = [];
  const clips = join(folder, "voice");
  const synthesiser = new ProgramSynthesiser(new Children({ PATH: `${tools}:${system}` }), voices, clips, (line) => log.push(line));
  return {
    speak: (sentence = "Hello") => synthesiser.speak(sentence, { ...settings, ...over }, new AbortController().signal),
    log,
    runs: () => readFileSync(calls, "utf8").trim().split("\n"),
    folder: clips,
  };
}

const toPipe = "cat CLIP";
const toFile = 'while [ "$1" != -o ]; do shift; done; cat CLIP > "$2"';

test("the best voice that is installed speaks, at the speed that is set", async () => {
  const all = { "RHVoice-test": toFile, flite: toFile, "espeak-ng": toPipe };
  const rhvoice = withPrograms(all, { voiceSpeed: 1.5 });
  expect((await rhvoice.speak())?.durationMs).toBe(500);
  expect(rhvoice.runs()).toEqual([expect.stringMatching(/^RHVoice-test -p slt -r 150 -o .* <<< Hello$/)]);

  const flite = withPrograms({ flite: toFile, "espeak-ng": toPipe }, { voiceSpeed: 2 });
  expect((await flite.speak())?.durationMs).toBe(500);
  expect(flite.runs()).toEqual([expect.stringMatching(/^flite -voice awb --setf duration_stretch=0.500 -f \/dev\/stdin -o .* <<< Hello$/)]);

  const espeak = withPrograms({ "espeak-ng": toPipe });
  expect((await espeak.speak())?.durationMs).toBe(500);
  expect(espeak.runs()).toEqual(["espeak-ng -b 1 -v en-us -s 145 --stdin --stdout <<< Hello"]);
});

test("the voice that was chosen speaks, by its name or by the id that was kept for it", async () => {
  const all = { flite: toFile, "espeak-ng": toPipe };
  const chosen: [Partial<Settings>, string][] = [
    [{ fallbackVoice: "Slt (Flite)" }, "flite -voice slt"],
    [{ fallbackVoice: "English (Scotland)" }, "espeak-ng -b 1 -v en-gb-scotland"],
    [{ voiceId: "pt-br+f3" }, "espeak-ng -b 1 -v pt-br "],
    [{ voiceId: "Kal (Flite)" }, "flite -voice kal16"],
    [{ voiceId: "not a voice at all", fallbackVoice: "Slt (RHVoice)" }, "flite -voice awb"],
  ];
  for (const [over, call] of chosen) {
    const it = withPrograms(all, over);
    expect(await it.speak()).toBeDefined();
    expect(it.runs()).toEqual([expect.stringContaining(call)]);
  }
});

test("a voice that fails is stood in for by the next, down to the plainest", async () => {
  const it = withPrograms({ "RHVoice-test": "exit 1", flite: "exit 0", "espeak-ng": toPipe }, { voiceId: "Rms (Flite)" });
  expect(await it.speak()).toBeDefined();
  expect(it.runs().map((run) => run.split(" ")[0])).toEqual(["flite", "RHVoice-test", "espeak-ng"]);
  expect(it.log).toEqual([]);
});

test("that no voice can speak is logged once, and again when one could meanwhile", async () => {
  const mark = join(temporaryFolder(), "works");
  const it = withPrograms({ "espeak-ng": `if [ -e ${mark} ]; then cat CLIP; else exit 3; fi` });
  expect([await it.speak(), await it.speak()]).toEqual([undefined, undefined]);
  expect(it.log).toEqual([expect.stringContaining("respondo por escrito")]);
  writeFileSync(mark, "");
  expect(await it.speak()).toBeDefined();
  expect(withPrograms({}).log).toEqual([]);
  const none = withPrograms({});
  expect(await none.speak()).toBeUndefined();
  expect(none.log).toEqual(["não há voz instalada; respondo por escrito"]);
});

test("nothing of what was said stays on the disk", async () => {
  const it = withPrograms({ flite: toFile });
  await Promise.all(["One.", "Two.", "Three."].map((sentence) => it.speak(sentence)));
  expect(readdirSync(it.folder)).toEqual([]);
});

test("a clip that finds no place on the disk is made by a program that needs none", async () => {
  const it = withPrograms({ flite: toFile, "espeak-ng": toPipe });
  writeFileSync(it.folder, "a file where the folder should be");
  expect(await it.speak()).toBeDefined();
  expect(it.runs().map((run) => run.split(" ")[0])).toEqual(["espeak-ng"]);
});

test("the best voice of each program that is installed here speaks", async () => {
  const children = new Children({ PATH: process.env.PATH });
  const settings = defaultSettings({ locale, workingFolder: "/", recogniserModels: [], voices: () => [], actionIds: [], askedActionIds: [] });
  const { signal } = new AbortController();
  const voices = installedVoices(children);
  for (const voice of voices.filter(({ program: own }, at) => voices.findIndex(({ program }) => program === own) === at)) {
    const synthesiser = new ProgramSynthesiser(children, () => [voice], temporaryFolder(), () => {});
    const clip = await synthesiser.speak("It is a quarter past nine.", { ...settings, fallbackVoice: voice.title }, signal);
    expect([voice.title, (clip?.durationMs ?? 0) > 800]).toEqual([voice.title, true]);
  }
});
