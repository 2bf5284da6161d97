// Clears up when all files have been tested: an `afterAll` in a module that they share belongs to the first of them.

import { afterAll } from "bun:test";
import { removeTemporaryFolders } from "./folders.ts";
import { endPrivateBus } from "./privateBus.ts";

afterAll(() => {
  endPrivateBus();
  removeTemporaryFolders();
  // The disk of a busy machine takes its time.
}, 60_000);
