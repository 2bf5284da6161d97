import { afterAll, describe, expect, test } from "bun:test";
import { truncateSync } from "node:fs";
import { copyFileSync } from "node:fs";
import { join } from "node:path";
import { systemClock } from "../../src/base/clock.ts";
import { plainWords } from "../../src/base/words.ts";
import { Children } from "../../src/machine/children.ts";
import { findShipped, shipped, type Shipped } from "../../src/machine/shipped.ts";
import { inOneWord, MoonshineRecogniser, moonshineCompanion } from "../../src/recognition/moonshine.ts";
import { temporaryFolder } from "../support/folders.ts";
import { going } from "../support/processes.ts";
import { hasVoice, said } from "../support/speech.ts";
import { tone } from "../support/sounds.ts";

const children = new Children({ PATH: "/usr/bin:/bin" });
afterAll(() => children.endAll());

let names: string[] = ["palomet"];
const log: string[] = [];

function recogniser(over: Partial<Shipped> = {}, size: "base" | "tiny" = "tiny"): MoonshineRecogniser | undefined {
  const brought = { ...shipped, ...over };
  const companion = moonshineCompanion(children, systemClock, (line) => log.push(line), brought, brought[size]);
  return companion && new MoonshineRecogniser(companion, () => names);
}

const base = recogniser({}, "base");
const tiny = recogniser();

async function textOf(samples: Int16Array, from = base): Promise<string> {
  const found = await from!.recognise(samples, going);
  return found.kind === "text" ? found.text : JSON.stringify(found);
}

test("writes the words of days in one word, as people do now", () => {
  expect(inOneWord("To-day or to-morrow, not to-night: a day-to-day matter")).toBe("Today or tomorrow, not tonight: a day-to-day matter");
});

describe.skipIf(!base || !hasVoice)("Moonshine", () => {
  const sentences = [
    "could you tell me what time it is in Lisbon right now",
    "we should buy some bread tomorrow",
    "please close the window, it is cold",
  ];
  for (const sentence of sentences) {
    test(`understands "${sentence}", which is none of the engine's phrases`, async () => {
      const found = await base!.recognise(await said(sentence, "en-us"), going);
      expect(found).toMatchObject({ kind: "text", isUnderstood: true });
      expect(found.kind === "text" && plainWords(found.text)).toEqual(plainWords(sentence));
    }, 60_000);
  }

  test("finds nothing to understand in what is no speech", async () => {
    for (const samples of [new Int16Array(0), new Int16Array(1), new Int16Array(32_000), tone(1_000, -20)]) {
      expect(await base!.recognise(samples, going)).toEqual({ kind: "text", text: "", isUnderstood: false });
    }
  }, 60_000);

  test("takes an utterance of any length, and cuts it where it is softest", async () => {
    const pause = new Int16Array(8_000);
    const spoken = await Promise.all(sentences.map((sentence) => said(sentence, "en-us")));
    const long = Int16Array.from([...spoken, ...spoken, ...spoken].flatMap((sentence) => [...sentence, ...pause]));
    expect(long.length).toBeGreaterThan(20 * 16_000);
    expect(plainWords(await textOf(long))).toEqual(plainWords([...sentences, ...sentences, ...sentences].join(" ")));
  }, 120_000);

  test("of the smaller size understands as well", async () => {
    expect(plainWords(await textOf(await said("please close the window", "en-us"), tiny))).toEqual(["please", "close", "the", "window"]);
  }, 60_000);
});

