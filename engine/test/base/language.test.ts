import { describe, expect, test } from "bun:test";
import { chooseLocale } from "../../src/base/language.ts";

describe("the language", () => {
  const cases: [string | undefined, string | undefined, string][] = [
    ["pt-BR,pt-BR,en-US", undefined, "pt-br"],
    ["pt-PT", undefined, "pt"],
    ["fr-FR,en-GB", undefined, "en-gb"],
    ["en", undefined, "en-us"],
    ["de", undefined, "en-us"],
    [undefined, "pt_BR.UTF-8", "pt-br"],
    ["", "C", "en-us"],
    [",,", undefined, "en-us"],
  ];
  for (const [languages, lang, voice] of cases) {
    test(`of ${languages ?? "nothing"} and ${lang ?? "nothing"} is spoken by ${voice}`, () => {
      expect(chooseLocale({ PALOMET_LANGUAGES: languages, LANG: lang }).voice).toBe(voice);
    });
  }
});
