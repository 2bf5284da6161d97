// Temporary folders, and programs in them.

import { mkdtempSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";

const folders: string[] = [];

export function temporaryFolder(): string {
  const folder = mkdtempSync(join(tmpdir(), "palomet-engine-"));
  folders.push(folder);
  return folder;
}

/** clear.ts calls this when all files have been tested. */
export function removeTemporaryFolders(): void {
  for (const folder of folders.splice(0)) rmSync(folder, { recursive: true, force: true });
}

/** Writes an executable shell script of this name, in a folder of its own, and gives the folder. */
export function program(name: string, script: string, folder = temporaryFolder()): string {
  writeFileSync(join(folder, name), `#!/bin/sh\n${script}\n`, { mode: 0o755 });
  return folder;
}
