// The SQLite file of the store: its schema, the checks before it is used, and copies of it in memory.

import { Database, SQLiteError } from "bun:sqlite";
import { chmodSync, existsSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { join } from "node:path";

const lockWaitMs = 500;
/** An empty database takes less, together with the files beside it. */
const room = 128 << 10;
const schemaVersion = 2;

const schema = `
  CREATE TABLE settings (key TEXT PRIMARY KEY, value TEXT NOT NULL);
  CREATE TABLE conversations (
    id TEXT PRIMARY KEY, startedAt REAL NOT NULL, firstQuestion TEXT NOT NULL,
    answers INTEGER NOT NULL, costUsd REAL NOT NULL, session TEXT);
  CREATE INDEX conversationsByTime ON conversations (startedAt);
  CREATE TABLE rows (
    id INTEGER PRIMARY KEY, conversation TEXT NOT NULL REFERENCES conversations (id),
    role TEXT NOT NULL, text TEXT NOT NULL, at REAL NOT NULL, durationMs REAL);
  CREATE INDEX rowsByConversation ON rows (conversation);`;

/** The words of the rows, to be searched: without accents, and kept in step by the database itself. */
const searchSchema = `
  CREATE VIRTUAL TABLE words USING fts5 (text, content = 'rows', content_rowid = 'id', tokenize = 'unicode61 remove_diacritics 2');
  CREATE TRIGGER wordsAdded AFTER INSERT ON rows BEGIN
    INSERT INTO words (rowid, text) VALUES (new.id, new.text);
  END;
  CREATE TRIGGER wordsRemoved AFTER DELETE ON rows BEGIN
    INSERT INTO words (words, rowid, text) VALUES ('delete', old.id, old.text);
  END;
  INSERT INTO words (words, rank) VALUES ('secure-delete', 1);
  INSERT INTO words (words) VALUES ('rebuild');
  PRAGMA user_version = ${schemaVersion};`;

/** What the agent could not do before version 2, and is to be asked about until the user switches that off. */
const askAboutHands = `
  UPDATE settings SET value = (SELECT json_group_array(id) FROM (
    SELECT value AS id FROM json_each(settings.value)
    UNION SELECT column1 FROM (VALUES ('forget'), ('lock'), ('note'), ('open'), ('screenshot'))))
  WHERE key = 'confirmActions' AND json_valid(value);`;

/** Makes the folder and the file readable for this user alone, also when they were there before. */
export function keepPrivate(folder: string, path: string): void {
  const attempt = (work: () => void): void => {
    try {
      work();
    } catch {
      // The file is somebody else's, or the file system keeps no modes; opening it tells whether it can be used.
    }
  };
  attempt(() => chmodSync(folder, 0o700));
  // SQLite gives the files beside it the mode of this one, which is therefore made here.
  attempt(() => writeFileSync(path, "", { flag: "ax", mode: 0o600 }));
  for (const suffix of ["", "-wal", "-shm"]) {
    if (existsSync(path + suffix)) attempt(() => chmodSync(path + suffix, 0o600));
  }
}

/** Makes the index of words anew, from the rows; `change` changes these while there is none. */
export function remakeSearch(database: Database, change = (): void => {}): void {
  database.transaction(() => {
    database.run("DROP TRIGGER IF EXISTS wordsAdded; DROP TRIGGER IF EXISTS wordsRemoved; DROP TABLE IF EXISTS words");
    change();
    database.run(searchSchema);
  })();
}

/** Does what deletes many rows. The index is written anew without them: sooner done than to overwrite each of their words. */
export function deleteMany(database: Database, work: () => void): void {
  const isOverwriting = database.query("INSERT INTO words (words, rank) VALUES ('secure-delete', ?)");
  database.transaction(() => {
    isOverwriting.run(0);
    work();
    database.run("INSERT INTO words (words) VALUES ('optimize')");
    isOverwriting.run(1);
  })();
}

/** Makes a database ready for use. Throws when it is no database of the engine's, damaged, or locked. */
export function prepared(database: Database): Database {
  database.run(`PRAGMA busy_timeout = ${lockWaitMs}`);
  database.run("PRAGMA journal_mode = WAL");
  database.run("PRAGMA synchronous = NORMAL");
  // What is forgotten is not to be found in the file any more.
  database.run("PRAGMA secure_delete = ON");
  let problem = problemOf(database);
  if (problem && isOfSearch(problem)) {
    remakeSearch(database);
    problem = problemOf(database);
  }
  if (problem) throw problem;
  const upgrade = database.transaction(() => {
    const version = database.query<{ user_version: number }, []>("PRAGMA user_version").get()?.user_version;
    if (version === 0) database.run(schema + searchSchema);
    else if (version === 1) database.run(askAboutHands + searchSchema);
    else if (version !== schemaVersion) throw new Error(`versão ${version}`);
  });
  // Only a write finds a lock that another program holds, and two programs that begin at once are not to upgrade both.
  upgrade.immediate();
  return database;
}

function problemOf(database: Database): Error | undefined {
  const check = database.query<{ quick_check: string }, []>("PRAGMA quick_check(1)").get()?.quick_check;
  return check === "ok" ? undefined : new Error(check ?? "quick_check");
}

/** Only the index of words is damaged, which can be made anew. */
export function isOfSearch(error: unknown): boolean {
  return (error as { code?: string }).code === "SQLITE_CORRUPT_VTAB" || /fts5/i.test(message(error));
}

/** The file itself is sound and cannot be written now: it is to be kept in its place. */
export function isUnwritable(error: unknown): boolean {
  return isFull(error) || isBusy(error);
}

/** The disk is full, or the file cannot be written for another reason outside it. */
function isFull(error: unknown): boolean {
  const code = error instanceof SQLiteError ? (error.code ?? "") : ((error as { code?: string }).code ?? "");
  return /^SQLITE_(FULL|IOERR|READONLY|CANTOPEN)/.test(code) || code === "ENOSPC";
}

export function message(error: unknown): string {
  return error instanceof Error ? error.message : String(error);
}

export function isBusy(error: unknown): boolean {
  return error instanceof SQLiteError && /^SQLITE_(BUSY|LOCKED)/.test(error.code ?? "");
}

/** Gives a copy in memory, or undefined when the database cannot be read. */
export function copyOf(database: Database): Database | undefined {
  try {
    return inMemory(database.serialize());
  } catch {
    return undefined;
  }
}

/**
 * Gives a copy in memory of a file that cannot be written. Where it cannot be read as a database either, changes that are
 * still in its log are not in the copy.
 */
export function copyOfFile(path: string): Database | undefined {
  let file: Database | undefined;
  try {
    file = new Database(path, { readonly: true });
    return inMemory(file.serialize());
  } catch {
    // A log that nobody has opened yet cannot be read without writing beside it.
  } finally {
    file?.close();
  }
  try {
    return inMemory(readFileSync(path));
  } catch {
    return undefined;
  }
}

function inMemory(bytes: Uint8Array): Database {
  // A database in memory cannot have a write-ahead log: 1 is the format without one (SQLite's file format, 1.3.3).
  bytes.set([1, 1], 18);
  return prepared(Database.deserialize(bytes));
}

/** A small database can be written in this folder. */
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
