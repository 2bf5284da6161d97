import { expect, test } from "bun:test";
import { mkdirSync, writeFileSync } from "node:fs";
import { dirname, join } from "node:path";
import { findShipped } from "../../src/machine/shipped.ts";
import { temporaryFolder } from "../support/folders.ts";

const encoder = "models/moonshine-base/encoder_model.onnx";
const decoder = "models/moonshine-base/decoder_model_merged.onnx";
const runtime = "node_modules/onnxruntime-node/dist/index.js";

function folderWith(...paths: string[]): string {
  const folder = temporaryFolder();
  for (const path of paths) {
    mkdirSync(dirname(join(folder, path)), { recursive: true });
    writeFileSync(join(folder, path), "");
  }
  return folder;
}

test("where nothing was brought, nothing is found", () => {
  const nothing = { runtime: undefined, base: undefined, tiny: undefined, vocabulary: undefined, speechDetector: undefined, whisper: undefined, mathematics: undefined };
  expect(findShipped([join(temporaryFolder(), "ears")])).toEqual(nothing);
  expect(findShipped([temporaryFolder()])).toEqual(nothing);
});

test("a model is found when all of its files are there", () => {
  const folder = folderWith(encoder, decoder, "models/moonshine-tiny/encoder_model.onnx");
  const { base, tiny } = findShipped([folder]);
  expect(base).toEqual({ encoder: join(folder, encoder), decoder: join(folder, decoder) });
  expect(tiny).toBeUndefined();
});

test("the runtime is found when it is there for this processor", () => {
  const library = (processor: string): string => `node_modules/onnxruntime-node/bin/napi-v6/linux/${processor}/onnxruntime_binding.node`;
  expect(findShipped([folderWith(runtime, library("vax"))]).runtime).toBeUndefined();
  const folder = folderWith(runtime, library(process.arch));
  expect(findShipped([folder]).runtime).toBe(join(folder, runtime));
});

test("the folder beside an installed engine comes before the one of the sources", () => {
  const [installed, sources] = [folderWith("models/vocabulary.json"), folderWith("models/vocabulary.json")];
  expect(findShipped([installed, sources]).vocabulary).toBe(join(installed, "models/vocabulary.json"));
  expect(findShipped([join(installed, "gone"), sources]).vocabulary).toBe(join(sources, "models/vocabulary.json"));
});
