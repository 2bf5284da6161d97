import { describe, expect, test } from "bun:test";
import { bounded } from "../../src/base/log.ts";
import { ManualClock } from "../support/clock.ts";

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
