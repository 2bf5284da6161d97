// Finds the owner of a connection in the kernel's table of all connections, which the kernel takes milliseconds to write.

import { addressBytes, listening, timeWait, type Connection, type Owner } from "../machine/connection.ts";
import { fileText } from "../machine/fileText.ts";

/** Reads the owner from the lines of /proc/net/tcp and tcp6. */
export function ownerInTable(table: string | undefined, { address, port, to }: Connection): Owner {
  if (table === undefined) return "unknown";
  const theirs = ends(address, port);
  const ours = ends("127.0.0.1", to);
  let isTable = false;
  for (const line of table.split("\n")) {
    const [, local = "", remote = "", state = "", , , , user, , inode] = line.trim().split(/\s+/);
    if (parseInt(state, 16) === listening && ours.includes(local)) isTable = true;
    if (!theirs.includes(local) || !ours.includes(remote)) continue;
    // An end that was closed has no inode in the table, and is listed as the superuser's.
    return Number(inode) === 0 || parseInt(state, 16) === timeWait ? "gone" : Number(user);
  }
  return isTable ? "gone" : "unknown";
}

/** An address and a port as the table writes them, for IPv4 and IPv6: in words of the processor's byte order. */
function ends(address: string, port: number): string[] {
  const word = hex(new Uint32Array(addressBytes(address).buffer)[0] ?? 0, 8);
  const end = `${word}:${hex(port, 4)}`;
  const marker = hex(new Uint32Array(Uint8Array.of(0, 0, 0xff, 0xff).buffer)[0] ?? 0, 8);
  return [end, `${"0".repeat(16)}${marker}${end}`];
}

function hex(value: number, digits: number): string {
  return value.toString(16).toUpperCase().padStart(digits, "0");
}

export function socketTable(): string | undefined {
  const tables = ["/proc/net/tcp", "/proc/net/tcp6"].map(fileText);
  return tables.every((table) => table === "") ? undefined : tables.join("\n");
}
