// The hand for volumes: the system's, by the program of the sound server that is installed, and that of the agent's own voice.

import type { Language } from "../base/language.ts";
import type { Children } from "../machine/children.ts";
import { choiceIn, flagIn, isGiven, numberIn } from "./given.ts";
import type { Hand } from "./hand.ts";

/** The volume of the agent's voice in percent. */
export interface VoiceVolume {
  percent: number;
}

interface Level {
  percent: number;
  isMuted: boolean;
}

type Wanted = { of: "system" | "voice"; to?: number; by?: number; mute?: boolean };

const callMs = 3_000;
const maxOutput = 1 << 16;

export class SoundHand implements Hand {
  readonly id = "volume";
  readonly description = "Sets or tells the volume of the system or of the agent's own voice, in percent. Without to, by or mute it tells.";
  readonly parameters = {
    type: "object",
    properties: {
      of: { type: "string", enum: ["system", "voice"] },
      to: { type: "number", description: "Percent, 0 to 100" },
      by: { type: "number", description: "Percent to add, or to take away when it is negative" },
      mute: { type: "boolean", description: "The system alone" },
    },
    required: ["of"],
  } as const;
  // The next sentence undoes it, and nothing remains of it.
  readonly changes = false;

  constructor(
    private readonly children: Children,
    private readonly voice: VoiceVolume,
  ) {}

  intent(given: unknown, language: Language): string | undefined {
    const wanted = read(given);
    if (!wanted) return undefined;
    const isPortuguese = language === "pt";
    const what = wanted.of === "voice" ? (isPortuguese ? "o volume da minha voz" : "the volume of my voice") : isPortuguese ? "o volume" : "the volume";
    if (wanted.mute !== undefined) {
      if (isPortuguese) return wanted.mute ? "desligar o som" : "ligar o som";
      return wanted.mute ? "turn the sound off" : "turn the sound on";
    }
    if (wanted.to !== undefined) return isPortuguese ? `pôr ${what} em ${wanted.to}%` : `set ${what} to ${wanted.to}%`;
    if (wanted.by === undefined) return isPortuguese ? `dizer ${what}` : `tell ${what}`;
    const by = Math.abs(wanted.by);
    if (isPortuguese) return `${wanted.by > 0 ? "aumentar" : "diminuir"} ${what} em ${by}%`;
    return `turn ${what} ${wanted.by > 0 ? "up" : "down"} by ${by}%`;
  }

  async act(given: unknown, language: Language, signal: AbortSignal): Promise<string> {
    const wanted = read(given);
    const isPortuguese = language === "pt";
    if (!wanted) return isPortuguese ? "Não entendi qual volume." : "I did not understand which volume.";
    if (wanted.of === "voice") {
      if (wanted.to !== undefined || wanted.by !== undefined) this.voice.percent = changed(this.voice.percent, wanted);
      return isPortuguese ? `Minha voz está em ${this.voice.percent}%.` : `My voice is at ${this.voice.percent}%.`;
    }
    const before = await this.#level(signal);
    if (!before) return isPortuguese ? "Não consigo mexer no volume daqui." : "I cannot reach the volume here.";
    const isDone = await this.#change(before, wanted, signal);
    const now = isDone ? await this.#level(signal) : undefined;
    if (!now) return isPortuguese ? "O volume não mudou." : "The volume did not change.";
    if (now.isMuted) return isPortuguese ? "O som está desligado." : "The sound is off.";
    return isPortuguese ? `O volume está em ${now.percent}%.` : `The volume is at ${now.percent}%.`;
  }

  async #change(before: Level, wanted: Wanted, signal: AbortSignal): Promise<boolean> {
    if (wanted.mute !== undefined) return await this.#mute(wanted.mute, signal);
    if (wanted.to === undefined && wanted.by === undefined) return true;
    // Who turns it up wants to hear something.
    const to = changed(before.percent, wanted);
    if (before.isMuted && to > 0 && (wanted.by ?? 1) > 0) await this.#mute(false, signal);
    const isSet = await this.#run(["pactl", "set-sink-volume", "@DEFAULT_SINK@", `${to}%`], signal);
    return isSet !== undefined || (await this.#run(["wpctl", "set-volume", "@DEFAULT_AUDIO_SINK@", `${to}%`], signal)) !== undefined;
  }

  async #mute(isMuted: boolean, signal: AbortSignal): Promise<boolean> {
    const value = isMuted ? "1" : "0";
    const isSet = await this.#run(["pactl", "set-sink-mute", "@DEFAULT_SINK@", value], signal);
    return isSet !== undefined || (await this.#run(["wpctl", "set-mute", "@DEFAULT_AUDIO_SINK@", value], signal)) !== undefined;
  }

  async #level(signal: AbortSignal): Promise<Level | undefined> {
    const volume = await this.#run(["pactl", "get-sink-volume", "@DEFAULT_SINK@"], signal);
    const percents = [...(volume ?? "").matchAll(/(\d+)%/g)].map(([, percent]) => Number(percent));
    if (percents.length > 0) {
      const mute = await this.#run(["pactl", "get-sink-mute", "@DEFAULT_SINK@"], signal);
      return { percent: Math.max(...percents), isMuted: /yes/.test(mute ?? "") };
    }
    const told = await this.#run(["wpctl", "get-volume", "@DEFAULT_AUDIO_SINK@"], signal);
    const share = /Volume: ([\d.]+)/.exec(told ?? "")?.[1];
    return share === undefined ? undefined : { percent: Math.round(Number(share) * 100), isMuted: /MUTED/.test(told ?? "") };
  }

  async #run(command: [string, ...string[]], signal: AbortSignal): Promise<string | undefined> {
    const outcome = await this.children.run(command, { timeoutMs: callMs, maxOutput, signal, environment: { LC_ALL: "C" } });
    return outcome.kind === "ended" && outcome.code === 0 ? new TextDecoder().decode(outcome.output) : undefined;
  }
}

function changed(percent: number, { to, by = 0 }: Wanted): number {
  // A voice or a system that is louder than this is not turned down by who wants it louder.
  const most = Math.max(100, percent);
  return to ?? Math.max(0, Math.min(most, Math.round(percent + by)));
}

function read(given: unknown): Wanted | undefined {
  const of = choiceIn(given, "of", ["system", "voice"]);
  const to = numberIn(given, "to", 0, 100);
  const by = numberIn(given, "by", -100, 100);
  const mute = flagIn(given, "mute");
  if (of === undefined || (isGiven(given, "to") && to === undefined) || (isGiven(given, "by") && by === undefined)) return undefined;
  if (of === "voice" && mute !== undefined) return undefined;
  return {
    of,
    ...(to === undefined ? {} : { to: Math.round(to) }),
    ...(by === undefined ? {} : { by: Math.round(by) }),
    ...(mute === undefined ? {} : { mute }),
  };
}
