import { describe, expect, test } from "bun:test";
import { chooseLocale } from "../src/base/language.ts";
import { phrases } from "../src/base/phrases.ts";
import { interpret, type Circumstances } from "../src/loop/interpretation.ts";
import { readClip, writeWav } from "../src/sound/wav.ts";
import { builtInAnswer, knownAnswer } from "../src/thought/builtInAnswers.ts";
import { sentencesOf } from "../src/voice/sentences.ts";

const around: Circumstances = {
  wakeWords: ["palomet", "minha amiga"],
  actionPhrases: ["go ahead", "do it now"],
  isDirected: true,
  isDraftOn: false,
  isDraftOpen: false,
  isWindowOpen: false,
  overlapsSpeech: false,
  isSurelySomebody: true,
  hasInterrupted: false,
  isThinking: false,
  spoken: "",
  phrases: phrases.en,
};

function decide(text: string, changes: Partial<Circumstances> = {}) {
  return interpret({ text, isUnderstood: true, hasRecogniser: true }, { ...around, ...changes });
}

describe("the name", () => {
  const named: [string, string][] = [
    ["Palomet, what time is it?", "What time is it?"],
    ["hey palomet what time is it", "What time is it"],
    ["What time is it, Palomet?", "What time is it?"],
    ["Minha amiga, que horas são?", "Que horas são?"],
    ["Palomét, help", "Help"],
    ["Palomat, help", "Help"],
  ];
  for (const [text, request] of named) {
    test(`is found in "${text}"`, () => expect(decide(text)).toEqual({ action: "accepted", command: "ask", text: request }));
  }

  test("is not found in what only resembles it, or in the middle", () => {
    for (const text of ["palo alto is nice", "the palomet project is late today", "minha irmã chegou"]) {
      expect(decide(text)).toMatchObject({ action: "ignored" });
    }
  });

  test("that is not set cannot be said", () => {
    expect(decide("palomet, help", { wakeWords: [] })).toMatchObject({ action: "ignored" });
  });
});

describe("while an answer is thought out", () => {
  test("only the name with a request, or a word to stop, counts", () => {
    const isThinking = true;
    expect(decide("thanks", { isThinking, isDirected: false })).toMatchObject({ action: "ignored" });
    expect(decide("palomet, thanks", { isThinking })).toMatchObject({ action: "accepted" });
    expect(decide("palomet, cancel", { isThinking })).toEqual({ action: "interrupted", command: "stop" });
    expect(decide("cancel", { isThinking })).toMatchObject({ action: "ignored" });
  });
});

describe("over the agent's voice", () => {
  const over = { overlapsSpeech: true, hasInterrupted: true };

  test("what may have been that voice is carried out only with the name", () => {
    const isSurelySomebody = false;
    for (const text of ["yes", "mute", "what time is it", "go ahead"]) {
      for (const isDraftOn of [false, true]) {
        const decision = decide(text, { ...over, isSurelySomebody, isDraftOn, isDirected: false });
        expect(decision).toEqual({ action: "interrupted", reason: "too short over the agent's voice" });
      }
    }
    expect(decide("Palomet, mute", { ...over, isSurelySomebody })).toEqual({ action: "accepted", command: "mute" });
    expect(decide("yes", { overlapsSpeech: true, isSurelySomebody, isWindowOpen: true }).action).toBe("ignored");
  });

  test("a word to stop stops, however short", () => {
    expect(decide("stop", { ...over, isSurelySomebody: false })).toEqual({ action: "interrupted", command: "stop" });
  });

  test("what goes on is asked, and mutes only with the name", () => {
    expect(decide("what time is it", over)).toMatchObject({ action: "accepted", command: "ask" });
    expect(decide("mute", over)).toEqual({ action: "interrupted", reason: "the name was not said" });
  });
});

test("a word to stop in the listening window ends it", () => {
  expect(decide("never mind", { isWindowOpen: true })).toEqual({ action: "accepted", command: "stop" });
});

test("nothing but punctuation is not understood", () => {
  expect(decide(" … ?! ", { isWindowOpen: true })).toMatchObject({ action: "ignored", reason: "not understood" });
});

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
    expect(knownAnswer("O que você sabe fazer?", portuguese)).toContain("horas");
    expect(knownAnswer("Who are you?", english)).toContain("Ana");
  });

  test("read back the rest, sentence by sentence", () => {
    expect(builtInAnswer("Buy milk. What time is it?", english)).toBe("You said: Buy milk. It is 3:05 PM.");
    expect(builtInAnswer("comprar leite", portuguese)).toBe("Você disse: comprar leite.");
  });

  test("repeat", () => {
    expect(knownAnswer("say that again", { ...english, lastAnswer: "Yes." })).toBe("Yes.");
    expect(knownAnswer("repeat", english)).toBe("I have not said anything yet.");
  });
});

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

describe("sentences", () => {
  test("end at their marks and lines, not at numbers and abbreviations in lower case", () => {
    expect(sentencesOf("It is 3.5 km. Go on! Really? e.g. this\nNew line")).toEqual([
      "It is 3.5 km.",
      "Go on!",
      "Really? e.g. this",
      "New line",
    ]);
  });

  test("are read without markup", () => {
    expect(sentencesOf("# Title\n- **bold** `code`\n```\nlet x\n```\n[link](http://x)")).toEqual(["Title", "bold code", "link"]);
  });

  test("are none in what holds no letter", () => expect(sentencesOf(" …\n---\n**\n")).toEqual([]));

  test("that are endless are cut", () => {
    const parts = sentencesOf("word ".repeat(500));
    expect(Math.max(...parts.map(({ length }) => length))).toBeLessThanOrEqual(300);
    expect(parts.join(" ").length).toBe(2_499);
    expect(sentencesOf("x".repeat(1_000)).every(({ length }) => length <= 300)).toBe(true);
  });
});

describe("a clip", () => {
  test("from a pipe is given its true lengths", () => {
    const file = writeWav(new Int16Array(22_050), 22_050);
    const piped = Buffer.from(file);
    piped.writeUInt32LE(0x7fff_f000, 4);
    piped.writeUInt32LE(0x7fff_f000, 40);
    const clip = readClip(piped);
    expect(clip?.durationMs).toBe(1_000);
    expect(clip?.file).toEqual(file);
    expect(clip?.envelope).toHaveLength(20);
  });

  test("that is none is refused", () => {
    const file = writeWav(new Int16Array(100), 22_050);
    const stereo = Buffer.from(file);
    stereo.writeUInt16LE(2, 22);
    for (const bytes of [new Uint8Array(0), file.slice(0, 40), file.slice(0, 44), new Uint8Array(200), stereo]) {
      expect(readClip(bytes)).toBeUndefined();
    }
  });
});
