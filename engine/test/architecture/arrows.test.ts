// The arrows between the folders of the sources, as README.md draws them.

import { expect, test } from "bun:test";
import { dirname, join, relative, sep } from "node:path";

/** Each folder, with the others that it may import. Whoever wires the engine may import all. */
const allowed: Record<string, string[]> = {
  base: [],
  hands: ["base", "machine", "memory"],
  machine: ["base"],
  memory: ["base"],
  models: ["base"],
  sound: ["base"],
  recognition: ["base", "machine", "sound"],
  thought: ["base", "hands", "machine"],
  voice: ["base", "machine", "sound"],
  hearing: ["base", "machine", "recognition", "sound"],
  loop: ["base", "hearing", "memory", "recognition", "thought", "voice"],
  port: ["base", "machine", "sound", "voice"],
};

const root = join(import.meta.dir, "../../src");
const files = [...new Bun.Glob("**/*.ts").scanSync(root)];
const imports: [string, string][] = [];
for (const file of files) {
  const text = await Bun.file(join(root, file)).text();
  for (const [, , target = ""] of text.matchAll(/\b(from|import)\s*\(?\s*"([^"]+)"/g)) imports.push([file, target]);
}
const inside = imports
  .filter(([, target]) => target.startsWith("."))
  .map(([file, target]): [string, string] => [file, relative(root, join(root, dirname(file), target))]);
/** "" for what stands in no folder and wires the others; a folder within another belongs to it. */
const folderOf = (file: string): string => (file.includes(sep) ? (file.split(sep)[0] ?? "") : "");
const between = inside.filter(([file, target]) => folderOf(file) !== folderOf(target) && folderOf(file) !== "");

test("a source imports only what its folder may", () => {
  expect(inside.length).toBeGreaterThan(files.length);
  expect(between.filter(([file, target]) => !allowed[folderOf(file)]?.includes(folderOf(target)))).toEqual([]);
});

test("no folder may import what it does not need", () => {
  const needed = new Set(between.map(([file, target]) => `${folderOf(file)} ${folderOf(target)}`));
  const listed = Object.entries(allowed).flatMap(([folder, others]) => others.map((other) => `${folder} ${other}`));
  expect(listed.filter((arrow) => !needed.has(arrow))).toEqual([]);
});

test("no circle of imports is to be found, of folders or of files", () => {
  const circles = (edges: [string, string][]): string[] => {
    let left = edges;
    for (let size = -1; size !== left.length; ) {
      size = left.length;
      const from = new Set(left.map(([file]) => file));
      left = left.filter(([, target]) => from.has(target));
    }
    return left.map((edge) => edge.join(" imports "));
  };
  expect(circles([["a", "b"], ["b", "a"], ["b", "c"]])).toEqual(["a imports b", "b imports a"]);
  expect(circles(inside)).toEqual([]);
  expect(circles(between.map(([file, target]) => [folderOf(file), folderOf(target)]))).toEqual([]);
});

test("the engine imports nothing but bun, and the types of the runtime that it is shipped with", () => {
  const others = imports.filter(([, target]) => !/^(\.|node:|bun(:|$))/.test(target));
  expect(others.filter(([, target]) => target !== "onnxruntime-common")).toEqual([]);
});

test("nothing reaches out of the machine but the command that fetches models, and requests to the servers that the user names", async () => {
  const reaching: string[] = [];
  for (const file of files) {
    const text = await Bun.file(join(root, file)).text();
    if (/\bfetch\((?!`http:\/\/127\.0\.0\.1:)/.test(text)) reaching.push(file);
  }
  expect(reaching.sort()).toEqual(["machine/modelServer.ts", "models/download.ts"]);
  expect(imports.filter(([file, target]) => file !== "command.ts" && target.includes("models/modelCommand"))).toEqual([]);
});

test("the shipped runtime is loaded from where it lies: by name only its types are imported", async () => {
  for (const file of files) {
    const text = await Bun.file(join(root, file)).text();
    const lines = text.split("\n").filter((line) => line.includes('"onnxruntime-common"'));
    expect(lines.filter((line) => !/^import type |typeof import\(/.test(line))).toEqual([]);
  }
});
