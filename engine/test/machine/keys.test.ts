import { expect, test } from "bun:test";
import { join } from "node:path";
import { Keys } from "../../src/machine/keys.ts";
import { temporaryFolder } from "../support/folders.ts";

test("a key in a variable is known, and no child of the engine has it", async () => {
  process.env.TRIED_KEY = " sk-1 ";
  const environment: Record<string, string | undefined> = { ...process.env };
  const keys = new Keys(environment);
  const key = keys.at({ variable: "TRIED_KEY" });
  expect([key(), keys.at({ variable: "TRIED_KEY" })()]).toEqual(["sk-1", "sk-1"]);
  expect([environment.TRIED_KEY, process.env.TRIED_KEY]).toEqual([undefined, undefined]);
  const child = Bun.spawn(["/bin/sh", "-c", "echo ${TRIED_KEY-none}"], { stdout: "pipe" });
  expect(await new Response(child.stdout).text()).toBe("none\n");
  expect(keys.at({ variable: "NO_SUCH_KEY" })()).toBeUndefined();
});

test("a key in a file is read each time that it is used", async () => {
  const home = temporaryFolder();
  const keys = new Keys({ HOME: home });
  const key = keys.at({ file: "~/key" });
  expect(key()).toBeUndefined();
  await Bun.write(join(home, "key"), "sk-1\n");
  expect(key()).toBe("sk-1");
  await Bun.write(join(home, "key"), "sk-2");
  expect([key(), keys.at({ file: join(home, "key") })()]).toEqual(["sk-2", "sk-2"]);
});

test("what no header can hold is no key", async () => {
  const file = join(temporaryFolder(), "key");
  for (const text of ["", " \n", "two words", "two\nlines", "clé", "x".repeat(5_000), "a\u0000b"]) {
    await Bun.write(file, text);
    expect([text, new Keys({}).at({ file })()]).toEqual([text, undefined]);
  }
});
