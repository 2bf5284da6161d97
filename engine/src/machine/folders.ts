// Looks whether folders are there. A child does it: a drive that does not answer must not hold up the engine.

import type { Children } from "./children.ts";

const lookMs = 2_000;
const script = 'n=0; for path; do { [ -d "$path" ] && echo $n; } & n=$((n + 1)); done; wait';

/** Gives the paths that are folders and can be looked at. */
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
