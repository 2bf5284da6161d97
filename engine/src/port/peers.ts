// Tells whose process is at the other end of a connection. Every user of the machine reaches the port; it serves one.

import type { Connection, Owner } from "../machine/connection.ts";
import { ownerByKernel } from "../machine/socketDiagnosis.ts";
import { ownerInTable, socketTable } from "./socketTable.ts";

/** Asks the kernel for this one connection. If it does not answer, reads the table of all connections. */
export function connectionOwner(connection: Connection): Owner {
  return ownerByKernel(connection) ?? ownerInTable(socketTable(), connection);
}
