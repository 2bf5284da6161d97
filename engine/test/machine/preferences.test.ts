import { expect, test } from "bun:test";
import { mkdirSync } from "node:fs";
import { join } from "node:path";
import { readPreferences } from "../../src/machine/preferences.ts";
import { temporaryFolder } from "../support/folders.ts";

async function read(text: string | undefined) {
  const folder = temporaryFolder();
  const log: string[] = [];
  mkdirSync(join(folder, "palomet"));
  if (text !== undefined) await Bun.write(join(folder, "palomet/engine.json"), text);
  return { found: readPreferences({ XDG_CONFIG_HOME: folder }, (line) => log.push(line)), log };
}

test("the engine's own file says whether words are shown while they are spoken", async () => {
  expect(await read('{"captions": true, "other": 7}')).toEqual({ found: { captions: true }, log: [] });
  expect(await read('{"captions": false}')).toEqual({ found: { captions: false }, log: [] });
  for (const silent of [undefined, "{}"]) expect(await read(silent)).toEqual({ found: {}, log: [] });
});

test("the engine's own file names servers of models; one that is not understood costs itself alone", async () => {
  const entry = { name: "Work", address: "https://llm.example.com", keyVariable: "WORK_KEY" };
  const server = { name: "Work", address: "https://llm.example.com/v1", key: { variable: "WORK_KEY" } };
  expect(await read(JSON.stringify({ captions: true, servers: [entry] }))).toEqual({ found: { captions: true, servers: [server] }, log: [] });
  const { found, log } = await read(JSON.stringify({ captions: 7, servers: [{ address: 7 }, entry] }));
  expect(found).toEqual({ servers: [server] });
  expect(log).toEqual([expect.stringContaining('engine.json: "captions"'), expect.stringContaining('engine.json: "servers", entrada 1')]);
});

test("an own file that is not understood changes nothing, and the log says so", async () => {
  for (const text of ["", "[", "[]", '{"captions": "yes"}', "null"]) {
    expect(await read(text)).toEqual({ found: {}, log: [expect.stringContaining("engine.json")] });
  }
});
