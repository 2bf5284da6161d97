// Recognises English by Moonshine, which runs in a companion: it is started when somebody begins to speak, and ended when
// nobody has spoken for a while, which is the only way to get its memory back.

import { join } from "node:path";
import type { Clock } from "../base/clock.ts";
import type { Log } from "../base/log.ts";
import { phrases } from "../base/phrases.ts";
import { sampleRate } from "../base/protocol.ts";
import { cut } from "../base/text.ts";
import type { Children } from "../machine/children.ts";
import { Companion, type Reply } from "../machine/companion.ts";
import type { Head } from "../machine/frames.ts";
import type { MoonshineFiles, Shipped } from "../machine/shipped.ts";
import type { RecogniseOptions, Recogniser, Recognition } from "./recogniser.ts";

const script = join(import.meta.dir, "moonshineChild.ts");
/** It loads its model within a second, but not on a slow disk, or while the machine has much else to do. */
const startMs = 60_000;
const idleMs = 600_000;
/** An utterance takes a tenth of its length; and the start counts as well. */
const timeoutMs = 60_000;
/** Nobody speaks to the agent for longer without a pause. */
const longestSamples = 60 * sampleRate;
const longestText = 4_000;

export class MoonshineRecogniser implements Recogniser {
  constructor(
    private readonly companion: Companion,
    private readonly names: () => string[],
  ) {}

  prepare(): void {
    this.companion.start();
  }

  async recognise(samples: Int16Array, signal: AbortSignal, { isPartial }: RecogniseOptions = {}): Promise<Recognition> {
    // Whoever sees words as they come is not to wait for better ones, nor misses the name, which takes time to find.
    const wanted = { names: isPartial ? [] : this.names(), calls: phrases.en.calls, isQuick: isPartial };
    const reply = await askMoonshine(this.companion, wanted, samples, signal);
    if (reply.kind === "stopped") return { kind: "none" };
    if (reply.kind === "failed") return { kind: "failed", problem: reply.problem };
    const { text } = reply.answer;
    if (typeof text !== "string") return { kind: "failed", problem: "uma resposta sem texto" };
    return { kind: "text", text: cut(inOneWord(text), longestText), isUnderstood: /[\p{L}\p{N}]/u.test(text) };
  }
}

/** The model has learned from old books, too, which part the words of days. */
export function inOneWord(text: string): string {
  return text.replace(/(?<![\p{L}-])(to)-(day|night|morrow)(?![\p{L}-])/giu, "$1$2");
}

/** Asks the companion about an utterance. */
export function askMoonshine(companion: Companion, wanted: Head, samples: Int16Array, signal: AbortSignal): Promise<Reply> {
  const heard = samples.subarray(0, longestSamples);
  return companion.ask(wanted, new Uint8Array(heard.buffer, heard.byteOffset, heard.byteLength), timeoutMs, signal);
}

/** The companion that runs a model of this size; undefined when a part of it is missing. */
export function moonshineCompanion(
  children: Children,
  clock: Clock,
  log: Log,
  { runtime, vocabulary }: Shipped,
  model: MoonshineFiles | undefined,
): Companion | undefined {
  if (!runtime || !vocabulary || !model) return undefined;
  const paths = [runtime, vocabulary, model.encoder, model.decoder];
  return new Companion(children, clock, log, { name: "o reconhecedor de fala", script, arguments: paths, startMs, idleMs });
}
