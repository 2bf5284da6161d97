import { expect, test } from "bun:test";
import { Bus } from "../../../src/hands/bus.ts";
import { LockHand } from "../../../src/hands/desktop/lockHand.ts";
import { Children } from "../../../src/machine/children.ts";
import { ScreenSaver } from "../../support/desktopServices.ts";
import { program } from "../../support/folders.ts";
import { privateBus } from "../../support/privateBus.ts";
import { going } from "../../support/processes.ts";

const lock = async (path: string, environment: Record<string, string> = {}): Promise<string> =>
  await new LockHand(new Children({ PATH: path }), new Bus(environment)).act({}, "en", going);

test("the screen is locked by its saver, else by the session", async () => {
  const saver = await ScreenSaver.open();
  expect(await lock("", await privateBus())).toBe("The screen is locked.");
  expect(saver.locks).toBe(1);
  await saver.close();
  expect(await lock(program("loginctl", '[ "$1" = lock-session ]'), await privateBus())).toBe("The screen is locked.");
});

test("where it cannot be locked that is said", async () => {
  expect(await lock("")).toBe("I cannot lock the screen here.");
  expect(await lock(program("loginctl", "exit 1"))).toBe("I cannot lock the screen here.");
});
