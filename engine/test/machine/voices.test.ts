import { expect, test } from "bun:test";
import { mkdirSync } from "node:fs";
import { join } from "node:path";
import { Children } from "../../src/machine/children.ts";
import { installedVoices } from "../../src/machine/voices.ts";
import { program, temporaryFolder } from "../support/folders.ts";

test("of RHVoice's voices those are offered that are there and under a free licence, when its program is there", () => {
  const folder = temporaryFolder();
  for (const name of ["lyubov", "evgeniy-eng", "slt", "Leticia-F123"]) mkdirSync(join(folder, name));
  const titles = (path: string): string[] => installedVoices(new Children({ PATH: path }), [folder]).map(({ title }) => title);
  expect(titles(program("RHVoice-test", "exit 0"))).toEqual(["Slt (RHVoice)", "Letícia (RHVoice)"]);
  expect(titles("")).toEqual([]);
});
