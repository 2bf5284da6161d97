// Recognises by Whisper with one of the models that the user has, in a companion that keeps the model loaded.

import { join } from "node:path";
import type { Clock } from "../base/clock.ts";
import type { Language } from "../base/language.ts";
import type { Log } from "../base/log.ts";
import { sampleRate } from "../base/protocol.ts";
import type { Children } from "../machine/children.ts";
import { Companion } from "../machine/companion.ts";
import type { RecogniseOptions, Recogniser, Recognition } from "./recogniser.ts";
import { readWhisper } from "./whisperText.ts";

const script = join(import.meta.dir, "whisperChild.ts");
/** Models are files of up to three gigabytes. */
const startMs = 120_000;
const idleMs = 600_000;
const timeoutMs = 120_000;
const longestSamples = 60 * sampleRate;

export class WhisperAddonRecogniser implements Recogniser {
  #current: { model: string; companion: Companion } | undefined;

  constructor(
    private readonly children: Children,
    private readonly clock: Clock,
    private readonly log: Log,
    private readonly addon: string,
    private readonly language: Language,
    /** The model file in use; undefined when there is none. */
    private readonly model: () => string | undefined,
    private readonly names: () => string[],
  ) {}

  prepare(): void {
    this.#companion()?.start();
  }

  async recognise(samples: Int16Array, signal: AbortSignal, { isPartial }: RecogniseOptions = {}): Promise<Recognition> {
    const companion = isPartial ? undefined : this.#companion();
    if (companion === undefined) return { kind: "none" };
    const heard = samples.subarray(0, longestSamples);
    const body = new Uint8Array(heard.buffer, heard.byteOffset, heard.byteLength);
    const names = this.names();
    const reply = await companion.ask({ language: this.language, prompt: names.join(", ") }, body, timeoutMs, signal);
    if (reply.kind === "stopped") return { kind: "none" };
    if (reply.kind === "failed") return { kind: "failed", problem: reply.problem };
    const { text } = reply.answer;
    return typeof text === "string" ? readWhisper(text, names) : { kind: "failed", problem: "uma resposta sem texto" };
  }

  /** The companion of the model that is in use; that of another one is ended. */
  #companion(): Companion | undefined {
    const model = this.model();
    if (model !== this.#current?.model) {
      this.#current?.companion.stop();
      this.#current = model === undefined ? undefined : { model, companion: this.#begin(model) };
    }
    return this.#current?.companion;
  }

  #begin(model: string): Companion {
    const options = { name: "o reconhecedor Whisper", script, arguments: [this.addon, model], startMs, idleMs };
    return new Companion(this.children, this.clock, this.log, options);
  }
}
