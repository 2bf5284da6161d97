// Checks the values of settings.

import { isAbsolute } from "node:path";
import type { Locale } from "../base/language.ts";
import { partsOfServedModel } from "../base/models.ts";
import type { Settings } from "../base/protocol.ts";
import { speechPrograms, voiceOf, type Voice } from "../base/voices.ts";

/** The machine, as far as the checks need to know it. */
export interface Surroundings {
  locale: Locale;
  workingFolder: string;
  /** The recogniser models that are installed, the best first. */
  recogniserModels: string[];
  /** The voices that are installed now, the best first. */
  voices(): readonly Voice[];
  /** The ids of the actions that can be made to need a confirmation. */
  actionIds: string[];
  /** Those of them that need one until the user says otherwise. */
  askedActionIds: string[];
}

/** The folders and tools among the values to be set that were found on the machine. */
export interface Found {
  folders: string[];
  /** The `claude` tools. */
  tools: string[];
}

export type Key = keyof Settings;
interface Context {
  surroundings: Surroundings;
  current: Settings;
  /** Undefined for a value that is loaded: what was there when it was set may be away for a while. */
  found: Found | undefined;
}
/** Gives the value to keep. Undefined refuses it; null stands for "none", for optional settings only. */
type Check = (value: unknown, context: Context) => unknown;

const maxText = 200;
const maxEntries = 50;

export const checks: Record<Key, Check> = {
  inputDevice: orNone(text()),
  wakeWords: textList(60),
  inputPreference: textList(maxText),
  whisperModel: (value, { surroundings }) => surroundings.recogniserModels.find((model) => model === value),
  followUpMs: number(0, 600_000),
  summonMs: number(1_000, 120_000),
  echoGuardMs: number(0, 10_000),
  endSilenceMs: number(200, 10_000),
  isDraftOn: flag,
  isEchoCancelOn: flag,
  isDirectedOn: flag,
  actionPhrases: textList(100),
  draftMaxAgeMs: number(10_000, 86_400_000),
  voiceId: (value) => (value === "" ? "" : text()(value)),
  voiceName: text(60),
  voiceSpeed: number(0.5, 3),
  fishModel: (value, { surroundings, found }) => {
    const isThere = found === undefined || surroundings.voices().some(({ program }) => program === value);
    return isThere ? speechPrograms.find((program) => program === value) : undefined;
  },
  // Engines of before kept the ids that eSpeak has for its voices.
  fallbackVoice: (value) => voiceOf(text()(value) ?? "")?.title,
  // Others than those of servers stand on the command line of the `claude` tool.
  brainModel: (value, context) =>
    typeof value === "string" && partsOfServedModel(value) ? value : matching(/^[A-Za-z0-9][A-Za-z0-9._:[\]-]*$/)(value, context),
  claudePath: orNone((value, { found }) => (isPath(value) && isIn(found?.tools, value) ? value : undefined)),
  folders: (value, { current, found }) => {
    const folders = textList(4096)(value);
    const isGood = (folder: string): boolean => current.folders.includes(folder) || isIn(found?.folders, folder);
    return folders?.every((folder) => isPath(folder) && isGood(folder)) ? folders : undefined;
  },
  confirmActions: (value, { surroundings }) => {
    const ids = textList(maxText)(value);
    return ids?.every((id) => surroundings.actionIds.includes(id)) ? ids : undefined;
  },
  workingFolder: (value, { found }) => (isPath(value) && isIn(found?.folders, value) ? value : undefined),
};

function flag(value: unknown): boolean | undefined {
  return typeof value === "boolean" ? value : undefined;
}

function number(least: number, most: number): Check {
  return (value) => (typeof value === "number" && value >= least && value <= most ? value : undefined);
}

function text(longest = maxText): (value: unknown) => string | undefined {
  return (value) => {
    if (typeof value !== "string") return undefined;
    const trimmed = value.toWellFormed().trim();
    return trimmed !== "" && trimmed.length <= longest && !/\p{Cc}/u.test(trimmed) ? trimmed : undefined;
  };
}

function matching(pattern: RegExp): Check {
  return (value) => (typeof value === "string" && value.length <= maxText && pattern.test(value) ? value : undefined);
}

function orNone(check: Check): Check {
  return (value, context) => (value === null || value === "" ? null : check(value, context));
}

function textList(longest: number): (value: unknown) => string[] | undefined {
  return (value) => {
    if (!Array.isArray(value) || value.length > maxEntries) return undefined;
    const entries = value.map(text(longest));
    return entries.includes(undefined) ? undefined : [...new Set(entries as string[])];
  };
}

function isPath(value: unknown): value is string {
  return typeof value === "string" && isAbsolute(value);
}

function isIn(list: string[] | undefined, value: string): boolean {
  return list === undefined || list.includes(value);
}
