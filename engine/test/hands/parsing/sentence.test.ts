import { describe, expect, test } from "bun:test";
import type { Language } from "../../../src/base/language.ts";
import { understood } from "../../../src/hands/parsing/sentence.ts";
import { longestSentence } from "../../../src/hands/parsing/tokens.ts";
import { englishRequests, englishTalk } from "../../support/englishRequests.ts";
import { portugueseRequests, portugueseTalk } from "../../support/portugueseRequests.ts";
import type { Requests } from "../../support/requests.ts";

const now = new Date(2026, 10, 18, 14, 30);
const tables: [Language, Requests, readonly string[]][] = [
  ["en", englishRequests, englishTalk],
  ["pt", portugueseRequests, portugueseTalk],
];

for (const [language, requests, talk] of tables) {
  describe(`in ${language}`, () => {
    for (const [hand, given, sentences] of requests) {
      for (const sentence of sentences) {
        test(`"${sentence}" asks for ${hand} ${JSON.stringify(given)}`, () => {
          expect(understood(sentence, language, now)).toEqual({ hand, given });
        });
      }
    }

    for (const sentence of talk) {
      test(`"${sentence}" asks for nothing`, () => {
        expect(understood(sentence, language, now)).toBeUndefined();
      });
    }

    test("three hundred ways of asking are known", () => {
      expect(requests.flatMap(([, , sentences]) => sentences).length).toBeGreaterThan(300);
    });
  });
}

test("what is noted is kept to the word, but for the polite ones around it", () => {
  const noted = (sentence: string): unknown => understood(sentence, "en", now)?.given.text;
  expect(noted("Please note that I have to call Dr. O'Neill, at 5:30, now")).toBe("I have to call Dr. O'Neill, at 5:30, now");
  expect(noted("note that Ana's flight is BA-249, thanks")).toBe("Ana's flight is BA-249");
});

test("the marks of what is noted are kept, and those around a name are not", () => {
  const given = (sentence: string, language: Language = "en"): unknown => {
    const { text, about, items, name } = understood(sentence, language, now)?.given ?? {};
    return text ?? about ?? items ?? name;
  };
  expect(given("Nota: <b>oi</b>", "pt")).toBe("<b>oi</b>");
  expect(given("anota que \"oi\" é uma palavra, por favor", "pt")).toBe("\"oi\" é uma palavra");
  expect(given("Note that she said “hi.”")).toBe("she said “hi.”");
  expect(given("note: 🎉 party 🎉!")).toBe("🎉 party 🎉");
  expect(given("Note that \"Ana\", please.")).toBe("\"Ana\"");
  expect(given("take a \"note\": #1 is (really) here")).toBe("#1 is (really) here");
  expect(given("remind me at nine to say \"hi\"")).toBe("say \"hi\"");
  expect(given("open \"firefox\"")).toBe("firefox");
  expect(given("add “milk” to the shopping list")).toBe("milk");
  expect(given("set a 5 minute \"tea\" timer")).toBe("tea");
});

test("what is told beside a request is left out, and asks for nothing by itself", () => {
  const meant = (sentence: string, language: Language = "en"): unknown => understood(sentence, language, now)?.hand;
  expect(meant("I'm off to a meeting, lock the screen")).toBe("lock");
  expect(meant("Lock the screen because I have to see somebody")).toBe("lock");
  expect(meant("Bloqueia a tela que eu vou almoçar fora", "pt")).toBe("lock");
  expect(meant("My doctor says I should rest, so set a timer for forty minutes, dear")).toBe("timer");
  expect(meant("Eu sempre esqueço o ovo no fogo, então me coloca um timer de sete minutos", "pt")).toBe("timer");
  expect(meant("I never learned my tables properly, what is seven times eight?")).toBe("calculate");
  expect(meant("If I am off to a meeting, lock the screen")).toBeUndefined();
  expect(meant("She said that it is late, lock the screen")).toBeUndefined();
});

test("a state that is told without a mark beside what harms nobody is left out", () => {
  const meant = (sentence: string, language: Language = "en"): unknown => understood(sentence, language, now)?.hand;
  expect(meant("my brother is coming quick lock the screen")).toBe("lock");
  expect(meant("please pause the music for a second someone is at the door")).toBe("media");
  expect(meant("meu irmão tá vindo bloqueia a tela rápido", "pt")).toBe("lock");
  expect(meant("Would you mute the sound while I answer the door, please?")).toBe("volume");
  expect(meant("Lock the screen before the kids get at it")).toBe("lock");
  expect(meant("my brother is coming cancel the timer")).toBeUndefined();
  expect(meant("wake me at seven before the kids get up")).toBeUndefined();
});

test("what would be good if somebody did it is asked for", () => {
  const given = (sentence: string): unknown => understood(sentence, "en", now)?.given;
  expect(given("I'd be glad if you woke me at a quarter past six tomorrow")).toEqual({ do: "alarm", at: "2026-11-19T06:15" });
  expect(given("It would be lovely if you turned the volume down")).toEqual({ of: "system", by: -10 });
});

