// Who answers a request.

import { builtInAnswer } from "./answers.ts";
import { builtInModel } from "./choices.ts";
import type { Clock } from "./clock.ts";
import type { Locale } from "./language.ts";
import type { Session, Settings } from "./protocol.ts";

export interface Request {
  text: string;
  settings: Settings;
  /** The language model's session to be continued. */
  session: string | undefined;
  lastAnswer: string | undefined;
}

/** The answer as it comes. */
export interface Answering {
  text(piece: string): void;
  tool(text: string): void;
}

export interface Answer {
  costUsd: number;
  session?: string;
}

export interface Brain {
  /** Never rejects; resolves early when `signal` is raised. */
  answer(request: Request, answering: Answering, signal: AbortSignal): Promise<Answer>;
  session(settings: Settings): Omit<Session, "startedAt">;
}

export class BuiltInBrain implements Brain {
  constructor(
    readonly clock: Clock,
    readonly locale: Locale,
  ) {}

  async answer(request: Request, answering: Answering): Promise<Answer> {
    const { settings, lastAnswer } = request;
    const now = new Date(this.clock.now());
    answering.text(builtInAnswer(request.text, { now, locale: this.locale, name: settings.voiceName, lastAnswer }));
    return { costUsd: 0 };
  }

  session(): Omit<Session, "startedAt"> {
    return { model: builtInModel, claudePath: "", claudeVersion: "", isReady: true };
  }
}
