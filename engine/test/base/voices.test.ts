import { expect, test } from "bun:test";
import { chooseLocale } from "../../src/base/language.ts";
import { defaultVoice, knownVoices, voiceOf } from "../../src/base/voices.ts";

test("no two voices bear the same name, and each is found by its own", () => {
  expect(new Set(knownVoices.map(({ title }) => title)).size).toBe(knownVoices.length);
  for (const voice of knownVoices) expect(voiceOf(voice.title)).toBe(voice);
});

test("a voice is found by the id that was kept for it, too, and what is neither is no voice", () => {
  expect(voiceOf("en-us+f3")?.title).toBe("English (America)");
  expect(voiceOf("pt")?.title).toBe("Português (Portugal)");
  expect(voiceOf("fr+m3")).toMatchObject({ program: "eSpeak NG", name: "fr+m3" });
  expect(["", "-v", "a b", "../x"].map(voiceOf)).toEqual([undefined, undefined, undefined, undefined]);
});

test("without a voice for the user's language that of eSpeak is the default, for it may be installed later", () => {
  const english = knownVoices.filter(({ program }) => program === "Flite");
  expect(defaultVoice(english, chooseLocale({ PALOMET_LANGUAGES: "pt-BR" })).title).toBe("Português (Brasil)");
  expect(defaultVoice([], chooseLocale({ PALOMET_LANGUAGES: "en-GB" })).title).toBe("English (Great Britain)");
});
