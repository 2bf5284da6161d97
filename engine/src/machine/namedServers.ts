// Reads the servers of language models that the user names in the engine's own file.

import { isRecord } from "../base/json.ts";
import type { KeyPlace } from "./keys.ts";
import { isOnThisMachine } from "./modelServer.ts";

export interface NamedServer {
  name: string;
  address: string;
  model?: string;
  key?: KeyPlace;
  window?: number;
}

const mostServers = 20;
const longestName = 60;
const longestText = 1_000;
const [leastWindow, mostWindow] = [512, 10_000_000];

/** Servers that are not understood are left out, with a word for the log on each. No value of the file stands in that. */
export function readServers(value: unknown): { servers: NamedServer[]; problems: string[] } {
  const servers: NamedServer[] = [];
  const problems: string[] = [];
  if (!Array.isArray(value)) return { servers, problems: ['"servers" é uma lista'] };
  if (value.length > mostServers) problems.push(`"servers" tem mais de ${mostServers} entradas; uso as primeiras`);
  for (const [index, entry] of value.slice(0, mostServers).entries()) {
    const read = readServer(entry);
    const isAgain = typeof read !== "string" && servers.some(({ name }) => name === read.name);
    if (typeof read === "string") problems.push(`"servers", entrada ${index + 1}: ${read}`);
    else if (isAgain) problems.push(`"servers", entrada ${index + 1}: outro servidor já tem esse nome`);
    else servers.push(read);
  }
  return { servers, problems };
}

/** Gives what is wrong with an entry in words. */
function readServer(entry: unknown): NamedServer | string {
  if (!isRecord(entry)) return "não é um objeto";
  const url = isText(entry.address, longestText) ? URL.parse(entry.address) : null;
  if (url === null || !/^https?:$/.test(url.protocol)) return '"address" é um endereço http ou https';
  if (url.username !== "" || url.password !== "") return 'a chave não fica em "address": use "keyFile" ou "keyVariable"';
  if (url.search !== "" || url.hash !== "") return '"address" termina no caminho, sem ? nem #';
  const path = url.pathname.replace(/\/+$/, "");
  const address = `${url.origin}${path === "" ? "/v1" : path}`;
  const { name = url.host, model, keyFile, keyVariable, window, unencrypted = false } = entry;
  if (!isText(name, longestName) || name.includes(" · ")) return '"name" é um nome curto, sem " · "';
  if (model !== undefined && !isText(model, longestText)) return '"model" é o nome de um modelo';
  if (typeof unencrypted !== "boolean") return '"unencrypted" é true ou false';
  const isOpen = url.protocol === "http:" && !isOnThisMachine({ name, address });
  if (isOpen && !unencrypted) return 'um endereço http fora desta máquina precisa de "unencrypted": true';
  if (window !== undefined && !isWindow(window)) return `"window" é um número de ${leastWindow} a ${mostWindow}`;
  const key = keyPlace(keyFile, keyVariable);
  if (typeof key === "string") return key;
  const server: NamedServer = { name, address };
  if (model !== undefined) server.model = model;
  if (key !== undefined) server.key = key;
  if (window !== undefined) server.window = window;
  return server;
}

function keyPlace(file: unknown, variable: unknown): KeyPlace | string | undefined {
  if (file !== undefined && variable !== undefined) return 'a chave fica em "keyFile" ou em "keyVariable", não nos dois';
  if (variable !== undefined) {
    const isName = isText(variable, longestName) && /^[A-Za-z_]\w*$/.test(variable) && !/^(PATH|HOME)$/.test(variable);
    return isName ? { variable } : '"keyVariable" é o nome de uma variável';
  }
  if (file === undefined) return undefined;
  return isText(file, longestText) && /^(\/|~\/)/.test(file) ? { file } : '"keyFile" é um caminho que começa com / ou ~/';
}

export function isWindow(value: unknown): value is number {
  return typeof value === "number" && Number.isInteger(value) && value >= leastWindow && value <= mostWindow;
}

function isText(value: unknown, longest: number): value is string {
  if (typeof value !== "string" || !value.isWellFormed()) return false;
  return value !== "" && value.trim() === value && value.length <= longest && !/[\p{C}\p{Zl}\p{Zp}]/u.test(value);
}
