import { expect, test } from "bun:test";
import { SofterSynthesiser } from "../../src/voice/volume.ts";
import { FakeSynthesiser } from "../support/fakes.ts";
import { request } from "../support/claudeTool.ts";
import { going } from "../support/processes.ts";

const { settings } = request("");

test("a voice is as loud as it is made, or softer", async () => {
  const synthesiser = new FakeSynthesiser();
  const whole = synthesiser.clip!;
  const loudest = (file: Uint8Array): number => Math.max(...new Int16Array(new Uint8Array(file.slice(44)).buffer).map(Math.abs));
  let percent = 100;
  const softer = new SofterSynthesiser(synthesiser, () => percent);
  expect(await softer.speak("x", settings, going)).toBe(whole);
  percent = 50;
  const half = await softer.speak("x", settings, going);
  expect(half?.durationMs).toBe(whole.durationMs);
  expect(loudest(half!.file)).toBe(Math.round(loudest(whole.file) / 8));
  percent = 0;
  expect(loudest((await softer.speak("x", settings, going))!.file)).toBe(0);
  synthesiser.clip = undefined;
  expect(await softer.speak("x", settings, going)).toBeUndefined();
});
