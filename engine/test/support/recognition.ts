// The tests of the recognisers share the programs that are installed, and ways to fail.

import { existsSync } from "node:fs";
import { Children } from "../../src/machine/children.ts";

export { patient } from "./processes.ts";

export const path = process.env.PATH ?? "";
export const installed = new Children({ PATH: path });
export const hasSphinx =
  installed.find("pocketsphinx_batch") !== undefined &&
  installed.find("espeak-ng") !== undefined &&
  existsSync("/usr/share/pocketsphinx/model/en-us/en-us/mdef");

/** A script that a program runs instead of its work, the problem that is then reported, and the time limit. */
export type Failure = [does: string, script: string, problem: RegExp, timeoutMs?: number];

export const failures: Failure[] = [
  ["hangs", "exec sleep 60", /timedOut/, 50],
  ["crashes", "kill -SEGV $$", /terminou/],
  ["fails", "exit 3", /terminou com 3/],
  ["prints megabytes", "yes", /tooMuch/],
];
