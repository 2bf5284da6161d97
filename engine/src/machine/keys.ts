// The keys of servers. A key is read when it is used, and stands in no log, no document and no child's environment.

import { readFileSync } from "node:fs";
import { homedir } from "node:os";
import { join } from "node:path";

/** Where the user keeps a key. */
export type KeyPlace = { file: string } | { variable: string };

const longestKey = 4_096;

export class Keys {
  readonly #variables = new Map<string, string>();

  constructor(
    /** The environment that children get. */
    private readonly environment: Record<string, string | undefined>,
  ) {}

  /** Gives what reads the key of this place. A variable is taken out of the environment, so that no child has it. */
  at(place: KeyPlace): () => string | undefined {
    if ("file" in place) return () => this.#read(place.file);
    const { variable } = place;
    const value = this.environment[variable];
    if (value !== undefined) this.#variables.set(variable, value);
    for (const environment of [this.environment, process.env]) delete environment[variable];
    return () => usable(this.#variables.get(variable));
  }

  #read(file: string): string | undefined {
    const home = this.environment.HOME ?? homedir();
    try {
      return usable(readFileSync(file.startsWith("~/") ? join(home, file.slice(2)) : file, "utf8"));
    } catch {
      return undefined;
    }
  }
}

/** A key that no header can hold must not come into the message of an error. */
function usable(text: string | undefined): string | undefined {
  const key = text?.trim() ?? "";
  return key.length <= longestKey && /^[\x21-\x7e]+$/.test(key) ? key : undefined;
}
