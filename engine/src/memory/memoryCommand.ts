// `palomet-engine export` and `palomet-engine forget`: for people, about the conversations that the engine has kept.

import { Database } from "bun:sqlite";
import { existsSync, readdirSync, realpathSync, rmSync } from "node:fs";
import { homedir } from "node:os";
import { join } from "node:path";
import { isRecord } from "../base/json.ts";
import { chooseLocale, type Language } from "../base/language.ts";
import { defaultPort, type Row } from "../base/protocol.ts";
import { always, conversations, daySpan, forgetAll, forgetSpan, scrub, type ArchivedConversation, type Span } from "./archive.ts";
import { message, prepared } from "./database.ts";

export interface CommandSurroundings {
  environment: Record<string, string | undefined>;
  /** Writes to standard output. */
  print(text: string): void;
  /** Writes a line to standard error. */
  complain(line: string): void;
}

export const memoryUsage = `       palomet-engine export [--since DAY] [--json]   every conversation, as Markdown or as JSON
       palomet-engine forget DAY|all                  forgets the conversations of a day, or all

A DAY is written 2026-11-22.
`;

const askMs = 2_000;

const sayings = {
  en: {
    forgotten: (count: number) => `${count} ${count === 1 ? "conversation is" : "conversations are"} forgotten.`,
    stillRead: "another program reads the conversations, and parts of them stay on the disk until it ends; then forget once more.",
  },
  pt: {
    forgotten: (count: number) => `${count} ${count === 1 ? "conversa esquecida" : "conversas esquecidas"}.`,
    stillRead: "outro programa está lendo as conversas, e partes delas ficam no disco até ele terminar; depois, esqueça outra vez.",
  },
} satisfies Record<Language, unknown>;

/** Gives the exit code: 0 when it is done, 1 when it could not be, 2 when an argument is wrong. */
export async function memoryCommand(words: readonly string[], surroundings: CommandSurroundings): Promise<number> {
  const [command, ...rest] = words;
  if (command === "export") return exportAll(rest, surroundings);
  if (command === "forget") return await forget(rest, surroundings);
  return wrong(surroundings);
}

function wrong({ complain }: CommandSurroundings): number {
  complain(`Usage:\n${memoryUsage.trimEnd()}`);
  return 2;
}

function exportAll(words: readonly string[], surroundings: CommandSurroundings): number {
  let since = always.from;
  let isJson = false;
  for (let at = 0; at < words.length; at++) {
    const day = words[at] === "--since" ? dayOf(words[++at]) : undefined;
    if (day) since = daySpan(day).from;
    else if (words[at] === "--json") isJson = true;
    else return wrong(surroundings);
  }
  const { language } = chooseLocale(surroundings.environment);
  return withDatabase(surroundings, true, (database) => {
    const { print } = surroundings;
    if (!database) {
      if (isJson) print("[]\n");
      return 0;
    }
    let isFirst = true;
    if (isJson) print("[");
    for (const conversation of conversations(database, since)) {
      if (isJson) print(`${isFirst ? "\n" : ",\n"}${JSON.stringify(conversation)}`);
      else print(`${isFirst ? "" : "\n"}${inMarkdown(conversation, language)}`);
      isFirst = false;
    }
    if (isJson) print("\n]\n");
    return 0;
  });
}

async function forget(words: readonly string[], surroundings: CommandSurroundings): Promise<number> {
  const [which, ...more] = words;
  const day = dayOf(which);
  if (more.length > 0 || (which !== "all" && !day)) return wrong(surroundings);
  const span = day ? daySpan(day) : always;
  // An engine that runs holds the current conversation, and those that it could not write yet: it would write them later.
  const unwritten = await forgetInEngine(surroundings, span);
  const say = sayings[chooseLocale(surroundings.environment).language];
  return withDatabase(surroundings, false, (database) => {
    const count = !database ? 0 : day ? forgetSpan(database, span).length : forgetAll(database);
    if (!day) removeAsides(folderOf(surroundings));
    surroundings.print(`${say.forgotten(Math.max(count, unwritten))}\n`);
    if (!database || scrub(database)) return 0;
    surroundings.complain(`palomet-engine: ${say.stillRead}`);
    return 1;
  });
}

/** Gives the number of conversations that an engine that runs on this store held in memory. */
async function forgetInEngine(surroundings: CommandSurroundings, span: Span): Promise<number> {
  const port = Number(surroundings.environment.PALOMET_PORT ?? defaultPort);
  const folder = folderOf(surroundings);
  if (!existsSync(folder)) return 0;
  const body = JSON.stringify({ folder: realpathSync(folder), ...span });
  const answer = await fetch(`http://127.0.0.1:${port}/forget`, { method: "POST", body, signal: AbortSignal.timeout(askMs) })
    .then((response) => response.json())
    .catch(() => undefined);
  return isRecord(answer) && typeof answer.forgotten === "number" ? answer.forgotten : 0;
}

/** Hands on undefined when nothing was ever kept. Gives what `work` gives, or 1 when the file cannot be used. */
function withDatabase(surroundings: CommandSurroundings, isReading: boolean, work: (database: Database | undefined) => number): number {
  const path = join(folderOf(surroundings), "palomet.db");
  if (!existsSync(path)) return work(undefined);
  let database: Database | undefined;
  try {
    database = new Database(path, isReading ? { readonly: true } : { readwrite: true });
    if (!isReading) prepared(database);
    return work(database);
  } catch (error) {
    surroundings.complain(`palomet-engine: ${path}: ${message(error)}`);
    return 1;
  } finally {
    database?.close();
  }
}

function folderOf({ environment }: CommandSurroundings): string {
  return join(environment.XDG_STATE_HOME || join(environment.HOME || homedir(), ".local/state"), "palomet");
}

/** Databases that could not be used were kept aside, with all that they hold. */
function removeAsides(folder: string): void {
  if (!existsSync(folder)) return;
  for (const name of readdirSync(folder)) if (name.startsWith("palomet.db.aside-")) rmSync(join(folder, name), { force: true });
}

function dayOf(text: string | undefined): Date | undefined {
  const match = /^(\d{4})-(\d{2})-(\d{2})$/.exec(text ?? "");
  if (!match) return undefined;
  const [year = 0, month = 0, day = 0] = match.slice(1).map(Number);
  const date = new Date(year, month - 1, day);
  return date.getMonth() === month - 1 && date.getDate() === day ? date : undefined;
}

const names: Record<Language, Record<Row["role"], string>> = {
  en: { user: "You", assistant: "Palomet", tool: "Tool" },
  pt: { user: "Você", assistant: "Palomet", tool: "Ferramenta" },
};

/** A heading with the conversation's beginning, and a paragraph for each row; lines within one are quoted. */
function inMarkdown({ startedAt, rows }: ArchivedConversation, language: Language): string {
  const texts = rows.map(({ role, text, at }) => {
    return `**${names[language][role]}**, ${timeText(at).slice(11)}\n\n${text.replace(/^/gm, "> ")}\n`;
  });
  return `## ${timeText(startedAt)}\n\n${texts.join("\n")}`;
}

/** "2026-11-22 14:30", local. */
function timeText(at: number): string {
  const date = new Date(at);
  const two = (value: number): string => String(value).padStart(2, "0");
  return `${date.getFullYear()}-${two(date.getMonth() + 1)}-${two(date.getDate())} ${two(date.getHours())}:${two(date.getMinutes())}`;
}