describe.skipIf(!base || !hasVoice)("the name", () => {
  const cases: [name: string, sentence: string, text: string][] = [
    ["palomet", "Palomet, what time is it?", "Palomet what time is it"],
    ["palomet", "Hey Palomet, turn the lights off.", "hey palomet turn the lights off"],
    ["palomet", "What time is it, Palomet?", "what time is it palomet"],
    ["palomet", "Palomet.", "palomet"],
    ["Computer", "Computer, what time is it?", "computer what time is it"],
    ["Maria Clara", "What is the weather like tomorrow, Maria Clara?", "what is the weather like tomorrow maria clara"],
  ];
  for (const [name, sentence, text] of cases) {
    test(`"${name}" is found in "${sentence}"`, async () => {
      names = [name];
      const found = await textOf(await said(sentence, "en-gb"));
      expect(found.toLowerCase()).toContain(name.toLowerCase());
      expect(plainWords(found)).toEqual(plainWords(text));
    }, 60_000);
  }

  test("is found however fast it is said, and what follows it is kept", async () => {
    names = ["palomet"];
    for (const wordsAMinute of [145, 150, 160, 175]) {
      const found = await textOf(await said("Palomet, what time is it?", "en-us", wordsAMinute));
      expect([wordsAMinute, ...plainWords(found)]).toEqual([wordsAMinute, "palomet", "what", "time", "is", "it"]);
    }
  }, 120_000);

  const requests: [sentence: string, voice: string, wordsAMinute: number][] = [
    ["Palomet, open my documents.", "en-gb-x-rp", 145],
    ["Palomet, who is calling?", "en-gb-x-rp", 145],
    ["Palomet, how are you?", "en-gb-scotland", 160],
  ];
  for (const [sentence, voice, wordsAMinute] of requests) {
    test(`calls somebody, and what follows it in "${sentence}" is what is asked`, async () => {
      names = ["palomet"];
      expect(plainWords(await textOf(await said(sentence, voice, wordsAMinute)))).toEqual(plainWords(sentence));
    }, 60_000);
  }

  test("is all that was said when nothing follows", async () => {
    names = ["palomet"];
    for (const voice of ["en-us", "en-gb", "en-gb-x-rp"]) {
      expect(plainWords(await textOf(await said("Palomet.", voice)))).toEqual(["palomet"]);
      expect(plainWords(await textOf(await said("Thank you, Palomet.", voice))).slice(-1)).toEqual(["palomet"]);
    }
  }, 120_000);

  test("is not found in what only sounds alike, or where another name is set", async () => {
    names = ["palomet"];
    for (const sentence of ["The parliament met on Monday.", "My pal met him at the station.", "Hey Paul, I met your sister."]) {
      expect((await textOf(await said(sentence, "en-gb"))).toLowerCase()).not.toContain("palomet");
    }
    names = ["Computer", "Maria Clara"];
    for (const sentence of ["Commuter trains are late.", "Maria declared a holiday.", "Palomet, what time is it?"]) {
      expect(await textOf(await said(sentence, "en-us"))).not.toMatch(/computer|maria clara/i);
    }
  }, 120_000);

  test("is not looked for in words that are shown while they are spoken", async () => {
    names = ["palomet"];
    const found = await base!.recognise(await said("Palomet, what time is it?", "en-us"), going, { isPartial: true });
    expect(found).toMatchObject({ kind: "text", isUnderstood: true });
    expect(found.kind === "text" && found.text).not.toContain("Palomet");
  }, 60_000);

  test("may be anything that a user can set", async () => {
    const samples = await said("what time is it", "en-us");
    for (const name of ["日本 ☃", "?", "a", "x".repeat(60), "one two three four"]) {
      names = [name];
      expect(plainWords(await textOf(samples))).toEqual(["what", "time", "is", "it"]);
    }
  }, 120_000);
});

describe.skipIf(!base || !hasVoice)("a recogniser", () => {
  test("that is stopped leaves the utterance at once, and understands the next one", async () => {
    const samples = await said("please close the window", "en-us");
    const stop = new AbortController();
    const stopped = base!.recognise(samples, stop.signal);
    stop.abort();
    expect(await stopped).toEqual({ kind: "none" });
    expect(plainWords(await textOf(samples))).toEqual(["please", "close", "the", "window"]);
  }, 60_000);

  const damaged: [what: string, over: (folder: string) => Partial<Shipped>][] = [
    ["a model that was cut short", (folder) => {
      const decoder = join(folder, "decoder.onnx");
      copyFileSync(shipped.tiny!.decoder, decoder);
      truncateSync(decoder, 1_000_000);
      return { tiny: { ...shipped.tiny!, decoder } };
    }],
    ["models that are exchanged", () => ({ tiny: { encoder: shipped.tiny!.decoder, decoder: shipped.tiny!.encoder } })],
    ["a vocabulary that is none", () => ({ vocabulary: join(import.meta.dir, "../../package.json") })],
    ["a runtime that is none", () => ({ runtime: join(import.meta.dir, "../../package.json") })],
  ];
  for (const [what, over] of damaged) {
    test(`with ${what} fails, and says so`, async () => {
      const broken = recogniser(over(temporaryFolder()))!;
      broken.prepare();
      const found = await broken.recognise(tone(500, -20), going);
      expect(found.kind).toBe("failed");
      expect(log.at(-1)).toStartWith("o reconhecedor de fala não funciona aqui, sigo sem ele");
      // It is not tried again.
      expect((await broken.recognise(tone(500, -20), going)).kind).toBe("failed");
    }, 60_000);
  }
});

test("a recogniser of which a part is missing is none", () => {
  const nothing = findShipped([temporaryFolder()]);
  expect(moonshineCompanion(children, systemClock, () => {}, nothing, nothing.base)).toBeUndefined();
});
