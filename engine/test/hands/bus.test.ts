import { expect, test } from "bun:test";
import { Bus } from "../../src/hands/bus.ts";
import { Children } from "../../src/machine/children.ts";
import { program } from "../support/folders.ts";
import { privateBus } from "../support/privateBus.ts";
import { going } from "../support/processes.ts";

const method = "org.freedesktop.DBus.ListNames";
const daemon = { service: "org.freedesktop.DBus", path: "/org/freedesktop/DBus" };

test("a bus is asked, and answers", async () => {
  const { children } = await privateBus();
  const [names] = (await new Bus(children).call({ ...daemon, method })) ?? [];
  expect(names).toContain("org.freedesktop.DBus");
  expect(await new Bus(children).property(daemon.service, daemon.path, "org.freedesktop.DBus.Interfaces")).toBeArray();
});

test("a call that is refused gives nothing", async () => {
  const { children } = await privateBus();
  expect(await new Bus(children).call({ service: "org.example.None", path: "/", method: "org.example.None.Do" })).toBeUndefined();
});

test("without a bus, or the program that asks it, nothing is there", async () => {
  const call = { ...daemon, method };
  expect(await new Bus(new Children({ PATH: "" })).call(call)).toBeUndefined();
  expect(await new Bus(new Children({ PATH: "/usr/bin", DBUS_SESSION_BUS_ADDRESS: "unix:path=/nonexistent" })).call(call)).toBeUndefined();
  expect(await new Bus(new Children({ PATH: program("busctl", "echo nonsense") })).call(call)).toBeUndefined();
});

test("signals are handed on until the right one has come", async () => {
  const line = (member: string, id: number): string => JSON.stringify({ type: "signal", member, payload: { type: "us", data: [id, "stop"] } });
  const folder = program("busctl", `echo '${line("First", 1)}'; echo nonsense; echo '${line("Second", 2)}'; exec /bin/sleep 60`);
  const seen: [string, unknown[]][] = [];
  await new Bus(new Children({ PATH: folder })).watch("type='signal'", (name, values) => seen.push([name, values]) === 2, going);
  expect(seen).toEqual([["First", [1, "stop"]], ["Second", [2, "stop"]]]);
});
