// The settings: what each may be, what it is to begin with, and where it is kept.

import { statSync } from "node:fs";
import { isAbsolute } from "node:path";
import type { Locale } from "./language.ts";
import { parseJson, type Settings } from "./protocol.ts";
import type { Store } from "./store.ts";

/** What the checks need to know of the machine. */
export interface Surroundings {
  locale: Locale;
  workingFolder: string;
  /** The recogniser models that are installed, the best first. */
  recogniserModels: string[];
  /** The ids of the actions that can be made to need a confirmation. */
  actionIds: string[];
}

export const speechModel = "espeak-ng";

type Key = keyof Settings;
/** The value to keep; undefined refuses it; null stands for "none" and is for optional settings only. */
type Check = (value: unknown, context: { surroundings: Surroundings; current: Settings }) => unknown;

const maxText = 200;
const maxEntries = 50;

const checks: Record<Key, Check> = {
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
  fishModel: (value) => (value === speechModel ? value : undefined),
  fallbackVoice: matching(/^[\p{L}\p{N}][\p{L}\p{N}_+-]*$/u),
  brainModel: matching(/^[A-Za-z0-9][A-Za-z0-9._:[\]-]*$/),
  claudePath: orNone((value) => (typeof value === "string" && isProgram(value) ? value : undefined)),
  folders: (value, { current }) => {
    const folders = textList(4096)(value);
    return folders?.every((folder) => current.folders.includes(folder) || isFolder(folder)) ? folders : undefined;
  },
  confirmActions: (value, { surroundings }) => {
    const ids = textList(maxText)(value);
    return ids?.every((id) => surroundings.actionIds.includes(id)) ? ids : undefined;
  },
  workingFolder: (value) => (typeof value === "string" && isFolder(value) ? value : undefined),
};

export function defaultSettings(surroundings: Surroundings): Settings {
  const isPortuguese = surroundings.locale.language === "pt";
  return {
    wakeWords: ["palomet"],
    inputPreference: [],
    whisperModel: surroundings.recogniserModels[0] ?? "",
    followUpMs: 15_000,
    summonMs: 8_000,
    echoGuardMs: 800,
    endSilenceMs: 800,
    isDraftOn: false,
    isEchoCancelOn: true,
    isDirectedOn: true,
    actionPhrases: isPortuguese ? ["pode fazer"] : ["go ahead"],
    draftMaxAgeMs: 600_000,
    voiceId: "",
    voiceName: "Palomet",
    voiceSpeed: 1,
    fishModel: speechModel,
    fallbackVoice: surroundings.locale.voice,
    brainModel: "haiku",
    folders: [],
    confirmActions: [...surroundings.actionIds],
    workingFolder: surroundings.workingFolder,
  };
}

export class SettingsKeeper {
  #current: Settings;

  constructor(
    readonly store: Store,
    readonly surroundings: Surroundings,
  ) {
    this.#current = defaultSettings(surroundings);
    for (const [key, json] of store.loadSettings()) {
      const accepted = this.#check({ [key]: parseJson(json) });
      if (accepted) this.#apply(accepted);
    }
  }

  get current(): Settings {
    return this.#current;
  }

  /** Keeps these values, all or none. The keys that were set, or what is wrong. */
  set(values: Record<string, unknown>): { keys: Key[] } | { problem: string } {
    const accepted = this.#check(values);
    if (!accepted) return { problem: `not a setting, or not a value for it: ${JSON.stringify(values).slice(0, 200)}` };
    this.#apply(accepted);
    for (const [key, value] of accepted) this.store.saveSetting(key, JSON.stringify(value));
    return { keys: accepted.map(([key]) => key) };
  }

  /** Writes all settings again, after the store was replaced. */
  saveAll(): void {
    for (const [key, value] of Object.entries(this.#current)) this.store.saveSetting(key, JSON.stringify(value));
  }

  #check(values: Record<string, unknown>): [Key, unknown][] | undefined {
    const accepted: [Key, unknown][] = [];
    for (const [key, value] of Object.entries(values)) {
      if (!Object.hasOwn(checks, key)) return undefined;
      const kept = checks[key as Key](value, { surroundings: this.surroundings, current: this.#current });
      if (kept === undefined) return undefined;
      accepted.push([key as Key, kept]);
    }
    return accepted;
  }

  #apply(accepted: [Key, unknown][]): void {
    const next: Record<string, unknown> = { ...this.#current };
    for (const [key, value] of accepted) {
      if (value === null) delete next[key];
      else next[key] = value;
    }
    this.#current = next as unknown as Settings;
  }
}

function flag(value: unknown): boolean | undefined {
  return typeof value === "boolean" ? value : undefined;
}

function number(least: number, most: number): Check {
  return (value) => (typeof value === "number" && value >= least && value <= most ? value : undefined);
}

function text(longest = maxText): (value: unknown) => string | undefined {
  return (value) => {
    if (typeof value !== "string") return undefined;
    const trimmed = value.trim();
    return trimmed !== "" && trimmed.length <= longest && !/\p{Cc}/u.test(trimmed) ? trimmed : undefined;
  };
}

function matching(pattern: RegExp): Check {
  return (value) => (typeof value === "string" && value.length <= maxText && pattern.test(value) ? value : undefined);
}

function orNone(check: (value: unknown) => unknown): Check {
  return (value) => (value === null || value === "" ? null : check(value));
}

function textList(longest: number): (value: unknown) => string[] | undefined {
  return (value) => {
    if (!Array.isArray(value) || value.length > maxEntries) return undefined;
    const entries = value.map(text(longest));
    return entries.includes(undefined) ? undefined : [...new Set(entries as string[])];
  };
}

function isFolder(path: string): boolean {
  return isAbsolute(path) && (statSync(path, { throwIfNoEntry: false })?.isDirectory() ?? false);
}

function isProgram(path: string): boolean {
  const found = isAbsolute(path) ? statSync(path, { throwIfNoEntry: false }) : undefined;
  return found !== undefined && found.isFile() && (found.mode & 0o111) !== 0;
}
