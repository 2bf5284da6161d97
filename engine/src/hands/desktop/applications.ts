// The applications that are installed, by their desktop files: their names in the user's language, and how they are started.

import { readdirSync, readFileSync } from "node:fs";
import { basename, isAbsolute, join } from "node:path";
import { plainWords } from "../../base/words.ts";
import { homeOf } from "../../machine/userFolders.ts";

export interface Application {
  /** "org.gnome.Calculator.desktop". */
  id: string;
  file: string;
  /** In the user's language. */
  name: string;
  /** Other names under which it may be asked for. */
  aliases: string[];
  /** Its command line, with field codes. */
  exec: string;
}

type Environment = Record<string, string | undefined>;

const maxFile = 1 << 18;
const mostFiles = 5_000;
const deepest = 4;

/** Every application that a menu would show; the user's own file hides the system's of the same id. */
export function installedApplications(environment: Environment, tag: string, find: (program: string) => string | undefined): Application[] {
  const found = new Map<string, Application | undefined>();
  for (const folder of applicationFolders(environment)) {
    for (const [id, file] of desktopFiles(folder)) {
      if (found.has(id) || found.size >= mostFiles) continue;
      found.set(id, read(id, file, environment, tag, find));
    }
  }
  return [...found.values()].filter((application) => application !== undefined);
}

function applicationFolders(environment: Environment): string[] {
  const own = environment.XDG_DATA_HOME || join(homeOf(environment), ".local/share");
  const system = (environment.XDG_DATA_DIRS || "/usr/local/share:/usr/share").split(":");
  return [...new Set([own, ...system].filter(isAbsolute).map((folder) => join(folder, "applications")))];
}

/** The files below a folder with their ids, in which "-" stands for "/". */
function desktopFiles(folder: string): [string, string][] {
  const files: [string, string][] = [];
  const look = (path: string, prefix: string, depth: number): void => {
    let entries;
    try {
      entries = readdirSync(path, { withFileTypes: true });
    } catch {
      return;
    }
    for (const entry of entries.sort((a, b) => (a.name < b.name ? -1 : 1))) {
      if (files.length >= mostFiles) return;
      if (entry.name.endsWith(".desktop")) files.push([prefix + entry.name, join(path, entry.name)]);
      else if (entry.isDirectory() && depth < deepest) look(join(path, entry.name), `${prefix}${entry.name}-`, depth + 1);
    }
  };
  look(folder, "", 0);
  return files;
}

function read(id: string, file: string, environment: Environment, tag: string, find: (program: string) => string | undefined): Application | undefined {
  const entry = entryOf(file);
  if (!entry || entry.get("Type") !== "Application" || entry.get("Hidden") === "true" || entry.get("NoDisplay") === "true") return undefined;
  const exec = entry.get("Exec") ?? "";
  const name = localized(entry, "Name", tag);
  if (name === undefined || (exec === "" && entry.get("DBusActivatable") !== "true")) return undefined;
  const desktops = (environment.XDG_CURRENT_DESKTOP ?? "").split(":").filter((each) => each !== "");
  const lists = (key: string): string[] => (entry.get(key) ?? "").split(";").filter((each) => each !== "");
  if (entry.has("OnlyShowIn") && !lists("OnlyShowIn").some((each) => desktops.includes(each))) return undefined;
  if (lists("NotShowIn").some((each) => desktops.includes(each))) return undefined;
  const tryExec = entry.get("TryExec");
  if (tryExec !== undefined && find(tryExec) === undefined) return undefined;
  const program = basename(commandOf({ id, file, name, aliases: [], exec })?.[0] ?? "");
  const generic = localized(entry, "GenericName", tag);
  const aliases = [entry.get("Name"), id.replace(/\.desktop$/, ""), id.replace(/\.desktop$/, "").split(".").at(-1), program, generic];
  return { id, file, name, aliases: [...new Set(aliases.filter((alias) => alias !== undefined && alias !== ""))] as string[], exec };
}

/** The group [Desktop Entry]. */
function entryOf(file: string): Map<string, string> | undefined {
  let text: string;
  try {
    text = readFileSync(file, "utf8");
  } catch {
    return undefined;
  }
  if (text.length > maxFile) return undefined;
  const entry = new Map<string, string>();
  let isInside = false;
  for (const line of text.split(/\r?\n/)) {
    if (line.startsWith("[")) isInside = line.trim() === "[Desktop Entry]";
    const match = isInside ? /^([A-Za-z0-9-]+(?:\[[^\]]+\])?)\s*=\s*(.*)$/.exec(line) : null;
    if (match && !entry.has(match[1]!)) entry.set(match[1]!, match[2]!.replace(/\\(.)/g, (_, mark: string) => escapes[mark] ?? `\\${mark}`).trim());
  }
  return entry;
}

const escapes: Record<string, string> = { s: " ", n: "\n", t: "\t", r: "\r", "\\": "\\" };

/** "Name[pt_BR]", else "Name[pt]", else "Name". */
function localized(entry: Map<string, string>, key: string, tag: string): string | undefined {
  const [language = "", region] = tag.split("-");
  return (region === undefined ? undefined : entry.get(`${key}[${language}_${region}]`)) ?? entry.get(`${key}[${language}]`) ?? entry.get(key);
}

/** The application of this name. Of several that only begin alike none is taken, unless one is the shortest of its name. */
export function applicationNamed(said: string, applications: readonly Application[]): Application | undefined {
  const wanted = plainWords(said).join(" ");
  if (wanted === "") return undefined;
  const plain = (name: string): string => plainWords(name).join(" ");
  const exact = applications.find(({ name }) => plain(name) === wanted) ?? applications.find(({ aliases }) => aliases.some((alias) => plain(alias) === wanted));
  if (exact) return exact;
  const squeezed = wanted.replace(/ /g, "");
  const joined = applications.find(({ name, aliases }) => [name, ...aliases].some((alias) => plain(alias).replace(/ /g, "") === squeezed));
  if (joined) return joined;
  const words = wanted.split(" ");
  const holding = applications.filter(({ name }) => words.every((word) => plainWords(name).includes(word)));
  return holding.length === 1 ? holding[0] : undefined;
}

/** The command line without its field codes; undefined when it cannot be read. */
export function commandOf({ exec, name, file }: Application): string[] | undefined {
  const words: string[] = [];
  let word: string | undefined;
  let isQuoted = false;
  for (let at = 0; at < exec.length; at++) {
    const mark = exec[at]!;
    if (isQuoted && mark === "\\") word = (word ?? "") + (exec[++at] ?? "");
    else if (mark === '"') [isQuoted, word] = [!isQuoted, word ?? ""];
    else if (!isQuoted && /\s/.test(mark)) {
      if (word !== undefined) words.push(word);
      word = undefined;
    } else word = (word ?? "") + mark;
  }
  if (isQuoted) return undefined;
  if (word !== undefined) words.push(word);
  const codes: Record<string, string> = { c: name, k: file, "%": "%" };
  // Files and addresses are not given; %i is an icon, and the rest is out of use.
  const command = words.filter((each) => !/^%[fFuUdDnNickvm]$/.test(each) || /^%[ck]$/.test(each)).map((each) => each.replace(/%(.)/g, (_, code: string) => codes[code] ?? ""));
  return command.length > 0 && command[0] !== "" ? command : undefined;
}