test("what Portuguese says twice or turned over is said once", () => {
  const meant = (sentence: string): unknown => understood(sentence, "pt", now)?.hand;
  expect(meant("Qual que é a raiz quadrada de oitenta e um?")).toBe("calculate");
  expect(meant("então o que que tem na minha lista de tarefas")).toBe("notes");
  expect(meant("abre por favor a minha pasta de downloads")).toBe("open");
  expect(meant("me acorda seis e meia amanhã")).toBe("timer");
});

test("an hour and ten is seventy minutes", () => {
  const seconds = (sentence: string): unknown => understood(sentence, "en", now)?.given.seconds;
  expect(seconds("set a timer for an hour and ten")).toBe(4_200);
  expect(seconds("set a timer for an hour and ten seconds")).toBe(3_610);
});

test("the day on which somebody has to get up is the alarm's", () => {
  const at = (sentence: string, language: Language = "en"): unknown => understood(sentence, language, now)?.given.at;
  expect(at("I have an early train on Friday, so could you set an alarm for ten to five in the morning, please?")).toBe("2026-11-20T04:50");
  expect(at("i gotta get up at five fifteen tomorrow can you wake me up")).toBe("2026-11-19T05:15");
  expect(at("Tenho que pegar o ônibus cedo na sexta, então põe um alarme para as dez para as cinco da manhã, por favor.", "pt")).toBe("2026-11-20T04:50");
});

test("a request in another order, and in another form of its verb, is the same", () => {
  const seconds = (sentence: string, language: Language = "en"): unknown => understood(sentence, language, now)?.given.seconds;
  expect(seconds("ten minutes, if you could, on that timer of mine")).toBeUndefined();
  expect(seconds("would you mind starting a timer of roughly ten minutes")).toBe(600);
  expect(seconds("daria pra você começar um timer de uns dez minutos", "pt")).toBe(600);
});

test("an hour without its half of the day is the next one", () => {
  const at = (sentence: string, hour: number): unknown => understood(sentence, "en", new Date(2026, 10, 18, hour, 0))?.given.at;
  expect(at("set an alarm for seven", 6)).toBe("2026-11-18T07:00");
  expect(at("set an alarm for seven", 8)).toBe("2026-11-18T19:00");
  expect(at("set an alarm for seven", 20)).toBe("2026-11-19T07:00");
  expect(at("set an alarm for twelve", 13)).toBe("2026-11-19T00:00");
});

test("what was corrected counts as it was said last", () => {
  const given = (sentence: string, language: Language): unknown => understood(sentence, language, now)?.given;
  expect(given("set a timer for five, no, wait, ten minutes", "en")).toEqual({ do: "timer", seconds: 600 });
  expect(given("wake me up at six, I mean seven", "en")).toEqual({ do: "alarm", at: "2026-11-19T07:00" });
  expect(given("wake me up on Friday at six, no, at seven", "en")).toEqual({ do: "alarm", at: "2026-11-20T07:00" });
  expect(given("set the volume to thirty, sorry, forty percent", "en")).toEqual({ of: "system", to: 40 });
  expect(given("coloca um timer de cinco, não, dez minutos", "pt")).toEqual({ do: "timer", seconds: 600 });
  expect(given("set a timer for five minutes, no, wait", "en")).toBeUndefined();
});

test("what was talked about was talked about in the past", () => {
  const on = (sentence: string): unknown => understood(sentence, "en", now)?.given.day;
  expect(on("what did we talk about on Monday")).toBe("2026-11-16");
  expect(on("what did we talk about on Wednesday")).toBe("2026-11-11");
  expect(on("what did we talk about on December 5th")).toBe("2025-12-05");
});

test("a note without a verb has a colon", () => {
  expect(understood("Note: the lamp is broken", "en", now)?.given).toEqual({ do: "note", text: "the lamp is broken" });
  expect(understood("note the lamp is broken", "en", now)).toBeUndefined();
});

test("a sentence of any length and any characters is answered at once", () => {
  const odd = ["", " ", "\0", "🎉🎉🎉", "add ".repeat(400), "and a half ".repeat(180), "1 ".repeat(900), "(".repeat(1_900), "x".repeat(longestSentence + 1), "\ud800 set a timer"];
  for (const language of ["en", "pt"] as const) {
    for (const sentence of odd) expect(understood(sentence, language, now)).toBeUndefined();
  }
});

test("\"let's\" asks for something, and \"'s\" before an article says what is", () => {
  expect(understood("let's just set a timer for five minutes", "en", now)?.given).toEqual({ do: "timer", seconds: 300 });
  expect(understood("my alarm's at nine tomorrow, isn't it?", "en", now)?.given).toEqual({ kind: "alarm" });
  expect(understood("Cancel the timer, dinner's already on the table.", "en", now)?.given).toEqual({ do: "cancel", kind: "timer" });
});
