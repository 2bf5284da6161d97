// All conversations of the store: to be searched, written out and forgotten.

import type { Database } from "bun:sqlite";
import type { Row } from "../base/protocol.ts";
import { plainWords } from "../base/words.ts";
import { deleteMany, isUnwritable, remakeSearch } from "./database.ts";

/** The local days to be looked at: from the first moment of one up to, and without, that of another. */
export interface Span {
  from: number;
  to: number;
}

export interface FoundRow {
  role: Row["role"];
  text: string;
  at: number;
}

export interface ArchivedConversation {
  conversationId: string;
  startedAt: number;
  answers: number;
  costUsd: number;
  rows: Row[];
}

/** What an engine that runs has not written into the file yet. */
export interface Waiting {
  /** With all of their rows, or with those that the file does not have. */
  conversations: ArchivedConversation[];
  /** The names of those that are forgotten, and still in the file. */
  forgotten: string[];
}

/** A row as the database has it. */
export type KeptRow = Omit<Row, "durationMs"> & { durationMs: number | null };
type Head = Omit<ArchivedConversation, "rows">;

export const nothingWaiting: Waiting = { conversations: [], forgotten: [] };
export const always: Span = { from: -Number.MAX_SAFE_INTEGER, to: Number.MAX_SAFE_INTEGER };
const mostWords = 10;
const forgottenAtATime = 4;

export function daySpan(day: Date): Span {
  const [year, month, date] = [day.getFullYear(), day.getMonth(), day.getDate()];
  return { from: new Date(year, month, date).getTime(), to: new Date(year, month, date + 1).getTime() };
}

/** The rows of these days that hold all of the words, or all rows when there are none; the newest first. */
export function search(database: Database, words: string, { from, to }: Span, limit: number): FoundRow[] {
  const terms = plainWords(words).slice(0, mostWords);
  if (terms.length === 0) {
    const query = `SELECT role, text, at FROM rows WHERE at >= ? AND at < ? AND role <> 'tool' ORDER BY id DESC LIMIT ?`;
    return database.query<FoundRow, [number, number, number]>(query).all(from, to, limit);
  }
  const wanted = terms.map((term) => `"${term}"*`).join(" ");
  const query = `SELECT role, rows.text AS text, at FROM words JOIN rows ON rows.id = words.rowid
    WHERE words MATCH ? AND at >= ? AND at < ? AND role <> 'tool' ORDER BY rows.id DESC LIMIT ?`;
  return database.query<FoundRow, [string, number, number, number]>(query).all(wanted, from, to, limit);
}

/**
 * The conversations with rows since then, written down or waiting, the oldest first, one at a time: all of them need not fit into memory.
 */
export function* conversations(database: Database | undefined, since: number, waiting = nothingWaiting): Generator<ArchivedConversation> {
  const known = new Map(waiting.conversations.map((one) => [one.conversationId, one]));
  const found = database ? headsOf(database, since, [...known.keys()]) : [];
  const written = new Map(found.map((head) => [head.conversationId, head]));
  const heads = new Map<string, Head>([...written, ...known]);
  for (const id of waiting.forgotten) heads.delete(id);
  for (const head of [...heads.values()].sort((one, other) => one.startedAt - other.startedAt)) {
    const { conversationId, startedAt, answers, costUsd } = head;
    const rows = database && written.has(conversationId) ? rowsOf(database, conversationId) : [];
    const isWritten = new Set(rows.map(({ at }) => at));
    rows.push(...(known.get(conversationId)?.rows ?? []).filter(({ at }) => !isWritten.has(at)));
    if (rows.some(({ at }) => at >= since)) yield { conversationId, startedAt, answers, costUsd, rows };
  }
}

/** Of the conversations with rows since then, and of these. */
function headsOf(database: Database, since: number, ids: readonly string[]): Head[] {
  const query = `SELECT id AS conversationId, startedAt, answers, costUsd FROM conversations
    WHERE EXISTS (SELECT 1 FROM rows WHERE conversation = conversations.id AND at >= ?)
    OR id IN (SELECT value FROM json_each(?)) ORDER BY startedAt, rowid`;
  return database.query<Head, [number, string]>(query).all(since, JSON.stringify(ids));
}

function rowsOf(database: Database, id: string): Row[] {
  const query = "SELECT role, text, at, durationMs FROM rows WHERE conversation = ? ORDER BY id";
  return database.query<KeptRow, [string]>(query).all(id).map(rowOf);
}

export function rowOf({ durationMs, ...row }: KeptRow): Row {
  return durationMs === null ? row : { ...row, durationMs };
}

/**
 * Forgets some rows of a conversation, with the last ones the conversation itself, and gives whether there is more of it.
 * The index overwrites every word on its own, which takes long; but nothing of the rows is left when the call ends.
 */
export function forgetSome(database: Database, id: string): boolean {
  const some = "DELETE FROM rows WHERE id IN (SELECT id FROM rows WHERE conversation = ? LIMIT ?)";
  return database.transaction(() => {
    if (database.query(some).run(id, forgottenAtATime).changes === forgottenAtATime) return true;
    database.query("DELETE FROM conversations WHERE id = ?").run(id);
    return false;
  })();
}

/** Forgets these conversations at one go; `scrub` is to follow. */
export function forgetConversations(database: Database, ids: Iterable<string>): void {
  deleteMany(database, () => {
    for (const id of ids) {
      database.query("DELETE FROM rows WHERE conversation = ?").run(id);
      database.query("DELETE FROM conversations WHERE id = ?").run(id);
    }
  });
}

/** Forgets the conversations that were begun in this span, or had words in it, and gives their names; `scrub` is to follow. */
export function forgetSpan(database: Database, { from, to }: Span): string[] {
  const found = database
    .query<{ id: string }, number[]>(
      `SELECT id FROM conversations WHERE (startedAt >= ? AND startedAt < ?)
       OR EXISTS (SELECT 1 FROM rows WHERE conversation = conversations.id AND at >= ? AND at < ?)`,
    )
    .all(from, to, from, to);
  const ids = found.map(({ id }) => id);
  if (ids.length > 0) forgetConversations(database, ids);
  return ids;
}

/** Forgets every conversation, with the index as a whole, and gives their number; `scrub` is to follow. */
export function forgetAll(database: Database): number {
  const count = database.transaction(() => {
    remakeSearch(database, () => database.run("DELETE FROM rows"));
    return database.query("DELETE FROM conversations").run().changes;
  })();
  // First overwritten, then cut off: the file becomes small again.
  if (!scrub(database)) return count;
  try {
    database.run("VACUUM");
  } catch (error) {
    // The file is clean, and stays large.
    if (!isUnwritable(error)) throw error;
  }
  return count;
}

/** What is deleted is overwritten in the file, and leaves the log beside it here: false while another program reads there. */
export function scrub(database: Database): boolean {
  return database.query<{ busy: number }, []>("PRAGMA wal_checkpoint(TRUNCATE)").get()?.busy !== 1;
}
