// Makes speech by `espeak-ng`: a WAV clip of each sentence.

import type { Log } from "../base/log.ts";
import type { Settings } from "../base/protocol.ts";
import type { Children } from "../machine/children.ts";
import { readClip, type Clip } from "../sound/wav.ts";

export interface Synthesiser {
  /** Gives undefined when no speech can be made, or when `signal` was raised. */
  speak(sentence: string, settings: Settings, signal: AbortSignal): Promise<Clip | undefined>;
}

const timeoutMs = 10_000;
const maxClip = 32 << 20;
const wordsAMinute = 165;

export class EspeakSynthesiser implements Synthesiser {
  #hasComplained = false;

  constructor(
    private readonly children: Children,
    private readonly log: Log,
  ) {}

  async speak(sentence: string, settings: Settings, signal: AbortSignal): Promise<Clip | undefined> {
    const speed = String(Math.round(wordsAMinute * settings.voiceSpeed));
    let problem = "";
    for (const voice of [settings.voiceId, settings.fallbackVoice, "en"]) {
      if (!/^[\p{L}\p{N}][\p{L}\p{N}_+-]*$/u.test(voice)) continue;
      const outcome = await this.children.run(["espeak-ng", "-b", "1", "-v", voice, "-s", speed, "--stdin", "--stdout"], {
        input: sentence,
        timeoutMs,
        maxOutput: maxClip,
        signal,
      });
      if (outcome.kind === "stopped") return undefined;
      const clip = outcome.kind === "ended" && outcome.code === 0 ? readClip(outcome.output) : undefined;
      if (clip) {
        this.#hasComplained = false;
        return clip;
      }
      problem = outcome.kind === "missing" ? "não está instalado" : `falhou (${outcome.kind}, voz ${voice})`;
      if (outcome.kind === "missing") break;
    }
    if (!this.#hasComplained) this.log(`o espeak-ng ${problem}; respondo por escrito`);
    this.#hasComplained = true;
    return undefined;
  }
}
