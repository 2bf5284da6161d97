// Reads what the system tells in files, many of which are not on every machine.

import { readFileSync } from "node:fs";

/** The text of a file; "" where there is none, or it cannot be read. */
export function fileText(path: string): string {
  try {
    return readFileSync(path, "utf8");
  } catch {
    return "";
  }
}
