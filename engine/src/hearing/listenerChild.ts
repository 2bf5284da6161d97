// The listener: runs the speech detector's model (Silero VAD, 16 kHz) as a companion of the engine. It is started with the
// paths of the runtime and of the model. A frame's head tells the number `at` of its first sample. The answer is one line:
// `to`, up to where it has taken samples, and the probabilities `p` of the windows that are complete, the first of which
// begins at `from`.

import type { InferenceSession, Tensor } from "onnxruntime-common";
import { say, serve } from "../machine/companionSide.ts";

/** The model takes this many samples at once, and looks back on the last few before them. */
const windowLength = 512;
const lookBack = 64;
const stateShape = [2, 1, 128];
/**
 * The model's memory holds on to what it heard: after a loud animal or machine it takes short words for no speech, however
 * long that is ago. So it forgets after so many windows in a row, two seconds, that were hardly speech.
 */
const windowsToForget = 64;
const hardlySpeech = 0.1;

const [runtimePath = "", modelPath = ""] = process.argv.slice(2);

await serve(async () => {
  const runtime: typeof import("onnxruntime-common") = await import(runtimePath);
  const session: InferenceSession = await runtime.InferenceSession.create(modelPath, {
    intraOpNumThreads: 1,
    interOpNumThreads: 1,
    logSeverityLevel: 3,
  });
  const rate = new runtime.Tensor("int64", BigInt64Array.of(16_000n), []);
  const input = new Float32Array(lookBack + windowLength);
  let state: Tensor;
  let filled = 0;
  let next = -1;
  let unlikely = 0;

  const forget = (): void => {
    unlikely = 0;
    state = new runtime.Tensor("float32", new Float32Array(2 * 128), stateShape);
  };
  const begin = (): void => {
    input.fill(0);
    filled = 0;
    forget();
  };
  const judge = async (): Promise<number> => {
    const found = await session.run({ input: new runtime.Tensor("float32", input, [1, input.length]), state, sr: rate });
    input.copyWithin(0, windowLength);
    filled = 0;
    state = found.stateN!;
    const probability = Number(found.output!.data[0]);
    unlikely = probability < hardlySpeech ? unlikely + 1 : 0;
    if (unlikely === windowsToForget) forget();
    return probability;
  };

  return async ({ head, body }) => {
    const at = Number(head.at);
    const samples = new Int16Array(body.buffer, body.byteOffset, body.byteLength >> 1);
    // Samples are missing where an earlier listener has died.
    if (at !== next) begin();
    const from = at - filled;
    next = at + samples.length;
    const p: number[] = [];
    for (const sample of samples) {
      input[lookBack + filled++] = sample / 32_768;
      if (filled === windowLength) p.push(Number((await judge()).toFixed(3)));
    }
    say({ from, to: next, p });
    return undefined;
  };
});
