// A fake `claude`, a brain that asks it, and requests to that brain.

import { readFileSync } from "node:fs";
import { join } from "node:path";
import { systemClock } from "../../src/base/clock.ts";
import { chooseLocale } from "../../src/base/language.ts";
import { phrases } from "../../src/base/phrases.ts";
import type { Hand } from "../../src/hands/hand.ts";
import { Children } from "../../src/machine/children.ts";
import { defaultSettings } from "../../src/memory/settings.ts";
import type { Request } from "../../src/thought/answer.ts";
import type { EngineBrain } from "../../src/thought/brain.ts";
import { Claude } from "../../src/thought/claude.ts";
import { brainWith } from "./brains.ts";
import { program, temporaryFolder } from "./folders.ts";
import { going } from "./processes.ts";

const locale = chooseLocale({ PALOMET_LANGUAGES: "en-US" });
export const init = '{"type":"system","subtype":"init","session_id":"s1","model":"m"}';
export const result = '{"type":"result","subtype":"success","is_error":false,"result":"Done.","total_cost_usd":0.02,"session_id":"s1"}';
export const text = (words: string): string => `{"type":"assistant","message":{"content":[{"type":"text","text":"${words}"}]}}`;

/** Makes a `claude` that notes how it was called, and then runs this script. */
export function tool(script: string): string {
  const folder = program("claude", `[ "$1" = --version ] && echo 2.1.0 && exit\nprintf '%s\\n' "$@" > ${"$0"}.args; pwd > $0.cwd; cat > $0.input; ${script}`);
  return join(folder, "claude");
}

export function print(...lines: string[]): string {
  return lines.map((line) => `printf '%s\\n' '${line}'`).join("; ");
}

export async function brainOf(path: string, stallMs = 5_000, hands: readonly Hand[] = []): Promise<{ brain: EngineBrain; log: string[] }> {
  const children = new Children({ ...process.env, PATH: `${path === "" ? "" : join(path, "..")}:/usr/bin:/bin` });
  const claude = new Claude(children, systemClock, phrases.en, stallMs);
  const { brain, log } = brainWith({ clock: systemClock, children, claude, hands });
  await brain.prepare();
  return { brain, log };
}

export const workingFolder = temporaryFolder();

export function request(words: string, over: Partial<Request> = {}): Request {
  const surroundings = { locale, workingFolder, recogniserModels: [], voices: () => [], actionIds: ["commands", "files", "web"], askedActionIds: ["commands", "files", "web"] };
  return { text: words, askedAt: systemClock.now(), earlier: [], settings: defaultSettings(surroundings), session: undefined, lastAnswer: undefined, ...over };
}

export async function ask(brain: EngineBrain, what: Request, signal = going) {
  const pieces: string[] = [];
  const tools: string[] = [];
  const answer = await brain.answer(what, { text: (piece) => pieces.push(piece), tool: (row) => tools.push(row) }, signal);
  return { text: pieces.join(""), tools, ...answer };
}

export const args = (path: string): string[] => readFileSync(`${path}.args`, "utf8").trim().split("\n");
