// download.test.ts runs this with a small file system mounted on the folder in the argument. The disk fills up while a model
// is fetched, and has room again; what became of the two attempts is printed.

import { rmSync } from "node:fs";
import { join } from "node:path";
import { fetchModel, partOf, sizeOf } from "../../src/models/download.ts";
import { serveFile } from "../support/fileServer.ts";
import { fillDisk } from "../support/fullDisk.ts";

const [folder = ""] = process.argv.slice(2);
const contents = new Uint8Array(600_000).fill(7);
const model = { name: "tried", bytes: contents.length, sha256: new Bun.CryptoHasher("sha256").update(contents).digest("hex"), about: "" };
const file = join(folder, "ggml-tried.bin");
const filler = join(folder, "filler");
const server = await serveFile(contents, { endsAfter: [100_000] });

let isFull = false;
function progress(bytes: number): void {
  server.arrived(bytes);
  if (!isFull) fillDisk(filler);
  isFull = true;
}

const fetching = { from: server.address, file, progress, spareBytes: 0 };
const full = await fetchModel(model, fetching);
const kept = sizeOf(partOf(file));
rmSync(filler);
const room = await fetchModel(model, fetching);
console.log(JSON.stringify({ full, isKept: kept >= 100_000 && kept < contents.length, room, size: sizeOf(file) }));
server.close();
