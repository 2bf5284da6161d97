import { expect, test } from "bun:test";
import { chooseLocale, type Language } from "../../../src/base/language.ts";
import { DateHand } from "../../../src/hands/facts/dateHand.ts";
import { knownAnswer } from "../../../src/thought/builtInAnswers.ts";
import { ManualClock } from "../../support/clock.ts";

/** It is Monday, 5 January 2026. */
const hand = new DateHand(new ManualClock());
const ask = (given: unknown, language: Language = "en"): Promise<string> => hand.act(given, language);

test("days are reckoned", async () => {
  expect(await ask({ do: "weekday", day: "2026-12-25" })).toBe("That is Friday, December 25, 2026.");
  expect(await ask({ do: "weekday", day: "2025-12-25" })).toBe("That was Thursday, December 25, 2025.");
  expect(await ask({ do: "until", day: "2026-01-06" })).toBe("1 day until Tuesday, January 6, 2026.");
  expect(await ask({ do: "until", day: "2026-12-25" }, "pt")).toBe("Faltam 354 dias para sexta-feira, 25 de dezembro de 2026.");
  expect(await ask({ do: "since", day: "2025-12-25" })).toBe("11 days since Thursday, December 25, 2025.");
  expect(await ask({ do: "until", day: "2026-01-05" })).toBe("That is today.");
  expect(await ask({ do: "between", day: "2024-02-28", other: "2024-03-01" })).toBe("That is 2 days.");
  expect(await ask({ do: "between", day: "2026-03-01", other: "2026-02-28" }, "pt")).toBe("É 1 dia.");
});

test("today is told as it is without the hand", async () => {
  for (const [language, question] of [["en", "what is the date"], ["pt", "qual é a data"]] as const) {
    const locale = chooseLocale({ PALOMET_LANGUAGES: language === "pt" ? "pt-BR" : "en-US" });
    const context = { now: new Date(2026, 0, 5), locale, name: "", lastAnswer: undefined };
    expect(await ask({ do: "weekday", day: "2026-01-05" }, language)).toBe(knownAnswer(question, context)!);
  }
});

test("a day that is none is not reckoned with", async () => {
  for (const given of [{}, null, { do: "until" }, { do: "until", day: "2026-02-30" }, { do: "until", day: "soon" }, { do: "between", day: "2026-01-01" }]) {
    expect(hand.intent(given, "en")).toBeUndefined();
    expect(await ask(given)).toBe("I do not know that day.");
  }
});
