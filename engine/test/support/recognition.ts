// What the tests of the recognisers share.

import { existsSync } from "node:fs";
import { Children } from "../../src/machine/children.ts";

export const path = process.env.PATH ?? "";
export const installed = new Children({ PATH: path });
export const hasSphinx =
  installed.find("pocketsphinx_batch") !== undefined &&
  installed.find("espeak-ng") !== undefined &&
  existsSync("/usr/share/pocketsphinx/model/en-us/en-us/mdef");
/** For what is to end by itself, however busy the machine is. */
export const patient = 60_000;

/** What a program does instead of its work, as a script; what is then said; how long it is waited for. */
export type Failure = [does: string, script: string, problem: RegExp, timeoutMs?: number];

export const failures: Failure[] = [
  ["hangs", "exec sleep 60", /timedOut/, 50],
  ["crashes", "kill -SEGV $$", /terminou/],
  ["fails", "exit 3", /terminou com 3/],
  ["prints megabytes", "yes", /tooMuch/],
];
