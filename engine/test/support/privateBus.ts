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

/** A connection that serves under this name until the test ends: on the tests' own bus, or on that of the environment. */
export async function service(name: string, environment?: Record<string, string>): Promise<BusConnection> {
  const connection = await BusConnection.open(environment ?? (await privateBus()));
  if (!connection) throw new Error("there is no bus");
  const [owner] = (await connection.call({ ...ofBus("RequestName"), signature: "su", arguments: [name, 4] })) ?? [];
  if (owner !== 1) throw new Error(`${name} is taken`);
  return connection;
}

/** Ends a service. It resolves when the bus does not know the name any more. */
export async function endService(connection: BusConnection, name: string): Promise<void> {
  await connection.call({ ...ofBus("ReleaseName"), signature: "s", arguments: [name] });
  connection.close();
}

function ofBus(method: string) {
  return { service: "org.freedesktop.DBus", path: "/org/freedesktop/DBus", method: `org.freedesktop.DBus.${method}` };
}

/** clear.ts calls this when all files have been tested. */
export function endPrivateBus(): void {
  daemon?.kill();
  started = undefined;
}
