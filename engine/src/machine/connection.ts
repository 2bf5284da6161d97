// A connection on the loopback interface and its owner, as both ways to learn the owner see them.

/** A connection to a port of 127.0.0.1, such as the engine's: the address and port of the other end. */
export interface Connection {
  address: string;
  port: number;
  to: number;
}

/** A user's id; "gone" when nobody holds the other end any more; "unknown" when the system does not tell. */
export type Owner = number | "gone" | "unknown";

// States of a connection, by the numbers of Linux (net/tcp_states.h).
export const timeWait = 6;
export const listening = 10;

export function addressBytes(address: string): Uint8Array<ArrayBuffer> {
  return Uint8Array.from(address.replace(/^::ffff:/i, "").split("."), Number);
}
