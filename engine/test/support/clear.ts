// Clears up when all files have been tested: an `afterAll` in a module that they share belongs to the first of them.

import { afterAll } from "bun:test";
import { removeTemporaryFolders } from "./folders.ts";
import { endPrivateBus } from "./privateBus.ts";

afterAll(() => {
  endPrivateBus();
  removeTemporaryFolders();
});
