import { expect, test } from "bun:test";
import { existsSync } from "node:fs";
import { join } from "node:path";

test("each test stands in the folder and under the name of the source that it tests", () => {
  const root = join(import.meta.dir, "../..");
  const tests = [...new Bun.Glob("**/*.test.ts").scanSync(join(root, "test"))].filter((file) => !file.startsWith("architecture"));
  const sources = tests.map((file) => file.replace(/\.test\.ts$/, ".ts"));
  expect(sources.length).toBeGreaterThan(30);
  expect(sources.filter((file) => !existsSync(join(root, "src", file)))).toEqual([]);
});

test("no source is longer than 300 lines", async () => {
  const root = join(import.meta.dir, "../..");
  const long: string[] = [];
  for (const file of new Bun.Glob("{src,test}/**/*.ts").scanSync(root)) {
    const { length } = (await Bun.file(join(root, file)).text()).trimEnd().split("\n");
    if (length > 300) long.push(`${file}: ${length}`);
  }
  expect(long).toEqual([]);
});
