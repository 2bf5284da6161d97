import { describe, expect, test } from "bun:test";
import { chooseLocale } from "../../src/base/language.ts";
import { Children } from "../../src/machine/children.ts";
import { buildGrammar } from "../../src/recognition/grammar.ts";
import { Pronouncer } from "../../src/recognition/pronunciation.ts";
import { knownAnswer, knownPhrases } from "../../src/thought/builtInAnswers.ts";
import { hasSphinx, installed } from "../support/recognition.ts";

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
