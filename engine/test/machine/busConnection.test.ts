import { expect, test } from "bun:test";
import { createServer } from "node:net";
import { join } from "node:path";
import { BusConnection, busPaths } from "../../src/machine/busConnection.ts";
import type { Message } from "../../src/machine/busMessages.ts";
import { temporaryFolder } from "../support/folders.ts";
import { privateBus, service } from "../support/privateBus.ts";

test("the bus is where the environment says", () => {
  const paths = (address: string, runtime?: string): string[] =>
    busPaths({ DBUS_SESSION_BUS_ADDRESS: address, ...(runtime === undefined ? {} : { XDG_RUNTIME_DIR: runtime }) });
  expect(paths("unix:path=/run/user/5/bus,guid=12")).toEqual(["/run/user/5/bus"]);
  expect(paths("unix:abstract=/tmp/x;unix:path=/a%20b")).toEqual(["\0/tmp/x", "/a b"]);
  expect(paths("tcp:host=x")).toEqual([]);
  expect(paths("", "/run/user/5")).toEqual(["/run/user/5/bus"]);
  expect(paths("")).toEqual([]);
});

test("methods are called, answered and refused, and signals heard", async () => {
  const there = await service("org.example.There");
  there.onCall = ({ member, body }) => (member === "Double" ? { signature: "i", body: [2 * Number(body[0])] } : undefined);
  const here = (await BusConnection.open(await privateBus()))!;
  const call = { service: "org.example.There", path: "/x", signature: "i", arguments: [21] };
  expect(await here.call({ ...call, method: "org.example.Double" })).toEqual([42]);
  expect(await here.call({ ...call, method: "org.example.Unknown" })).toBeUndefined();
  expect(await here.call({ ...call, service: "org.example.None", method: "org.example.Double" })).toBeUndefined();
  const heard = new Promise<Message>((resolve) => (here.onSignal = (signal) => signal.member === "Rang" && resolve(signal)));
  await here.match("type='signal',interface='org.example'");
  there.emit("/x", "org.example.Rang", "su", ["tea", 5]);
  expect(await heard).toMatchObject({ path: "/x", interface: "org.example", body: ["tea", 5] });
  here.close();
  there.close();
});

test("a service that does not answer is given up", async () => {
  const silent = await service("org.example.Silent");
  const here = (await BusConnection.open(await privateBus()))!;
  const call = { service: "org.example.Silent", path: "/x", method: "org.example.Wait" };
  silent.onCall = () => {
    here.close();
    return undefined;
  };
  expect(await here.call(call)).toBeUndefined();
  await here.closed;
  expect(await here.call(call)).toBeUndefined();
  const ending = new AbortController();
  const other = (await BusConnection.open(await privateBus()))!;
  silent.onCall = () => {
    ending.abort();
    return undefined;
  };
  expect(await other.call(call, ending.signal)).toBeUndefined();
  other.close();
  silent.close();
});

test("no bus, or one that is none, is none", async () => {
  const path = join(temporaryFolder(), "bus");
  const open = (): Promise<BusConnection | undefined> => BusConnection.open({ DBUS_SESSION_BUS_ADDRESS: `unix:path=${path}` });
  expect(await open()).toBeUndefined();
  for (const answer of ["REJECTED EXTERNAL\r\n", "x".repeat(2_000), "OK 1\r\nnonsense that is no message at all"]) {
    const server = createServer((socket) => socket.on("error", () => {}).once("data", () => socket.end(answer)));
    await new Promise<void>((resolve) => server.listen(path, resolve));
    expect(await open()).toBeUndefined();
    await new Promise((resolve) => server.close(resolve));
  }
});
