import { expect, test } from "bun:test";
import { readFileSync } from "node:fs";
import { join } from "node:path";
import { Family } from "../../src/machine/family.ts";
import { temporaryFolder } from "../support/folders.ts";
import { gone } from "../support/processes.ts";

const groupOf = (id: number): number => Number(readFileSync(`/proc/${id}/stat`, "latin1").split(" ")[4]);

test("a process that leaves the group after it was found is signalled, too", async () => {
  const gate = join(temporaryFolder(), "gate");
  expect(await Bun.spawn(["mkfifo", gate]).exited).toBe(0);
  const script = `(read line < ${gate}; exec setsid sleep 600) & echo $!; wait`;
  const child = Bun.spawn(["/bin/sh", "-c", script], { detached: true, stdout: "pipe" });
  const { value } = await child.stdout.getReader().read();
  const id = Number(new TextDecoder().decode(value));
  const family = new Family(child.pid);
  expect(groupOf(id)).toBe(child.pid);
  await Bun.spawn(["/bin/sh", "-c", `echo > ${gate}`]).exited;
  while (groupOf(id) !== id) await Bun.sleep(1);
  family.signal("SIGTERM");
  await gone([id, child.pid]);
  expect(family.isAlive).toBe(false);
});
