// The engine's own file, which its user may write: `engine.json` in `$XDG_CONFIG_HOME/palomet`.

import { readFileSync } from "node:fs";
import { homedir } from "node:os";
import { join } from "node:path";
import { isRecord, parseJson } from "../base/json.ts";
import type { Log } from "../base/log.ts";
import { readServers, type NamedServer } from "./namedServers.ts";

export interface Preferences {
  /** Words are shown while they are spoken. Undefined: when the machine has time for it. */
  captions?: boolean;
  /** Servers of language models, besides those that are found on this machine. */
  servers?: NamedServer[];
}

/** A file that cannot be read, or holds what is not understood, changes nothing, and the log says so. */
export function readPreferences(environment: Record<string, string | undefined>, log: Log): Preferences {
  const folder = environment.XDG_CONFIG_HOME || join(environment.HOME ?? homedir(), ".config");
  const path = join(folder, "palomet/engine.json");
  let text: string;
  try {
    text = readFileSync(path, "utf8");
  } catch (error) {
    if (!isRecord(error) || error.code !== "ENOENT") log(`não consigo ler ${path}`);
    return {};
  }
  const value = parseJson(text);
  if (!isRecord(value)) {
    log(`${path} não é um objeto JSON`);
    return {};
  }
  const preferences: Preferences = {};
  if (typeof value.captions === "boolean") preferences.captions = value.captions;
  else if (value.captions !== undefined) log(`${path}: "captions" é true ou false`);
  if (value.servers !== undefined) {
    const { servers, problems } = readServers(value.servers);
    for (const problem of problems) log(`${path}: ${problem}`);
    preferences.servers = servers;
  }
  return preferences;
}
