import { describe, expect, test } from "bun:test";
import { writeFileSync } from "node:fs";
import { join } from "node:path";
import { StartFailures } from "../../src/base/startFailures.ts";
import { ManualClock } from "../support/clock.ts";
import { temporaryFolder } from "../support/folders.ts";

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
