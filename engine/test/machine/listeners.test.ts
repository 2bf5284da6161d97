import { expect, test } from "bun:test";
import { isStrangers } from "../../src/machine/listeners.ts";
import { listenerByKernel } from "../../src/machine/socketDiagnosis.ts";
import { freePort } from "../support/processes.ts";

test("who listens is a stranger when it is another person, and none when it is the user or an account of the system's", () => {
  const isStranger = (owner: number | undefined): boolean => isStrangers(11434, () => owner, 1_000);
  for (const owner of [1_001, 60_000, 60_100, 61_183, 65_520, 700_000, 4_294_967_293]) {
    expect([owner, isStranger(owner)]).toEqual([owner, true]);
  }
  for (const owner of [1_000, 0, 999, 61_184, 65_519, 65_534, undefined]) expect([owner, isStranger(owner)]).toEqual([owner, false]);
});

test("the kernel tells who listens, whichever address of this machine it is", async () => {
  for (const hostname of ["127.0.0.1", "0.0.0.0", "::"]) {
    const server = Bun.listen({ hostname, port: 0, socket: { data() {} } });
    expect([hostname, listenerByKernel(server.port)]).toEqual([hostname, process.geteuid?.()]);
    server.stop(true);
  }
  expect(listenerByKernel(await freePort())).toBeUndefined();
});
