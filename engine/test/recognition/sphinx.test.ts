import { describe, expect, test } from "bun:test";
import { readdirSync } from "node:fs";
import { chooseLocale, type Language } from "../../src/base/language.ts";
import { plainWords } from "../../src/base/words.ts";
import { Children } from "../../src/machine/children.ts";
import { SphinxRecogniser } from "../../src/recognition/sphinx.ts";
import { knownPhrases } from "../../src/thought/builtInAnswers.ts";
import { program, temporaryFolder } from "../support/folders.ts";
import { going } from "../support/processes.ts";
import { failures, hasSphinx, installed, path, patient, type Failure } from "../support/recognition.ts";
import { tone } from "../support/sounds.ts";
import { said } from "../support/speech.ts";

function sphinx(language: Language, children = installed, timeoutMs = patient, folder = temporaryFolder()): SphinxRecogniser {
  const { voice } = chooseLocale({ PALOMET_LANGUAGES: language });
  const actionPhrases = [language === "pt" ? "pode fazer" : "go ahead"];
  const vocabulary = { language, voice, wakeWords: ["palomet"], actionPhrases, requests: knownPhrases(language) };
  return new SphinxRecogniser(children, folder, () => vocabulary, timeoutMs);
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
    const folder = temporaryFolder();
    await sphinx("en", installed, patient, folder).recognise(await said("help me", "en-us"), going);
    expect(readdirSync(folder).sort()).toEqual(["anything.jsgf", "inputs", "known.jsgf", "words.dict"]);
  });
});

describe("a recogniser", () => {
  test("that is missing is none", async () => {
    expect(await sphinx("en", new Children({ PATH: "" })).recognise(tone(500, -20), going)).toEqual({ kind: "none" });
  });

  const all: Failure[] = [...failures, ["prints nothing", "exit 0", /terminou com 0/]];
  for (const [does, script, problem, timeoutMs = patient] of all) {
    test.skipIf(!hasSphinx)(`pocketsphinx that ${does} has failed, and says so`, async () => {
      const tools = program("pocketsphinx_batch", script);
      const broken = sphinx("en", new Children({ PATH: `${tools}:${path}` }), timeoutMs);
      const found = await broken.recognise(tone(500, -20), going);
      expect(found.kind === "failed" && found.problem).toMatch(problem);
    });
  }
});
