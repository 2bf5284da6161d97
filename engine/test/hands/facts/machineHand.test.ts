import { expect, test } from "bun:test";
import { mkdirSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import type { Language } from "../../../src/base/language.ts";
import { MachineHand } from "../../../src/hands/facts/machineHand.ts";
import { Children } from "../../../src/machine/children.ts";
import { program, temporaryFolder } from "../../support/folders.ts";
import { going } from "../../support/processes.ts";

/** A machine with these files below its root. */
function machine(files: Record<string, string>, path = "") {
  const root = temporaryFolder();
  for (const [name, text] of Object.entries(files)) {
    mkdirSync(join(root, name, ".."), { recursive: true });
    writeFileSync(join(root, name), `${text}\n`);
  }
  const hand = new MachineHand(new Children({ PATH: path, HOME: root }), root);
  return (what: unknown, language: Language = "en") => hand.act({ what }, language, going);
}

const supply = "sys/class/power_supply";

test("the battery of the machine is told, and not that of a mouse", async () => {
  const files = {
    [`${supply}/AC/type`]: "Mains",
    [`${supply}/BAT0/type`]: "Battery",
    [`${supply}/BAT0/capacity`]: "80",
    [`${supply}/BAT0/status`]: "Discharging",
    [`${supply}/mouse/type`]: "Battery",
    [`${supply}/mouse/scope`]: "Device",
    [`${supply}/mouse/capacity`]: "5",
  };
  expect(await machine(files)("battery")).toBe("The battery is at 80%.");
  expect(await machine({ ...files, [`${supply}/BAT0/status`]: "Charging" })("battery", "pt")).toBe("A bateria está em 80%, carregando.");
  expect(await machine({ ...files, [`${supply}/BAT0/status`]: "Full" })("battery")).toBe("The battery is at 80%, plugged in.");
  expect(await machine({})("battery")).toBe("This computer has no battery.");
  expect(await machine({ [`${supply}/BAT0/type`]: "Battery", [`${supply}/BAT0/capacity`]: "many" })("battery")).toBe("This computer has no battery.");
});

test("memory and disk are told", async () => {
  const meminfo = "MemTotal:       16000000 kB\nMemFree: 1 kB\nMemAvailable:    8000000 kB";
  expect(await machine({ "proc/meminfo": meminfo })("memory")).toBe("8.19 GB of 16.4 GB of memory are free.");
  expect(await machine({})("disk")).toMatch(/^[\d.,]+ GB of [\d.,]+ GB are free on the disk\.$/);
  expect(await machine({})("disk", "pt")).toMatch(/^Há [\d.,]+ GB livres de [\d.,]+ GB no disco\.$/);
});

test("the network is told by its name", async () => {
  const path = program("nmcli", `printf '802-11-wireless:Casa: 5G\\nloopback:lo\\nvpn:Work\\n'`);
  expect(await machine({}, path)("network")).toBe("The network is Casa: 5G and Work.");
  expect(await machine({}, "")("network")).toMatch(/^There is (no network|a network, but I do not know its name)\.$/);
});

test("nothing else is told", async () => {
  expect(await machine({})("passwords")).toBe("I do not know that.");
});
