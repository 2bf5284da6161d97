// A voice as loud as its user wants it: the clips of another synthesiser, made softer.

import type { Settings } from "../base/protocol.ts";
import { readClip, withGain, type Clip } from "../sound/wav.ts";
import type { Synthesiser } from "./synthesiser.ts";

export class SofterSynthesiser implements Synthesiser {
  constructor(
    private readonly synthesiser: Synthesiser,
    /** From 0 to 100: the voice as it is made. */
    private readonly percent: () => number,
  ) {}

  async speak(sentence: string, settings: Settings, signal: AbortSignal): Promise<Clip | undefined> {
    const clip = await this.synthesiser.speak(sentence, settings, signal);
    const percent = this.percent();
    if (!clip || percent >= 100) return clip;
    // The scale of the sound server: half of it sounds half as loud.
    return readClip(withGain(clip.file, (percent / 100) ** 3)) ?? clip;
  }
}
