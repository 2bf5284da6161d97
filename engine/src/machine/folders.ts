// Makes folders, and looks at them.

import { mkdirSync, realpathSync } from "node:fs";
import type { Children } from "./children.ts";

const lookMs = 2_000;
const script = 'n=0; for path; do { [ -d "$path" ] && echo $n; } & n=$((n + 1)); done; wait';

/** Makes it for this user alone. One that cannot be made is missed by whoever uses it. */
export function makeFolder(path: string): void {
  try {
    mkdirSync(path, { recursive: true, mode: 0o700 });
  } catch {
    // Its disk is full, or it is somebody else's.
  }
}

/** This path without links is that folder's. */
export function isPathOf(path: string, folder: string): boolean {
  try {
    return path === realpathSync(folder);
  } catch {
    return false;
  }
}

/** Gives the paths that are folders and can be looked at. A child does it: a drive that does not answer must not hold up the engine. */
export async function presentFolders(children: Children, paths: string[]): Promise<string[]> {
  if (paths.length === 0) return [];
  const decoder = new TextDecoder();
  let found = "";
  await children.run(["/bin/sh", "-c", script, "sh", ...paths], {
    timeoutMs: lookMs,
    maxOutput: 8 * paths.length,
    onOutput: (piece) => (found += decoder.decode(piece, { stream: true })),
  });
  const numbers = new Set(found.split("\n"));
  return paths.filter((_, index) => numbers.has(String(index)));
}
