// Asks the kernel for the owner of one connection, or of who listens (linux/inet_diag.h). The answer takes some ten microseconds.

import { dlopen, ptr } from "bun:ffi";
import { addressBytes, listening, timeWait, type Connection, type Owner } from "./connection.ts";

const loopback = addressBytes("127.0.0.1");
const netlink = { family: 16, datagramClosedOnExec: 3 | 0o2000000, socketDiagnosis: 4, byFamily: 20, dontWait: 0x40 };
const headerSize = 16;
const requestSize = headerSize + 56;
const answerSize = headerSize + 72;

/** Gives undefined when the kernel does not answer, or answers that there is no such connection. */
export function ownerByKernel(connection: Connection): Owner | undefined {
  const answer = ask(connection);
  if (answer === undefined) return undefined;
  const { state, inode, user } = answer;
  // The kernel may name a socket that listens on that port when there is no such connection.
  return state === listening || state === timeWait || inode === 0 ? "gone" : user;
}

/** The user whose program would get a connection to this port of 127.0.0.1; undefined when nobody listens, or nobody tells. */
export function listenerByKernel(port: number): number | undefined {
  const answer = ask({ address: "127.0.0.1", port, to: 0 });
  return answer?.state === listening ? answer.user : undefined;
}

function ask({ address, port, to }: Connection): { state: number; inode: number; user: number } | undefined {
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
  const at = (offset: number): number => answer.getUint32(headerSize + offset, isLittleEndian);
  return { state: answer.getUint8(headerSize + 1), inode: at(68), user: at(64) };
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
