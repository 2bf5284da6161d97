// Notes and lists of the user's, in plain Markdown files. A file is replaced whole, so that it is never half written; what is no
// plain file, or lies in no plain folder, is left alone.

import {
  closeSync,
  constants,
  fchmodSync,
  fstatSync,
  fsyncSync,
  lstatSync,
  mkdirSync,
  openSync,
  readdirSync,
  readFileSync,
  renameSync,
  rmSync,
  writeSync,
} from "node:fs";
import { join } from "node:path";
import type { Language } from "../../base/language.ts";
import { cut } from "../../base/text.ts";
import { plainWords } from "../../base/words.ts";

const maxFile = 1 << 20;
const longestName = 60;
const mostLists = 200;

const names: Record<Language, { notes: string; lists: string; shopping: string }> = {
  en: { notes: "Notes", lists: "Lists", shopping: "shopping" },
  pt: { notes: "Notas", lists: "Listas", shopping: "compras" },
};

/** What kept a file from being read or written. */
export type Trouble = "unsafe" | "tooLong" | "refused";
export class NotebookError extends Error {
  constructor(
    readonly trouble: Trouble,
    readonly path: string,
  ) {
    super(`${trouble}: ${path}`);
  }
}

export class Notebook {
  constructor(
    /** Made when the first note is written. */
    readonly folder: string,
    private readonly language: Language,
  ) {}

  get notesFile(): string {
    return join(this.folder, `${names[this.language].notes}.md`);
  }

  /** Adds a line: "- 2026-11-22 14:30: text". */
  note(text: string, at: Date): void {
    const two = (value: number): string => String(value).padStart(2, "0");
    const day = `${at.getFullYear()}-${two(at.getMonth() + 1)}-${two(at.getDate())}`;
    const before = this.#read(this.notesFile) ?? `# ${names[this.language].notes}\n\n`;
    this.#write(this.folder, this.notesFile, `${ended(before)}- ${day} ${two(at.getHours())}:${two(at.getMinutes())}: ${text}\n`);
  }

