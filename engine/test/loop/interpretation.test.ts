import { describe, expect, test } from "bun:test";
import { phrases } from "../../src/base/phrases.ts";
import { interpret, type Circumstances } from "../../src/loop/interpretation.ts";

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
    ["Could you help me, Palomet, with this letter?", "Could you help me with this letter?"],
    ["Good morning. Palomet, what time is it?", "Good morning. what time is it?"],
    ["Could you tell me Palomet, what time it is?", "Could you tell me what time it is?"],
  ];
  for (const [text, request] of named) {
    test(`is found in "${text}"`, () => expect(decide(text)).toEqual({ action: "accepted", command: "ask", text: request }));
  }

  test("is not found in what only resembles it, or in the middle of a sentence that speaks of it", () => {
    for (const text of ["palo alto is nice", "Palomat, help", "the palomet project is late, today", "minha irmã chegou"]) {
      expect(decide(text)).toMatchObject({ action: "ignored" });
    }
  });

  test("of whom something is told is not called, and who is asked whether it is so is", () => {
    for (const text of ["Palomet is on the phone.", "palomet, is on the phone", "Palomet was really slow yesterday", "Palomet has gone mad"]) {
      expect(decide(text)).toMatchObject({ action: "ignored", reason: "the name was not said" });
    }
    for (const text of ["Palomet, is it going to rain?", "palomet is the shop open", "Palomet, is now a good time?", "Palomet, is my sister at home", "hey Palomet, was on time"]) {
      expect(decide(text)).toMatchObject({ action: "accepted" });
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
