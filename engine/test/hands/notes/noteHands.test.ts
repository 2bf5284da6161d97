import { expect, test } from "bun:test";
import { symlinkSync } from "node:fs";
import { join } from "node:path";
import type { Language } from "../../../src/base/language.ts";
import { Notebook } from "../../../src/hands/notes/notebook.ts";
import { noteHands } from "../../../src/hands/notes/noteHands.ts";
import { ManualClock } from "../../support/clock.ts";
import { temporaryFolder } from "../../support/folders.ts";
import { going } from "../../support/processes.ts";

function handsOf(language: Language = "en") {
  const notebook = new Notebook(temporaryFolder(), language);
  const [note, notes] = noteHands(notebook, new ManualClock());
  return {
    notebook,
    write: (given: unknown) => note!.act(given, language, going),
    intent: (given: unknown) => note!.intent(given, language),
    read: (given: unknown = {}) => notes!.act(given, language, going),
  };
}

test("a note is taken and read", async () => {
  const { write, read } = handsOf();
  expect(await read()).toBe("There are no notes.");
  expect(await write({ do: "note", text: "the car is due on Friday" })).toBe("Noted.");
  await write({ do: "note", text: "Is the lamp here?" });
  expect(await read()).toBe("The latest notes: Is the lamp here? the car is due on Friday.");
});

test("a list is added to, read, and taken from", async () => {
  const { write, read, intent } = handsOf();
  expect(intent({ do: "add", items: "milk, eggs and bread", list: "shopping" })).toBe("add to the list “shopping”: milk, eggs, and bread");
  expect(await write({ do: "add", items: "milk, eggs and bread", list: "shopping" })).toBe("Added to the list “shopping”: milk, eggs, and bread.");
  expect(await write({ do: "add", items: "Milk", list: "shopping" })).toBe("It is on the list “shopping” already.");
  expect(await write({ do: "remove", item: "eggs", list: "shopping" })).toBe("Taken off the list “shopping”: eggs.");
  expect(await write({ do: "remove", item: "eggs", list: "shopping" })).toBe("That is not on the list “shopping”.");
  expect(await read({ list: "shopping" })).toBe("On the list “shopping”: milk and bread.");
  expect(await read({ list: "tools" })).toBe("There is no list “tools”.");
  expect(await read({ do: "lists" })).toBe("The lists are: shopping.");
});

test("Portuguese has its own words and names", async () => {
  const { write, read } = handsOf("pt");
  expect(await write({ do: "add", items: "leite e ovos", list: "" })).toBe("Coloquei na lista “compras”: leite e ovos.");
  expect(await read({ list: "compras" })).toBe("Na lista “compras”: leite e ovos.");
});

test("what makes no sense is refused", async () => {
  const { write, intent, read } = handsOf();
  for (const given of [undefined, 5, {}, { do: "burn" }, { do: "note" }, { do: "note", text: "" }, { do: "note", text: "x".repeat(3_000) }, { do: "add" }, { do: "add", items: " , " }]) {
    expect(intent(given)).toBeUndefined();
    expect(await write(given)).toBe("I did not understand what to note.");
  }
  expect(await read()).toBe("There are no notes.");
});

test("what lies in the way is said", async () => {
  const { notebook, write } = handsOf();
  symlinkSync("/etc/passwd", notebook.notesFile);
  expect(await write({ do: "note", text: "x" })).toBe(`${join(notebook.folder, "Notes.md")} is no plain file or folder; I left it alone.`);
});
