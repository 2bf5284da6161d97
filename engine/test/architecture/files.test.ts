import { expect, test } from "bun:test";
import { existsSync } from "node:fs";
import { join } from "node:path";

const root = join(import.meta.dir, "../..");

test("each test stands in the folder and under the name of the source that it tests", () => {
  const tests = [...new Bun.Glob("**/*.test.ts").scanSync(join(root, "test"))].filter((file) => !file.startsWith("architecture"));
  const sources = tests.map((file) => file.replace(/\.test\.ts$/, ".ts"));
  expect(sources.length).toBeGreaterThan(30);
  expect(sources.filter((file) => !existsSync(join(root, "src", file)))).toEqual([]);
});

test("no source is longer than 300 lines", async () => {
  const long: string[] = [];
  for (const file of new Bun.Glob("{src,test}/**/*.ts").scanSync(root)) {
    const { length } = (await Bun.file(join(root, file)).text()).trimEnd().split("\n");
    if (length > 300) long.push(`${file}: ${length}`);
  }
  expect(long).toEqual([]);
});

test("README.md names every source", async () => {
  const named: string[] = [];
  let folder = "";
  for (const line of (await Bun.file(join(root, "README.md")).text()).split("\n")) {
    const [, cell = ""] = /^\| (?:`((?:[\w.]+\/)+|[\w.]+)`|file) \| /.exec(line) ?? [];
    if (line.startsWith("| file |")) folder = "";
    else if (cell.endsWith("/")) folder = cell;
    else if (cell.endsWith(".ts")) named.push(folder + cell);
  }
  expect(named.sort()).toEqual([...new Bun.Glob("**/*.ts").scanSync(join(root, "src"))].sort());
});
