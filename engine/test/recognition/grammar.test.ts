import { describe, expect, test } from "bun:test";
import { Children } from "../../src/machine/children.ts";
import { buildGrammar } from "../../src/recognition/grammar.ts";
import { Pronouncer } from "../../src/recognition/pronunciation.ts";
import { knownPhrases } from "../../src/thought/builtInAnswers.ts";
import { hasSphinx, installed } from "../support/recognition.ts";

describe("the grammar", () => {
  test.skipIf(!hasSphinx)("gives a phrase its spelling again", async () => {
    const grammar = await buildGrammar(
      { language: "pt", voice: "pt-br", wakeWords: ["Palomet"], actionPhrases: ["pode fazer"], requests: knownPhrases("pt") },
      new Pronouncer(installed, undefined),
    );
    expect(grammar?.read("palomet que horas sao")).toBe("Palomet, que horas são");
    expect(grammar?.read("")).toBeUndefined();
  });

  test.skipIf(!hasSphinx)("has a call before what is wanted, or the name after it, and not both", async () => {
    const grammar = await buildGrammar(
      { language: "pt", voice: "pt-br", wakeWords: ["Palomet"], actionPhrases: [], requests: ["que horas são"] },
      new Pronouncer(installed, undefined),
    );
    const rule = /^public <utterance> = (.*);$/m.exec(grammar?.known ?? "")?.[1];
    expect(rule?.split(" | ")).toEqual(["[<call>] <request>", "<request> <name>", "[<call>] <command>", "<command> <name>", "<call>"]);
    expect(grammar?.known).toContain("<name> = palomet;");
    expect(grammar?.known).toContain("<call> = palomet | ei palomet");
  });

  test("is none when no word can be pronounced", async () => {
    const vocabulary = { language: "pt" as const, voice: "pt-br", wakeWords: [], actionPhrases: [], requests: ["ajuda"] };
    expect(await buildGrammar(vocabulary, new Pronouncer(new Children({ PATH: "" }), undefined))).toBeUndefined();
  });
});
