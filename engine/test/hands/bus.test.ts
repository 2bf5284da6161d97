import { expect, test } from "bun:test";
import { Bus, plain } from "../../src/hands/bus.ts";
import { privateBus } from "../support/privateBus.ts";

const daemon = { service: "org.freedesktop.DBus", path: "/org/freedesktop/DBus" };

test("a bus is asked, and answers", async () => {
  const bus = new Bus(await privateBus());
  const [names] = (await bus.call({ ...daemon, method: "org.freedesktop.DBus.ListNames" })) ?? [];
  expect(names).toContain("org.freedesktop.DBus");
  expect(await bus.property(daemon.service, daemon.path, "org.freedesktop.DBus.Interfaces")).toBeArray();
});

test("without a bus nothing is there", async () => {
  expect(await new Bus({}).call({ ...daemon, method: "org.freedesktop.DBus.ListNames" })).toBeUndefined();
  expect(await new Bus({}).property(daemon.service, daemon.path, "org.freedesktop.DBus.Interfaces")).toBeUndefined();
});

test("a dictionary is an object", () => {
  expect(plain({ type: "a{sv}", data: [["a", { type: "s", data: "b" }]] })).toEqual({ a: { type: "s", data: "b" } });
  expect(plain({ type: "as", data: ["a"] })).toEqual(["a"]);
  expect(plain("x")).toBe("x");
});
