import { afterEach, describe, expect, test } from "bun:test";
import { builtInAnswer } from "../../src/thought/builtInAnswers.ts";
import { chooseLocale } from "../../src/base/language.ts";
import { timeElsewhere } from "../../src/thought/timeElsewhere.ts";

describe("the time elsewhere", () => {
  /** A Monday in summer: 12:30 in Lisbon, 8:30 in São Paulo, 20:30 in Tokyo. */
  const now = new Date("2026-07-06T11:30:00Z");
  const zoneHere = process.env.TZ;
  const inEnglish = (request: string) => timeElsewhere(request, now, "en", "en-US");
  const inPortuguese = (request: string) => timeElsewhere(request, now, "pt", "pt-BR");

  afterEach(() => {
    if (zoneHere === undefined) delete process.env.TZ;
    else process.env.TZ = zoneHere;
  });

  test("is that of the city, with its summer time", () => {
    expect(inEnglish("What time is it in Lisbon?")).toBe("It is 12:30 PM in Lisbon.");
    expect(inEnglish("Could you tell me what time it is in Lisbon right now?")).toBe("It is 12:30 PM in Lisbon.");
    expect(inEnglish("what's the time in New York, please")).toBe("It is 7:30 AM in New York.");
    expect(inEnglish("In Tokyo, what time is it?")).toBe("It is 8:30 PM in Tokyo.");
    expect(timeElsewhere("What time is it in Lisbon?", new Date("2026-01-05T11:30:00Z"), "en", "en-US")).toBe("It is 11:30 AM in Lisbon.");
  });

  test("is that of the place that was said last, when the first was a slip", () => {
    expect(inEnglish("what time is it in new york i mean in Tokyo")).toBe("It is 8:30 PM in Tokyo.");
    expect(inPortuguese("que horas são em Tóquio, quer dizer, em Lisboa")).toBe("São 12 horas e 30 minutos em Lisboa.");
  });

  test("is told in Portuguese, by the Portuguese names", () => {
    expect(inPortuguese("Que horas são em Lisboa?")).toBe("São 12 horas e 30 minutos em Lisboa.");
    expect(inPortuguese("que horas são agora no Rio de Janeiro")).toBe("São 8 horas e 30 minutos no Rio de Janeiro.");
    expect(inPortuguese("Você sabe que horas são em São Paulo neste momento?")).toBe("São 8 horas e 30 minutos em São Paulo.");
    expect(inPortuguese("Em Nova York, que horas são?")).toBe("São 7 horas e 30 minutos em Nova York.");
  });

  test("is that of a country where most have the same", () => {
    expect(inEnglish("What time is it in Japan?")).toBe("It is 8:30 PM in Japan.");
    expect(inEnglish("What time is it in Lisbon, Portugal?")).toBe("It is 12:30 PM in Lisbon, Portugal.");
    expect(inPortuguese("Que horas são em Portugal?")).toBe("São 12 horas e 30 minutos em Portugal.");
    expect(inEnglish("What time is it in Argentina?")).toBe("It is 8:30 AM in Argentina.");
    expect(inPortuguese("que horas são na Alemanha")).toBe("São 13 horas e 30 minutos na Alemanha.");
  });

  test("is not known of other places, nor of a country of many times", () => {
    expect(inEnglish("What time is it in Atlantis?")).toBe("I do not know what time it is in Atlantis.");
    expect(inEnglish("What time is it in the United States?")).toBe("I do not know what time it is in the United States.");
    expect(inPortuguese("Que horas são na Atlântida?")).toBe("Não sei que horas são na Atlântida.");
  });

  test("is told with the day where that is another", () => {
    process.env.TZ = "UTC";
    const late = new Date("2026-07-06T20:05:00Z");
    expect(timeElsewhere("What time is it in Sydney?", late, "en", "en-US")).toBe("It is 6:05 AM on Tuesday in Sydney.");
    expect(timeElsewhere("Que horas são em Tóquio?", late, "pt", "pt-BR")).toBe("São 5 horas e 5 minutos de terça-feira em Tóquio.");
  });

  test("is asked for by those words alone", () => {
    expect(inEnglish("What time is it?")).toBeUndefined();
    expect(inEnglish("What time is it in here?")).toBeUndefined();
    expect(inEnglish("I live in Lisbon.")).toBeUndefined();
    expect(inEnglish("What day is it in Lisbon?")).toBeUndefined();
    expect(inPortuguese("Que horas são no momento?")).toBeUndefined();
    expect(inPortuguese("Que horas são agora?")).toBeUndefined();
  });

  test("is one of the built-in answers", () => {
    const context = { now, locale: chooseLocale({ PALOMET_LANGUAGES: "en-US" }), name: "Ana", lastAnswer: undefined };
    expect(builtInAnswer("Could you tell me what time it is in Lisbon right now?", context)).toBe("It is 12:30 PM in Lisbon.");
  });

  test("may be that of a place that was told before the question", () => {
    expect(inEnglish("I'm calling my cousin in Sydney, what's the time over there?")).toBe("It is 9:30 PM in Sydney.");
    expect(inPortuguese("Minha filha mora em Lisboa, que horas são lá agora?")).toBe("São 12 horas e 30 minutos em Lisboa.");
    const context = { now, locale: chooseLocale({ PALOMET_LANGUAGES: "en-US" }), name: "Palomet", lastAnswer: undefined };
    expect(builtInAnswer("My sister lives in Tokyo. What time is it there?", context)).toContain("It is 8:30 PM in Tokyo.");
  });

  test("is told where a known place and the question are all, and another word there is no place", () => {
    expect(inEnglish("Paris what time there")).toBe("It is 1:30 PM in Paris.");
    expect(inPortuguese("Nova York tá que horas")).toBe("São 7 horas e 30 minutos em Nova York.");
    expect(inEnglish("lunch time")).toBeUndefined();
    expect(inEnglish("it's about what time")).toBeUndefined();
  });
});
