// Makes speech by the programs that are installed: a WAV clip of each sentence.

import { existsSync, mkdirSync, readFileSync, rmSync } from "node:fs";
import { join } from "node:path";
import type { Log } from "../base/log.ts";
import type { Settings } from "../base/protocol.ts";
import { voiceOf, type Voice } from "../base/voices.ts";
import type { Children, Outcome } from "../machine/children.ts";
import { readClip, type Clip } from "../sound/wav.ts";

export interface Synthesiser {
  /** Gives undefined when no speech can be made, or when `signal` was raised. */
  speak(sentence: string, settings: Settings, signal: AbortSignal): Promise<Clip | undefined>;
}

const timeoutMs = 10_000;
const maxClip = 32 << 20;
/** eSpeak's own speed, 175, is understood worse. */
const wordsAMinute = 145;

export class ProgramSynthesiser implements Synthesiser {
  #hasComplained = false;
  #clips = 0;

  constructor(
    private readonly children: Children,
    /** The installed voices, the best first. */
    private readonly voices: () => readonly Voice[],
    /** A clip lies here for a moment. */
    private readonly folder: string,
    private readonly log: Log,
  ) {}

  async speak(sentence: string, settings: Settings, signal: AbortSignal): Promise<Clip | undefined> {
    let problem = "não há voz instalada";
    for (const voice of this.#candidates(settings)) {
      const outcome = await this.#run(voice, sentence, settings.voiceSpeed, signal);
      if (outcome.kind === "stopped") return undefined;
      const clip = outcome.kind === "ended" && outcome.code === 0 ? readClip(outcome.output) : undefined;
      if (clip) {
        this.#hasComplained = false;
        return clip;
      }
      if (outcome.kind !== "missing") problem = `a voz ${voice.title} (${voice.program}) falhou (${outcome.kind})`;
    }
    if (!this.#hasComplained) this.log(`${problem}; respondo por escrito`);
    this.#hasComplained = true;
    return undefined;
  }

  /** The voices to try: those of the settings that are installed, then the best, then the plainest. */
  #candidates(settings: Settings): Voice[] {
    const installed = this.voices();
    const isThere = (voice: Voice): boolean =>
      installed.some(({ program, name }) => program === voice.program && (name === voice.name || program === "eSpeak NG"));
    const wanted = [settings.voiceId, settings.fallbackVoice].flatMap((setting) => voiceOf(setting) ?? []);
    const plainest = installed.find(({ program }) => program === "eSpeak NG");
    const all = [...wanted.filter(isThere), ...installed.slice(0, 1), ...(plainest ? [plainest] : [])];
    return all.filter((voice, at) => all.findIndex(({ title }) => title === voice.title) === at);
  }

  async #run(voice: Voice, sentence: string, speed: number, signal: AbortSignal): Promise<Outcome> {
    const options = { input: `${sentence}\n`, timeoutMs, maxOutput: maxClip, signal };
    if (voice.program === "eSpeak NG") {
      const words = String(Math.round(wordsAMinute * speed));
      return await this.children.run(["espeak-ng", "-b", "1", "-v", voice.name, "-s", words, "--stdin", "--stdout"], options);
    }
    // The others want to open their output by its path, which a pipe or a socket does not always allow.
    const file = join(this.folder, `${process.pid}-${this.#clips++}.wav`);
    try {
      mkdirSync(this.folder, { recursive: true, mode: 0o700 });
      const outcome = await this.children.run(commandOf(voice, speed, file), options);
      return outcome.kind === "ended" ? { ...outcome, output: readFileSync(file) } : outcome;
    } catch {
      // The disk is full, perhaps: eSpeak needs none.
      return failed;
    } finally {
      if (existsSync(file)) rmSync(file);
    }
  }
}

const failed: Outcome = { kind: "ended", code: 1, output: new Uint8Array(), errors: "" };

function commandOf({ program, name }: Voice, speed: number, file: string): [string, ...string[]] {
  if (program === "RHVoice") return ["RHVoice-test", "-p", name, "-r", String(Math.round(100 * speed)), "-o", file];
  return ["flite", "-voice", name, "--setf", `duration_stretch=${(1 / speed).toFixed(3)}`, "-f", "/dev/stdin", "-o", file];
}
