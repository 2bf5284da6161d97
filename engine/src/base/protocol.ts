// The documents, settings and messages that the engine exchanges with its front end. docs/protocol.md explains them.

import { cut } from "./text.ts";

export const defaultPort = 4780;

export type LoopState =
  | "waiting"
  | "listening"
  | "hearing"
  | "drafting"
  | "thinking"
  | "speaking"
  | "muted"
  | "offline";

/** What the engine did with an utterance. */
export type HeardAction =
  | "accepted"
  | "summoned"
  | "drafted"
  | "acted"
  | "cleared"
  | "interrupted"
  | "ignored"
  | "echo"
  | "muted";

export interface Row {
  role: "user" | "assistant" | "tool";
  text: string;
  at: number;
  durationMs?: number;
  isOpen?: boolean;
}

export interface Conversation {
  startedAt: number;
  rows: Row[];
  costUsd: number;
  answers: number;
}

export interface Session {
  model: string;
  claudePath: string;
  claudeVersion: string;
  startedAt: number;
  isReady: boolean;
}

export interface Heard {
  at: number;
  text: string;
  action: HeardAction;
  reason?: string;
}

export interface DraftEntry {
  at: number;
  text: string;
}

export interface Timings {
  transcribeMs?: number;
  modelMs: number;
  voiceMs: number;
  totalMs: number;
  isSpoken: boolean;
}

export interface Memory {
  isResumed: boolean;
  journalDays: number;
}

export interface Settings {
  inputDevice?: string;
  wakeWords: string[];
  inputPreference: string[];
  whisperModel: string;
  followUpMs: number;
  summonMs: number;
  echoGuardMs: number;
  endSilenceMs: number;
  isDraftOn: boolean;
  isEchoCancelOn: boolean;
  isDirectedOn: boolean;
  actionPhrases: string[];
  draftMaxAgeMs: number;
  voiceId: string;
  voiceName: string;
  voiceSpeed: number;
  fishModel: string;
  fallbackVoice: string;
  brainModel: string;
  claudePath?: string;
  folders: string[];
  confirmActions: string[];
  workingFolder: string;
}

export interface Snapshot {
  state: LoopState;
  isMuted: boolean;
  isMicDead: boolean;
  isEchoCancelled: boolean;
  device: string;
  conversation: Conversation;
  session: Session;
  heard: Heard[];
  draft: DraftEntry[];
  settings: Settings;
  timings?: Timings;
  memory: Memory;
}

export interface ConversationSummary {
  conversationId: string;
  startedAt: number;
  firstQuestion: string;
  answers: number;
  costUsd: number;
}

export interface Options {
  inputs: string[];
  models: string[];
  whisperModels: string[];
  fishModels: string[];
  macVoices: string[];
  claudePaths: { path: string; version: string }[];
  confirmActions: { id: string; label: string }[];
}

/** A text message of the front end over the audio link. */
export type LinkEvent =
  | { type: "hello"; device: string }
  | { type: "device"; device: string }
  | { type: "played"; id: number };

/** A text message of the engine over the audio link. */
export type LinkCommand =
  | { type: "play"; id: number; data: string; format: string }
  | { type: "stop" }
  | { type: "enable"; on: boolean }
  | { type: "chime" }
  | { type: "input"; device?: string };

/** Samples a second of the microphone's audio: signed 16-bit little-endian, mono. */
export const sampleRate = 16_000;

export function isRecord(value: unknown): value is Record<string, unknown> {
  return typeof value === "object" && value !== null && !Array.isArray(value);
}

/** Undefined for what is no JSON. Every text in it is well formed: half a character is replaced. */
export function parseJson(text: string): unknown {
  try {
    // Only an escape can be half a character.
    return /\\u[dD][89a-fA-F]/.test(text) ? JSON.parse(text, wellFormed) : JSON.parse(text);
  } catch {
    return undefined;
  }
}

function wellFormed(_key: string, value: unknown): unknown {
  return typeof value === "string" ? value.toWellFormed() : value;
}

/** Reads one text message of the link; undefined when it is none of ours. */
export function parseLinkEvent(text: string): LinkEvent | undefined {
  const value = parseJson(text);
  if (!isRecord(value)) return undefined;
  switch (value.type) {
    case "hello":
    case "device":
      return typeof value.device === "string" ? { type: value.type, device: cut(value.device, 500) } : undefined;
    case "played":
      return Number.isSafeInteger(value.id) ? { type: "played", id: value.id as number } : undefined;
    default:
      return undefined;
  }
}
