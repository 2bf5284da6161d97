// The hands for notes and lists: one that writes them, one that reads them.

import type { Clock } from "../../base/clock.ts";
import type { Language } from "../../base/language.ts";
import { choiceIn, textIn } from "../given.ts";
import type { Hand } from "../hand.ts";
import { joined } from "../saying.ts";
import { NotebookError, type Notebook } from "./notebook.ts";

const longestNote = 2_000;
const longestItem = 200;
const mostItems = 30;
const mostNotes = 5;
const mostTold = 20;

type Wanted =
  | { do: "note"; text: string }
  | { do: "add"; list: string; items: string[] }
  | { do: "remove"; list: string; item: string }
  | { do: "clear"; list: string };

const kinds = ["note", "add", "remove", "clear"] as const;

export function noteHands(notebook: Notebook, clock: Clock): Hand[] {
  return [new NoteHand(notebook, clock), new NotesHand(notebook)];
}

class NoteHand implements Hand {
  readonly id = "note";
  readonly description = "Writes a note, adds items to a list of the user's (shopping, to do), takes one off, or takes all off.";
  readonly parameters = {
    type: "object",
    properties: {
      do: { type: "string", enum: kinds },
      text: { type: "string", description: "The note" },
      items: { type: "string", description: "What to add, separated by commas" },
      item: { type: "string", description: "What to take off" },
      list: { type: "string", description: "The name of the list; empty for the usual one" },
    },
    required: ["do"],
  } as const;
  readonly changes = true;

  constructor(
    private readonly notebook: Notebook,
    private readonly clock: Clock,
  ) {}

  intent(given: unknown, language: Language): string | undefined {
    const wanted = this.#read(given, language);
    const isPortuguese = language === "pt";
    switch (wanted?.do) {
      case undefined:
        return undefined;
      case "note":
        return isPortuguese ? `anotar: ${wanted.text}` : `note: ${wanted.text}`;
      case "add": {
        const items = joined(wanted.items, language);
        return isPortuguese ? `colocar na lista “${wanted.list}”: ${items}` : `add to the list “${wanted.list}”: ${items}`;
      }
      case "remove":
        return isPortuguese ? `tirar da lista “${wanted.list}”: ${wanted.item}` : `take off the list “${wanted.list}”: ${wanted.item}`;
      case "clear":
        return isPortuguese ? `tirar tudo da lista “${wanted.list}”` : `take everything off the list “${wanted.list}”`;
    }
  }

  async act(given: unknown, language: Language): Promise<string> {
    const wanted = this.#read(given, language);
    const isPortuguese = language === "pt";
    if (!wanted) return isPortuguese ? "Não entendi o que anotar." : "I did not understand what to note.";
    return attempt(language, () => {
      switch (wanted.do) {
        case "note":
          this.notebook.note(wanted.text, new Date(this.clock.now()));
          return isPortuguese ? "Anotado." : "Noted.";
        case "add": {
          const added = this.notebook.add(wanted.list, wanted.items);
          const items = joined(added, language);
          if (added.length === 0) return isPortuguese ? `Já está na lista “${wanted.list}”.` : `It is on the list “${wanted.list}” already.`;
          return isPortuguese ? `Coloquei na lista “${wanted.list}”: ${items}.` : `Added to the list “${wanted.list}”: ${items}.`;
        }
        case "remove": {
          const whole = this.notebook.remove(wanted.list, wanted.item);
          // "Salt and pepper" may be one item, and may be two.
          const each = whole === undefined ? apart(wanted.item, language).flatMap((item) => this.notebook.remove(wanted.list, item) ?? []) : [whole];
          const removed = each.length > 0 ? joined(each, language) : undefined;
          if (removed !== undefined) return isPortuguese ? `Tirei da lista “${wanted.list}”: ${removed}.` : `Taken off the list “${wanted.list}”: ${removed}.`;
          return isPortuguese ? `Isso não está na lista “${wanted.list}”.` : `That is not on the list “${wanted.list}”.`;
        }
        case "clear": {
          const count = this.notebook.clear(wanted.list);
          if (count === undefined) return noList(wanted.list, language);
          return isPortuguese ? `A lista “${wanted.list}” está vazia.` : `The list “${wanted.list}” is empty.`;
        }
      }
    });
  }

