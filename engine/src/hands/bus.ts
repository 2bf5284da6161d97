// The user's session bus, as hands ask it. Without a bus nothing is there.

import { isRecord } from "../base/json.ts";
import { BusConnection, type Call } from "../machine/busConnection.ts";

export class Bus {
  constructor(private readonly environment: Record<string, string | undefined>) {}

  /** A connection of its own, to be closed; undefined where there is no bus. */
  async connect(): Promise<BusConnection | undefined> {
    return await BusConnection.open(this.environment);
  }

  /** The values of the answer, or undefined when the call failed. Variants are `{type, data}`. */
  async call(call: Call, signal?: AbortSignal): Promise<unknown[] | undefined> {
    const connection = await this.connect();
    try {
      return await connection?.call(call, signal);
    } finally {
      connection?.close();
    }
  }

  async property(service: string, path: string, name: string, signal?: AbortSignal): Promise<unknown> {
    const at = name.lastIndexOf(".");
    const method = "org.freedesktop.DBus.Properties.Get";
    const answer = await this.call({ service, path, method, signature: "ss", arguments: [name.slice(0, at), name.slice(at + 1)] }, signal);
    return plain(answer?.[0]);
  }
}

/** The value in a variant; a dictionary as an object. */
export function plain(value: unknown): unknown {
  if (!isRecord(value) || typeof value.type !== "string" || !("data" in value)) return value;
  const { type, data } = value;
  return type.startsWith("a{s") && Array.isArray(data) ? Object.fromEntries(data as [string, unknown][]) : data;
}
