// The engine's speech detector on whole recordings: its own child judges them, and what it says is told to the engine's
// hearing window by window, when the hearing would have been told.

import type { SpeechDetector, Verdict } from "../../../engine/src/hearing/speechDetector.ts";
import { writeFrame } from "../../../engine/src/machine/frames.ts";
import { shipped } from "../../../engine/src/machine/shipped.ts";

const script = new URL("../../../engine/src/hearing/listenerChild.ts", import.meta.url).pathname;
const windowLength = 512;
/** As many samples wait as in the engine while nothing is to be heard. */
const mostWaiting = 4 * windowLength;
/** A recording begins at another number than the one before ended: the child forgets. */
const apart = 1_000_000_000;

/** Gives how likely each window of a recording is speech; undefined where the detector is not installed. */
export function startListening(): ((samples: Int16Array) => Promise<number[]>) | undefined {
  const { runtime, speechDetector } = shipped;
  if (!runtime || !speechDetector) return undefined;
  const child = Bun.spawn([process.execPath, script, runtime, speechDetector], { stdin: "pipe", stdout: "pipe" });
  child.unref();
  const lines = linesOf(child.stdout);
  let count = 0;
  return async (samples) => {
    child.stdin.write(writeFrame({ at: apart * ++count }, new Uint8Array(samples.buffer, samples.byteOffset, samples.byteLength)));
    await child.stdin.flush();
    for (;;) {
      const { value, done } = await lines.next();
      if (done) throw new Error("the speech detector has ended");
      const { p } = JSON.parse(value) as { p?: number[] };
      if (p) return p;
    }
  };
}

async function* linesOf(stream: ReadableStream<Uint8Array>): AsyncGenerator<string, void> {
  const decoder = new TextDecoder();
  let held = "";
  for await (const piece of stream) {
    const parts = (held + decoder.decode(piece, { stream: true })).split("\n");
    held = parts.pop() ?? "";
    yield* parts;
  }
}

/** Tells what was found before as the listener would, had it no need of time. */
export class Found implements SpeechDetector {
  readonly isAnswering = true;
  #taker: (verdict: Verdict) => void = () => {};
  #waiting = 0;
  #told = 0;

  constructor(private readonly probabilities: number[]) {}

  tell(taker: (verdict: Verdict) => void): void {
    this.#taker = taker;
  }

  take(samples: Int16Array, at: number, isUrgent: boolean): void {
    const end = at + samples.length;
    this.#waiting += samples.length;
    const isComplete = end >= (this.#told + 1) * windowLength;
    if (this.#waiting < mostWaiting && !(isUrgent && isComplete)) return;
    this.#waiting = 0;
    for (; (this.#told + 1) * windowLength <= end; this.#told++) {
      const from = this.#told * windowLength;
      this.#taker({ from, to: from + windowLength, probability: this.probabilities[this.#told] ?? 0 });
    }
  }
}
