// A server of language models, and requests to it. What the user says goes to the address that stands here and nowhere else:
// redirects are not followed, and no proxy stands between the engine and a server on this machine.

import { isRecord, parseJson } from "../base/json.ts";
import { isStrangers } from "./listeners.ts";

export interface ModelServer {
  /** The name for the user: "Ollama". */
  name: string;
  /** What stands before "/models" and "/chat/completions". */
  address: string;
  /** It was found at its port, and not named by the user: nobody else may stand in for it. */
  isFound?: boolean;
  /** Gives the key, when it is asked for one. */
  key?: () => string | undefined;
  /** The one model that is offered; without it, all that the server lists. */
  model?: string;
  /** The tokens that a conversation with its models may have, where the server does not tell. */
  window?: number;
}

/** What a server says beyond this is dropped, in bytes. */
const longestAnswer = 1 << 20;

export function isOnThisMachine({ address }: ModelServer): boolean {
  const host = URL.parse(address)?.hostname ?? "";
  return host === "localhost" || host === "[::1]" || /^127\.\d+\.\d+\.\d+$/.test(host);
}

/** The server wants a key that cannot be read. Nothing was sent. */
export class KeyMissing extends Error {}

/** Somebody else listens where the server would. Nothing was sent. */
export class Stranger extends Error {}

/**
 * Rejects when the server cannot be reached or is a stranger's, when its key cannot be read, and when `signal` is raised, which
 * closes the connection.
 */
export async function request(server: ModelServer, path: string, body: unknown, signal: AbortSignal): Promise<Response> {
  if (server.isFound && isStrangers(Number(new URL(server.address).port))) throw new Stranger();
  const key = server.key?.();
  if (server.key && key === undefined) throw new KeyMissing();
  const headers: Record<string, string> = { accept: "text/event-stream, application/json", "accept-encoding": "identity" };
  if (body !== undefined) headers["content-type"] = "application/json";
  if (key !== undefined) headers.authorization = `Bearer ${key}`;
  return await fetch(`${server.address}${path}`, {
    method: body === undefined ? "GET" : "POST",
    headers,
    ...(body === undefined ? {} : { body: JSON.stringify(body) }),
    ...(isOnThisMachine(server) ? { proxy: false as const } : {}),
    redirect: "manual",
    // A connection that was kept may have been closed meanwhile by the other side: a request must not be lost on it.
    keepalive: false,
    signal,
  });
}

/** The whole answer as JSON; undefined when it is too long, or none. Rejects when it ends in the middle. */
export async function jsonOf(response: Response): Promise<unknown> {
  const pieces: Uint8Array[] = [];
  let length = 0;
  for await (const piece of response.body ?? []) {
    length += piece.length;
    if (length > longestAnswer) return undefined;
    pieces.push(piece);
  }
  return parseJson(new TextDecoder().decode(Buffer.concat(pieces)));
}

/** What a server says of an error, in one of the forms that servers have for it, or undefined. */
export function errorIn(value: unknown): { message: string; code: string; window?: number } | undefined {
  if (!isRecord(value) || value.error === undefined || value.error === null) return undefined;
  const { error } = value;
  if (!isRecord(error)) return { message: typeof error === "string" ? error : "", code: "" };
  const code = [error.code, error.type].filter((part) => typeof part === "string" || typeof part === "number").join(" ");
  const message = typeof error.message === "string" ? error.message : "";
  return { message, code, ...(typeof error.n_ctx === "number" ? { window: error.n_ctx } : {}) };
}
