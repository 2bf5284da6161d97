// Keeps settings and conversations in one SQLite file. A file that cannot be used is kept aside and a new one takes its
// place. The engine goes on in memory when the disk is full or another program holds the file, and writes down what has
// changed when it can.
// No function here throws.

import { Database } from "bun:sqlite";
import { existsSync, mkdirSync, renameSync } from "node:fs";
import { join } from "node:path";
import type { Clock } from "../base/clock.ts";
import type { Log } from "../base/log.ts";
import type { ConversationSummary, Row } from "../base/protocol.ts";
import { cut } from "../base/text.ts";
import { forgetSome, forgetSpan, nothingWaiting, rowOf, scrub, search } from "./archive.ts";
import type { FoundRow, KeptRow, Span, Waiting } from "./archive.ts";
import { copyOf, copyOfFile, hasRoom, isBusy, isOfSearch, isUnwritable, keepPrivate, message, prepared, remakeSearch } from "./database.ts";
import { addRow, nothingUnwritten, saveConversation, saveSetting, waitingIn, writeDown, type Unwritten } from "./unwritten.ts";

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
/** The pause before looking for room again; it grows up to the longest one when there was room and it did not help. */
const roomLookMs = 5_000;
const longestPauseMs = 600_000;
/** The first question is a conversation's title, and is cut at this length, in characters. */
const longestTitle = 1_000;

export class Store {
  #database: Database;
  /** The changes that wait for room on the disk; undefined while the file is in use. */
  #unwritten: Unwritten | undefined;
  #cancelReturn = (): void => {};
  /** Of these conversations a part is forgotten. */
  #forgetting = new Set<string>();
  #isClosed = false;

  /** Called after a new, empty database took the place of one that failed while in use. */
  onReplaced: () => void = () => {};

