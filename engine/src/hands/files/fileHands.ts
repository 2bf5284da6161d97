// The hands for files, for models alone: one that looks within the folders of the settings, one that writes there, and one that
// runs commands.

import { constants, statSync, type Stats } from "node:fs";
import { open, readdir, rename, rm, stat } from "node:fs/promises";
import { dirname, join } from "node:path";
import type { Language } from "../../base/language.ts";
import type { Settings } from "../../base/protocol.ts";
import { cut } from "../../base/text.ts";
import type { Children } from "../../machine/children.ts";
import { choiceIn, pathIn, textIn } from "../given.ts";
import type { Hand } from "../hand.ts";
import { numberText } from "../saying.ts";
import { placeWithin, readPlain, within } from "./fenced.ts";

const looks = ["list", "search", "read"] as const;
const longestRead = 64 << 10;
const longestWritten = 256 << 10;
const mostEntries = 200;
const mostMatches = 50;
const mostSearched = 2_000;
const longestLine = 200;
const deepest = 8;
/** A question names a file's contents when they are no longer than this together with its path. */
const longestShown = 120;
const longestCommand = 2_000;
const commandMs = 60_000;
const maxCommandOutput = 1 << 20;

export function fileHands(children: Children, settings: () => Settings): Hand[] {
  return [new LookHand(settings), new WriteHand(settings), new CommandHand(children, settings)];
}

function foldersOf({ folders, workingFolder }: Settings): string[] {
  return [workingFolder, ...folders];
}

class LookHand implements Hand {
  readonly id = "readFiles";
  readonly description = "Lists a folder, searches files for a text, or reads a file, within the folders that the user allows.";
  readonly parameters = {
    type: "object",
    properties: {
      do: { type: "string", enum: looks },
      path: { type: "string", description: "A folder for list and search, a file for read; without it the allowed folders are listed" },
      text: { type: "string", description: "For search: what lines are to hold" },
    },
    required: ["do"],
  } as const;
  readonly changes = false;
  readonly forModelsOnly = true;

  constructor(private readonly settings: () => Settings) {}

  intent(given: unknown, language: Language): string | undefined {
    const what = choiceIn(given, "do", looks);
    const named = pathIn(given, "path");
    const path = named === undefined ? "" : within(named, foldersOf(this.settings())) ?? named;
    const isPortuguese = language === "pt";
    switch (what) {
      case undefined:
        return undefined;
      case "list":
        return isPortuguese ? `listar ${path}`.trim() : `list ${path}`.trim();
      case "search":
        return isPortuguese ? `procurar em ${path}` : `search ${path}`;
      case "read":
        return isPortuguese ? `ler ${path}` : `read ${path}`;
    }
  }

  async act(given: unknown, _language: Language, signal: AbortSignal): Promise<string> {
    const folders = foldersOf(this.settings());
    const path = pathIn(given, "path");
    const what = choiceIn(given, "do", looks);
    if (path === undefined) return what === "list" ? folders.join("\n") : "Which path?";
    const found = within(path, folders);
    if (found === undefined) return `There is no ${path} in the allowed folders: ${folders.join(", ")}`;
    try {
      if (what === "list") return await list(found);
      if (what === "read") return await read(found);
      const text = textIn(given, "text");
      return text === undefined ? "Which text?" : await search(found, text, folders, signal);
    } catch (error) {
      return refusal(path, error);
    }
  }
}

async function list(folder: string): Promise<string> {
  const entries = await readdir(folder, { withFileTypes: true });
  const names = entries.slice(0, mostEntries).map((entry) => `${entry.name}${entry.isDirectory() ? "/" : ""}`);
  const more = entries.length - names.length;
  return [...names, ...(more > 0 ? [`and ${more} more`] : [])].join("\n") || "The folder is empty.";
}

async function read(file: string): Promise<string> {
  const found = await readPlain(file, longestRead);
  if (!found) return `${file} is no text file.`;
  return found.isWhole ? found.text : `${found.text}\n[the rest is left out]`;
}

/** Looks through a file or all files below a folder. Links are not followed, and hidden folders left out. */
async function search(start: string, text: string, folders: readonly string[], signal: AbortSignal): Promise<string> {
  const wanted = text.toLowerCase();
  const matches: string[] = [];
  let searched = 0;
  const look = async (path: string, depth: number): Promise<void> => {
    if (signal.aborted || matches.length >= mostMatches || searched >= mostSearched) return;
    const about = await stat(path).catch(() => undefined);
    if (about?.isDirectory()) {
      if (depth >= deepest) return;
      const entries = await readdir(path, { withFileTypes: true }).catch(() => []);
      for (const entry of entries) {
        if (!entry.isSymbolicLink() && !entry.name.startsWith(".")) await look(join(path, entry.name), depth + 1);
      }
      return;
    }
    searched++;
    const found = await readPlain(path, longestRead).catch(() => undefined);
    found?.text.split("\n").forEach((line, at) => {
      if (matches.length < mostMatches && line.toLowerCase().includes(wanted)) matches.push(`${path}:${at + 1}: ${cut(line.trim(), longestLine)}`);
    });
  };
  if (within(start, folders) !== undefined) await look(start, 0);
  return matches.join("\n") || "Nothing was found.";
}

