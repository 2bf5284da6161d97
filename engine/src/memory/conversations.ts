// The current conversation, and those before it.

import type { Clock } from "../base/clock.ts";
import type { Conversation, ConversationSummary, Memory, Row } from "../base/protocol.ts";
import type { FoundRow, Span } from "./archive.ts";
import type { Store, StoredConversation } from "./store.ts";

/** Rows of the current conversation that are kept in memory; older ones are in the store. */
const mostRows = 500;
/** The length of their texts together, in units of UTF-16. A front end reads documents far longer than that in JSON. */
const mostText = 4 << 20;
const mostHistory = 1_000;
/** A conversation that was left longer ago than this is not resumed. */
const resumeWithinMs = 30 * 60_000;
/** A row may lie this far in the future; a later one was written by a clock that was wrong. */
const clockSlackMs = 60_000;

export class Conversations {
  #current: StoredConversation;
  #open: Row | undefined;
  #isResumed = false;

  constructor(
    private readonly store: Store,
    private readonly clock: Clock,
  ) {
    const latest = store.latestConversation(mostRows);
    const age = clock.now() - (latest?.rows.at(-1)?.at ?? -Infinity);
    this.#isResumed = age < resumeWithinMs && age > -clockSlackMs;
    this.#current = this.#isResumed && latest ? { ...latest, rows: lastOf(latest.rows) } : this.#fresh();
  }

  get current(): Conversation {
    const { startedAt, rows, costUsd, answers } = this.#current;
    return { startedAt, rows: this.#open ? [...rows, this.#open] : rows, costUsd, answers };
  }

  get memory(): Memory {
    return { isResumed: this.#isResumed, journalDays: this.store.journalDays() };
  }

  get history(): ConversationSummary[] {
    return this.store.history(mostHistory);
  }

  /** The language model's session in this conversation. */
  get session(): string | undefined {
    return this.#current.session;
  }

  get lastAnswer(): string | undefined {
    return this.#current.rows.findLast((row) => row.role === "assistant")?.text;
  }

  /** The current conversation was begun in this span, or has words of it. */
  isWithin({ from, to }: Span): boolean {
    const { startedAt, rows } = this.current;
    return [startedAt, ...rows.map(({ at }) => at)].some((at) => at >= from && at < to);
  }

  begin(): void {
    this.#open = undefined;
    this.#isResumed = false;
    this.#current = this.#fresh();
  }

  /** Begins another conversation and forgets this one. False when it is still on the disk, and leaves it when it can. */
  async forget(): Promise<boolean> {
    const { conversationId } = this.#current;
    this.begin();
    return await this.store.forgetConversation(conversationId);
  }

  /** What was said on these days with these words, the newest first; not what is said now. */
  search(words: string, span: Span, limit: number): FoundRow[] {
    const now = this.#current.rows.at(-1)?.at;
    return this.store.search(words, span, limit + 1).filter(({ at }) => at !== now).slice(0, limit);
  }

  add(role: "user" | "tool", text: string): void {
    this.#keep({ role, text, at: this.#nextAt() });
  }

  /** Shows the answer as far as it is known. */
  showAnswer(text: string): void {
    this.#open ??= { role: "assistant", text: "", at: this.#nextAt(), isOpen: true };
    this.#open.text = text;
  }

  /** Ends the open answer, if any. */
  closeAnswer(durationMs: number): void {
    const row = this.#open;
    if (row === undefined) return;
    this.#open = undefined;
    this.#current.answers++;
    this.#keep({ role: row.role, text: row.text, at: row.at, durationMs });
  }

  /** Adds the cost of an answer, and notes the session in which the next one continues. */
  addCost(costUsd: number, session: string | undefined): void {
    this.#current.costUsd += costUsd;
    if (session !== undefined) this.#current.session = session;
    if (this.#current.rows.length > 0) this.store.saveConversation(this.#current);
  }

  /** Writes the current conversation again, after the store was replaced. */
  saveAgain(): void {
    if (this.#current.rows.length === 0) return;
    this.store.saveConversation(this.#current);
    for (const row of this.#current.rows) this.store.addRow(this.#current.conversationId, row);
  }

  #keep(row: Row): void {
    this.#current.rows = lastOf([...this.#current.rows, row]);
    this.store.saveConversation(this.#current);
    this.store.addRow(this.#current.conversationId, row);
  }

  #fresh(): StoredConversation {
    const startedAt = this.clock.now();
    return { conversationId: crypto.randomUUID(), startedAt, costUsd: 0, answers: 0, rows: [], session: undefined };
  }

  /** The time of the next row. Rows are told apart by their time: no two have the same. */
  #nextAt(): number {
    return Math.max(this.clock.now(), (this.#open?.at ?? this.#current.rows.at(-1)?.at ?? 0) + 1);
  }
}

/** Gives the last rows that are kept in memory, and always the last one. */
function lastOf(rows: Row[]): Row[] {
  let text = 0;
  const first = rows.findLastIndex((row) => (text += row.text.length) > mostText);
  return rows.slice(Math.max(rows.length - mostRows, Math.min(first + 1, rows.length - 1)));
}
