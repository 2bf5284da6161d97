// Takes a phrase for said only when Moonshine finds it in the sound as well. A recogniser of few phrases finds one of them in
// whatever is said; Moonshine knows English alone, and still tells the sound of a phrase in another language from other sounds.

import type { Companion } from "../machine/companion.ts";
import { askMoonshine } from "./moonshine.ts";
import type { RecogniseOptions, Recogniser, Recognition } from "./recogniser.ts";

/**
 * The logarithm by which the sound must make a phrase likelier. 36 of 38 synthetic phrases had more, with a median of 21; other
 * words and letters that people said had 7.0 at most.
 */
const leastEvidence = 8;

export class ConfirmedRecogniser implements Recogniser {
  constructor(
    private readonly phrases: Recogniser,
    private readonly companion: Companion,
  ) {}

  prepare(): void {
    this.phrases.prepare();
    this.companion.start();
  }

  async recognise(samples: Int16Array, signal: AbortSignal, options: RecogniseOptions = {}): Promise<Recognition> {
    const found = await this.phrases.recognise(samples, signal, options);
    if (found.kind !== "text" || !found.isUnderstood) return found;
    const reply = await askMoonshine(this.companion, { phrase: found.text }, samples, signal);
    // Without Moonshine the phrases' own recogniser is all that there is.
    if (reply.kind !== "answer" || typeof reply.answer.evidence !== "number") return found;
    return reply.answer.evidence >= leastEvidence ? found : { ...found, isUnderstood: false };
  }
}
