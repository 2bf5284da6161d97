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

test("items are told apart by commas and by the language's own word for \"and\"", async () => {
  const items = (text: string, language: Language = "en"): string | undefined => handsOf(language).intent({ do: "add", items: text, list: "x" });
  for (const [text, listed] of [
    ["vitamin E cream and milk", "vitamin E cream and milk"],
    ["milk, eggs and bread", "milk, eggs, and bread"],
    ["milk; eggs, and bread", "milk, eggs, and bread"],
    ["bacon and eggs, milk", "bacon and eggs and milk"],
    ["milk, macaroni and cheese, and bread", "milk, macaroni and cheese, and bread"],
    ["milk, bread, and macaroni and cheese", "milk, bread, and macaroni and cheese"],
  ] as const) {
    expect([text, items(text)]).toEqual([text, `add to the list “x”: ${listed}`]);
  }
  for (const [text, listed] of [
    ["leite, ovos e pão", "leite, ovos e pão"],
    ["vitamina E e leite", "vitamina E e leite"],
    ["rock and roll e leite", "rock and roll e leite"],
  ] as const) {
    expect([text, items(text, "pt")]).toEqual([text, `colocar na lista “x”: ${listed}`]);
  }
  const { write, notebook } = handsOf();
  await write({ do: "add", items: "vitamin E cream, bacon and eggs, milk", list: "x" });
  expect(notebook.items("x")).toEqual(["vitamin E cream", "bacon and eggs", "milk"]);
  const other = handsOf("pt");
  await other.write({ do: "add", items: "vitamina E e leite, rock and roll, pão e mel", list: "x" });
  expect(other.notebook.items("x")).toEqual(["vitamina E e leite", "rock and roll", "pão", "mel"]);
});

test("a list is added to, read, and taken from", async () => {
  const { write, read, intent } = handsOf();
  expect(intent({ do: "add", items: "milk, eggs and bread", list: "shopping" })).toBe("add to the list “shopping”: milk, eggs, and bread");
  expect(await write({ do: "add", items: "milk, eggs and bread", list: "shopping" })).toBe("Added to the list “shopping”: milk, eggs, and bread.");
  expect(await write({ do: "add", items: "Milk", list: "shopping" })).toBe("It is on the list “shopping” already.");
  expect(await write({ do: "remove", item: "eggs", list: "shopping" })).toBe("Taken off the list “shopping”: eggs.");
  expect(await write({ do: "remove", item: "eggs", list: "shopping" })).toBe("That is not on the list “shopping”.");
  expect(await read({ list: "shopping" })).toBe("On the list “shopping”: milk and bread.");
  expect(intent({ do: "clear", list: "shopping" })).toBe("take everything off the list “shopping”");
  expect(await read({ list: "tools" })).toBe("There is no list “tools”.");
  expect(await read({ do: "lists" })).toBe("The lists are: shopping.");
  expect(await write({ do: "clear", list: "tools" })).toBe("There is no list “tools”.");
  expect(await write({ do: "clear", list: "shopping" })).toBe("The list “shopping” is empty.");
  expect(await read({ list: "shopping" })).toBe("The list “shopping” is empty.");
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

test("several things are taken off a list at once, and one whose name joins two as one", async () => {
  const { write, notebook } = handsOf();
  await write({ do: "add", items: "salt, pepper, macaroni and cheese, milk", list: "shopping" });
  expect(await write({ do: "remove", item: "salt and pepper", list: "shopping" })).toBe("Taken off the list “shopping”: salt and pepper.");
  expect(notebook.items("shopping")).not.toContain("salt");
  expect(await write({ do: "remove", item: "macaroni and cheese", list: "shopping" })).toContain("macaroni and cheese");
  expect(await write({ do: "remove", item: "milk and honey", list: "shopping" })).toBe("Taken off the list “shopping”: milk.");
});
