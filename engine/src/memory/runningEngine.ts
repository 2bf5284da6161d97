// What a command asks of an engine that runs on the same store: it may hold conversations that it could not write down yet.

import { existsSync, realpathSync } from "node:fs";
import { isRecord, parseJson } from "../base/json.ts";
import type { Row } from "../base/protocol.ts";
import { nothingWaiting, type ArchivedConversation, type Span, type Waiting } from "./archive.ts";

/** An engine is there, and does not answer: what it holds stays unknown. */
export class Unanswered extends Error {}

export class RunningEngine {
  constructor(
    private readonly port: number,
    /** The folder of the store. */
    private readonly folder: string,
    /** A busy one takes its time. */
    private readonly answerMs = 20_000,
  ) {}

  /** Forgets, and gives the number of conversations that were in memory alone. */
  async forget(span: Span): Promise<number> {
    const answer = await this.#ask("forget", span);
    return isRecord(answer) && typeof answer.forgotten === "number" ? answer.forgotten : 0;
  }

  async waiting(): Promise<Waiting> {
    const answer = await this.#ask("unwritten");
    if (!isRecord(answer)) return nothingWaiting;
    const { conversations, forgotten } = answer;
    return { conversations: all(conversations, isConversation), forgotten: all(forgotten, isText) };
  }

  /** Gives undefined when no engine is there, or one that does not know this. */
  async #ask(what: string, given: object = {}): Promise<unknown> {
    if (!existsSync(this.folder)) return undefined;
    const body = JSON.stringify({ folder: realpathSync(this.folder), ...given });
    const request = { method: "POST", body, redirect: "error", proxy: false as const, signal: AbortSignal.timeout(this.answerMs) } as const;
    try {
      const answer = await fetch(`http://127.0.0.1:${this.port}/${what}`, request);
      return answer.ok ? parseJson(await answer.text()) : undefined;
    } catch (error) {
      if ((error as { name?: string }).name === "TimeoutError") throw new Unanswered();
      return undefined;
    }
  }
}

function all<T>(values: unknown, isOne: (value: unknown) => value is T): T[] {
  return Array.isArray(values) ? values.filter(isOne) : [];
}

function isConversation(value: unknown): value is ArchivedConversation {
  if (!isRecord(value) || !Array.isArray(value.rows)) return false;
  const numbers = [value.startedAt, value.answers, value.costUsd];
  return typeof value.conversationId === "string" && numbers.every(Number.isFinite) && value.rows.every(isRow);
}

function isRow(value: unknown): value is Row {
  if (!isRecord(value) || typeof value.text !== "string" || !Number.isFinite(value.at)) return false;
  const hasDuration = value.durationMs === undefined || Number.isFinite(value.durationMs);
  return hasDuration && ["user", "assistant", "tool"].includes(String(value.role));
}

function isText(value: unknown): value is string {
  return typeof value === "string";
}
