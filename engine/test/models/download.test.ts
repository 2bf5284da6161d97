import { afterEach, describe, expect, test } from "bun:test";
import { existsSync, mkdirSync, readFileSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import { catalogue, publishedAt, recommendedModel } from "../../src/models/catalogue.ts";
import { fetchModel, fileNameOf, partOf, type Fetched } from "../../src/models/download.ts";
import { serveFile, type FileServer, type Manner } from "../support/fileServer.ts";
import { temporaryFolder } from "../support/folders.ts";

const contents = new Uint8Array(300_000).map((_, at) => (at * 7919) >> 5);
const model = {
  name: "tried",
  bytes: contents.length,
  sha256: new Bun.CryptoHasher("sha256").update(contents).digest("hex"),
  about: "",
};

const servers: FileServer[] = [];
afterEach(() => {
  for (const server of servers.splice(0)) server.close();
});

interface Tried {
  outcome: Fetched;
  server: FileServer;
  file: string;
  progress: number[];
}

async function fetchFrom(manner: Manner, served = contents, over: { part?: Uint8Array; from?: string; stallMs?: number } = {}): Promise<Tried> {
  const server = await serveFile(served, manner);
  servers.push(server);
  const file = join(temporaryFolder(), "models", fileNameOf(model));
  mkdirSync(join(file, ".."));
  const { part, ...rest } = over;
  if (part) writeFileSync(partOf(file), part);
  const progress: number[] = [];
  const count = (bytes: number): void => {
    progress.push(bytes);
    server.arrived(bytes);
  };
  const outcome = await fetchModel(model, { from: server.address, file, progress: count, ...rest });
  return { outcome, server, file, progress };
}

function expectWhole({ outcome, file }: Tried): void {
  expect(outcome).toEqual({ kind: "fetched" });
  expect(Buffer.compare(readFileSync(file), contents)).toBe(0);
  expect(existsSync(partOf(file))).toBe(false);
}

test("a model is fetched whole", async () => {
  const it = await fetchFrom({});
  expectWhole(it);
  expect(it.server.asked).toEqual([{ path: "/ggml-tried.bin", from: 0 }]);
  expect(it.progress.at(-1)).toBe(contents.length);
});

test("a connection that is lost is taken up again where it ended", async () => {
  const it = await fetchFrom({ endsAfter: [100_000, 50_000] });
  expectWhole(it);
  expect(it.server.asked.map(({ from }) => from)).toEqual([0, 100_000, 150_000]);
});

test("a connection that brings nothing any more is given up, and what came is kept", async () => {
  const it = await fetchFrom({ stallsAfter: 0 }, contents, { part: contents.subarray(0, 1_000), stallMs: 50 });
  expect(it.outcome).toEqual({ kind: "failed", problem: "nothing came any more" });
  expect(readFileSync(partOf(it.file)).length).toBe(1_000);
});

test("an earlier attempt is gone on with, and its bytes are not fetched again", async () => {
  const it = await fetchFrom({}, contents, { part: contents.subarray(0, 123_456) });
  expectWhole(it);
  expect(it.server.asked).toEqual([{ path: "/ggml-tried.bin", from: 123_456 }]);
});

test("an earlier attempt that had everything needs no server", async () => {
  const it = await fetchFrom({ status: "500 Broken" }, contents, { part: contents });
  expectWhole(it);
  expect(it.server.asked).toEqual([]);
});

test("a server without ranges sends the model from its beginning", async () => {
  expectWhole(await fetchFrom({ isSimple: true }, contents, { part: new Uint8Array(1_000) }));
});

test("what has another checksum is refused and removed", async () => {
  const other = contents.toReversed();
  for (const it of [await fetchFrom({}, other), await fetchFrom({}, contents, { part: new Uint8Array(10) })]) {
    expect(it.outcome).toEqual({ kind: "failed", problem: expect.stringContaining("checksum") });
    expect([existsSync(it.file), existsSync(partOf(it.file))]).toEqual([false, false]);
  }
});

test("a file of another size is refused before it is fetched", async () => {
  for (const length of [100, 300_001]) {
    const it = await fetchFrom({}, new Uint8Array(length));
    expect(it.outcome).toEqual({ kind: "failed", problem: `the file there has ${length} bytes, the model 300000` });
    expect([it.progress, existsSync(partOf(it.file))]).toEqual([[], false]);
  }
});

test("another part than the one that was asked for is refused, and what came before stays", async () => {
  const it = await fetchFrom({ wrongStart: 5 }, contents, { part: contents.subarray(0, 1_000) });
  expect(it.outcome.kind).toBe("failed");
  expect(readFileSync(partOf(it.file)).length).toBe(1_000);
});

test("what a server answers instead of a file is said", async () => {
  const answers: [string, string][] = [
    ["404 Not Found", "there is no such file"],
    ["503 Service Unavailable", "the server answered 503 Service Unavailable"],
    ["416 Range Not Satisfiable", "the file there is another one; what was fetched of it is removed"],
  ];
  for (const [status, problem] of answers) {
    const { outcome } = await fetchFrom({ status }, contents, { part: new Uint8Array(1) });
    expect(outcome).toEqual({ kind: "failed", problem });
  }
});

test("nobody at the address is said", async () => {
  const it = await fetchFrom({}, contents, { from: "http://127.0.0.1:1" });
  expect(it.outcome).toEqual({ kind: "failed", problem: expect.any(String) });
});

test("a redirection is followed, also behind the first bytes", async () => {
  const target = await serveFile(contents);
  servers.push(target);
  const headers = [`location: ${target.address}/elsewhere`];
  expectWhole(await fetchFrom({ status: "302 Found", headers }));
  expectWhole(await fetchFrom({ status: "307 Temporary Redirect", headers }, contents, { part: contents.subarray(0, 1_000) }));
  expect(target.asked).toEqual([{ path: "/elsewhere", from: 0 }, { path: "/elsewhere", from: 1_000 }]);
});

test("a model larger than the disk is not begun", async () => {
  const server = await serveFile(contents);
  servers.push(server);
  const file = join(temporaryFolder(), fileNameOf(model));
  const outcome = await fetchModel({ ...model, bytes: 1e18 }, { from: server.address, file, progress: () => {} });
  expect(outcome).toEqual({ kind: "failed", problem: expect.stringMatching(/^the disk is too full: \d+ MB are wanted, \d+ MB are free$/) });
  expect(server.asked).toEqual([]);
});

test("each model on offer has a checksum and a name of its own, and one of them is recommended", () => {
  expect(catalogue.every(({ sha256 }) => /^[0-9a-f]{64}$/.test(sha256))).toBe(true);
  for (const key of ["name", "sha256", "bytes"] as const) expect(new Set(catalogue.map((entry) => entry[key])).size).toBe(catalogue.length);
  expect(catalogue.map(({ name }) => name)).toContain(recommendedModel);
  expect(publishedAt).toMatch(/^https:.*\/[0-9a-f]{40}$/);
});

describe("a full disk", () => {
  const alone = process.getuid?.() === 0 ? ["unshare", "-m"] : ["unshare", "-Urm"];
  const onSmallDisk = (folder: string, command: string): string[] =>
    [...alone, "sh", "-c", `mount -t tmpfs -o size=1m tmpfs ${folder} && ${command}`];
  const canMount = Bun.spawnSync(onSmallDisk(temporaryFolder(), "true")).success;

  test.if(canMount)("ends the fetching and loses nothing: when there is room again it goes on", async () => {
    const folder = temporaryFolder();
    const command = `exec ${process.execPath} ${join(import.meta.dir, "fullDisk.ts")} ${folder}`;
    const child = Bun.spawn(onSmallDisk(folder, command), { stdout: "pipe" });
    expect(JSON.parse(await new Response(child.stdout).text())).toEqual({
      full: { kind: "failed", problem: expect.stringMatching(/^the disk is (full|too full: .*)$/) },
      isKept: true,
      room: { kind: "fetched" },
      size: 600_000,
    });
  });
});
