// A session bus of the tests' own.

import { afterAll } from "bun:test";
import { Children } from "../../src/machine/children.ts";
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

/** Runs programs on that bus. */
export async function privateBus(): Promise<{ children: Children; address: string }> {
  const address = await (started ??= start());
  return { address, children: new Children({ PATH: process.env.PATH, DBUS_SESSION_BUS_ADDRESS: address }) };
}

afterAll(() => daemon?.kill());
