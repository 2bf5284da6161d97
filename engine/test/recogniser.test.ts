import { describe, expect, test } from "bun:test";
import { existsSync, readdirSync } from "node:fs";
import { join } from "node:path";
import { chooseLocale, plainWords, type Language } from "../src/base/language.ts";
import { Children } from "../src/machine/children.ts";
import { buildGrammar } from "../src/recognition/grammar.ts";
import { phonesOf, Pronouncer } from "../src/recognition/pronunciation.ts";
import { FirstOf, type Recogniser } from "../src/recognition/recogniser.ts";
import { SphinxRecogniser } from "../src/recognition/sphinx.ts";
import { WhisperRecogniser } from "../src/recognition/whisper.ts";
import { readClip } from "../src/sound/wav.ts";
import { knownAnswer, knownPhrases } from "../src/thought/builtInAnswers.ts";
import { FakeRecogniser, program, temporaryFolder, tone } from "./support.ts";

const path = process.env.PATH ?? "";
const installed = new Children({ PATH: path });
const hasSphinx =
  installed.find("pocketsphinx_batch") !== undefined &&
  installed.find("espeak-ng") !== undefined &&
  existsSync("/usr/share/pocketsphinx/model/en-us/en-us/mdef");
const going = new AbortController().signal;
/** For what is to end by itself, however busy the machine is. */
const patient = 60_000;

function sphinx(language: Language, children = installed, timeoutMs = patient): SphinxRecogniser {
  const { voice } = chooseLocale({ PALOMET_LANGUAGES: language });
  const actionPhrases = [language === "pt" ? "pode fazer" : "go ahead"];
  const vocabulary = { language, voice, wakeWords: ["palomet"], actionPhrases };
  return new SphinxRecogniser(children, temporaryFolder(), () => vocabulary, () => 800, timeoutMs);
}

/** A sentence as `espeak-ng` says it, in the samples of the audio link, with the silence around it. */
async function said(sentence: string, voice: string): Promise<Int16Array> {
  const outcome = await installed.run(["espeak-ng", "-v", voice, "--stdin", "--stdout"], {
    input: sentence,
    timeoutMs: 10_000,
    maxOutput: 1 << 24,
  });
  const clip = outcome.kind === "ended" ? readClip(outcome.output) : undefined;
  if (!clip) throw new Error("no speech");
  const samples = new Int16Array(clip.file.slice(44).buffer);
  const length = Math.floor((samples.length * 16_000) / 22_050);
  const spoken = new Int16Array(4_800 + length + 12_800);
  for (let index = 0; index < length; index++) {
    const at = (index * 22_050) / 16_000;
    const [before, after] = [samples[Math.floor(at)] ?? 0, samples[Math.ceil(at)] ?? 0];
    spoken[4_800 + index] = (before + (after - before) * (at % 1)) / 2;
  }
  return spoken;
}

describe.skipIf(!hasSphinx)("pocketsphinx", () => {
  // A grammar takes longer to build than an utterance to understand.
  const listening: Record<Language, SphinxRecogniser> = { en: sphinx("en"), pt: sphinx("pt") };
  const cases: [Language, string, string][] = [
    ["en", "en-us", "Palomet, what time is it?"],
    ["en", "en-us+f3", "what can you do"],
    ["en", "en-us", "go ahead"],
    ["en", "en-us", "palomet"],
    ["pt", "pt-br", "Palomet, que horas são?"],
    ["pt", "pt-br", "que dia é hoje"],
    ["pt", "pt-br", "pode fazer"],
  ];
  for (const [language, voice, sentence] of cases) {
    test(`understands "${sentence}"`, async () => {
      const found = await listening[language].recognise(await said(sentence, voice), going);
      expect(found).toMatchObject({ kind: "text", isUnderstood: true });
      expect(found.kind === "text" && plainWords(found.text)).toEqual(plainWords(sentence));
    });
  }

  const others: [Language, string, string][] = [
    ["en", "en-us", "the weather is nice today I think"],
    ["en", "en-us", "my sister is coming on Friday with her kids"],
    ["pt", "pt-br", "minha irmã vem na sexta com as crianças"],
  ];
  for (const [language, voice, sentence] of others) {
    test(`does not take "${sentence}" for anything it knows`, async () => {
      const found = await listening[language].recognise(await said(sentence, voice), going);
      expect(found).toMatchObject({ kind: "text", isUnderstood: false });
    });
  }

  test("leaves no utterance behind", async () => {
    const recogniser = sphinx("en");
    await recogniser.recognise(await said("help me", "en-us"), going);
    expect(readdirSync(recogniser.folder).sort()).toEqual(["anything.jsgf", "inputs", "known.jsgf", "words.dict"]);
  });
});

