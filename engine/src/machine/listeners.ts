// Tells whose program listens at a port of this machine. Every user may listen where a server of models would, and would be told
// what is said.

import { listenerByKernel } from "./socketDiagnosis.ts";

/**
 * The servers that the system runs have a low number, that of "nobody", or one that is given out while a service runs
 * (https://systemd.io/UIDS-GIDS). All others may be people, those of a directory too.
 */
function isSystems(user: number): boolean {
  return user < 1_000 || user === 65_534 || (user >= 61_184 && user <= 65_519);
}

/** Another person listens at this port of 127.0.0.1. False where the system does not tell. */
export function isStrangers(
  port: number,
  ownerOf: (port: number) => number | undefined = listenerByKernel,
  own = process.geteuid?.(),
): boolean {
  const owner = ownerOf(port);
  return owner !== undefined && owner !== own && !isSystems(owner);
}
