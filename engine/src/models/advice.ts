// What the engine understands on this machine, and what it needs to understand more: a line for `palomet --doctor`.

import { grammarModel } from "../base/models.ts";
import { recommendedModel } from "./catalogue.ts";

export interface Advice {
  isDeaf: boolean;
  text: string;
}

/** Advises by the names of the recogniser models that can be used, the best first. */
export function advise(models: readonly string[]): Advice {
  const open = models.find((name) => name !== grammarModel);
  if (open !== undefined) return { isDeaf: false, text: `understands any sentence, by ${open}` };
  const remedy = `for any sentence give the command "palomet-engine model add ${recommendedModel}"`;
  if (models.includes(grammarModel)) return { isDeaf: false, text: `understands some phrases only; ${remedy}` };
  return { isDeaf: true, text: `understands nothing; install pocketsphinx and pocketsphinx-en-us, or ${remedy}` };
}