describe("a recogniser", () => {
  test("that is missing is none", async () => {
    expect(await sphinx("en", new Children({ PATH: "" })).recognise(tone(500, -20), going)).toEqual({ kind: "none" });
  });

  const failures: [string, string, RegExp, number?][] = [
    ["hangs", "exec sleep 60", /timedOut/, 50],
    ["crashes", "kill -SEGV $$", /terminou/],
    ["fails", "exit 3", /terminou com 3/],
    ["prints megabytes", "yes", /tooMuch/],
    ["prints nothing", "exit 0", /terminou com 0/],
  ];
  for (const [does, script, problem, timeoutMs = patient] of failures) {
    test.skipIf(!hasSphinx)(`pocketsphinx that ${does} has failed, and says so`, async () => {
      const tools = program("pocketsphinx_batch", script);
      const broken = sphinx("en", new Children({ PATH: `${tools}:${path}` }), timeoutMs);
      const found = await broken.recognise(tone(500, -20), going);
      expect(found.kind === "failed" && found.problem).toMatch(problem);
    });

    test(`whisper-cli that ${does} has failed, and says so`, async () => {
      if (does === "prints nothing") return;
      const children = new Children({ PATH: `${program("whisper-cli", script)}:${path}` });
      const folder = temporaryFolder();
      const broken = new WhisperRecogniser(children, folder, "en", () => "model.bin", () => [], timeoutMs);
      const found = await broken.recognise(tone(500, -20), going);
      expect(found.kind === "failed" && found.problem).toMatch(problem);
      expect(readdirSync(folder)).toEqual([]);
    });
  }

  test("that is stopped ends at once", async () => {
    const children = new Children({ PATH: `${program("whisper-cli", "exec sleep 60")}:${path}` });
    const ending = new AbortController();
    const whisper = new WhisperRecogniser(children, temporaryFolder(), "en", () => "model.bin", () => []);
    const found = whisper.recognise(tone(500, -20), ending.signal);
    setTimeout(() => ending.abort(), 20);
    expect((await found).kind).toBe("failed");
  });
});

describe("whisper-cli", () => {
  test("is given the model, the language, the names and the utterance", async () => {
    const tools = program("whisper-cli", 'for last; do :; done; echo "$*"; head -c 4 "$last"');
    const children = new Children({ PATH: `${tools}:${path}` });
    const whisper = new WhisperRecogniser(children, temporaryFolder(), "pt", () => "/m/base.bin", () => ["palomet"]);
    const found = await whisper.recognise(tone(500, -20), going);
    expect(found.kind === "text" && found.text).toContain("--model /m/base.bin");
    expect(found.kind === "text" && found.text).toContain("--language pt --prompt palomet --file");
    expect(found.kind === "text" && found.text).toEndWith("RIFF");
  });

  test("is read without its remarks", async () => {
    const tools = program("whisper-cli", "echo '[BLANK_AUDIO]'; echo ' (music) Que horas  são?'");
    const whisper = new WhisperRecogniser(
      new Children({ PATH: `${tools}:${path}` }), temporaryFolder(), "pt", () => "m", () => [],
    );
    expect(await whisper.recognise(tone(100, -20), going)).toEqual({ kind: "text", text: "Que horas são?", isUnderstood: true });
  });

  test("without a model is none", async () => {
    const whisper = new WhisperRecogniser(installed, temporaryFolder(), "en", () => undefined, () => []);
    expect(await whisper.recognise(tone(100, -20), going)).toEqual({ kind: "none" });
  });
});

test("the second recogniser is asked when the first one fails", async () => {
  const [first, second] = [new FakeRecogniser(), new FakeRecogniser()];
  first.answers = [{ kind: "failed", problem: "x" }, { kind: "failed", problem: "x" }];
  second.will("hello");
  const both: Recogniser = new FirstOf(() => [first, second]);
  expect(await both.recognise(tone(100, -20), going)).toMatchObject({ text: "hello" });
  expect(await both.recognise(tone(100, -20), going)).toEqual({ kind: "failed", problem: "x" });
});

describe("pronunciation", () => {
  test("writes phonetic letters as phones", () => {
    expect(phonesOf("ˈɔ_ɾ_æ_s")).toBe("AO R AE S");
    expect(phonesOf("s_ɐ̃ʊ̃")).toBe("S AW N");
    expect(phonesOf("k_ˌo_ŋ_v_ˈɛ_ɾ_ə_s_æ")).toBe("K OW NG V EH R AH S AE");
    expect(phonesOf("tʃ")).toBe("CH");
    expect(phonesOf("!")).toBeUndefined();
  });

  test("without espeak-ng knows the words of the dictionary", async () => {
    const file = join(temporaryFolder(), "words.dict");
    await Bun.write(file, "help HH EH L P\nthe DH AH\nthe(2) DH IY\n");
    const said = await new Pronouncer(new Children({ PATH: "" }), file).pronounce(["help the xyzzy"], "en-us");
    expect(said).toEqual(new Map([["help", new Set(["HH EH L P"])], ["the", new Set(["DH AH", "DH IY"])]]));
  });
});

describe("the grammar", () => {
  test.skipIf(!hasSphinx)("gives a phrase its spelling again", async () => {
    const grammar = await buildGrammar(
      { language: "pt", voice: "pt-br", wakeWords: ["Palomet"], actionPhrases: ["pode fazer"] },
      new Pronouncer(installed, undefined),
    );
    expect(grammar?.read("palomet que horas sao")).toBe("Palomet, que horas são");
    expect(grammar?.read("")).toBeUndefined();
  });

  test("is none when no word can be pronounced", async () => {
    const vocabulary = { language: "pt" as const, voice: "pt-br", wakeWords: [], actionPhrases: [] };
    expect(await buildGrammar(vocabulary, new Pronouncer(new Children({ PATH: "" }), undefined))).toBeUndefined();
  });

  test("holds nothing that has no answer", () => {
    for (const language of ["en", "pt"] as const) {
      const locale = chooseLocale({ PALOMET_LANGUAGES: language });
      const context = { now: new Date(), locale, name: "Palomet", lastAnswer: undefined };
      for (const phrase of knownPhrases(language)) expect([phrase, knownAnswer(phrase, context)]).toEqual([phrase, expect.any(String)]);
    }
  });
});
