// Tells whose program listens at a port of this machine. Every user may listen where a server of models would, and would be told
// what is said.

import { readFileSync } from "node:fs";

/** Accounts below this one are those of the system: servers that it starts have one of these. */
const firstPerson = 1_000;
const listening = 10;

/** Somebody else of flesh and blood listens at this port of 127.0.0.1. False where the system does not tell. */
export function isStrangers(port: number, table = listeners(), own = process.getuid?.()): boolean {
  if (own === undefined) return false;
  for (const line of table.split("\n")) {
    const [, local = "", , state = "", , , , user = ""] = line.trim().split(/\s+/);
    const [address = "", at = ""] = local.split(":");
    // Written in words of the processor's byte order: any address, 127.0.0.1, and the same behind IPv6.
    const isHere = /^0*$/.test(address) || /^(0{16}(FFFF0000|0000FFFF))?(0100007F|7F000001)$/.test(address);
    if (!isHere || parseInt(at, 16) !== port || parseInt(state, 16) !== listening) continue;
    if (Number(user) !== own && Number(user) >= firstPerson) return true;
  }
  return false;
}

function listeners(): string {
  return ["/proc/net/tcp", "/proc/net/tcp6"].map(read).join("\n");
}

function read(path: string): string {
  try {
    return readFileSync(path, "latin1");
  } catch {
    return "";
  }
}
