// The companion that recognises by Moonshine: `bun moonshineChild.ts RUNTIME VOCABULARY ENCODER DECODER`. Each frame has samples, and
// the names and the words of a call that are to be found in them, or a phrase for which the evidence is asked.

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
    if (typeof head.phrase === "string") return { evidence: await hearer.evidence(samples, head.phrase) };
    const wanted = { names: texts(head.names), calls: texts(head.calls), isQuick: head.isQuick === true };
    const text = await hearer.recognise(samples, wanted, signal);
    return text === undefined ? undefined : { text };
  };
});

function texts(value: unknown): string[] {
  return Array.isArray(value) ? value.filter((entry) => typeof entry === "string") : [];
}
