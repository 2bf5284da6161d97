import { expect, test } from "bun:test";
import { phrases } from "../../src/base/phrases.ts";
import { replyIn } from "../../src/base/replies.ts";

const said = {
  en: {
    yes: ["Yes.", "yes, please", "Sure!", "ok", "Okay, go ahead.", "Yeah, do it", "of course", "Please do.", "yes yes", "sure, thanks", "You may."],
    no: ["No.", "nope", "No, thank you.", "Don't.", "please don't do that", "of course not", "Better not", "never mind", "not now, thanks"],
    neither: ["", "please", "thanks", "yes and no", "ok no", "yes, but not that one", "sure is cold", "yes remove it", "no timer", "not", "what?", "I can"],
  },
  pt: {
    yes: ["Sim.", "sim, por favor", "Pode.", "pode sim", "Pode, pode", "claro", "Claro que sim!", "tá bom", "ok", "Beleza, faz isso", "isso mesmo", "Com certeza"],
    no: ["Não.", "não, obrigado", "Não pode", "agora não", "melhor não", "claro que não", "Deixa pra lá", "nem pensar", "não, não", "isso não"],
    neither: ["", "por favor", "obrigada", "sim e não", "pode não", "sim, mas amanhã", "pode chover", "não sei", "claro como água", "o quê?"],
  },
} as const;

for (const language of ["en", "pt"] as const) {
  for (const meaning of ["yes", "no"] as const) {
    test(`${meaning} is understood as people say it in ${language}`, () => {
      expect(said[language][meaning].filter((text) => replyIn(text, language) !== meaning)).toEqual([]);
    });

    test(`what the recogniser of phrases listens for as ${meaning} in ${language} is one`, () => {
      expect(phrases[language][meaning].filter((text) => replyIn(text, language) !== meaning)).toEqual([]);
    });
  }

  test(`what says anything else besides is neither in ${language}`, () => {
    expect(said[language].neither.filter((text) => replyIn(text, language) !== undefined)).toEqual([]);
  });
}
