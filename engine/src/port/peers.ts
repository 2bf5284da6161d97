// Whose process is at the other end of a connection on the loopback interface. Every user of the machine reaches the
// port; it serves one.

import { dlopen, ptr } from "bun:ffi";
import { readFileSync } from "node:fs";

/** A connection to the engine's port on 127.0.0.1, as its other end has it. */
export interface Connection {
  address: string;
  port: number;
  /** The engine's port. */
  to: number;
}

/** A user's id; "gone" when nobody holds the other end any more; "unknown" where the system does not tell. */
export type Owner = number | "gone" | "unknown";

/** Asks the kernel for this one connection; where that is not to be had, reads the table of all of them. */
export function connectionOwner(connection: Connection): Owner {
  return ownerByKernel(connection) ?? ownerInTable(socketTable(), connection);
}

const loopback = addressBytes("127.0.0.1");
const timeWait = 6;
const listening = 10;

/** The owner as the lines of /proc/net/tcp and tcp6 have it. */
export function ownerInTable(table: string | undefined, { address, port, to }: Connection): Owner {
  if (table === undefined) return "unknown";
  const theirs = ends(address, port);
  const ours = ends("127.0.0.1", to);
  let isTable = false;
  for (const line of table.split("\n")) {
    const [, local = "", remote = "", state = "", , , , user, , inode] = line.trim().split(/\s+/);
    if (parseInt(state, 16) === listening && ours.includes(local)) isTable = true;
    if (!theirs.includes(local) || !ours.includes(remote)) continue;
    // An end that was closed has no inode, and is listed as the superuser's.
    return Number(inode) === 0 || parseInt(state, 16) === timeWait ? "gone" : Number(user);
  }
  return isTable ? "gone" : "unknown";
}

/** How the table writes an address and a port, also as one of IPv6: in words of the processor's byte order. */
function ends(address: string, port: number): string[] {
  const word = hex(new Uint32Array(addressBytes(address).buffer)[0] ?? 0, 8);
  const end = `${word}:${hex(port, 4)}`;
  const marker = hex(new Uint32Array(Uint8Array.of(0, 0, 0xff, 0xff).buffer)[0] ?? 0, 8);
  return [end, `${"0".repeat(16)}${marker}${end}`];
}

function hex(value: number, digits: number): string {
  return value.toString(16).toUpperCase().padStart(digits, "0");
}

function addressBytes(address: string): Uint8Array<ArrayBuffer> {
  return Uint8Array.from(address.replace(/^::ffff:/i, "").split("."), Number);
}

function socketTable(): string | undefined {
  const tables = ["/proc/net/tcp", "/proc/net/tcp6"].map((path) => {
    try {
      return readFileSync(path, "latin1");
    } catch {
      return "";
    }
  });
  return tables.every((table) => table === "") ? undefined : tables.join("\n");
}

// The kernel's own answer (linux/inet_diag.h): some ten microseconds, where the table takes milliseconds to be written.
const netlink = { family: 16, datagramClosedOnExec: 3 | 0o2000000, socketDiagnosis: 4, byFamily: 20, dontWait: 0x40 };
const headerSize = 16;
const requestSize = headerSize + 56;
const answerSize = headerSize + 72;

/** Undefined when the kernel gives no answer, which is also how it says that there is no such connection. */
function ownerByKernel({ address, port, to }: Connection): Owner | undefined {
  const c = library();
  if (c === undefined) return undefined;
  const request = new DataView(new ArrayBuffer(requestSize));
  const bytes = new Uint8Array(request.buffer);
  request.setUint32(0, requestSize, isLittleEndian);
  request.setUint16(4, netlink.byFamily, isLittleEndian);
  request.setUint16(6, 1, isLittleEndian); // NLM_F_REQUEST
  request.setUint8(headerSize, 2); // AF_INET
  request.setUint8(headerSize + 1, 6); // IPPROTO_TCP
  bytes.fill(0xff, headerSize + 4, headerSize + 8); // in any state
  request.setUint16(headerSize + 8, port);
  request.setUint16(headerSize + 10, to);
  bytes.set(addressBytes(address), headerSize + 12);
  bytes.set(loopback, headerSize + 28);
  bytes.fill(0xff, headerSize + 48, headerSize + 56); // no cookie
  const answer = new DataView(new ArrayBuffer(512));
  const socket = c.socket(netlink.family, netlink.datagramClosedOnExec, netlink.socketDiagnosis);
  if (socket < 0) return undefined;
  try {
    if (Number(c.send(socket, ptr(bytes), BigInt(requestSize), 0)) !== requestSize) return undefined;
    const length = Number(c.recv(socket, ptr(answer.buffer), BigInt(answer.byteLength), netlink.dontWait));
    if (length < answerSize || answer.getUint16(4, isLittleEndian) !== netlink.byFamily) return undefined;
  } finally {
    c.close(socket);
  }
  const state = answer.getUint8(headerSize + 1);
  const inode = answer.getUint32(headerSize + 68, isLittleEndian);
  // Without such a connection it may find somebody who listens on that port.
  return state === listening || state === timeWait || inode === 0 ? "gone" : answer.getUint32(headerSize + 64, isLittleEndian);
}

const isLittleEndian = new Uint8Array(Uint16Array.of(1).buffer)[0] === 1;

function openLibrary() {
  return dlopen("libc.so.6", {
    socket: { args: ["i32", "i32", "i32"], returns: "i32" },
    send: { args: ["i32", "ptr", "u64", "i32"], returns: "i64" },
    recv: { args: ["i32", "ptr", "u64", "i32"], returns: "i64" },
    close: { args: ["i32"], returns: "i32" },
  }).symbols;
}

let opened: ReturnType<typeof openLibrary> | "none" | undefined;

function library(): ReturnType<typeof openLibrary> | undefined {
  try {
    opened ??= openLibrary();
  } catch {
    opened = "none";
  }
  return opened === "none" ? undefined : opened;
}
