import { afterAll, describe, expect, test } from "bun:test";
import { join } from "node:path";
import { systemClock } from "../../src/base/clock.ts";
import { Children } from "../../src/machine/children.ts";
import { shipped } from "../../src/machine/shipped.ts";
import { WhisperAddonRecogniser } from "../../src/recognition/whisperAddon.ts";
import { temporaryFolder } from "../support/folders.ts";
import { going } from "../support/processes.ts";
import { tone } from "../support/sounds.ts";

const children = new Children({ PATH: "/usr/bin:/bin" });
afterAll(() => children.endAll());

/** Writes what it was given; waits to be stopped for samples of no sound, and then never settles, as the real one. */
const script = `
  exports.WhisperContext = class {
    constructor({ filePath }) {
      if (filePath.includes("broken")) throw new Error("no model");
      this.filePath = filePath;
    }
    transcribeData(samples, { language, prompt }) {
      const isSilent = new Int16Array(samples).every((sample) => sample === 0);
      const result = "(music) Palomat, " + [this.filePath, language, prompt, samples.byteLength].join(" ");
      const promise = isSilent ? new Promise(() => {}) : Promise.resolve({ result, isAborted: false });
      return { promise, stop: async () => {} };
    }
  };
`;

let model: string | undefined = "one.bin";
const log: string[] = [];
const addon = join(temporaryFolder(), "addon.cjs");
await Bun.write(addon, script);
const recogniser = (path = addon) =>
  new WhisperAddonRecogniser(children, systemClock, (line) => log.push(line), path, "pt", () => model, () => ["Palomet", "Ana"]);
const whisper = recogniser();

describe("the addon of Whisper", () => {
  test("is given the model, the language, the names and the samples, and is read without its remarks", async () => {
    const found = await whisper.recognise(tone(500, -20), going);
    expect(found).toEqual({ kind: "text", text: "Palomet, one.bin pt Palomet, Ana 16000", isUnderstood: true });
  });

  test("runs another model when another one is set", async () => {
    model = "two.bin";
    expect(await whisper.recognise(tone(500, -20), going)).toMatchObject({ text: "Palomet, two.bin pt Palomet, Ana 16000" });
    model = undefined;
    expect(await whisper.recognise(tone(500, -20), going)).toEqual({ kind: "none" });
    model = "one.bin";
  });

  test("hears nothing in nothing, and shows no words while they are spoken", async () => {
    expect(await whisper.recognise(new Int16Array(0), going)).toEqual({ kind: "text", text: "", isUnderstood: false });
    expect(await whisper.recognise(tone(500, -20), going, { isPartial: true })).toEqual({ kind: "none" });
  });

  test("that was stopped takes the next utterance", async () => {
    await whisper.recognise(tone(500, -20), going);
    const stop = new AbortController();
    const stopped = whisper.recognise(new Int16Array(8_000), stop.signal);
    stop.abort();
    expect(await stopped).toEqual({ kind: "none" });
    expect(await whisper.recognise(tone(500, -20), going)).toMatchObject({ kind: "text", isUnderstood: true });
  });

  test("that cannot load its model fails, and says so", async () => {
    model = "broken.bin";
    expect(await whisper.recognise(tone(500, -20), going)).toEqual({ kind: "failed", problem: "no model" });
    expect(log.at(-1)).toBe("o reconhecedor Whisper não funciona aqui, sigo sem ele (no model)");
  });

  test.skipIf(!shipped.whisper)("as it is shipped refuses a file that is no model, and lives", async () => {
    model = import.meta.path;
    expect((await recogniser(shipped.whisper).recognise(tone(500, -20), going)).kind).toBe("failed");
    expect(log.at(-1)).toStartWith("o reconhecedor Whisper não funciona aqui, sigo sem ele");
  });
});
