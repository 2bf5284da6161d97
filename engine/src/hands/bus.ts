// The user's session bus, asked by the program that is installed for it. Without one, or without a bus, nothing is there.

import { isRecord, parseJson } from "../base/json.ts";
import type { Children } from "../machine/children.ts";
import { LineReader } from "../machine/lineReader.ts";

export interface Method {
  service: string;
  path: string;
  /** The interface and the name of the method: "org.freedesktop.DBus.ListNames". */
  method: string;
  /** The types of the arguments and the arguments, each container with its length before it, as `busctl` takes them. */
  signature?: string;
  arguments?: readonly string[];
}

const callMs = 3_000;
const maxReply = 1 << 20;
const longestSignal = 1 << 20;

export class Bus {
  constructor(private readonly children: Children) {}

  /** The values of the reply, or undefined when the call failed. Variants are `{type, data}`. */
  async call({ service, path, method, signature, arguments: given = [] }: Method, signal?: AbortSignal): Promise<unknown[] | undefined> {
    const at = method.lastIndexOf(".");
    const types = signature === undefined ? [] : [signature, ...given];
    const outcome = await this.children.run(
      ["busctl", "--user", "--json=short", "--timeout=2", "--", "call", service, path, method.slice(0, at), method.slice(at + 1), ...types],
      { timeoutMs: callMs, maxOutput: maxReply, ...(signal ? { signal } : {}) },
    );
    if (outcome.kind !== "ended" || outcome.code !== 0) return undefined;
    const text = new TextDecoder().decode(outcome.output).trim();
    if (text === "") return [];
    const reply = parseJson(text);
    return isRecord(reply) && Array.isArray(reply.data) ? reply.data : undefined;
  }

  async property(service: string, path: string, name: string, signal?: AbortSignal): Promise<unknown> {
    const at = name.lastIndexOf(".");
    const method = "org.freedesktop.DBus.Properties.Get";
    const reply = await this.call({ service, path, method, signature: "ss", arguments: [name.slice(0, at), name.slice(at + 1)] }, signal);
    return plain(reply?.[0]);
  }

  /** Hands on the arguments of each of these signals until `signal` is raised, or `take` gives true. Resolves when it has ended. */
  async watch(match: string, take: (name: string, values: unknown[]) => boolean, signal: AbortSignal, ready?: () => void): Promise<void> {
    const ending = new AbortController();
    const end = (): void => ending.abort();
    signal.addEventListener("abort", end);
    if (signal.aborted) end();
    const lines = new LineReader((line) => {
      const message = parseJson(line);
      if (!isRecord(message) || typeof message.member !== "string") return;
      const { payload } = message;
      const values = isRecord(payload) && Array.isArray(payload.data) ? payload.data : [];
      if (take(message.member, values)) end();
    });
    // `busctl` says on standard error that it listens; there is nothing to wait for that is surer.
    ready?.();
    await this.children.run(["busctl", "--user", "--json=short", "monitor", `--match=${match}`], {
      maxOutput: longestSignal,
      signal: ending.signal,
      onOutput: (piece) => lines.take(piece),
    });
    signal.removeEventListener("abort", end);
  }
}

/** The value in a variant. */
export function plain(value: unknown): unknown {
  return isRecord(value) && "data" in value && typeof value.type === "string" ? value.data : value;
}
