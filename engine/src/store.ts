// What outlives the engine: settings and conversations, in one SQLite file. A file that cannot be used is kept aside
// and a new one takes its place; on a full disk the engine goes on in memory. Nothing here ever throws.

import { Database, SQLiteError } from "bun:sqlite";
import { existsSync, mkdirSync, renameSync } from "node:fs";
import { join } from "node:path";
import type { Log } from "./log.ts";
import type { ConversationSummary, Row } from "./protocol.ts";

export interface StoredConversation {
  conversationId: string;
  startedAt: number;
  costUsd: number;
  answers: number;
  rows: Row[];
  /** The session of the language model, to be continued. */
  session: string | undefined;
}

const fileName = "palomet.db";
const lockWaitMs = 500;
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

export class Store {
  #database: Database;
  readonly #folder: string;
  readonly #log: Log;
  /** It grows no further than so many pages of 4 KiB: that is as good as a full disk. */
  readonly #mostPages: number;

  /** Called after a new, empty database took the place of one that failed while in use. */
  onReplaced: () => void = () => {};

  constructor(folder: string, log: Log, mostPages = 1 << 18) {
    this.#folder = folder;
    this.#log = log;
    this.#mostPages = mostPages;
    this.#database = this.#openFile();
  }

  loadSettings(): Map<string, string> {
    return this.#run(new Map(), (database) => {
      const rows = database.query<{ key: string; value: string }, []>("SELECT key, value FROM settings").all();
      return new Map(rows.map((row) => [row.key, row.value]));
    });
  }

  saveSetting(key: string, value: string): void {
    this.#run(undefined, (database) => {
      database.query("INSERT OR REPLACE INTO settings (key, value) VALUES (?, ?)").run(key, value);
    });
  }

  saveConversation(conversation: StoredConversation): void {
    const { conversationId, startedAt, answers, costUsd, session } = conversation;
    const firstQuestion = conversation.rows.find((row) => row.role === "user")?.text ?? "";
    this.#run(undefined, (database) => {
      database
        .query(
          `INSERT INTO conversations (id, startedAt, firstQuestion, answers, costUsd, session) VALUES (?, ?, ?, ?, ?, ?)
           ON CONFLICT (id) DO UPDATE SET answers = excluded.answers, costUsd = excluded.costUsd,
             session = excluded.session`,
        )
        .run(conversationId, startedAt, firstQuestion, answers, costUsd, session ?? null);
    });
  }

  addRow(conversationId: string, row: Row): void {
    this.#run(undefined, (database) => {
      database
        .query("INSERT INTO rows (conversation, role, text, at, durationMs) VALUES (?, ?, ?, ?, ?)")
        .run(conversationId, row.role, row.text, row.at, row.durationMs ?? null);
    });
  }

  /** The newest conversation with at most `limit` of its last rows. */
  latestConversation(limit: number): StoredConversation | undefined {
    return this.#run(undefined, (database) => {
      const found = database
        .query<Omit<StoredConversation, "rows" | "session"> & { session: string | null }, []>(
          `SELECT id AS conversationId, startedAt, answers, costUsd, session FROM conversations
           ORDER BY startedAt DESC LIMIT 1`,
        )
        .get();
      if (found === null) return undefined;
      const rows = database
        .query<Omit<Row, "durationMs"> & { durationMs: number | null }, [string, number]>(
          `SELECT role, text, at, durationMs FROM rows WHERE conversation = ? ORDER BY id DESC LIMIT ?`,
        )
        .all(found.conversationId, limit)
        .reverse();
      return {
        ...found,
        session: found.session ?? undefined,
        rows: rows.map(({ durationMs, ...row }) => (durationMs === null ? row : { ...row, durationMs })),
      };
    });
  }

  /** Conversations in which something was asked, newest first. */
  history(limit: number): ConversationSummary[] {
    return this.#run([], (database) =>
      database
        .query<ConversationSummary, [number]>(
          `SELECT id AS conversationId, startedAt, firstQuestion, answers, costUsd FROM conversations
           WHERE firstQuestion <> '' ORDER BY startedAt DESC LIMIT ?`,
        )
        .all(limit),
    );
  }

  /** On how many days something was asked. */
  journalDays(): number {
    return this.#run(0, (database) => {
      const count = database.query<{ days: number }, []>(
        `SELECT COUNT(DISTINCT date(startedAt / 1000, 'unixepoch', 'localtime')) AS days FROM conversations
         WHERE firstQuestion <> ''`,
      );
      return count.get()?.days ?? 0;
    });
  }

  close(): void {
    this.#database.close();
  }

  #run<T>(fallback: T, work: (database: Database) => T): T {
    try {
      return work(this.#database);
    } catch (error) {
      this.#replace(error);
      try {
        return work(this.#database);
      } catch {
        return fallback;
      }
    }
  }

  #openFile(): Database {
    const path = join(this.#folder, fileName);
    try {
      mkdirSync(this.#folder, { recursive: true, mode: 0o700 });
    } catch (error) {
      this.#log(`não consegui criar ${this.#folder} (${message(error)}); guardo tudo só na memória`);
      return prepared(new Database(":memory:"));
    }
    for (let attempt = 0; attempt < 2; attempt++) {
      let database: Database | undefined;
      try {
        database = new Database(path, { create: true });
        prepared(database).run(`PRAGMA max_page_count = ${this.#mostPages}`);
        return database;
      } catch (error) {
        database?.close();
        if (isFull(error)) {
          this.#log(`sem espaço para o banco de dados (${message(error)}); guardo tudo só na memória`);
          break;
        }
        this.#keepAside(path, error);
      }
    }
    return prepared(new Database(":memory:"));
  }

  #replace(error: unknown): void {
    if (isFull(error)) {
      this.#log(`não consigo gravar o banco de dados (${message(error)}); daqui em diante guardo só na memória`);
      this.#database = this.#copyInMemory();
      return;
    }
    this.#database.close();
    const path = join(this.#folder, fileName);
    if (existsSync(path)) this.#keepAside(path, error);
    this.#database = this.#openFile();
    this.onReplaced();
  }

  #copyInMemory(): Database {
    try {
      const bytes = this.#database.serialize();
      // What is in memory cannot have a write-ahead log: 1 is the format without (SQLite's file format, 1.3.3).
      bytes.set([1, 1], 18);
      return Database.deserialize(bytes);
    } catch {
      queueMicrotask(() => this.onReplaced());
      return prepared(new Database(":memory:"));
    }
  }

  #keepAside(path: string, error: unknown): void {
    const aside = `${path}.aside-${new Date().toISOString().replace(/[:.]/g, "-")}`;
    this.#log(`banco de dados inutilizável (${message(error)}); guardado como ${aside}, começo um novo`);
    for (const suffix of ["", "-wal", "-shm"]) {
      try {
        if (existsSync(path + suffix)) renameSync(path + suffix, aside + suffix);
      } catch (problem) {
        this.#log(`não consegui guardar ${path + suffix} (${message(problem)})`);
      }
    }
  }
}

function prepared(database: Database): Database {
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

function isFull(error: unknown): boolean {
  const code = error instanceof SQLiteError ? (error.code ?? "") : ((error as { code?: string }).code ?? "");
  return /^SQLITE_(FULL|IOERR|READONLY|CANTOPEN)/.test(code) || code === "ENOSPC";
}

function message(error: unknown): string {
  return error instanceof Error ? error.message : String(error);
}
