// What is heard of samples, and what is told of it.

import { Hearing, type Utterance } from "../../src/hearing/hearing.ts";
import type { FakeSpeechDetector } from "./fakeSpeechDetector.ts";

export function listen(speech?: FakeSpeechDetector) {
  const told: string[] = [];
  const pauses: string[] = [];
  const paused: Int16Array[] = [];
  const utterances: Utterance[] = [];
  const events = {
    began: () => told.push("began"),
    ended: (utterance: Utterance) => {
      told.push("ended");
      utterances.push(utterance);
    },
    paused: (samples: Int16Array) => {
      pauses.push("paused");
      paused.push(samples);
    },
    resumed: () => pauses.push("resumed"),
    dropped: () => told.push("dropped"),
  };
  const hearing = new Hearing(events, speech);
  const take = (samples: Int16Array): void => {
    for (let at = 0; at < samples.length; at += 341) hearing.take(samples.subarray(at, at + 341));
  };
  return { hearing, told, pauses, paused, utterances, take };
}
