// The SQLite file of the store: what it holds, how it is opened, and copies of it in memory.

import { Database, SQLiteError } from "bun:sqlite";
import { chmodSync, existsSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { join } from "node:path";

const lockWaitMs = 500;
/** More than a database without anything in it takes, with what is written beside it. */
const room = 128 << 10;
const schemaVersion = 1;

const schema = `
  CREATE TABLE settings (key TEXT PRIMARY KEY, value TEXT NOT NULL);
  CREATE TABLE conversations (
    id TEXT PRIMARY KEY, startedAt REAL NOT NULL, firstQuestion TEXT NOT NULL,
    answers INTEGER NOT NULL, costUsd REAL NOT NULL, session TEXT);
  CREATE INDEX conversationsByTime ON conversations (startedAt);
  CREATE TABLE rows (
    id INTEGER PRIMARY KEY, conversation TEXT NOT NULL REFERENCES conversations (id),
    role TEXT NOT NULL, text TEXT NOT NULL, at REAL NOT NULL, durationMs REAL);
  CREATE INDEX rowsByConversation ON rows (conversation);
  PRAGMA user_version = ${schemaVersion};`;

/** Makes the folder and what is in the file this user's alone, also where they were there before. */
export function keepPrivate(folder: string, path: string): void {
  const attempt = (work: () => void): void => {
    try {
      work();
    } catch {
      // It is somebody else's, or does not keep modes; opening it tells whether it can be used.
    }
  };
  attempt(() => chmodSync(folder, 0o700));
  // Made here: the file's mode is also that of what is written beside it.
  attempt(() => writeFileSync(path, "", { flag: "ax", mode: 0o600 }));
  for (const suffix of ["", "-wal", "-shm"]) {
    if (existsSync(path + suffix)) attempt(() => chmodSync(path + suffix, 0o600));
  }
}

/** Ready for use; throws where it is no database of ours, or damaged, or locked. */
export function prepared(database: Database): Database {
  database.run(`PRAGMA busy_timeout = ${lockWaitMs}`);
  database.run("PRAGMA journal_mode = WAL");
  database.run("PRAGMA synchronous = NORMAL");
  const check = database.query<{ quick_check: string }, []>("PRAGMA quick_check(1)").get();
  if (check?.quick_check !== "ok") throw new Error(check?.quick_check ?? "quick_check");
  const version = database.query<{ user_version: number }, []>("PRAGMA user_version").get()?.user_version;
  if (version === 0) database.transaction(() => database.run(schema))();
  else if (version !== schemaVersion) throw new Error(`versão ${version}`);
  // A lock that somebody holds for ever shows only when something is written.
  database.run("BEGIN IMMEDIATE");
  database.run("ROLLBACK");
  return database;
}

/** There is no room, or it cannot be written for another reason that is none of its own. */
export function isFull(error: unknown): boolean {
  const code = error instanceof SQLiteError ? (error.code ?? "") : ((error as { code?: string }).code ?? "");
  return /^SQLITE_(FULL|IOERR|READONLY|CANTOPEN)/.test(code) || code === "ENOSPC";
}

export function message(error: unknown): string {
  return error instanceof Error ? error.message : String(error);
}

export function isBusy(error: unknown): boolean {
  return error instanceof SQLiteError && /^SQLITE_(BUSY|LOCKED)/.test(error.code ?? "");
}

export function isEmpty(database: Database): boolean {
  const count = "SELECT (SELECT COUNT(*) FROM settings) + (SELECT COUNT(*) FROM conversations) AS count";
  return database.query<{ count: number }, []>(count).get()?.count === 0;
}

/** A copy in memory; undefined when it cannot be read. */
export function copyOf(database: Database): Database | undefined {
  try {
    return inMemory(database.serialize());
  } catch {
    return undefined;
  }
}

/** The same of a file that cannot be opened; what was not yet written into it is not in the copy. */
export function copyOfFile(path: string): Database | undefined {
  try {
    return inMemory(readFileSync(path));
  } catch {
    return undefined;
  }
}

function inMemory(bytes: Uint8Array): Database {
  // What is in memory cannot have a write-ahead log: 1 is the format without (SQLite's file format, 1.3.3).
  bytes.set([1, 1], 18);
  return prepared(Database.deserialize(bytes));
}

/** Whether as much as a small database can be written there. */
export function hasRoom(folder: string): boolean {
  const probe = join(folder, "room");
  try {
    writeFileSync(probe, new Uint8Array(room), { mode: 0o600 });
    return true;
  } catch {
    return false;
  } finally {
    rmSync(probe, { force: true });
  }
}
