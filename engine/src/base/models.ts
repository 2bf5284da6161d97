// The names of the models that the engine itself has, as the settings and the options show them, and where fetched ones lie.

import { homedir } from "node:os";
import { join } from "node:path";

/** The answers that need no language model. */
export const builtInModel = "built-in";
/** The recognisers that the engine's package brings. They know English and nothing else. */
export const moonshineBase = "moonshine-base";
export const moonshineTiny = "moonshine-tiny";
/** The recogniser that listens by a grammar. */
export const grammarModel = "pocketsphinx";

/** The folder of the recogniser models that `palomet-engine model add` has fetched. */
export function fetchedModels(environment: Record<string, string | undefined>): string {
  const data = environment.XDG_DATA_HOME || join(environment.HOME ?? homedir(), ".local/share");
  return join(data, "palomet/models");
}
