import { describe, expect, test } from "bun:test";
import { phrases } from "../../src/base/phrases.ts";
import { isAskable, leaveFor, readIntent } from "../../src/thought/consent.ts";

const ask = (name: string, input: Record<string, unknown>) => leaveFor({ name, input, detail: "" }, phrases.en);
const run = (command: unknown) => ask("Bash", { command });

describe("leave to run a command", () => {
  const exact: [string, string, string][] = [
    ["rm x", "rm x", "rm x"],
    ["  rm x\n", "rm x", "rm x"],
    ["cat a_b | sh", "cat a_b | sh", "cat a underscore b pipe sh"],
    ["rm -rf ~/x", "rm -rf ~/x", "rm dash rf tilde slash x"],
    ["echo a\nrm b", "echo a\nrm b", "echo a, new line, rm b"],
    ["echo `id`; echo $HOME", "echo `id`; echo $HOME", "echo backquote id backquote semicolon echo dollar HOME"],
    ["echo é 👧", "echo é 👧", "echo é 👧"],
    ["x".repeat(200), "x".repeat(200), "x".repeat(200)],
  ];
  for (const [command, written, spoken] of exact) {
    test(`is for ${JSON.stringify(command.slice(0, 30))} and nothing else, and every mark of it is said`, () => {
      expect(run(command)).toEqual({ rule: `Bash(${written})`, written, spoken });
    });
  }

  const none: [string, unknown][] = [
    ["a comma", "grep foo, bar.txt"],
    ["a parenthesis", "echo $(id)"],
    ["a closing parenthesis", "case x in x) id;; esac"],
    ["a star", "rm *"],
    ["the star of a prefix", "rm:*"],
    ["an ellipsis", "echo …"],
    ["a backslash", "echo a\\ b"],
    ["two blanks in a row", "rm 'a  b'"],
    ["a tab", "rm a\tb"],
    ["a carriage return", "echo a\rrm b"],
    ["the form of another rule", "run_in_background:true"],
    ["a mark that turns the reading direction", "echo \u202Exfr mr"],
    ["a joiner that does not show", "rm a\u200Db"],
    ["a blank that is none", "rm a\u00A0b"],
    ["a line separator", "echo a\u2028rm b"],
    ["a null", "rm a\0b"],
    ["half a character", "echo \ud83d"],
    ["more than anybody listens to", "x".repeat(201)],
    ["more, cut where it had no special mark", `echo ${"a ".repeat(98)}; rm -rf ~`],
    ["nothing", ""],
    ["blanks only", " \n "],
    ["no text", 7],
    ["no command", undefined],
  ];
  for (const [what, command] of none) test(`is not to be had with ${what}`, () => expect(run(command)).toBeUndefined());
});

describe("leave to change or read a file", () => {
  test("is for that file", () => {
    expect(ask("Write", { file_path: "/home/u/a b.txt", content: "x" })).toEqual({
      rule: "Edit(//home/u/a b.txt)",
      written: "change /home/u/a b.txt",
      spoken: "change slash home slash u slash a b dot txt",
    });
    expect(ask("NotebookEdit", { notebook_path: "/n.ipynb" })?.rule).toBe("Edit(//n.ipynb)");
    expect(ask("Read", { file_path: "/etc/fstab" })).toMatchObject({ rule: "Read(//etc/fstab)", written: "read /etc/fstab" });
  });

  for (const path of ["x", "~/x", "/", "/a/", "//a", "/a/../b", "/a/.", "/a/*", "/a?", "/[ab]", "/{a,b}", "/a\nb", "/a\\b", "/a ", 7, undefined]) {
    test(`is not to be had for ${JSON.stringify(path)}`, () => expect(ask("Edit", { file_path: path })).toBeUndefined());
  }
});

describe("leave for other things", () => {
  test("names all that it allows", () => {
    expect(ask("WebFetch", { url: "https://user@example.org:8080/a?b" })).toEqual({
      rule: "WebFetch(domain:example.org)",
      written: "open any page of example.org",
      spoken: "open any page of example dot org",
    });
    expect(ask("WebSearch", { query: "weather" })).toMatchObject({ rule: "WebSearch", written: "search the web for anything" });
    expect(ask("mcp__mail__send", { to: "a" })).toMatchObject({ rule: "mcp__mail__send", written: "use mcp__mail__send for anything" });
  });

  for (const url of ["nonsense", "file:///etc/passwd", "https://[::1]/", undefined]) {
    test(`is not to be had for the page ${url}`, () => expect(ask("WebFetch", { url })).toBeUndefined());
  }

  for (const name of ["Bash(rm),Edit", "Edit,Write", "", "mcp__*", "a b", "x\n"]) {
    test(`is not to be had for a tool named ${JSON.stringify(name)}`, () => expect(ask(name, {})).toBeUndefined());
  }
});

test("every mark has its name in both languages", () => {
  const marks = [..."!\"#$%&'()*,+-./:;<=>?@[\\]^_`{|}~"];
  for (const { leave } of [phrases.en, phrases.pt]) expect(Object.keys(leave.marks).sort()).toEqual(marks.sort());
});

describe("an intention", () => {
  const read: [written: string, spoken: string][] = [
    ["Set a timer for 5 minutes: tea, green.", "Set a timer for 5 minutes: tea, green."],
    ["Open notes.txt", "Open notes dot txt"],
    ["Write ~/a_b*.md", "Write tilde slash a underscore b star dot md"],
    ["Run rm -rf x; y", "Run rm dash rf x; y"],
    ["Don't ring at well-known hours!", "Don't ring at well-known hours!"],
    ['Note "milk" (two)', 'Note "milk" (two)'],
    ["Run a;b", "Run a semicolon b"],
    ["Run a,b", "Run a comma b"],
    [". x", "dot x"],
    ["Run a\nb", "Run a, new line, b"],
    ["# a", "hash a"],
  ];
  test("is read aloud as a sentence, with every other mark by its name", () => {
    for (const [written, spoken] of read) expect([written, readIntent("note", written, phrases.en)]).toEqual([written, spoken]);
  });

  test("of a hand that opens or runs something is read aloud to the letter", () => {
    for (const [written, spoken] of [
      ['rm -rf "my folder"', "rm dash rf quote my folder quote"],
      ["rm a, b", "rm a comma b"],
      ["(a; b)\nc", "open parenthesis a semicolon b close parenthesis, new line, c"],
      ["Is it?", "Is it question mark"],
    ] as const) {
      for (const hand of ["open", "commands", "files"]) expect([hand, readIntent(hand, written, phrases.en)]).toEqual([hand, spoken]);
    }
  });

  test("can be asked about when a user who hears or reads it knows all of it", () => {
    for (const good of ["Set a timer, please (5 min)…", "a\nb", "é 👧"]) expect([good, isAskable(good)]).toEqual([good, true]);
    for (const bad of ["", " ", "a  b", "a\tb", "a\u200bb", "a\u202eb", "a\u2028b", "\ud800", "x".repeat(201), 7, undefined]) expect([bad, isAskable(bad)]).toEqual([bad, false]);
  });
});