  constructor(
    private readonly folder: string,
    private readonly log: Log,
    private readonly clock: Clock,
    /** The file grows no further than so many pages of 4 KiB: the store takes it for a full disk. */
    private readonly mostPages = 1 << 18,
  ) {
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
      database.query(saveSetting).run(key, value);
    });
    this.#unwritten?.settings.add(key);
  }

  saveConversation(conversation: StoredConversation): void {
    const { conversationId, startedAt, answers, costUsd, session } = conversation;
    const firstQuestion = cut(conversation.rows.find((row) => row.role === "user")?.text ?? "", longestTitle);
    this.#run(undefined, (database) => {
      const values = [conversationId, startedAt, firstQuestion, answers, costUsd, session ?? null];
      database.query(saveConversation).run(...values);
    });
    this.#unwritten?.conversations.add(conversationId);
  }

  addRow(conversationId: string, row: Row): void {
    this.#run(undefined, (database) => {
      database.query(addRow).run(conversationId, row.role, row.text, row.at, row.durationMs ?? null);
    });
    this.#unwritten?.conversations.add(conversationId);
  }

  /** The conversation that was begun last, whatever the clock said, with at most `limit` of its last rows. */
  latestConversation(limit: number): StoredConversation | undefined {
    return this.#run(undefined, (database) => {
      const found = database
        .query<Omit<StoredConversation, "rows" | "session"> & { session: string | null }, []>(
          `SELECT id AS conversationId, startedAt, answers, costUsd, session FROM conversations
           ORDER BY rowid DESC LIMIT 1`,
        )
        .get();
      if (found === null) return undefined;
      const last = "SELECT role, text, at, durationMs FROM rows WHERE conversation = ? ORDER BY id DESC LIMIT ?";
      const rows = database.query<KeptRow, [string, number]>(last).all(found.conversationId, limit).reverse();
      return { ...found, session: found.session ?? undefined, rows: rows.map(rowOf) };
    });
  }

  /** Conversations in which something was asked, newest first. */
  history(limit: number): ConversationSummary[] {
    return this.#run([], (database) =>
      database
        .query<ConversationSummary, [number]>(
          `SELECT id AS conversationId, startedAt, substr(firstQuestion, 1, ${longestTitle}) AS firstQuestion, answers,
             costUsd FROM conversations WHERE firstQuestion <> '' ORDER BY startedAt DESC LIMIT ?`,
        )
        .all(limit),
    );
  }

  /** The number of days on which something was asked. */
  journalDays(): number {
    return this.#run(0, (database) => {
      const count = database.query<{ days: number }, []>(
        `SELECT COUNT(DISTINCT date(startedAt / 1000, 'unixepoch', 'localtime')) AS days FROM conversations
         WHERE firstQuestion <> ''`,
      );
      return count.get()?.days ?? 0;
    });
  }

  /** The rows of these days that hold these words, the newest first. */
  search(words: string, span: Span, limit: number): FoundRow[] {
    return this.#run([], (database) => search(database, words, span, limit));
  }

  /**
   * Forgets a conversation, a few rows at a time: the engine hears and stops meanwhile. Gives true when it has left the
   * disk, false when it leaves it as soon as the file can be written.
   */
  async forgetConversation(conversationId: string): Promise<boolean> {
    this.#forgetting.add(conversationId);
    while (this.#forgetSome(conversationId)) await Bun.sleep(1);
    return this.#run(false, scrub) && this.#unwritten === undefined;
  }

  /** Forgets the conversations of these days that are in memory, also when they are written later, and gives their number. */
  forgetUnwritten(span: Span): number {
    if (!this.#unwritten) return 0;
    const ids = this.#run([], (database) => forgetSpan(database, span));
    for (const id of ids) this.#unwritten.forgotten.add(id);
    return ids.length;
  }

  /** The conversations that wait for the file. */
  get waiting(): Waiting {
    const unwritten = this.#unwritten;
    if (!unwritten) return nothingWaiting;
    unwritten.isLost ||= !existsSync(join(this.folder, fileName));
    return this.#run(nothingWaiting, (memory) => waitingIn(memory, unwritten));
  }

  close(): void {
    for (const conversationId of this.#forgetting) while (this.#forgetSome(conversationId));
    this.#cancelReturn();
    if (this.#unwritten) this.#returnToDisk(this.#unwritten);
    this.#isClosed = true;
    this.#database.close();
  }

  /** False when nothing is left of the conversation. */
  #forgetSome(conversationId: string): boolean {
    if (this.#run(false, (database) => forgetSome(database, conversationId))) return true;
    this.#forgetting.delete(conversationId);
    // What waits for the file is written without it.
    this.#unwritten?.forgotten.add(conversationId);
    return false;
  }

  #run<T>(fallback: T, work: (database: Database) => T): T {
    if (this.#isClosed) return fallback;
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
    const path = join(this.folder, fileName);
    try {
      mkdirSync(this.folder, { recursive: true, mode: 0o700 });
    } catch (error) {
      this.log(`não consegui criar ${this.folder} (${message(error)}); guardo tudo só na memória`);
      return this.#inMemory(undefined);
    }
    for (let attempt = 0; attempt < 2; attempt++) {
      try {
        return this.#open(path);
      } catch (error) {
        if (isUnwritable(error)) {
          const reason = isBusy(error) ? "outro programa ocupa o banco de dados" : "sem espaço para o banco de dados";
          this.log(`${reason} (${message(error)}); guardo tudo só na memória`);
          return this.#inMemory(copyOfFile(path));
        }
        this.#keepAside(path, error);
      }
    }
    return this.#inMemory(undefined);
  }

  #open(path: string): Database {
    keepPrivate(this.folder, path);
    const database = new Database(path, { create: true });
    try {
      prepared(database).run(`PRAGMA max_page_count = ${this.mostPages}`);
      return database;
    } catch (error) {
      database.close();
      throw error;
    }
  }

  #replace(cause: unknown): void {
    const failed = this.#database;
    let error = cause;
    if (isOfSearch(cause)) {
      try {
        remakeSearch(failed);
        this.log(`o índice de busca estava danificado (${message(cause)}); foi refeito`);
        return;
      } catch (problem) {
        if (isUnwritable(problem)) error = problem;
      }
    }
    if (isUnwritable(error)) {
      this.log(`não consigo gravar o banco de dados (${message(error)}); daqui em diante guardo só na memória`);
      const copy = copyOf(failed);
      this.#database = this.#inMemory(copy);
      failed.close();
      if (copy === undefined) queueMicrotask(() => this.onReplaced());
      return;
    }
    failed.close();
    const path = join(this.folder, fileName);
    if (existsSync(path)) this.#keepAside(path, error);
    this.#database = this.#openFile();
    this.onReplaced();
  }

  #inMemory(copy: Database | undefined): Database {
    const memory = copy ?? prepared(new Database(":memory:"));
    this.#unwritten = nothingUnwritten(memory);
    this.#awaitRoom(roomLookMs);
    return memory;
  }

  #awaitRoom(pauseMs: number): void {
    this.#cancelReturn = this.clock.after(pauseMs, () => {
      if (this.#unwritten === undefined || this.#returnToDisk(this.#unwritten)) return;
      this.#awaitRoom(hasRoom(this.folder) ? Math.min(2 * pauseMs, longestPauseMs) : roomLookMs);
    });
  }

  /** Writes the changes to the file, or everything if the file was lost meanwhile. */
  #returnToDisk(unwritten: Unwritten): boolean {
    if (!hasRoom(this.folder)) return false;
    const path = join(this.folder, fileName);
    unwritten.isLost ||= !existsSync(path);
    let file: Database | undefined;
    try {
      file = this.#open(path);
      writeDown(this.#database, file, unwritten);
    } catch (error) {
      file?.close();
      if (!isUnwritable(error)) this.#keepAside(path, error);
      return false;
    }
    this.#database.close();
    this.#database = file;
    this.#unwritten = undefined;
    this.log("o banco de dados está outra vez em disco");
    return true;
  }

  #keepAside(path: string, error: unknown): void {
    const aside = `${path}.aside-${new Date().toISOString().replace(/[:.]/g, "-")}`;
    this.log(`banco de dados inutilizável (${message(error)}); guardado como ${aside}, começo um novo`);
    for (const suffix of ["", "-wal", "-shm"]) {
      try {
        if (existsSync(path + suffix)) renameSync(path + suffix, aside + suffix);
      } catch (problem) {
        this.log(`não consegui guardar ${path + suffix} (${message(problem)})`);
      }
    }
  }
}
