// Tells the recogniser's grammar how words sound. English words are looked up in the recogniser's own dictionary; for all
// others `espeak-ng` gives phonetic letters, which are written with the phones of the acoustic model. A language that the
// model was not trained on is understood by its nearest English sounds, which is enough to tell a few phrases apart.

import { plainWords } from "../base/words.ts";
import type { Children } from "../machine/children.ts";
import { phonesOf } from "./phones.ts";

const timeoutMs = 5_000;
const maxOutput = 1 << 20;

export class Pronouncer {
  constructor(
    private readonly children: Children,
    /** The path of the recogniser's dictionary. Each of its lines is a word, a blank and the phones. */
    private readonly dictionary: string | undefined,
  ) {}

  /** Gives the ways in which this voice may say each word of these phrases. Unknown words are left out. */
  async pronounce(phrases: string[], voice: string): Promise<Map<string, Set<string>>> {
    const said = new Map<string, Set<string>>();
    const learn = (word: string, sound: string | undefined): void => {
      if (sound !== undefined) said.set(word, (said.get(word) ?? new Set()).add(sound));
    };
    if (voice.startsWith("en")) {
      const listed = await this.#lookUp(new Set(phrases.flatMap(grammarWords)));
      for (const [word, sounds] of listed) said.set(word, sounds);
    }
    const unlisted = phrases.filter((phrase) => grammarWords(phrase).some((word) => !said.has(word)));
    const spelled = await this.#ask(unlisted, voice);
    const alone: string[] = [];
    unlisted.forEach((phrase, index) => {
      const words = grammarWords(phrase);
      const sounds = (spelled[index] ?? "").trim().split(/\s+/);
      // The synthesiser now and then runs two words into one.
      if (sounds.length !== words.length) alone.push(...words.filter((word) => !said.has(word)));
      else words.forEach((word, at) => learn(word, phonesOf(sounds[at] ?? "")));
    });
    const missing = [...new Set(alone)].filter((word) => !said.has(word));
    const sounds = await this.#ask(missing, voice);
    missing.forEach((word, index) => learn(word, phonesOf(sounds[index] ?? "")));
    return said;
  }

  async #lookUp(words: Set<string>): Promise<Map<string, Set<string>>> {
    const found = new Map<string, Set<string>>();
    if (this.dictionary === undefined) return found;
    const text = await Bun.file(this.dictionary).text().catch(() => "");
    for (const line of text.split("\n")) {
      const blank = line.search(/\s/);
      const word = line.slice(0, blank).replace(/\(\d+\)$/, "");
      if (blank > 0 && words.has(word)) {
        found.set(word, (found.get(word) ?? new Set()).add(line.slice(blank + 1).trim()));
      }
    }
    return found;
  }

  /** Gives the phonetic letters of each phrase, or nothing at all when the synthesiser does not answer line by line. */
  async #ask(texts: string[], voice: string): Promise<string[]> {
    if (texts.length === 0) return [];
    const outcome = await this.children.run(["espeak-ng", "-b", "1", "-q", "--ipa", "--sep=_", "-v", voice, "--stdin"], {
      // Each phrase is a sentence of its own, so that it does not sound as it would before the next.
      input: texts.map((text) => `${text}.\n\n`).join(""),
      timeoutMs,
      maxOutput,
    });
    if (outcome.kind !== "ended" || outcome.code !== 0) return [];
    const lines = new TextDecoder().decode(outcome.output).split("\n").filter((line) => line.trim() !== "");
    return lines.length === texts.length ? lines : [];
  }
}

/** The words of a phrase as the grammar has them. */
export function grammarWords(phrase: string): string[] {
  return plainWords(phrase.replace(/['’]/g, ""));
}
