import { describe, expect, test } from "bun:test";
import { writeFileSync } from "node:fs";
import { join } from "node:path";
import { bounded, StartFailures } from "../src/base/log.ts";
import { ManualClock, temporaryFolder } from "./support.ts";

describe("the log", () => {
  test("counts what is said over and over, also in turns, and says it again after an hour", () => {
    const clock = new ManualClock();
    const lines: string[] = [];
    const log = bounded((line) => lines.push(line), clock);
    for (let n = 0; n < 100; n++) {
      log("a");
      log("b");
    }
    expect(lines).toEqual(["a", "b", "a (10 vezes)", "b (10 vezes)", "a (100 vezes)", "b (100 vezes)"]);
    clock.time += 3_600_000;
    log("a");
    expect(lines.at(-1)).toBe("a");
  });

  test("takes a hundred lines a minute, and says how many more there were", () => {
    const clock = new ManualClock();
    const lines: string[] = [];
    const log = bounded((line) => lines.push(line), clock);
    for (let n = 0; n < 100_000; n++) log(`line ${n}`);
    expect(lines).toHaveLength(100);
    clock.time += 60_000;
    log("later");
    expect(lines.slice(100)).toEqual(["mais 99900 linhas ficaram de fora", "later"]);
  });
});

describe("an engine that cannot start", () => {
  test("says so once and counts, over all its starts, until it has started or the reason is another", () => {
    const clock = new ManualClock();
    const lines: string[] = [];
    const path = join(temporaryFolder(), "a/failing.json");
    const start = (): StartFailures => new StartFailures(path, (line) => lines.push(line), clock);
    for (let n = 0; n < 100; n++) start().tell("taken");
    expect(lines).toEqual(["taken", "taken (10 vezes)", "taken (100 vezes)"]);
    start().tell("other");
    start().tell("taken");
    start().settle();
    start().tell("taken");
    clock.time += 3_600_000;
    start().tell("taken");
    expect(lines.slice(3)).toEqual(["other", "taken", "taken", "taken"]);
  });

  test("says so where it cannot count, or finds nonsense in its note", () => {
    const folder = temporaryFolder();
    const lines: string[] = [];
    writeFileSync(join(folder, "file"), '{"line":7}');
    for (const path of ["file", "file/under", "file"]) {
      const failures = new StartFailures(join(folder, path), (line) => lines.push(line), new ManualClock());
      failures.tell(`x ${path}`);
    }
    expect(lines).toEqual(["x file", "x file/under"]);
  });
});
