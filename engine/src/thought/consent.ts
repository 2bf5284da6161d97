// What a "yes" can allow the `claude` tool: for each thing that it was denied, a rule that allows this and nothing else,
// and the words that ask for it. Without such a rule there is nothing to ask for.

import type { Phrases } from "../base/phrases.ts";
import type { DeniedTool } from "./claudeOutput.ts";

export interface Leave {
  /** For `--allowedTools`. */
  rule: string;
  /** Names all that the rule allows, as it is written and as it is read aloud. */
  written: string;
  spoken: string;
}

/** What is longer nobody listens to before saying yes. */
const longest = 200;
/** Read aloud, these would be left out. */
const marks = /[!-/:-@[-`{-~]/g;

/** Undefined for what no rule allows to the letter. */
export function leaveFor({ name, input }: DeniedTool, phrases: Phrases): Leave | undefined {
  const { leave } = phrases;
  switch (name) {
    case "Bash":
      return isExact(input.command) ? commandLeave(input.command.trim(), phrases) : undefined;
    case "Edit":
    case "MultiEdit":
    case "Write":
    case "NotebookEdit":
      // Rules for changing files are those of Edit, whatever changes them.
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
  // Paths in rules are patterns; two slashes begin one from the root.
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
 * Rules stand in a list with commas, in parentheses, a star stands for anything, and a backslash is read with what
 * follows. What does not show, or looks like one blank where there are more, cannot be asked for either.
 */
function isExact(text: unknown): text is string {
  if (typeof text !== "string" || text.length > longest || !text.isWellFormed()) return false;
  const shown = text.trim();
  return shown !== "" && !/[(),…*\\]| {2}|[^\S \n]|(?!\n)[\p{C}\p{Zl}\p{Zp}]/u.test(shown);
}

function readAloud(text: string, { leave }: Phrases): string {
  const named = text.replace(/\n/g, `, ${leave.newLine}, `).replace(marks, (mark) => (mark === "," ? "," : ` ${leave.marks[mark] ?? mark} `));
  return named.replace(/ +,/g, ",").replace(/ +/g, " ").trim();
}