  #read(given: unknown, language: Language): Wanted | undefined {
    const list = this.notebook.listName(textIn(given, "list") ?? "");
    switch (choiceIn(given, "do", kinds)) {
      case undefined:
        return undefined;
      case "note": {
        const text = textIn(given, "text", longestNote);
        return text === undefined ? undefined : { do: "note", text };
      }
      case "add": {
        const items = apart(textIn(given, "items", longestNote) ?? "", language);
        const isGood = items.length > 0 && items.length <= mostItems && items.every((item) => item.length <= longestItem);
        return isGood ? { do: "add", list, items } : undefined;
      }
      case "remove": {
        const item = textIn(given, "item", longestItem);
        return item === undefined ? undefined : { do: "remove", list, item };
      }
      case "clear":
        return { do: "clear", list };
    }
  }
}

function noList(list: string, language: Language): string {
  return language === "pt" ? `Não há uma lista “${list}”.` : `There is no list “${list}”.`;
}

/**
 * The items of a text. "And" stands between the last two, and not where a comma stands before it already: what it joins elsewhere is one
 * item, as bacon and eggs are.
 */
function apart(text: string, language: Language): string[] {
  const and = language === "pt" ? " e " : " and ";
  const parts = text.replace(/[\s,;]+$/, "").split(/\s*[,;]\s*/);
  const last = ` ${parts.pop() ?? ""}`;
  const isAfterComma = parts.length > 0;
  const words = last.startsWith(and) ? [last.slice(and.length)] : isAfterComma ? lastTwo(last, and) : last.split(and);
  return [...parts, ...words].map((item) => item.trim()).filter((item) => item !== "");
}

function lastTwo(text: string, and: string): string[] {
  const at = text.lastIndexOf(and);
  return at < 0 ? [text] : [text.slice(0, at), text.slice(at + and.length)];
}

class NotesHand implements Hand {
  readonly id = "notes";
  readonly description = "Reads the user's latest notes, or one of the lists (shopping, to do), or tells which lists there are.";
  readonly parameters = {
    type: "object",
    properties: {
      do: { type: "string", enum: ["lists"], description: "Tell which lists there are" },
      list: { type: "string", description: "The list to read; without it the notes are read" },
    },
  } as const;
  readonly changes = false;

  constructor(private readonly notebook: Notebook) {}

  intent(_given: unknown, language: Language): string {
    return language === "pt" ? "ler as notas e as listas" : "read the notes and the lists";
  }

  async act(given: unknown, language: Language): Promise<string> {
    const isPortuguese = language === "pt";
    return attempt(language, () => {
      if (choiceIn(given, "do", ["lists"])) {
        const lists = this.notebook.lists().slice(0, mostTold);
        if (lists.length === 0) return isPortuguese ? "Não há listas." : "There are no lists.";
        return isPortuguese ? `As listas são: ${joined(lists, language)}.` : `The lists are: ${joined(lists, language)}.`;
      }
      if (typeof given !== "object" || given === null || !("list" in given)) {
        const notes = this.notebook.notes(mostNotes);
        if (notes.length === 0) return isPortuguese ? "Não há notas." : "There are no notes.";
        const told = notes.map((note) => (/[.!?…]$/.test(note) ? note : `${note}.`)).join(" ");
        return isPortuguese ? `As últimas notas: ${told}` : `The latest notes: ${told}`;
      }
      const list = this.notebook.listName(textIn(given, "list") ?? "");
      const items = this.notebook.items(list);
      if (items === undefined) return noList(list, language);
      if (items.length === 0) return isPortuguese ? `A lista “${list}” está vazia.` : `The list “${list}” is empty.`;
      const more = items.length - mostTold;
      const rest = more <= 0 ? "" : isPortuguese ? ` E mais ${more}.` : ` And ${more} more.`;
      return `${isPortuguese ? "Na lista" : "On the list"} “${list}”: ${joined(items.slice(0, mostTold), language)}.${rest}`;
    });
  }
}

/** Says what the disk, or what lies on it, refused. */
function attempt(language: Language, work: () => string): string {
  try {
    return work();
  } catch (error) {
    if (!(error instanceof NotebookError)) throw error;
    const { trouble, path } = error;
    const isPortuguese = language === "pt";
    if (trouble === "unsafe") return isPortuguese ? `${path} não é um arquivo ou pasta comum; não mexi.` : `${path} is no plain file or folder; I left it alone.`;
    if (trouble === "tooLong") return isPortuguese ? `${path} está longo demais.` : `${path} is too long.`;
    return isPortuguese ? `Não consegui usar ${path}.` : `I could not use ${path}.`;
  }
}
