// Fetches a model: goes on where an earlier attempt ended, and keeps nothing but the file that was meant.

import {
  closeSync,
  createReadStream,
  existsSync,
  fsyncSync,
  mkdirSync,
  openSync,
  renameSync,
  rmSync,
  statSync,
  statfsSync,
  writeSync,
} from "node:fs";
import { dirname } from "node:path";
import type { Model } from "./catalogue.ts";

export type Fetched =
  | { kind: "fetched" }
  /** Where a part of it lies now, the next attempt goes on behind that. */
  | { kind: "failed"; problem: string };

export interface Fetching {
  /** The folder on the network that holds the file. */
  from: string;
  /** Where the model is to lie. */
  file: string;
  progress(bytes: number): void;
  /** Nothing came for so long: the connection is given up. */
  stallMs?: number;
  /** So much of the disk stays free. */
  spareBytes?: number;
}

/** A connection that is lost is taken up again so often, as long as each brings something. */
const mostConnections = 10;

/** What was fetched of a model so far lies here. */
export const partOf = (file: string): string => `${file}.part`;

export const fileNameOf = (model: Model): string => `ggml-${model.name}.bin`;

export async function fetchModel(model: Model, fetching: Fetching): Promise<Fetched> {
  const part = partOf(fetching.file);
  mkdirSync(dirname(fetching.file), { recursive: true, mode: 0o700 });
  for (let connection = 1; ; connection++) {
    const before = sizeOf(part);
    const outcome = await connect(model, fetching, part);
    const hasGrown = sizeOf(part) > before;
    if (outcome.kind !== "lost") return outcome;
    if (!hasGrown || connection === mostConnections) return { kind: "failed", problem: outcome.problem };
  }
}

/** Tells whether this is the model's file, whole. */
export async function isWhole(file: string, model: Model): Promise<boolean> {
  return sizeOf(file) === model.bytes && (await hashOf(file)).digest("hex") === model.sha256;
}

type Connected = Fetched | { kind: "lost"; problem: string };

const failed = (problem: string): Connected => ({ kind: "failed", problem });

async function connect(model: Model, fetching: Fetching, part: string): Promise<Connected> {
  const { from, file, progress, stallMs = 30_000, spareBytes = 64 << 20 } = fetching;
  if (sizeOf(part) > model.bytes) rmSync(part);
  const have = sizeOf(part);
  if (have === model.bytes) return await accept(model, file, part, await hashOf(part));
  const { bavail, bsize } = statfsSync(dirname(file));
  const [free, wanted] = [bavail * bsize, model.bytes - have + spareBytes];
  if (free < wanted) return failed(`the disk is too full: ${inMegabytes(wanted)} are wanted, ${inMegabytes(free)} are free`);

  const stall = new AbortController();
  let timer = setTimeout(() => stall.abort(), stallMs);
  let output: number | undefined;
  try {
    // A range counts the bytes as they are sent.
    const headers: Record<string, string> = { "accept-encoding": "identity" };
    if (have > 0) headers.range = `bytes=${have}-`;
    const answer = await fetch(`${from}/${fileNameOf(model)}`, { headers, signal: stall.signal });
    const problem = problemOf(answer, model, have);
    if (answer.status === 416) rmSync(part);
    if (problem !== undefined || answer.body === null) {
      await answer.body?.cancel();
      return failed(problem ?? "the answer is empty");
    }
    const isContinued = answer.status === 206;
    const hash = isContinued ? await hashOf(part) : new Bun.CryptoHasher("sha256");
    output = openSync(part, isContinued ? "a" : "w", 0o644);
    let length = isContinued ? have : 0;
    for await (const piece of answer.body) {
      clearTimeout(timer);
      timer = setTimeout(() => stall.abort(), stallMs);
      length += piece.length;
      if (length > model.bytes) {
        rmSync(part);
        return failed("the file there is longer than the model");
      }
      writeWhole(output, piece);
      hash.update(piece);
      progress(length);
    }
    if (length < model.bytes) return { kind: "lost", problem: "the connection was lost" };
    fsyncSync(output);
    return await accept(model, file, part, hash);
  } catch (error) {
    const { code, message } = error as NodeJS.ErrnoException;
    if (code === "ENOSPC" || code === "EDQUOT") return failed("the disk is full");
    if (code === "EACCES" || code === "EROFS") return failed(`${part} cannot be written`);
    return { kind: "lost", problem: stall.signal.aborted ? "nothing came any more" : message };
  } finally {
    clearTimeout(timer);
    if (output !== undefined) closeSync(output);
  }
}

/** What is wrong with this answer to a request for all that lies behind the first `have` bytes. */
function problemOf(answer: Response, model: Model, have: number): string | undefined {
  if (answer.status === 404 || answer.status === 410) return "there is no such file";
  if (answer.status === 416) return "the file there is another one; what was fetched of it is removed";
  if (answer.status !== 200 && answer.status !== 206) return `the server answered ${answer.status} ${answer.statusText}`.trim();
  const [, start, total] = /^bytes (\d+)-\d+\/(\d+|\*)$/.exec(answer.headers.get("content-range") ?? "") ?? [];
  if (answer.status === 206 && Number(start) !== have) return "the server sent another part than the one that was asked for";
  const size = answer.status === 206 ? total : answer.headers.get("content-length");
  const isOther = size !== undefined && size !== null && size !== "*" && Number(size) !== model.bytes;
  return isOther ? `the file there has ${size} bytes, the model ${model.bytes}` : undefined;
}

async function accept(model: Model, file: string, part: string, hash: Bun.CryptoHasher): Promise<Connected> {
  if (hash.digest("hex") !== model.sha256) {
    rmSync(part);
    return failed("what came is not the model: its checksum is another one; it is removed");
  }
  renameSync(part, file);
  return { kind: "fetched" };
}

function writeWhole(output: number, piece: Uint8Array): void {
  for (let at = 0; at < piece.length; ) at += writeSync(output, piece, at);
}

async function hashOf(file: string): Promise<Bun.CryptoHasher> {
  const hash = new Bun.CryptoHasher("sha256");
  for await (const piece of createReadStream(file, { highWaterMark: 1 << 20 })) hash.update(piece as Uint8Array);
  return hash;
}

export function sizeOf(file: string): number {
  return existsSync(file) ? statSync(file).size : 0;
}

export function inMegabytes(bytes: number): string {
  return `${Math.ceil(bytes / 1e6)} MB`;
}
