// The documents and settings that the engine shows its front end. docs/protocol.md explains them.

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

/** The engine has dealt with an utterance in one of these ways. */
export type HeardAction =
  | "accepted"
  | "summoned"
  | "drafted"
  | "acted"
  | "cleared"
  | "interrupted"
  | "ignored"
  | "echo"
  | "muted"
  /** It is still being said. */
  | "…";

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

/** Samples a second of the microphone's audio: signed 16-bit little-endian, mono. */
export const sampleRate = 16_000;
