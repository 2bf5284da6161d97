// Paths within the folders of the settings. A link that leads out of them is outside.

import { constants, realpathSync } from "node:fs";
import { open } from "node:fs/promises";
import { basename, dirname, isAbsolute, join, normalize, sep } from "node:path";

/** The true path of what is there, when it lies within one of the folders. */
export function within(path: string, folders: readonly string[]): string | undefined {
  const found = truePath(absolute(path, folders));
  if (found === undefined) return undefined;
  for (const folder of folders) {
    const root = truePath(folder);
    if (root !== undefined && (found === root || found.startsWith(root.endsWith(sep) ? root : root + sep))) return found;
  }
  return undefined;
}

/** The true path of a file that may not be there yet: its folder is. A link in its place is outside. */
export function placeWithin(path: string, folders: readonly string[]): string | undefined {
  const wanted = absolute(path, folders);
  const name = basename(wanted);
  if (name === "" || name === "." || name === ".." || name.includes("\0")) return undefined;
  const folder = within(dirname(wanted), folders);
  if (folder === undefined) return undefined;
  const place = join(folder, name);
  const found = truePath(place);
  return found === undefined || found === place ? place : undefined;
}

/** Reads the beginning of a plain file, whose last name is not a link. Throws what the system says. */
export async function readPlain(path: string, most: number): Promise<{ text: string; isWhole: boolean } | undefined> {
  // A pipe would keep whoever opens it waiting.
  const file = await open(path, constants.O_RDONLY | constants.O_NOFOLLOW | constants.O_NONBLOCK);
  try {
    const about = await file.stat();
    if (!about.isFile()) return undefined;
    const { buffer, bytesRead } = await file.read({ buffer: Buffer.alloc(Math.min(most, Math.max(about.size, 1))), position: 0 });
    const bytes = buffer.subarray(0, bytesRead);
    if (bytes.includes(0)) return undefined;
    return { text: new TextDecoder().decode(bytes), isWhole: bytesRead >= about.size };
  } finally {
    await file.close();
  }
}

function absolute(path: string, folders: readonly string[]): string {
  return normalize(isAbsolute(path) ? path : join(folders[0] ?? sep, path));
}

function truePath(path: string): string | undefined {
  try {
    return realpathSync(path);
  } catch {
    return undefined;
  }
}
