// A session bus of the tests' own.

import { BusConnection } from "../../src/machine/busConnection.ts";
import { temporaryFolder } from "./folders.ts";

let started: Promise<string> | undefined;
let daemon: Bun.Subprocess | undefined;

async function start(): Promise<string> {
  const address = `unix:path=${temporaryFolder()}/bus`;
  const child = Bun.spawn(["dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address", `--address=${address}`], { stdout: "pipe", stderr: "ignore" });
  daemon = child;
  // It prints its address when it listens.
  await child.stdout.getReader().read();
  return address;
}

/** The environment in which that bus is found. */
export async function privateBus(): Promise<Record<string, string>> {
  return { DBUS_SESSION_BUS_ADDRESS: await (started ??= start()) };
}

/** A connection that serves under this name until the test ends. */
export async function service(name: string): Promise<BusConnection> {
  const connection = await BusConnection.open(await privateBus());
  if (!connection) throw new Error("there is no bus");
  const bus = { service: "org.freedesktop.DBus", path: "/org/freedesktop/DBus" };
  const [owner] = (await connection.call({ ...bus, method: "org.freedesktop.DBus.RequestName", signature: "su", arguments: [name, 4] })) ?? [];
  if (owner !== 1) throw new Error(`${name} is taken`);
  return connection;
}

/** clear.ts calls this when all files have been tested. */
export function endPrivateBus(): void {
  daemon?.kill();
}
