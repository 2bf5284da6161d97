// The words that ask for a "yes". For a thing that the `claude` tool was denied it finds a rule that allows this and nothing
// else; a thing for which there is no such rule is not asked for.

import type { Phrases } from "../base/phrases.ts";
import type { DeniedTool } from "./claudeOutput.ts";

export interface Leave {
  /** The rule, for `--allowedTools`. */
  rule: string;
  /** Words that name all that the rule allows, as they are written and as they are read aloud. */
  written: string;
  spoken: string;
}

/** Nobody listens to more than this before saying yes, in characters. */
const longest = 200;
/** What these hands open or run is read aloud to the letter. */
const spelled = ["open", "commands", "files"];
/** A synthesiser leaves these out when it reads aloud. */
const marks = /[!-/:-@[-`{-~]/g;

/** Gives undefined for a thing that no rule allows to the letter. */
export function leaveFor({ name, input }: DeniedTool, phrases: Phrases): Leave | undefined {
  const { leave } = phrases;
  switch (name) {
    case "Bash":
      return isExact(input.command) ? commandLeave(input.command.trim(), phrases) : undefined;
    case "Edit":
    case "MultiEdit":
    case "Write":
    case "NotebookEdit":
      // The rules of Edit hold for every tool that changes files.
      return fileLeave("Edit", input.notebook_path ?? input.file_path, leave.change, phrases);
    case "Read":
      return fileLeave("Read", input.file_path, leave.read, phrases);
    case "WebFetch":
      return siteLeave(input.url, phrases);
    case "WebSearch":
      return { rule: name, written: leave.search, spoken: leave.search };
    default: {
      if (!/^[A-Za-z][\w-]*$/.test(name) || name.length > longest) return undefined;
      return { rule: name, written: leave.use(name), spoken: leave.use(readAloud(name, phrases)) };
    }
  }
}

function commandLeave(command: string, phrases: Phrases): Leave | undefined {
  // "NAME:VALUE" is a rule of another kind.
  if (/^\w+:/.test(command)) return undefined;
  return { rule: `Bash(${command})`, written: command, spoken: readAloud(command, phrases) };
}

function fileLeave(tool: string, path: unknown, words: (path: string) => string, phrases: Phrases): Leave | undefined {
  // Paths in rules are patterns. A pattern with two slashes at its beginning starts at the root.
  const isOne = isExact(path) && path === path.trim() && /^(\/[^/?[\]{}!#\n]+)+$/.test(path) && !/\/\.\.?(\/|$)/.test(path);
  return isOne ? { rule: `${tool}(/${path})`, written: words(path), spoken: words(readAloud(path, phrases)) } : undefined;
}

function siteLeave(url: unknown, phrases: Phrases): Leave | undefined {
  const site = typeof url === "string" ? URL.parse(url)?.hostname : undefined;
  if (site === undefined || !/^[a-z0-9]([a-z0-9.-]*[a-z0-9])?$/.test(site) || site.length > longest) return undefined;
  const { anyPage } = phrases.leave;
  return { rule: `WebFetch(domain:${site})`, written: anyPage(site), spoken: anyPage(readAloud(site, phrases)) };
}

/**
 * Commas, parentheses, stars and backslashes have a meaning of their own in a list of rules. Characters that do not show,
 * and blanks that look like one where there are more, cannot be asked for either.
 */
function isExact(text: unknown): text is string {
  return isAskable(text) && !/[(),…*\\]/.test(text);
}

/** A user who hears or reads this knows all of it. */
export function isAskable(text: unknown): text is string {
  if (typeof text !== "string" || text.length > longest || !text.isWellFormed()) return false;
  const shown = text.trim();
  return shown !== "" && !/ {2}|[^\S \n]|(?!\n)[\p{C}\p{Zl}\p{Zp}]/u.test(shown);
}

/** Words for what a model wants of a hand, as they are read aloud: it is a sentence, unless each mark of it counts. */
export function readIntent(hand: string, intent: string, phrases: Phrases): string {
  return isSpelled(hand) ? readAloud(intent, phrases) : readSentence(intent, phrases);
}

export function isSpelled(hand: string): boolean {
  return spelled.includes(hand);
}

/** The text with its marks in words: a synthesiser leaves marks out. */
export function readAloud(text: string, phrases: Phrases): string {
  return named(text, phrases, () => false);
}

/** The marks of a sentence are heard as its pauses, all others are named. */
function readSentence(text: string, phrases: Phrases): string {
  return named(text, phrases, (mark, before, after) => {
    if (",.;:!?".includes(mark)) return before !== "" && /^(\s|$)/.test(after);
    return "'-".includes(mark) ? /[\p{L}\p{N}]/u.test(before) && /^[\p{L}\p{N}]/u.test(after) : `"()`.includes(mark);
  });
}

function named(text: string, { leave }: Phrases, isHeard: (mark: string, before: string, after: string) => boolean): string {
  const words = text.replace(marks, (mark, at: number) =>
    isHeard(mark, text.slice(0, at).at(-1) ?? "", text.slice(at + 1)) ? mark : ` ${leave.marks[mark] ?? mark} `,
  );
  return words.replace(/\n/g, `, ${leave.newLine}, `).replace(/ +,/g, ",").replace(/ +/g, " ").trim();
}
