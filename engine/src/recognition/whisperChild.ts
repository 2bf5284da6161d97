// The companion that recognises by Whisper: `bun whisperChild.ts ADDON MODEL`. Each frame has the language, the words that the model
// would not know how to spell, and the samples.

import { createRequire } from "node:module";
import { availableParallelism } from "node:os";
import { serve } from "../machine/companionSide.ts";

/** The part of the addon that is used. */
interface Addon {
  WhisperContext: new (options: { filePath: string; useGpu: boolean }) => {
    transcribeData(
      samples: ArrayBuffer,
      options: { language: string; prompt: string; maxThreads: number },
    ): { stop(): Promise<void>; promise: Promise<{ result: string; isAborted: boolean }> };
  };
}

/** More threads wait for one another. */
const mostThreads = 4;
/** Whisper takes no less than this, 0.1 s, for speech. */
const leastSamples = 1_600;

await serve(() => {
  const [addon = "", model = ""] = process.argv.slice(2);
  const { WhisperContext } = createRequire(import.meta.url)(addon) as Addon;
  const context = new WhisperContext({ filePath: model, useGpu: false });
  const maxThreads = Math.min(mostThreads, availableParallelism());
  return async ({ head, body }, signal) => {
    if (body.byteLength < 2 * leastSamples) return { text: "" };
    const samples = body.slice(0, body.byteLength & ~1).buffer;
    const { promise, stop } = context.transcribeData(samples, { language: String(head.language), prompt: String(head.prompt), maxThreads });
    // A transcription that was stopped may never settle.
    const stopped = new Promise<undefined>((resolve) => {
      signal.addEventListener("abort", () => void stop().then(() => resolve(undefined)));
    });
    const found = await Promise.race([promise, stopped]);
    return found === undefined || found.isAborted ? undefined : { text: found.result };
  };
});
