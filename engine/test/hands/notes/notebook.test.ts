import { describe, expect, test } from "bun:test";
import { chmodSync, existsSync, mkdirSync, readdirSync, readFileSync, statSync, symlinkSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import { Notebook, NotebookError } from "../../../src/hands/notes/notebook.ts";
import { temporaryFolder } from "../../support/folders.ts";

const at = new Date(2026, 0, 5, 15, 20);
const book = (folder = join(temporaryFolder(), "Documents/Palomet")): Notebook => new Notebook(folder, "en");

describe("a notebook", () => {
  test("is plain Markdown", () => {
    const it = book();
    it.note("The car is due on Friday", at);
    it.note("Buy a lamp", at);
    expect(readFileSync(it.notesFile, "utf8")).toBe("# Notes\n\n- 2026-01-05 15:20: The car is due on Friday\n- 2026-01-05 15:20: Buy a lamp\n");
    it.add("shopping", ["milk", "eggs"]);
    expect(readFileSync(join(it.folder, "Lists/shopping.md"), "utf8")).toBe("# shopping\n\n- [ ] milk\n- [ ] eggs\n");
    expect(it.notes(5)).toEqual(["Buy a lamp", "The car is due on Friday"]);
  });

  test("keeps what its user has written into it", () => {
    const it = book();
    it.add("shopping", ["milk"]);
    const file = join(it.folder, "Lists/shopping.md");
    writeFileSync(file, "My list\r\n\r\n* bread\r\n1. not an item\r\n- [x] Milk");
    expect(it.add("shopping", ["milk", "tea"])).toEqual(["tea"]);
    expect(it.items("shopping")).toEqual(["bread", "Milk", "tea"]);
    expect(it.remove("shopping", "the bread")).toBe("bread");
    expect(readFileSync(file, "utf8")).toBe("My list\n\n1. not an item\n- [x] Milk\n- [ ] tea\n");
    expect(it.remove("shopping", "sugar")).toBeUndefined();
    expect(it.clear("shopping")).toBe(2);
    expect(readFileSync(file, "utf8")).toBe("My list\n\n1. not an item\n");
    expect(it.clear("shopping")).toBe(0);
    expect(it.clear("tools")).toBeUndefined();
    expect(it.lists()).toEqual(["shopping"]);
  });

  test("keeps the mode that its user has given a file", () => {
    const it = book();
    it.note("one", at);
    for (const mode of [0o600, 0o666]) {
      chmodSync(it.notesFile, mode);
      it.note("two", at);
      expect(statSync(it.notesFile).mode & 0o777).toBe(mode);
    }
  });

  test("finds a list however its name is said, and the one for shopping without a name", () => {
    const it = book();
    it.add(it.listName("Compras de Maio"), ["x"]);
    expect(it.listName("compras de maio")).toBe("Compras de Maio");
    expect(it.listName("")).toBe("Compras de Maio");
    it.add("tools", ["y"]);
    expect(it.listName("")).toBe("shopping");
    expect(it.lists()).toEqual(["Compras de Maio", "tools"]);
    expect(it.items("nothing")).toBeUndefined();
  });

  test("makes a plain file name of any name", () => {
    for (const name of ["../../etc/passwd", "a/b", "..", ".hidden", "x\0y", "🎉", "con: *?", "ä".repeat(300)]) {
      const it = book();
      it.add(it.listName(name), ["x"]);
      const files = readdirSync(join(it.folder, "Lists"));
      expect(files).toHaveLength(1);
      expect(files[0]).toMatch(/^[\p{L}\p{M}\p{N} ]{1,60}\.md$/u);
      expect(readdirSync(it.folder)).toEqual(["Lists"]);
    }
  });

  test("writes through no link, and reads none", () => {
    const outside = temporaryFolder();
    const secret = join(outside, "secret.md");
    writeFileSync(secret, "- a secret\n");
    const it = book();
    it.add("shopping", ["milk"]);
    symlinkSync(secret, it.notesFile);
    symlinkSync(secret, join(it.folder, "Lists/stolen.md"));
    expect(() => it.notes(5)).toThrow(NotebookError);
    expect(() => it.note("x", at)).toThrow(NotebookError);
    expect(() => it.items("stolen")).toThrow(NotebookError);
    expect(() => it.add("stolen", ["y"])).toThrow(NotebookError);
    expect(readFileSync(secret, "utf8")).toBe("- a secret\n");
    const linked = join(temporaryFolder(), "Palomet");
    symlinkSync(outside, linked);
    expect(() => book(linked).note("x", at)).toThrow(NotebookError);
    expect(readdirSync(outside)).toEqual(["secret.md"]);
  });

  test("is left as it is by a write that fails", () => {
    const it = book();
    it.note("first", at);
    const before = readFileSync(it.notesFile, "utf8");
    expect(() => it.note("x".repeat(2 << 20), at)).toThrow(NotebookError);
    expect(readFileSync(it.notesFile, "utf8")).toBe(before);
    expect(readdirSync(it.folder)).toEqual(["Notes.md"]);
    const blocked = temporaryFolder();
    writeFileSync(join(blocked, "Palomet"), "a file");
    expect(() => book(join(blocked, "Palomet")).note("x", at)).toThrow(NotebookError);
    mkdirSync(join(blocked, "made"));
    expect(existsSync(join(blocked, "made/Notes.md"))).toBe(false);
  });
});
