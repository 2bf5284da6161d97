// The settings: their defaults, and their values as the store keeps them.

import { parseJson } from "../base/json.ts";
import type { Settings } from "../base/protocol.ts";
import { cut } from "../base/text.ts";
import { defaultVoice, voiceOf } from "../base/voices.ts";
import { checks, type Found, type Key, type Surroundings } from "./settingChecks.ts";
import type { Store } from "./store.ts";

export function defaultSettings(surroundings: Surroundings): Settings {
  const isPortuguese = surroundings.locale.language === "pt";
  const voice = defaultVoice(surroundings.voices(), surroundings.locale);
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
    fishModel: voice.program,
    fallbackVoice: voice.title,
    brainModel: "haiku",
    folders: [],
    confirmActions: [...surroundings.askedActionIds],
    workingFolder: surroundings.workingFolder,
  };
}

export class SettingsKeeper {
  #current: Settings;

  constructor(
    private readonly store: Store,
    private readonly surroundings: Surroundings,
  ) {
    this.#current = defaultSettings(surroundings);
    for (const [key, json] of store.loadSettings()) {
      const accepted = this.#check({ [key]: parseJson(json) }, undefined);
      if (accepted) this.#apply(accepted);
    }
  }

  get current(): Settings {
    return this.#current;
  }

  /** Sets all of these values or none. Gives the keys that were set, or what is wrong. */
  set(values: Record<string, unknown>, found: Found): { keys: Key[] } | { problem: string } {
    const accepted = this.#check(this.#withVoice(values), found);
    if (!accepted) return { problem: `not a setting, or not a value for it: ${cut(JSON.stringify(values), 200)}` };
    this.#apply(accepted);
    for (const [key, value] of accepted) this.store.saveSetting(key, JSON.stringify(value));
    return { keys: accepted.map(([key]) => key) };
  }

  /** Writes all settings again, after the store was replaced. */
  saveAll(): void {
    for (const [key, value] of Object.entries(this.#current)) this.store.saveSetting(key, JSON.stringify(value));
  }

  /** Who chooses a program for the voice chooses its best voice too, unless it speaks already. */
  #withVoice(values: Record<string, unknown>): Record<string, unknown> {
    const { fishModel, fallbackVoice } = values;
    if (fishModel === undefined || fallbackVoice !== undefined || fishModel === this.#current.fishModel) return values;
    const voice = this.surroundings.voices().find(({ program }) => program === fishModel);
    return voice ? { ...values, fallbackVoice: voice.title } : values;
  }

  #check(values: Record<string, unknown>, found: Found | undefined): [Key, unknown][] | undefined {
    const accepted: [Key, unknown][] = [];
    for (const [key, value] of Object.entries(values)) {
      if (!Object.hasOwn(checks, key)) return undefined;
      const kept = checks[key as Key](value, { surroundings: this.surroundings, current: this.#current, found });
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
    const settings = next as unknown as Settings;
    // The program is the one of the voice, whatever was kept.
    this.#current = { ...settings, fishModel: voiceOf(settings.fallbackVoice)?.program ?? settings.fishModel };
  }
}