class WriteHand implements Hand {
  readonly id = "files";
  readonly description = "Writes a text file within the folders that the user allows; a file that is there is replaced. The user is asked first.";
  readonly parameters = {
    type: "object",
    properties: { path: { type: "string" }, text: { type: "string", description: "The whole contents" } },
    required: ["path", "text"],
  } as const;
  readonly changes = true;
  readonly forModelsOnly = true;

  constructor(private readonly settings: () => Settings) {}

  intent(given: unknown, language: Language): string | undefined {
    const wanted = writing(given);
    const place = wanted && placeWithin(wanted.path, foldersOf(this.settings()));
    if (wanted === undefined || place === undefined) return undefined;
    const about = lookAt(place);
    if (about && !about.isFile()) return undefined;
    const contents = contentsOf(wanted.text, longestShown - place.length, language);
    const isPortuguese = language === "pt";
    if (!about) return isPortuguese ? `gravar ${contents} em ${place}` : `write ${contents} to ${place}`;
    return isPortuguese ? `substituir o conteúdo de ${place} por ${contents}` : `replace the contents of ${place} with ${contents}`;
  }

  async act(given: unknown, _language: Language): Promise<string> {
    const wanted = writing(given);
    if (!wanted) return "The path or the text makes no sense.";
    const folders = foldersOf(this.settings());
    const place = placeWithin(wanted.path, folders);
    if (place === undefined) return `${wanted.path} is not in the allowed folders: ${folders.join(", ")}`;
    const unfinished = join(dirname(place), `.${crypto.randomUUID()}.tmp`);
    try {
      const about = lookAt(place);
      if (about && !about.isFile()) return `${place} is no plain file.`;
      const file = await open(unfinished, constants.O_WRONLY | constants.O_CREAT | constants.O_EXCL, about ? 0o600 : 0o644);
      try {
        if (about) await file.chmod(about.mode & 0o777);
        await file.writeFile(wanted.text);
        await file.sync();
      } finally {
        await file.close();
      }
      await rename(unfinished, place);
      return `${place} is written.`;
    } catch (error) {
      await rm(unfinished, { force: true }).catch(() => {});
      return refusal(place, error);
    }
  }
}

function writing(given: unknown): { path: string; text: string } | undefined {
  const path = pathIn(given, "path");
  const text = typeof given === "object" && given !== null && "text" in given ? given.text : undefined;
  if (path === undefined || typeof text !== "string" || text.length > longestWritten) return undefined;
  return { path, text: text.toWellFormed() };
}

function lookAt(path: string): Stats | undefined {
  try {
    return statSync(path);
  } catch {
    return undefined;
  }
}

/** A short text itself when it shows to the letter between quotes, but for the end of its only line; else its length. */
function contentsOf(text: string, longest: number, language: Language): string {
  const line = text.replace(/\n$/, "");
  if (line !== "" && line.length <= longest && line === line.trim() && showsWhole(line) && !/[“”]/.test(line)) return `“${line}”`;
  const count = [...text].length;
  const noun = language === "pt" ? "caractere" : "character";
  return `${numberText(count, language)} ${noun}${count === 1 ? "" : "s"}`;
}

/** Not so do marks that do not show, and blanks that look like fewer. */
function showsWhole(text: string): boolean {
  return !/[^\S ]|[\p{C}\p{Zl}\p{Zp}]| {2}/u.test(text);
}

class CommandHand implements Hand {
  readonly id = "commands";
  readonly description = "Runs a command line by the shell in the working folder, for at most a minute. The user is asked first.";
  readonly parameters = { type: "object", properties: { command: { type: "string" } }, required: ["command"] } as const;
  readonly changes = true;
  readonly forModelsOnly = true;

  constructor(
    private readonly children: Children,
    private readonly settings: () => Settings,
  ) {}

  intent(given: unknown, language: Language): string | undefined {
    const command = commandIn(given);
    if (command === undefined) return undefined;
    const folder = this.#folder() ?? this.settings().workingFolder;
    return language === "pt" ? `executar em ${folder}: ${command}` : `run in ${folder}: ${command}`;
  }

  async act(given: unknown, _language: Language, signal: AbortSignal): Promise<string> {
    const command = commandIn(given);
    if (command === undefined) return "The command makes no sense: it has to be one line of plain characters.";
    const folder = this.#folder();
    if (folder === undefined) return "The working folder is not there.";
    const outcome = await this.children.run(["/bin/sh", "-c", command], { cwd: folder, timeoutMs: commandMs, maxOutput: maxCommandOutput, signal });
    switch (outcome.kind) {
      case "ended": {
        const output = cut(new TextDecoder().decode(outcome.output), longestRead);
        return [`It ended with ${outcome.code}.`, output, outcome.errors].filter((part) => part !== "").join("\n");
      }
      case "timedOut":
        return "It took longer than a minute, and was ended.";
      case "tooMuch":
        return "It wrote too much, and was ended.";
      default:
        return "It did not run.";
    }
  }

  #folder(): string | undefined {
    const { workingFolder } = this.settings();
    return within(workingFolder, [workingFolder]);
  }
}

/** A command that can be shown to the letter. */
function commandIn(given: unknown): string | undefined {
  const command = typeof given === "object" && given !== null && "command" in given ? given.command : undefined;
  if (typeof command !== "string" || !command.isWellFormed() || command.trim() === "" || command.length > longestCommand) return undefined;
  return showsWhole(command.trim()) ? command.trim() : undefined;
}

function refusal(path: string, error: unknown): string {
  return `${path}: ${(error as { code?: string }).code ?? String(error)}`;
}