  /** The texts of the latest notes, the newest first. */
  notes(most: number): string[] {
    const lines = (this.#read(this.notesFile) ?? "").split("\n");
    const texts = lines.flatMap((line) => /^\s*[-*+] (?:\d{4}-\d{2}-\d{2} \d{2}:\d{2}: )?(.+)$/.exec(line)?.[1] ?? []);
    return texts.slice(-most).reverse();
  }

  /** The list of this name as it is called here: the only one, or the one for shopping, when it has no name. */
  listName(said: string): string {
    const known = this.lists();
    const plain = plainWords(said).join(" ");
    if (plain === "") return known.length === 1 ? known[0]! : names[this.language].shopping;
    return known.find((name) => plainWords(name).join(" ") === plain) ?? fileName(said);
  }

  /** The names of the lists that there are. */
  lists(): string[] {
    try {
      const files = readdirSync(this.#listsFolder).filter((name) => name.endsWith(".md") && !name.startsWith("."));
      return files.map((name) => name.slice(0, -".md".length)).sort().slice(0, mostLists);
    } catch {
      return [];
    }
  }

  /** Undefined when there is no such list. */
  items(list: string): string[] | undefined {
    return this.#read(this.#listFile(list))?.split("\n").flatMap((line) => itemIn(line) ?? []);
  }

  /** Adds the items that are not on the list, and gives those. */
  add(list: string, items: readonly string[]): string[] {
    const file = this.#listFile(list);
    const before = this.#read(file) ?? `# ${list}\n\n`;
    const known = new Set(before.split("\n").flatMap((line) => keyOf(itemIn(line) ?? "")));
    const added = items.filter((item) => !known.has(keyOf(item)) && known.add(keyOf(item)));
    if (added.length > 0) this.#write(this.#listsFolder, file, ended(before) + added.map((item) => `- [ ] ${item}\n`).join(""));
    return added;
  }

  /** Takes an item off the list. Gives it as it was written, or undefined when it was not there. */
  remove(list: string, item: string): string | undefined {
    const file = this.#listFile(list);
    const lines = (this.#read(file) ?? "").split("\n");
    const at = lines.findIndex((line) => keyOf(itemIn(line) ?? "") === keyOf(item));
    if (at < 0) return undefined;
    const [removed = ""] = lines.splice(at, 1);
    this.#write(this.#listsFolder, file, lines.join("\n"));
    return itemIn(removed);
  }

  /** Takes all items off the list, and leaves whatever else the user wrote there. Gives how many; undefined when there is no such list. */
  clear(list: string): number | undefined {
    const file = this.#listFile(list);
    const lines = this.#read(file)?.split("\n");
    if (!lines) return undefined;
    const kept = lines.filter((line) => itemIn(line) === undefined);
    if (kept.length < lines.length) this.#write(this.#listsFolder, file, kept.join("\n"));
    return lines.length - kept.length;
  }

  get #listsFolder(): string {
    return join(this.folder, names[this.language].lists);
  }

  #listFile(list: string): string {
    return join(this.#listsFolder, `${fileName(list)}.md`);
  }

  #read(path: string): string | undefined {
    let file: number;
    try {
      this.#checkFolders();
      file = openSync(path, constants.O_RDONLY | constants.O_NOFOLLOW | constants.O_NONBLOCK);
    } catch (error) {
      const code = (error as { code?: string }).code;
      if (code === "ENOENT") return undefined;
      throw error instanceof NotebookError ? error : new NotebookError(code === "ELOOP" ? "unsafe" : "refused", path);
    }
    try {
      const { size } = fstatSync(file);
      if (!fstatSync(file).isFile()) throw new NotebookError("unsafe", path);
      if (size > maxFile) throw new NotebookError("tooLong", path);
      return readFileSync(file, "utf8").replace(/\r\n/g, "\n");
    } finally {
      closeSync(file);
    }
  }

  #write(folder: string, path: string, text: string): void {
    if (Buffer.byteLength(text) > maxFile) throw new NotebookError("tooLong", path);
    const unfinished = join(folder, `.${crypto.randomUUID()}.tmp`);
    try {
      mkdirSync(folder, { recursive: true });
      this.#checkFolders();
      // The user may have closed it to others.
      const before = lstatSync(path, { throwIfNoEntry: false });
      const mode = before?.isFile() ? before.mode & 0o777 : undefined;
      const file = openSync(unfinished, constants.O_WRONLY | constants.O_CREAT | constants.O_EXCL, mode === undefined ? 0o644 : 0o600);
      try {
        if (mode !== undefined) fchmodSync(file, mode);
        const bytes = Buffer.from(text);
        for (let at = 0; at < bytes.length; ) at += writeSync(file, bytes, at);
        fsyncSync(file);
      } finally {
        closeSync(file);
      }
      // This takes the place of a link, too, and never writes through it.
      renameSync(unfinished, path);
    } catch (error) {
      rmSync(unfinished, { force: true });
      throw error instanceof NotebookError ? error : new NotebookError("refused", path);
    }
  }

  /** The folders of the notebook must not be links to somewhere else. */
  #checkFolders(): void {
    for (const folder of [this.folder, this.#listsFolder]) {
      const found = lstatSync(folder, { throwIfNoEntry: false });
      if (found && !found.isDirectory()) throw new NotebookError("unsafe", folder);
    }
  }
}

function itemIn(line: string): string | undefined {
  return /^\s*[-*+] (?:\[[ xX]\] )?(.+?)\s*$/.exec(line)?.[1];
}

function keyOf(item: string): string {
  const plain = plainWords(item.replace(/^(the|some|a|an|o|a|os|as|um|uma)\s+/i, "")).join(" ");
  return plain === "" ? item.trim() : plain;
}

function ended(text: string): string {
  return text === "" || text.endsWith("\n") ? text : `${text}\n`;
}

/** A name that is a file name everywhere: letters, digits and blanks. */
function fileName(said: string): string {
  const name = said.normalize("NFC").replace(/[^\p{L}\p{M}\p{N}]+/gu, " ").trim();
  return cut(name, longestName).trim() || "list";
}
