// Recognises by `pocketsphinx` (Debian's pocketsphinx and pocketsphinx-en-us), with a grammar of the phrases that the
// engine can act on. Each utterance is decoded twice, side by side: by the phrases and by any sounds at all. It was none
// of the phrases when the sounds explain it much better (a likelihood ratio test for keyword rejection:
// Rose and Paul, "A hidden Markov model based keyword recognition system", ICASSP 1990).

import { existsSync, mkdirSync, rmSync } from "node:fs";
import { join } from "node:path";
import type { Language } from "../base/language.ts";
import { sampleRate } from "../base/protocol.ts";
import type { Children } from "../machine/children.ts";
import { buildGrammar, type Grammar, type Vocabulary } from "./grammar.ts";
import { Pronouncer } from "./pronunciation.ts";
import type { RecogniseOptions, Recogniser, Recognition } from "./recogniser.ts";

const sphinxProgram = "pocketsphinx_batch";

const modelFolders = ["/usr/share/pocketsphinx/model/en-us", "/usr/local/share/pocketsphinx/model/en-us"];
const maxOutput = 64 * 1024;
/**
 * The sounds may fit a 10 ms frame better than the phrases do by this much; found by trial with several voices. The
 * phrases of a language that the model was not trained on fit less well.
 */
const mostAdvantage: Record<Language, number> = { en: 15.5, pt: 21 };
/** The decoder's arithmetic needs some noise where a microphone gives none. */
const ditherPeak = 60;
const pruning = ["-beam", "1e-100", "-pbeam", "1e-100", "-wbeam", "1e-80", "-lw", "2"];

export class SphinxRecogniser implements Recogniser {
  #key = "";
  #grammar: Promise<Grammar | undefined> = Promise.resolve(undefined);

  constructor(
    private readonly children: Children,
    /** The program reads the grammars from this folder. */
    private readonly folder: string,
    private readonly vocabulary: () => Vocabulary,
    private readonly timeoutMs = 8_000,
  ) {}

  /** Readies the grammar for the words that are set now. */
  prepare(): Promise<Grammar | undefined> {
    const vocabulary = this.vocabulary();
    const key = JSON.stringify(vocabulary);
    if (key !== this.#key) {
      this.#key = key;
      this.#grammar = this.#write(vocabulary).catch(() => undefined);
    }
    return this.#grammar;
  }

  async recognise(samples: Int16Array, signal: AbortSignal, { isPartial }: RecogniseOptions = {}): Promise<Recognition> {
    if (isPartial) return { kind: "none" };
    const model = modelFolders.find((folder) => existsSync(join(folder, "en-us/mdef")));
    if (model === undefined || !this.children.find(sphinxProgram)) return { kind: "none" };
    const grammar = await this.prepare();
    if (grammar === undefined) {
      this.#key = "";
      return { kind: "failed", problem: "não consegui montar a gramática" };
    }
    const audio = dithered(samples);
    const [known, anything] = await Promise.all([
      this.#decode(model, "known", audio, signal),
      this.#decode(model, "anything", audio, signal),
    ]);
    if (typeof known === "string") return { kind: "failed", problem: known };
    if (typeof anything === "string") return { kind: "failed", problem: anything };
    const text = grammar.read(known.text);
    if (text === undefined) return { kind: "text", text: "", isUnderstood: false };
    const frames = (audio.length * 100) / sampleRate;
    const advantage = (anything.score - known.score) / frames;
    return { kind: "text", text, isUnderstood: advantage <= mostAdvantage[this.vocabulary().language] };
  }

  /** Gives the decoded text with its score, or a text that says what went wrong. */
  async #decode(model: string, name: string, audio: Int16Array, signal: AbortSignal): Promise<Decoded | string> {
    const at = (file: string): string => join(this.folder, file);
    const files = ["-hmm", join(model, "en-us"), "-jsgf", at(`${name}.jsgf`), "-dict", at("words.dict")];
    // The program takes a list of files; the only one is "stdin" in the folder /dev.
    const input = ["-ctl", at("inputs"), "-cepdir", "/dev", "-cepext", "", "-adcin", "yes"];
    const result = at(`${name}.result`);
    const output = ["-hyp", result, "-logfn", "/dev/null"];
    const features = ["-cmn", "batch", "-remove_silence", "no"];
    const outcome = await this.children.run([sphinxProgram, ...files, ...input, ...output, ...features, ...pruning], {
      input: new Uint8Array(audio.buffer, audio.byteOffset, audio.byteLength),
      timeoutMs: this.timeoutMs,
      maxOutput,
      signal,
    });
    if (outcome.kind !== "ended") return `${sphinxProgram}: ${outcome.kind}`;
    const text = await Bun.file(result).slice(0, maxOutput).text().catch(() => "");
    rmSync(result, { force: true });
    const line = /^(.*)\(\S+ (-?\d+)\)\s*$/m.exec(text);
    if (outcome.code !== 0 || line === null) return `${sphinxProgram} terminou com ${outcome.code}`;
    return { text: line[1] ?? "", score: Number(line[2]) };
  }

  async #write(vocabulary: Vocabulary): Promise<Grammar | undefined> {
    const dictionary = modelFolders.map((folder) => join(folder, "cmudict-en-us.dict")).find((path) => existsSync(path));
    const grammar = await buildGrammar(vocabulary, new Pronouncer(this.children, dictionary));
    if (grammar === undefined) return undefined;
    mkdirSync(this.folder, { recursive: true, mode: 0o700 });
    await Promise.all([
      Bun.write(join(this.folder, "known.jsgf"), grammar.known),
      Bun.write(join(this.folder, "anything.jsgf"), grammar.anything),
      Bun.write(join(this.folder, "words.dict"), grammar.dictionary),
      Bun.write(join(this.folder, "inputs"), "stdin\n"),
    ]);
    return grammar;
  }
}

interface Decoded {
  text: string;
  score: number;
}

/** Adds noise. It is the same for the same samples, so that they are always understood alike. */
function dithered(samples: Int16Array): Int16Array {
  let seed = 1;
  return samples.map((sample) => {
    seed = (seed * 1_103_515_245 + 12_345) % 2_147_483_648;
    const noise = Math.round((seed / 2_147_483_648 - 0.5) * ditherPeak);
    return Math.max(-32_768, Math.min(32_767, sample + noise));
  });
}
