// The names of models, as the settings and the options show them, and where fetched ones lie.

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

const betweenModelAndServer = " · ";
const longestModelName = 200;

/** The name of a server's model, as the settings and the options show it: "qwen3:8b · Ollama". */
export function servedModel(model: string, server: string): string {
  return `${model}${betweenModelAndServer}${server}`;
}

/** The model and the server that such a name is made of; undefined for the name of another model, and for none. */
export function partsOfServedModel(name: string): { model: string; server: string } | undefined {
  const end = name.lastIndexOf(betweenModelAndServer);
  const [model, server] = [name.slice(0, end), name.slice(end + betweenModelAndServer.length)];
  const isName = end > 0 && name.length <= longestModelName && isShown(model) && isShown(server);
  return isName ? { model, server } : undefined;
}

function isShown(text: string): boolean {
  return text !== "" && text.trim() === text && text.isWellFormed() && !/[\p{C}\p{Zl}\p{Zp}]/u.test(text);
}
