import { describe, expect, test } from "bun:test";
import { join } from "node:path";
import { Children, type Outcome } from "../../src/machine/children.ts";
import { program, temporaryFolder } from "../support/folders.ts";
import { gone, isAlive } from "../support/processes.ts";

const environment = { PATH: "/usr/bin:/bin" };

/** Runs a script that prints the ids of its processes, and gives them when there are `count` of them. */
async function started(children: Children, script: string, count: number, signal?: AbortSignal, timeoutMs = 60_000) {
  const path = join(program("tool", script), "tool");
  let text = "";
  let known = (): void => {};
  const enough = new Promise<void>((resolve) => (known = resolve));
  const outcome: Promise<Outcome> = children.run([path], {
    timeoutMs,
    maxOutput: 1 << 20,
    ...(signal ? { signal } : {}),
    onOutput: (piece) => {
      text += new TextDecoder().decode(piece);
      if (text.split("\n").length > count) known();
    },
  });
  await enough;
  return { outcome, ids: text.trim().split("\n").map(Number) };
}

const families: [string, string, number][] = [
  ["and what it waits for", "sleep 600 & echo $!; echo $$; wait", 2],
  ["and what outlives its parent", "(sleep 600 & echo $!); echo $$; exec sleep 600", 2],
  ["and what has left its group", "setsid sleep 600 & echo $!; setsid sh -c 'sleep 600 & echo $!; wait' & echo $!; echo $$; wait", 4],
  ["also when it does not want to end", "trap '' TERM; sleep 600 & echo $!; echo $$; wait; wait; sleep 600", 2],
  ["and what it begins while it ends", "trap 'sleep 600 & wait' TERM; sleep 600 & echo $!; echo $$; wait", 2],
];

describe("a child that is stopped", () => {
  for (const [what, script, count] of families) {
    test(`ends, ${what}`, async () => {
      const ending = new AbortController();
      const { outcome, ids } = await started(new Children(environment), script, count, ending.signal);
      expect(ids).toHaveLength(count);
      ending.abort();
      expect(await outcome).toEqual({ kind: "stopped" });
      await gone(ids);
    });
  }

  test("is asked first, and may put things in order", async () => {
    const mark = join(temporaryFolder(), "mark");
    const ending = new AbortController();
    const script = `trap 'echo ended > ${mark}; exit' TERM; sleep 600 & echo $!; echo $$; wait`;
    const { ids } = await started(new Children(environment), script, 2, ending.signal);
    ending.abort();
    await gone(ids);
    expect((await Bun.file(mark).text()).trim()).toBe("ended");
  });

  test("ends as well when its time is over", async () => {
    const { outcome, ids } = await started(new Children(environment), families[0]![1], 2, undefined, 300);
    expect(await outcome).toEqual({ kind: "timedOut" });
    await gone(ids);
  });
});

describe("the end of all", () => {
  test("takes those that run and those that are ending, and lets none begin", async () => {
    const children = new Children(environment);
    const ending = new AbortController();
    const stubborn = await started(children, "trap '' TERM; sleep 600 & echo $!; echo $$; wait; sleep 600", 2, ending.signal);
    const other = await started(children, families[0]![1], 2);
    ending.abort();
    await children.endAll();
    expect(await other.outcome).toEqual({ kind: "stopped" });
    expect([...stubborn.ids, ...other.ids].filter(isAlive)).toEqual([]);
    expect(await children.run(["sleep", "600"], { timeoutMs: 1_000, maxOutput: 1 })).toEqual({ kind: "stopped" });
  });
});
