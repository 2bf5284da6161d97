import { describe, expect, test } from "bun:test";
import { chmodSync, mkdirSync, readdirSync, readFileSync, statSync, symlinkSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import { fileHands } from "../../../src/hands/files/fileHands.ts";
import { Children } from "../../../src/machine/children.ts";
import { request } from "../../support/claudeTool.ts";
import { temporaryFolder } from "../../support/folders.ts";
import { going } from "../../support/processes.ts";

/** Two allowed folders, and a secret outside of them to which links lead. */
function folders() {
  const [outside, work, more] = [temporaryFolder(), temporaryFolder(), temporaryFolder()];
  writeFileSync(join(outside, "secret.txt"), "the secret");
  writeFileSync(join(work, "a.txt"), "first line\nSecond Line\n");
  mkdirSync(join(work, "sub"));
  writeFileSync(join(work, "sub/b.txt"), "line of b\n");
  symlinkSync(join(outside, "secret.txt"), join(work, "link.txt"));
  symlinkSync(outside, join(work, "away"));
  const settings = { ...request("").settings, workingFolder: work, folders: [more] };
  const [look, write, run] = fileHands(new Children({ PATH: "/usr/bin:/bin" }), () => settings);
  const act = (hand: typeof look) => (given: unknown) => hand!.act(given, "en", going);
  return { outside, work, more, settings, look: act(look), write: act(write), run: act(run), hands: [look!, write!, run!] };
}

describe("files", () => {
  test("within the folders are listed, read and searched", async () => {
    const { work, more, look } = folders();
    expect(await look({ do: "list" })).toBe(`${work}\n${more}`);
    expect((await look({ do: "list", path: work })).split("\n").sort()).toEqual(["a.txt", "away", "link.txt", "sub/"]);
    expect(await look({ do: "read", path: join(work, "a.txt") })).toBe("first line\nSecond Line\n");
    expect(await look({ do: "read", path: "sub/b.txt" })).toBe("line of b\n");
    expect((await look({ do: "search", path: work, text: "LINE" })).split("\n").sort()).toEqual([
      `${work}/a.txt:1: first line`, `${work}/a.txt:2: Second Line`, `${work}/sub/b.txt:1: line of b`,
    ]);
    expect(await look({ do: "list", path: more })).toBe("The folder is empty.");
  });

  test("outside of them are out of reach, also by links and detours", async () => {
    const { outside, work, look, write } = folders();
    const ways = [join(outside, "secret.txt"), "../" + join(outside, "secret.txt"), join(work, "link.txt"), join(work, "away/secret.txt"), `${work}/sub/../../..${outside}/secret.txt`, `${work}-other/x`, "/etc/passwd", "a\0b"];
    for (const path of ways) {
      expect(await look({ do: "read", path })).not.toContain("the secret");
      expect(await look({ do: "search", path, text: "secret" })).not.toContain("the secret");
      expect(await write({ path, text: "changed" })).not.toContain("is written");
    }
    expect(await look({ do: "search", path: work, text: "secret" })).toBe("Nothing was found.");
    expect(readFileSync(join(outside, "secret.txt"), "utf8")).toBe("the secret");
    expect(readdirSync(outside)).toEqual(["secret.txt"]);
  });

  test("are written whole, where they are allowed to be", async () => {
    const { work, more, write } = folders();
    expect(await write({ path: join(more, "new.txt"), text: "hello" })).toBe(`${more}/new.txt is written.`);
    expect(readFileSync(join(more, "new.txt"), "utf8")).toBe("hello");
    await write({ path: "a.txt", text: "other" });
    expect(readFileSync(join(work, "a.txt"), "utf8")).toBe("other");
    expect(await write({ path: join(work, "sub"), text: "x" })).toBe(`${work}/sub is no plain file.`);
    expect(await write({ path: join(work, "nowhere/x"), text: "x" })).toContain("is not in the allowed folders");
    expect(readdirSync(work).sort()).toEqual(["a.txt", "away", "link.txt", "sub"]);
  });

  test("are asked about by their whole path, with what becomes of them and what a short text says", () => {
    const { work, more, hands } = folders();
    const asked = (path: string, text: string, language: "en" | "pt" = "en"): string | undefined => hands[1]!.intent({ path, text }, language);
    expect(asked("new.txt", "milk\n")).toBe(`write “milk” to ${work}/new.txt`);
    expect(asked("sub/../a.txt", "milk")).toBe(`replace the contents of ${work}/a.txt with “milk”`);
    expect(asked(join(more, "new.txt"), "two\nlines")).toBe(`write 9 characters to ${more}/new.txt`);
    expect(asked("a.txt", "\t")).toBe(`replace the contents of ${work}/a.txt with 1 character`);
    expect(asked("new.txt", "leite", "pt")).toBe(`gravar “leite” em ${work}/new.txt`);
    expect(asked("a.txt", "leite", "pt")).toBe(`substituir o conteúdo de ${work}/a.txt por “leite”`);
    expect(asked("a.txt", "x".repeat(1_000), "pt")).toBe(`substituir o conteúdo de ${work}/a.txt por 1.000 caracteres`);
    expect(asked("new.txt", "\n", "pt")).toBe(`gravar 1 caractere em ${work}/new.txt`);
    for (const text of ["a  b", " a", "a\u200b", "a” to /b", "x".repeat(200)]) expect(asked("new.txt", text)).toContain(" characters to ");
  });

  test("are another question where another folder is the working folder, or a file has come", () => {
    const { work, more, settings, hands } = folders();
    const asked = (): string | undefined => hands[1]!.intent({ path: "new.txt", text: "x" }, "en");
    expect(asked()).toBe(`write “x” to ${work}/new.txt`);
    settings.workingFolder = more;
    expect(asked()).toBe(`write “x” to ${more}/new.txt`);
    writeFileSync(join(more, "new.txt"), "precious");
    expect(asked()).toBe(`replace the contents of ${more}/new.txt with “x”`);
  });

  test("are not asked about where they cannot be written", () => {
    const { outside, hands } = folders();
    for (const path of [join(outside, "x"), "link.txt", "away/x", "nowhere/x", "sub", ""]) {
      expect(hands[1]!.intent({ path, text: "x" }, "en")).toBeUndefined();
    }
  });

  test("that are to be read are named by their whole path", () => {
    const { work, hands } = folders();
    expect(hands[0]!.intent({ do: "read", path: "sub/../a.txt" }, "en")).toBe(`read ${work}/a.txt`);
    expect(hands[0]!.intent({ do: "list", path: "sub" }, "pt")).toBe(`listar ${work}/sub`);
    expect(hands[0]!.intent({ do: "search", path: "nowhere" }, "en")).toBe("search nowhere");
    expect(hands[0]!.intent({ do: "list" }, "en")).toBe("list");
  });

  test("keep their mode when they are replaced", async () => {
    const { work, write } = folders();
    for (const mode of [0o600, 0o666]) {
      chmodSync(join(work, "a.txt"), mode);
      await write({ path: "a.txt", text: "other" });
      expect(statSync(join(work, "a.txt")).mode & 0o777).toBe(mode);
    }
  });

  test("that are no text, or no files, are not read", async () => {
    const { work, look } = folders();
    writeFileSync(join(work, "data.bin"), new Uint8Array([1, 0, 2]));
    Bun.spawnSync(["mkfifo", join(work, "pipe")]);
    expect(await look({ do: "read", path: "data.bin" })).toContain("is no text file");
    expect(await look({ do: "read", path: "pipe" })).toContain("is no text file");
    expect(await look({ do: "read", path: "sub" })).toContain("sub");
    writeFileSync(join(work, "long.txt"), "x".repeat(100_000));
    expect((await look({ do: "read", path: "long.txt" })).length).toBeLessThan(66_000);
  });
});

describe("a command", () => {
  test("runs in the working folder, and its output is the result", async () => {
    const { work, run } = folders();
    expect(await run({ command: "pwd; echo oops >&2; exit 3" })).toBe(`It ended with 3.\n${work}\n\noops\n`);
  });

  test("is asked about to the letter, and refused when it cannot be", async () => {
    const { work, more, settings, run, hands } = folders();
    expect(hands[2]!.intent({ command: "rm -rf *" }, "en")).toBe(`run in ${work}: rm -rf *`);
    settings.workingFolder = more;
    expect(hands[2]!.intent({ command: "rm -rf *" }, "pt")).toBe(`executar em ${more}: rm -rf *`);
    for (const command of ["", "  ", "a\nb", "a\tb", "echo \u202e x", "echo  two", "\u200becho", "x".repeat(3_000), 5, undefined]) {
      expect(hands[2]!.intent({ command }, "en")).toBeUndefined();
      expect(await run({ command })).toContain("makes no sense");
    }
  });
});

test("these hands are for models alone, and what changes something says so", () => {
  expect(folders().hands.map(({ id, forModelsOnly, changes }) => [id, forModelsOnly, changes])).toEqual([
    ["readFiles", true, false], ["files", true, true], ["commands", true, true],
  ]);
});
