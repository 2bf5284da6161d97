// Tells whose program listens at a port of this machine. Every user may listen where a server of models would, and would be told
// what is said.

import { listenerByKernel } from "./socketDiagnosis.ts";

/** Accounts outside of these are the system's: the servers that it runs have one of those. */
const [firstPerson, lastPerson] = [1_000, 60_000];

/** Another person listens at this port of 127.0.0.1. False where the system does not tell. */
export function isStrangers(port: number, ownerOf: (port: number) => number | undefined = listenerByKernel, own = process.geteuid?.()): boolean {
  const owner = ownerOf(port);
  return owner !== undefined && owner !== own && owner >= firstPerson && owner <= lastPerson;
}
