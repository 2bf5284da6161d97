// A request, its answer as it comes, and the brain that gives it.

import type { Row, Session, Settings } from "../base/protocol.ts";

export interface Request {
  text: string;
  /** The end of its last word, if it was said. */
  askedAt: number;
  settings: Settings;
  /** The conversation before it. This and what follows is to be read late: a hand may have the conversation forgotten. */
  readonly earlier: readonly Row[];
  /** The language model's session to be continued. */
  readonly session: string | undefined;
  readonly lastAnswer: string | undefined;
}

/** The answer as it comes. */
export interface Answering {
  /** Gives `spoken` when this piece is to be read aloud in other words than it is written. */
  text(piece: string, spoken?: string): void;
  tool(text: string): void;
}

export interface Answer {
  costUsd: number;
  session?: string;
  /** Called when the question at its end begins to be heard, and when it has been heard to its end. */
  heard?: () => void;
}

export interface Brain {
  /** Never rejects; resolves early when `signal` is raised. */
  answer(request: Request, answering: Answering, signal: AbortSignal): Promise<Answer>;
  /** The user will hear no more of it: what it asked leave for is refused. */
  refuse(): void;
  session(settings: Settings): Omit<Session, "startedAt">;
}
