// What has changed while the store is in memory, and how it comes into the file.

import type { Database } from "bun:sqlite";
import { always, conversations as conversationsOf, forgetConversations, scrub, type Waiting } from "./archive.ts";

/** The changes that are not yet in the file: settings and conversations by name, and all rows after `afterRow`. */
export interface Unwritten {
  settings: Set<string>;
  conversations: Set<string>;
  /** These are to be forgotten in the file as well. */
  forgotten: Set<string>;
  afterRow: number;
  /** The file is gone: everything is to be written. A file that is empty was made so, and stays so. */
  isLost: boolean;
}

type Values = (string | number | null)[];

export const saveSetting = "INSERT OR REPLACE INTO settings (key, value) VALUES (?, ?)";
export const saveConversation = `
  INSERT INTO conversations (id, startedAt, firstQuestion, answers, costUsd, session) VALUES (?, ?, ?, ?, ?, ?)
  ON CONFLICT (id) DO UPDATE SET answers = excluded.answers, costUsd = excluded.costUsd, session = excluded.session`;
export const addRow = "INSERT INTO rows (conversation, role, text, at, durationMs) VALUES (?, ?, ?, ?, ?)";

/** `memory` is a copy of the file, and nothing has changed in it yet. */
export function nothingUnwritten(memory: Database): Unwritten {
  const afterRow = memory.query<{ id: number | null }, []>("SELECT MAX(id) AS id FROM rows").get()?.id ?? 0;
  return { settings: new Set(), conversations: new Set(), forgotten: new Set(), afterRow, isLost: false };
}

/** The conversations among the changes: all of them if the file was lost meanwhile. */
export function waitingIn(memory: Database, { conversations, forgotten, isLost }: Unwritten): Waiting {
  const waiting: Waiting = { conversations: [], forgotten: [...forgotten] };
  for (const one of conversationsOf(memory, always.from)) {
    if (isLost || conversations.has(one.conversationId)) waiting.conversations.push(one);
  }
  return waiting;
}

/** Writes the changes to the file, or everything if the file was lost meanwhile. Throws when it cannot be written. */
export function writeDown(memory: Database, file: Database, { settings, conversations, forgotten, afterRow, isLost }: Unwritten): void {
  const all = (query: string, ...values: number[]): Values[] => memory.query<never, number[]>(query).values(...values) as Values[];
  const isWanted = (changed: Set<string>) => ([key]: Values): boolean => isLost || changed.has(String(key));
  file.transaction(() => {
    const write = (query: string, rows: Values[]): void => rows.forEach((row) => file.query(query).run(...row));
    write(saveSetting, all("SELECT key, value FROM settings").filter(isWanted(settings)));
    const columns = "id, startedAt, firstQuestion, answers, costUsd, session";
    write(saveConversation, all(`SELECT ${columns} FROM conversations ORDER BY rowid`).filter(isWanted(conversations)));
    const rows = "SELECT conversation, role, text, at, durationMs FROM rows WHERE id > ? ORDER BY id";
    write(addRow, all(rows, isLost ? 0 : afterRow));
    if (forgotten.size > 0) forgetConversations(file, forgotten);
  })();
  if (forgotten.size > 0) scrub(file);
}
