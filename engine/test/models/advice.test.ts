import { expect, test } from "bun:test";
import { join } from "node:path";
import { recommendedModel } from "../../src/models/catalogue.ts";
import { advise } from "../../src/models/advice.ts";

test("who understands any sentence is told by what", () => {
  expect(advise(["small-q5_1", "pocketsphinx"])).toEqual({ isDeaf: false, text: "understands any sentence, by small-q5_1" });
});

test("who understands phrases only, or nothing, is told the command that mends it", () => {
  expect(advise(["pocketsphinx"])).toEqual({
    isDeaf: false,
    text: 'understands some phrases only; for any sentence give the command "palomet-engine model add small-q5_1"',
  });
  expect(advise([]).isDeaf).toBe(true);
  expect(advise([]).text).toContain("palomet-engine model add small-q5_1");
});

test("the settings' hint gives the same command", async () => {
  for (const language of ["en", "pt-BR"]) {
    const texts = await Bun.file(join(import.meta.dir, `../../../resources/${language}.lproj/strings.json`)).json();
    expect(texts["listening.transcription.phrases"]).toEndWith(`palomet-engine model add ${recommendedModel}`);
  }
});
