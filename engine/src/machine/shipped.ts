// Finds what the engine's package brings: models to hear with, the recogniser's vocabulary, the runtime that runs them, and the
// mathematics to calculate with.

import { existsSync } from "node:fs";
import { join } from "node:path";

/** The files of a model of Moonshine. */
export interface MoonshineFiles {
  encoder: string;
  decoder: string;
}

/** Paths of files; what is not there, or is not made for this processor, is undefined. */
export interface Shipped {
  /** The entry of `onnxruntime-node`. Only a child may load it: a library that crashes takes its process along. */
  runtime: string | undefined;
  base: MoonshineFiles | undefined;
  tiny: MoonshineFiles | undefined;
  /** The texts of Moonshine's tokens, a JSON array of strings by number: "▁" is a blank, "<0x41>" a byte. */
  vocabulary: string | undefined;
  /** The speech detector's model, Silero. */
  speechDetector: string | undefined;
  /** The addon that runs the user's models of Whisper. Only a child may load it. */
  whisper: string | undefined;
  /** The library of mathematics, in one file. */
  mathematics: string | undefined;
}

/** Beside the engine where it is installed, in `resources/` where it runs from its sources. */
const folders = ["ears", "resources/ears"].map((folder) => join(import.meta.dir, "../../..", folder));

export function findShipped(earsFolders: readonly string[] = folders): Shipped {
  const folder = earsFolders.find((path) => existsSync(path));
  const file = (...path: string[]): string | undefined => {
    const found = folder && join(folder, ...path);
    return found && existsSync(found) ? found : undefined;
  };
  const moonshine = (size: string): MoonshineFiles | undefined => {
    const encoder = file("models", `moonshine-${size}`, "encoder_model.onnx");
    const decoder = file("models", `moonshine-${size}`, "decoder_model_merged.onnx");
    return encoder && decoder ? { encoder, decoder } : undefined;
  };
  const binding = file("node_modules/onnxruntime-node/bin/napi-v6", process.platform, process.arch, "onnxruntime_binding.node");
  return {
    runtime: binding && file("node_modules/onnxruntime-node/dist/index.js"),
    base: moonshine("base"),
    tiny: moonshine("tiny"),
    vocabulary: file("models/vocabulary.json"),
    speechDetector: file("models/silero-vad.onnx"),
    whisper: file(`node_modules/@fugood/node-whisper-${process.platform}-${process.arch}/index.node`),
    mathematics: file("node_modules/mathjs/mathematics.js"),
  };
}

export const shipped: Readonly<Shipped> = findShipped();
