// Takes all room of a small file system that a test has mounted.

import { writeFileSync } from "node:fs";

/** Fills the file system that the file lies on, to its last byte. */
export function fillDisk(file: string): void {
  for (let size = 64 << 10; size > 0; size >>= 1) {
    for (;;) {
      try {
        writeFileSync(file, new Uint8Array(size), { flag: "a" });
      } catch {
        break;
      }
    }
  }
}
