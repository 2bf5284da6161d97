import { describe, expect, test } from "bun:test";
import { chooseLocale } from "../../src/base/language.ts";
import { builtInAnswer, knownAnswer, knownPhrases } from "../../src/thought/builtInAnswers.ts";

describe("the built-in answers", () => {
  const at = (hours: number, minutes: number) => new Date(2026, 0, 5, hours, minutes);
  const english = { now: at(15, 5), locale: chooseLocale({ PALOMET_LANGUAGES: "en-US" }), name: "Ana", lastAnswer: undefined };
  const portuguese = { ...english, locale: chooseLocale({ PALOMET_LANGUAGES: "pt-BR,pt-BR,en-US" }) };

  test("tell the time", () => {
    expect(knownAnswer("What time is it?", english)).toBe("It is 3:05 PM.");
    expect(knownAnswer("what's the time", { ...english, now: at(0, 0) })).toBe("It is 12:00 AM.");
    expect(knownAnswer("Que horas são?", portuguese)).toBe("São 15 horas e 5 minutos.");
    expect(knownAnswer("que horas sao", { ...portuguese, now: at(1, 1) })).toBe("É 1 hora e 1 minuto.");
    expect(knownAnswer("QUE HORAS SÃO", { ...portuguese, now: at(12, 0) })).toBe("São 12 horas.");
  });

  test("tell the date", () => {
    expect(knownAnswer("what day is it today", english)).toBe("Today is Monday, January 5, 2026.");
    expect(knownAnswer("Que dia é hoje?", portuguese)).toBe("Hoje é segunda-feira, 5 de janeiro de 2026.");
  });

  test("tell what they can do, and who they are", () => {
    expect(knownAnswer("O que você sabe fazer?", portuguese)).toMatch(/horas.*timers.*notas.*volume.*aplicativos.*contas/);
    expect(knownAnswer("What can you do?", english)).toMatch(/time.*timers.*notes.*volume.*applications.*sums/);
    expect(knownAnswer("Who are you?", english)).toContain("Ana");
  });

  test("leave out the sentences of a request that are no questions", () => {
    for (const request of ["I love it. What time is it?", "What time is it? I love it.", "What time is it? What's the time?"]) {
      expect([request, builtInAnswer(request, english)]).toEqual([request, "It is 3:05 PM."]);
    }
    expect(builtInAnswer("Comprar leite. Que dia é hoje? Que horas são?", portuguese)).toBe(
      "Hoje é segunda-feira, 5 de janeiro de 2026. São 15 horas e 5 minutos.",
    );
  });

  test("read a request back, sentence by sentence, that holds no question", () => {
    expect(builtInAnswer("Buy milk. Buy bread!", english)).toBe("You said: Buy milk. You said: Buy bread.");
    expect(builtInAnswer("comprar leite", portuguese)).toBe("Você disse: comprar leite.");
  });

  test("repeat", () => {
    expect(knownAnswer("say that again", { ...english, lastAnswer: "Yes." })).toBe("Yes.");
    expect(knownAnswer("repeat", english)).toBe("I have not said anything yet.");
  });

  test("are given to everything that the recogniser listens for", () => {
    for (const language of ["en", "pt"] as const) {
      const locale = chooseLocale({ PALOMET_LANGUAGES: language });
      const context = { now: new Date(), locale, name: "Palomet", lastAnswer: undefined };
      for (const phrase of knownPhrases(language)) expect([phrase, knownAnswer(phrase, context)]).toEqual([phrase, expect.any(String)]);
    }
  });
});
