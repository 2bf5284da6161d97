import { afterAll, describe, expect, test } from "bun:test";
import { systemClock } from "../../src/base/clock.ts";
import { Children } from "../../src/machine/children.ts";
import { shipped } from "../../src/machine/shipped.ts";
import { ConfirmedRecogniser } from "../../src/recognition/confirmed.ts";
import { moonshineCompanion } from "../../src/recognition/moonshine.ts";
import { FakeRecogniser } from "../support/fakes.ts";
import { going } from "../support/processes.ts";
import { hasVoice, said } from "../support/speech.ts";
import { tone } from "../support/sounds.ts";

const children = new Children({ PATH: "/usr/bin:/bin" });
afterAll(() => children.endAll());
const companion = moonshineCompanion(children, systemClock, () => {}, shipped, shipped.base);

describe.skipIf(!companion || !hasVoice)("a phrase", () => {
  const phrases = new FakeRecogniser();
  const confirmed = new ConfirmedRecogniser(phrases, companion!);

  test("that was said is understood, with the name or without", async () => {
    for (const phrase of ["Que horas são", "Nova conversa", "Palomet, que dia é hoje"]) {
      phrases.will(phrase);
      expect(await confirmed.recognise(await said(phrase, "pt-br"), going)).toEqual({ kind: "text", text: phrase, isUnderstood: true });
    }
  }, 60_000);

  test("that was taken for other words, or for no words at all, is not understood", async () => {
    const others: [heard: string, samples: Int16Array][] = [
      ["Ei, palomet, não", await said("uma berinjela", "pt-br")],
      ["Obrigada", await said("meu irmão comprou uma bicicleta", "pt-br")],
      ["Pare", tone(800, -20)],
      ["Para", new Int16Array(0)],
    ];
    for (const [heard, samples] of others) {
      phrases.will(heard);
      expect(await confirmed.recognise(samples, going)).toEqual({ kind: "text", text: heard, isUnderstood: false });
    }
  }, 60_000);

  test("stands as it is where Moonshine fails", async () => {
    const broken = moonshineCompanion(children, systemClock, () => {}, { ...shipped, vocabulary: import.meta.path }, shipped.tiny);
    phrases.will("Pare");
    expect(await new ConfirmedRecogniser(phrases, broken!).recognise(tone(800, -20), going)).toMatchObject({ isUnderstood: true });
  }, 60_000);
});
