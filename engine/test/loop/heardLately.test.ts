import { expect, test } from "bun:test";
import { HeardLately } from "../../src/loop/heardLately.ts";

test("entries have times of their own, and the oldest of more than fifty are gone", () => {
  const heard = new HeardLately();
  for (let number = 0; number < 60; number++) heard.add(1_000, `${number}`, "ignored", undefined);
  expect(heard.entries).toHaveLength(50);
  expect(heard.entries[0]).toEqual({ at: 1_010, text: "10", action: "ignored" });
  expect(new Set(heard.entries.map(({ at }) => at)).size).toBe(50);
});

test("a caption comes last, keeps its time while its words change, and gives way to the whole", () => {
  const heard = new HeardLately();
  heard.add(1_000, "before", "ignored", "the name was not said");
  heard.caption(900, "what");
  heard.caption(2_000, "what time");
  expect(heard.withCaption.slice(1)).toEqual([{ at: 1_001, text: "what time", action: "…" }]);
  expect(heard.entries).toHaveLength(1);
  heard.add(3_000, "what time is it", "accepted", undefined);
  expect(heard.withCaption.map(({ text }) => text)).toEqual(["before", "what time is it"]);
});

test("a caption that nothing came of is dropped", () => {
  const heard = new HeardLately();
  heard.caption(900, "what");
  heard.dropCaption();
  expect(heard.withCaption).toEqual([]);
});
