// Recognises by `whisper-cli`, with one of the models that the user has.

import { mkdirSync, rmSync } from "node:fs";
import { join } from "node:path";
import type { Language } from "../base/language.ts";
import { sampleRate } from "../base/protocol.ts";
import type { Children } from "../machine/children.ts";
import { writeWav } from "../sound/wav.ts";
import type { RecogniseOptions, Recogniser, Recognition } from "./recogniser.ts";
import { readWhisper } from "./whisperText.ts";

const maxOutput = 64 * 1024;

export class WhisperRecogniser implements Recogniser {
  constructor(
    private readonly children: Children,
    private readonly folder: string,
    private readonly language: Language,
    /** The model file in use; undefined when there is none. */
    private readonly model: () => string | undefined,
    /** Names that the model would not know how to spell. */
    private readonly names: () => string[],
    private readonly timeoutMs = 30_000,
  ) {}

  prepare(): void {}

  async recognise(samples: Int16Array, signal: AbortSignal, { isPartial }: RecogniseOptions = {}): Promise<Recognition> {
    const model = this.model();
    if (model === undefined || isPartial) return { kind: "none" };
    const file = join(this.folder, "utterance.wav");
    try {
      mkdirSync(this.folder, { recursive: true, mode: 0o700 });
      await Bun.write(file, writeWav(samples, sampleRate));
      const options = ["--no-timestamps", "--no-prints", "--language", this.language, "--prompt", this.names().join(", ")];
      const outcome = await this.children.run(["whisper-cli", "--model", model, ...options, "--file", file], {
        timeoutMs: this.timeoutMs,
        maxOutput,
        signal,
      });
      if (outcome.kind !== "ended") return { kind: "failed", problem: `whisper-cli: ${outcome.kind}` };
      if (outcome.code !== 0) return { kind: "failed", problem: `whisper-cli terminou com ${outcome.code}` };
      return readWhisper(new TextDecoder().decode(outcome.output), this.names());
    } catch (error) {
      return { kind: "failed", problem: String(error) };
    } finally {
      rmSync(file, { force: true });
    }
  }
}
