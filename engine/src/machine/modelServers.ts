// The servers of language models: those that listen on this machine where such servers do, and those that the user names.

import { isRecord } from "../base/json.ts";
import type { Log } from "../base/log.ts";
import { partsOfServedModel, servedModel } from "../base/models.ts";
import type { Keys } from "./keys.ts";
import { jsonOf, KeyMissing, request, Stranger, type ModelServer } from "./modelServer.ts";
import { isWindow, type NamedServer } from "./namedServers.ts";
import { shared } from "./shared.ts";

/** A model, with what is needed to ask it. */
export interface ServedModel {
  /** As the settings have it. */
  name: string;
  /** As the server has it. */
  id: string;
  server: ModelServer;
  /** The tokens that a conversation may have, if the server or the user tells. */
  window?: number;
}

/** These listen at ports of their own. */
export const localServers: readonly ModelServer[] = [
  { name: "Ollama", address: "http://127.0.0.1:11434/v1", isFound: true },
  { name: "llama.cpp", address: "http://127.0.0.1:8080/v1", isFound: true },
  { name: "LM Studio", address: "http://127.0.0.1:1234/v1", isFound: true },
  { name: "Jan", address: "http://127.0.0.1:1337/v1", isFound: true },
];

/** A server that has not listed its models by then is as it was before. */
const lookMs = 1_000;
const mostModels = 200;

export class ModelServers {
  /** The models of each server, by its name, as far as they are known. */
  #known = new Map<string, ServedModel[]>();
  #servers: readonly ModelServer[] = [];

  constructor(
    /** The servers that the user names now. */
    private readonly named: () => readonly NamedServer[],
    private readonly keys: Keys,
    private readonly log: Log,
    private readonly local: readonly ModelServer[] = localServers,
    private readonly limitMs = lookMs,
  ) {
    this.#takeNamed();
  }

  /** The names of all models that were there at the last look. */
  get names(): string[] {
    return [...this.#known.values()].flat().map(({ name }) => name);
  }

  /** Asks all servers for their models, in parallel and for a second at most. Never rejects. */
  readonly look = shared(async (): Promise<void> => {
    this.#takeNamed();
    const servers = this.#servers;
    const lists = await Promise.all(servers.map(async (server) => [server.name, await this.#modelsOf(server)] as const));
    this.#known = new Map(lists);
  });

  /** The model of this name; undefined when no server has the name of its server. */
  find(name: string): ServedModel | undefined {
    const parts = partsOfServedModel(name);
    const server = this.#servers.find((one) => one.name === parts?.server);
    if (parts === undefined || server === undefined) return undefined;
    // A model that the server does not list may be there: the server will say.
    return this.#known.get(server.name)?.find((model) => model.name === name) ?? made(server, parts.model);
  }

  /** A named server takes the place of the one that would be found at its address, or has its name. */
  #takeNamed(): void {
    const named = this.named().map(({ key, ...server }): ModelServer => ({ ...server, ...(key ? { key: this.keys.at(key) } : {}) }));
    const isFree = ({ name, address }: ModelServer): boolean => !named.some((one) => one.name === name || one.address === address);
    this.#servers = [...this.local.filter(isFree), ...named];
  }

  async #modelsOf(server: ModelServer): Promise<ServedModel[]> {
    if (server.model !== undefined) return [made(server, server.model)].filter(({ name }) => partsOfServedModel(name));
    const ending = AbortSignal.timeout(this.limitMs);
    try {
      const answer = await request(server, "/models", undefined, ending);
      if (answer.status === 401 || answer.status === 403) this.log(`o servidor ${server.name} quer uma chave (${answer.status})`);
      if (answer.status !== 200) {
        await answer.body?.cancel();
        return [];
      }
      return readModels(await jsonOf(answer), server);
    } catch (error) {
      if (error instanceof KeyMissing) this.log(`não consigo ler a chave do servidor ${server.name}`);
      if (error instanceof Stranger) this.log(`outro usuário serve na porta de ${server.name}; não uso`);
      return ending.aborted ? (this.#known.get(server.name) ?? []) : [];
    }
  }
}

function made(server: ModelServer, id: string, window?: number): ServedModel {
  const tokens = server.window ?? window;
  return { name: servedModel(id, server.name), id, server, ...(tokens === undefined ? {} : { window: tokens }) };
}

/** The models of a list that can be talked with and have a name that can be shown. */
function readModels(list: unknown, server: ModelServer): ServedModel[] {
  if (!isRecord(list) || !Array.isArray(list.data)) return [];
  const models = list.data.slice(0, mostModels).flatMap((entry: unknown) => {
    if (!isRecord(entry) || typeof entry.id !== "string" || /embed|rerank/i.test(entry.id)) return [];
    return [made(server, entry.id, windowOf(entry))];
  });
  return models.filter(({ name }, at) => partsOfServedModel(name) && models.findIndex((model) => model.name === name) === at);
}

/** Servers that tell the window tell it in one of these places. The user's word goes before theirs. */
function windowOf(entry: Record<string, unknown>): number | undefined {
  const meta = isRecord(entry.meta) ? entry.meta : {};
  return [meta.n_ctx, entry.max_model_len, entry.loaded_context_length, entry.context_length].find(isWindow);
}
