// The companion that recognises by Moonshine: `bun moonshineChild.ts RUNTIME VOCABULARY ENCODER DECODER`. Each frame has the names
// and the words of a call that are to be found, and the samples.

import { serve } from "../machine/companionSide.ts";
import { Hearer } from "./hearer.ts";
import { SpeechModel } from "./speechModel.ts";
import { Vocabulary } from "./vocabulary.ts";

await serve(async () => {
  const [runtime = "", vocabulary = "", encoder = "", decoder = ""] = process.argv.slice(2);
  const loaded = (await import(runtime)) as typeof import("onnxruntime-common");
  const model = await SpeechModel.load(loaded, { encoder, decoder });
  const hearer = new Hearer(model, new Vocabulary(await Bun.file(vocabulary).json()));
  return async ({ head, body }, signal) => {
    const samples = new Int16Array(body.buffer, 0, body.byteLength >> 1);
    const text = await hearer.recognise(samples, { names: texts(head.names), calls: texts(head.calls) }, signal);
    return text === undefined ? undefined : { text };
  };
});

function texts(value: unknown): string[] {
  return Array.isArray(value) ? value.filter((entry) => typeof entry === "string") : [];
}
