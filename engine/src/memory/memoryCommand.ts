// `palomet-engine export` and `palomet-engine forget`: for people, about the conversations that the engine has kept.

import { Database } from "bun:sqlite";
import { existsSync, readdirSync, rmSync } from "node:fs";
import { homedir } from "node:os";
import { join } from "node:path";
import { chooseLocale, type Language } from "../base/language.ts";
import { defaultPort, type Row } from "../base/protocol.ts";
import { always, conversations, daySpan, forgetAll, forgetSpan, scrub, type ArchivedConversation } from "./archive.ts";
import { message, prepared } from "./database.ts";
import { RunningEngine, Unanswered } from "./runningEngine.ts";

export interface CommandSurroundings {
  environment: Record<string, string | undefined>;
  /** How long an engine that runs may take to answer. */
  answerMs?: number;
  /** Writes to standard output. */
  print(text: string): void;
  /** Writes a line to standard error. */
  complain(line: string): void;
}

export const memoryUsage = `       palomet-engine export [--since DAY] [--json]   every conversation, as Markdown or as JSON
       palomet-engine forget DAY|all                  forgets the conversations of a day, or all

A DAY is written 2026-11-22.
`;

const sayings = {
  en: {
    forgotten: (count: number) => `${count} ${count === 1 ? "conversation is" : "conversations are"} forgotten.`,
    unanswered: "the engine does not answer, and may hold conversations that are not on the disk yet; try once more.",
    stillRead: "another program reads the conversations, and parts of them stay on the disk until it ends; then forget once more.",
  },
  pt: {
    forgotten: (count: number) => `${count} ${count === 1 ? "conversa esquecida" : "conversas esquecidas"}.`,
    unanswered: "o motor não responde e pode ter conversas que ainda não estão no disco; tente outra vez.",
    stillRead: "outro programa está lendo as conversas, e partes delas ficam no disco até ele terminar; depois, esqueça outra vez.",
  },
} satisfies Record<Language, unknown>;

/** Gives the exit code: 0 when it is done, 1 when it could not be, 2 when an argument is wrong. */
export async function memoryCommand(words: readonly string[], surroundings: CommandSurroundings): Promise<number> {
  const [command, ...rest] = words;
  try {
    if (command === "export") return await exportAll(rest, surroundings);
    if (command === "forget") return await forget(rest, surroundings);
    return wrong(surroundings);
  } catch (error) {
    if (!(error instanceof Unanswered)) throw error;
    surroundings.complain(`palomet-engine: ${sayings[chooseLocale(surroundings.environment).language].unanswered}`);
    return 1;
  }
}

function wrong({ complain }: CommandSurroundings): number {
  complain(`Usage:\n${memoryUsage.trimEnd()}`);
  return 2;
}

async function exportAll(words: readonly string[], surroundings: CommandSurroundings): Promise<number> {
  let since = always.from;
  let isJson = false;
  for (let at = 0; at < words.length; at++) {
    const day = words[at] === "--since" ? dayOf(words[++at]) : undefined;
    if (day) since = daySpan(day).from;
    else if (words[at] === "--json") isJson = true;
    else return wrong(surroundings);
  }
  const { language } = chooseLocale(surroundings.environment);
  // Asked first: what it writes down meanwhile is in the file then.
  const waiting = await engineOf(surroundings).waiting();
  return withDatabase(surroundings, true, (database) => {
    const { print } = surroundings;
    let isFirst = true;
    if (isJson) print("[");
    for (const conversation of conversations(database, since, waiting)) {
      if (isJson) print(`${isFirst ? "\n" : ",\n"}${JSON.stringify(conversation)}`);
      else print(`${isFirst ? "" : "\n"}${inMarkdown(conversation, language)}`);
      isFirst = false;
    }
    if (isJson) print(isFirst ? "]\n" : "\n]\n");
    return 0;
  });
}

async function forget(words: readonly string[], surroundings: CommandSurroundings): Promise<number> {
  const [which, ...more] = words;
  const day = dayOf(which);
  if (more.length > 0 || (which !== "all" && !day)) return wrong(surroundings);
  const span = day ? daySpan(day) : always;
  // An engine that runs holds the current conversation, and those that it could not write yet: it would write them later.
  const unwritten = await engineOf(surroundings).forget(span);
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

function engineOf(surroundings: CommandSurroundings): RunningEngine {
  const { environment, answerMs } = surroundings;
  return new RunningEngine(Number(environment.PALOMET_PORT ?? defaultPort), folderOf(surroundings), answerMs);
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
