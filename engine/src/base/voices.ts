// The voices that the engine knows, and what the settings call them.

import type { Locale } from "./language.ts";

/** The programs that make speech, the best first. */
export const speechPrograms = ["RHVoice", "Flite", "eSpeak NG"] as const;
export type SpeechProgram = (typeof speechPrograms)[number];

export interface Voice {
  /** The name by which people know it; the settings keep it. */
  title: string;
  program: SpeechProgram;
  /** Its name in the program. */
  name: string;
  /** In lower case, such as "pt-br". */
  language: string;
}

const make = (program: SpeechProgram, title: string, name: string, language: string): Voice => ({ title, program, name, language });

/**
 * Every voice that can be offered, a program's best first. Of RHVoice's only those under a free licence; of Flite's not the
 * one of telephone quality, nor the one that can tell the time only; of eSpeak's not those that need MBROLA.
 */
export const knownVoices: readonly Voice[] = [
  make("RHVoice", "Slt (RHVoice)", "slt", "en-us"),
  make("RHVoice", "Alan (RHVoice)", "alan", "en-gb"),
  make("RHVoice", "Bdl (RHVoice)", "bdl", "en-us"),
  make("RHVoice", "Clb (RHVoice)", "clb", "en-us"),
  make("RHVoice", "Letícia (RHVoice)", "Leticia-F123", "pt-br"),
  make("Flite", "Alan (Flite)", "awb", "en-gb"),
  make("Flite", "Slt (Flite)", "slt", "en-us"),
  make("Flite", "Rms (Flite)", "rms", "en-us"),
  make("Flite", "Kal (Flite)", "kal16", "en-us"),
  make("eSpeak NG", "English (America)", "en-us", "en-us"),
  make("eSpeak NG", "English (Great Britain)", "en-gb", "en-gb"),
  make("eSpeak NG", "English (Caribbean)", "en-029", "en-029"),
  make("eSpeak NG", "English (Lancaster)", "en-gb-x-gbclan", "en-gb-x-gbclan"),
  make("eSpeak NG", "English (New York)", "en-us-nyc", "en-us-nyc"),
  make("eSpeak NG", "English (Received Pronunciation)", "en-gb-x-rp", "en-gb-x-rp"),
  make("eSpeak NG", "English (Scotland)", "en-gb-scotland", "en-gb-scotland"),
  make("eSpeak NG", "English (West Midlands)", "en-gb-x-gbcwmd", "en-gb-x-gbcwmd"),
  make("eSpeak NG", "Português (Brasil)", "pt-br", "pt-br"),
  make("eSpeak NG", "Português (Portugal)", "pt", "pt"),
];

/**
 * The voice of a setting: by its title, or by the id that eSpeak has for it. Undefined for what is neither. The variant "+f3",
 * which was on offer once and is hard to understand, stands for the voice itself.
 */
export function voiceOf(setting: string): Voice | undefined {
  const known = knownVoices.find(({ title }) => title === setting);
  if (known) return known;
  const name = setting.replace(/\+f3$/, "");
  if (!/^[\p{L}\p{N}][\p{L}\p{N}_+-]*$/u.test(name)) return undefined;
  const listed = knownVoices.find((voice) => voice.program === "eSpeak NG" && voice.name === name);
  return listed ?? make("eSpeak NG", name, name, name);
}

/** Puts the voices of the user's language first, those of the better programs first among them. */
export function bestFirst(voices: readonly Voice[], { language, voice: own }: Locale): Voice[] {
  const rank = (voice: Voice): number =>
    (voice.language.split("-")[0] === language ? 0 : 10) +
    2 * speechPrograms.indexOf(voice.program) +
    (voice.program === "eSpeak NG" && voice.name === own ? 0 : 1);
  return voices.toSorted((a, b) => rank(a) - rank(b));
}

/** The voice that speaks while nobody has chosen one. */
export function defaultVoice(installed: readonly Voice[], locale: Locale): Voice {
  const best = bestFirst(installed, locale)[0];
  const speaks = best && best.language.split("-")[0] === locale.language;
  return speaks ? best : (voiceOf(locale.voice) as Voice);
}
