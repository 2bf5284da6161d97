// `palomet-engine model`: lists, fetches and removes recogniser models. Nothing else of the engine reaches out of the
// machine but requests to the servers that its user names, and this only when somebody asks for it.

import { rmSync } from "node:fs";
import { join } from "node:path";
import { fetchedModels } from "../base/models.ts";
import { catalogue, publishedAt, type Model } from "./catalogue.ts";
import { fetchModel, fileNameOf, inMegabytes, isWhole, partOf, sizeOf } from "./download.ts";

export interface Surroundings {
  environment: Record<string, string | undefined>;
  /** Writes to standard output. */
  print(text: string): void;
  /** Writes a line to standard error. */
  complain(line: string): void;
  /** Standard output can rewrite its line. */
  isTerminal: boolean;
  models?: readonly Model[];
}

export const usage = `Usage: palomet-engine model list
       palomet-engine model add NAME [--address ADDRESS]
       palomet-engine model remove NAME
       palomet-engine hearing      what is understood here, and what would be needed for more

Recogniser models for many languages, Portuguese among them. They are fetched from ${new URL(publishedAt).host}, or
from another ADDRESS, which PALOMET_MODELS_URL can hold too; a proxy is taken from http_proxy, https_proxy and no_proxy.
`;

/** Gives the exit code: 0 when it is done, 1 when it could not be, 2 when an argument is wrong. */
export async function modelCommand(words: readonly string[], surroundings: Surroundings): Promise<number> {
  const { environment, print, complain, models = catalogue } = surroundings;
  const [action, name, ...rest] = words;
  const folder = fetchedModels(environment);
  if (action === "list" && name === undefined) {
    for (const model of models) print(`${listed(model, join(folder, fileNameOf(model)))}\n`);
    return 0;
  }
  const isRemoving = action === "remove" && rest.length === 0;
  const [option, address, ...more] = rest;
  const isFetching = action === "add" && more.length === 0 && (rest.length === 0 || (option === "--address" && address !== undefined));
  if (name === undefined || !(isRemoving || isFetching)) {
    complain(usage.trimEnd());
    return 2;
  }
  const model = models.find((candidate) => candidate.name === name);
  if (!model) {
    complain(`palomet-engine: no model is called ${name}; see palomet-engine model list`);
    return 2;
  }
  const file = join(folder, fileNameOf(model));
  if (isRemoving) return remove(model, file, surroundings);
  const from = (address ?? (environment.PALOMET_MODELS_URL || publishedAt)).replace(/\/+$/, "");
  if (!/^https?:\/\/./.test(from)) {
    complain(`palomet-engine: not an address: ${from}`);
    return 2;
  }
  return await add(model, file, from, surroundings);
}

function listed(model: Model, file: string): string {
  const [whole, part] = [sizeOf(file) === model.bytes, sizeOf(partOf(file))];
  const state = whole ? "here" : part > 0 ? `${Math.floor((100 * part) / model.bytes)} %` : "";
  return [model.name.padEnd(20), inMegabytes(model.bytes).padStart(7), state.padEnd(4), model.about].join("  ");
}

async function add(model: Model, file: string, from: string, surroundings: Surroundings): Promise<number> {
  const { print, complain } = surroundings;
  const lock = lockFor(file);
  if (!lock) {
    complain(`palomet-engine: ${model.name} is being fetched already`);
    return 1;
  }
  try {
    if (await isWhole(file, model)) {
      print(`${model.name} is here already.\n`);
      return 0;
    }
    print(`Fetching ${model.name}, ${inMegabytes(model.bytes)}, from ${from}\n`);
    const progress = progressOf(model.bytes, surroundings);
    const outcome = await fetchModel(model, { from, file, progress });
    if (surroundings.isTerminal) print("\r\x1b[K");
    if (outcome.kind === "fetched") {
      print(`${model.name} is here. Choose it in Palomet's settings, under Listening, if it is not the one in use.\n`);
      return 0;
    }
    complain(`palomet-engine: ${model.name} could not be fetched: ${outcome.problem}`);
    if (sizeOf(partOf(file)) > 0) complain("What came is kept: the same command goes on from there.");
    return 1;
  } catch (error) {
    complain(`palomet-engine: ${model.name} could not be fetched: ${(error as Error).message}`);
    return 1;
  } finally {
    lock.stop();
  }
}

function remove(model: Model, file: string, { print, complain }: Surroundings): number {
  if (sizeOf(file) + sizeOf(partOf(file)) === 0) {
    complain(`palomet-engine: ${model.name} is not here`);
    return 1;
  }
  try {
    for (const path of [file, partOf(file)]) rmSync(path, { force: true });
  } catch (error) {
    complain(`palomet-engine: ${model.name} could not be removed: ${(error as Error).message}`);
    return 1;
  }
  print(`${model.name} is removed.\n`);
  return 0;
}

/** A name that nobody else can hold, and that goes with its process. Undefined when another fetches this file. */
function lockFor(file: string): { stop(): void } | undefined {
  try {
    return Bun.listen({ unix: `\0palomet-model-${Bun.hash(file).toString(16)}`, socket: { data() {} } });
  } catch {
    return undefined;
  }
}

/** Shows each hundredth on a terminal, and each tenth elsewhere. */
function progressOf(total: number, { print, isTerminal }: Surroundings): (bytes: number) => void {
  const steps = isTerminal ? 100 : 10;
  let shown = 0;
  return (bytes) => {
    const step = Math.floor((steps * bytes) / total);
    if (step === shown) return;
    shown = step;
    const line = `${String((100 / steps) * step).padStart(3)} %  ${inMegabytes(bytes)} of ${inMegabytes(total)}`;
    print(isTerminal ? `\r\x1b[K${line}` : `${line}\n`);
  };
}
