// Ports and processes of the machine.

import { readFileSync } from "node:fs";
import { createServer } from "node:net";

export async function freePort(): Promise<number> {
  const server = createServer();
  await new Promise<void>((resolve) => server.listen(0, "127.0.0.1", resolve));
  const address = server.address();
  await new Promise((resolve) => server.close(resolve));
  return typeof address === "object" && address !== null ? address.port : 0;
}

/** Resolves when an engine serves there. */
export async function serving(port: number): Promise<void> {
  for (;;) {
    const answer = await fetch(`http://127.0.0.1:${port}/state`).catch(() => undefined);
    if (answer?.ok) return;
    await Bun.sleep(5);
  }
}

/** The process still runs. A process that has ended may stand in the process table until its parent collects it. */
export function isAlive(pid: number): boolean {
  try {
    return !/^\d+ \(.*\) [ZX]/.test(readFileSync(`/proc/${pid}/stat`, "utf8"));
  } catch {
    return false;
  }
}

export async function gone(ids: number[]): Promise<void> {
  while (ids.some(isAlive)) await Bun.sleep(5);
}

/** A signal that is never raised. */
export const going = new AbortController().signal;

/** A time limit for what ends by itself, however busy the machine is. */
export const patient = 60_000;
