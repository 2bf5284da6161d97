import { describe, expect, test } from "bun:test";
import { speakableLength, spokenText } from "../../src/voice/markup.ts";

const code = "The code is on the screen.";

/** What is read aloud, line by line; an empty line is a pause. */
const read = (text: string): string => spokenText(text, code);

const cases: Record<string, [written: string, spoken: string][]> = {
  "a heading is a sentence of its own": [
    ["# Title\nText", "Title\nText"],
    ["### Title ###", "Title"],
    ["#hashtag and C# stay", "#hashtag and C# stay"],
    ["Title\n=====", "Title\n"],
  ],
  "emphasis is not read": [
    ["**bold** and *italic* and ***both***", "bold and italic and both"],
    ["__bold__ and _italic_", "bold and italic"],
    ["~~gone~~", "gone"],
    ["**Note:** done", "Note: done"],
    ["**an open mark", "an open mark"],
  ],
  "names, products and footnotes keep their words": [
    ["my_file_name", "my file name"],
    ["3 * 4 and 2*3", "3 × 4 and 2 × 3"],
    ["It holds[^1].", "It holds."],
    ["[^1]: A source", "A source"],
    ["5 - 3 and well-known", "5 - 3 and well-known"],
  ],
  "code within a line is read as words": [
    ["Use `ls`!", "Use ls!"],
    ["``a ` b``", "a b"],
    ["A ```short``` piece", "A short piece"],
  ],
  "a block of code is not read, and said to be there": [
    ["Here:\n```py\nx = 1\n```\nDone.", `Here:\n${code}\nDone.`],
    ["~~~\nx\n~~~", code],
    ["````\n```\nx\n```\n````", code],
    ["```\nnever closed\nat all", code],
    ["> ```\n> x\n> ```\nafter", `${code}\nafter`],
    ["- item\n  ```\n  x\n  ```", `item\n${code}`],
    ["```\n\n```", code],
  ],
  "items are sentences": [
    ["- one\n- two", "one\ntwo"],
    ["* one\n+ two\n• three", "one\ntwo\nthree"],
    ["1. one\n2) two", "1, one\n2, two"],
    ["  - inner", "inner"],
    ["- [x] done\n- [ ] to do", "done\nto do"],
    ["2024. What a year", "2024, What a year"],
    ["-5 degrees", "-5 degrees"],
  ],
  "quotations and rules leave no trace": [
    ["> quoted\n>> twice", "quoted\ntwice"],
    ["a\n---\nb", "a\n\nb"],
    ["* * *", ""],
    ["___", ""],
  ],
  "a table is read row by row": [
    ["| Day | Sun |\n|---|:-:|\n| Mon | 7 |", "Day, Sun\n\nMon, 7"],
    ["| a |  | c |", "a, c"],
    ["a | b", "a b"],
  ],
  "links are read by their words": [
    ["[the page](https://example.com/a_(b))", "the page"],
    ["![a cat](cat.png) sleeps", "a cat sleeps"],
    ["[words][1] here", "words here"],
    ["[![img](a.png)](b)", "img"],
    ["their end](https://example.com) alone", "their end alone"],
    ["[not a link] stays", "[not a link] stays"],
  ],
  "addresses are read by their host": [
    ["See https://www.example.com/a/b?c=d#e.", "See example.com."],
    ["<https://example.com/x>", "example.com"],
    ["http://localhost:8080/x, then", "localhost:8080, then"],
    ["(https://example.com/x)", "(example.com)"],
    ["<ana@example.com>", "ana@example.com"],
  ],
  "emoji are pauses": [
    ["Hi 👋🏽!", "Hi!"],
    ["🇧🇷 Brazil", "Brazil"],
    ["👨‍👩‍👧 family", "family"],
    ["❤️ and ❤ and ✅", "and and"],
    ["1️⃣ one", "1 one"],
    ["🏴󠁧󠁢󠁥󠁮󠁧󠁿 flag", "flag"],
    ["© 2024 Ana™", "© 2024 Ana™"],
    ["a ─── b ■", "a b"],
  ],
  "arrows are pauses": [["a -> b → c => d", "a, b, c, d"], ["x ⇒ y", "x, y"]],
  "HTML is not read": [
    ["<b>bold</b> and<br>new", "bold and, new"],
    ['<a href="x">link</a>', "link"],
    ["a<b and c>d", "a<b and c>d"],
    ["AT&amp;T&nbsp;&lt;b&gt;", "AT&T <b>"],
    ["<span style='x'>y</span>", "y"],
  ],
  "formulas lose their brackets, and escapes their strokes": [
    ["\\(a + b\\) and \\[c\\]", "a + b and c"],
    ["\\*not bold\\*", "not bold"],
  ],
  "text without markup stays as it is": [
    ["It is 3.5 km, e.g. this way.", "It is 3.5 km, e.g. this way."],
    ["Olá! Tudo bem? São 15h30.", "Olá! Tudo bem? São 15h30."],
    ["ok :)", "ok :)"],
    ["", ""],
    ["50% of $3", "50% of $3"],
    ["Sim – não — talvez", "Sim – não — talvez"],
    ["tab\there", "tab here"],
    ["bell\u0007", "bell"],
  ],
};

for (const [what, pairs] of Object.entries(cases)) {
  test(what, () => {
    for (const [written, spoken] of pairs) expect([written, read(written)]).toEqual([written, spoken]);
  });
}

test("a text of nothing but marks is read in no time, however long it is", () => {
  // A reading that looks at each mark again and again takes minutes.
  for (const unit of ["[", "](", "[a](", "**", "http://", "<a ", "| ", "- ", "`", "(", "\\", "_a", "<b x=", "👨‍👩", "> ", "&"]) {
    expect(read(unit.repeat(100_000 / unit.length)).length).toBeLessThan(200_000);
  }
});

describe("a text that still grows is spoken", () => {
  const parts = (text: string): [string, string] => [text.slice(0, speakableLength(text)), text.slice(speakableLength(text))];

  test("up to its last whole sentence", () => {
    expect(parts("One. Two! Thr")).toEqual(["One. Two! ", "Thr"]);
    expect(parts("One.")).toEqual(["", "One."]);
    expect(parts('He said "No." Then')).toEqual(['He said "No." ', "Then"]);
    expect(parts("**Yes.** And")).toEqual(["**Yes.** ", "And"]);
    expect(parts("one line\nand")).toEqual(["one line\n", "and"]);
    expect(parts("It is 3.5 km")).toEqual(["", "It is 3.5 km"]);
  });

  test("not up to the number of an item", () => {
    expect(parts("1. ")).toEqual(["", "1. "]);
    expect(parts("Two:\n1. Eggs. And")).toEqual(["Two:\n1. Eggs. ", "And"]);
  });

  test("without a block of code whose end is to come", () => {
    expect(parts("Here:\n```py\nx = 1. \n")).toEqual(["Here:\n", "```py\nx = 1. \n"]);
    expect(parts("Here. \n```\nx\n```")).toEqual(["Here. \n", "```\nx\n```"]);
    expect(parts("```\nx\n```\nSo")).toEqual(["```\nx\n```\n", "So"]);
    expect(parts("So\n``")).toEqual(["So\n", "``"]);
  });

  test("the same, whichever way it is cut into pieces", () => {
    const text = "Well. See:\n\n```js\nlet a = 1. b;\n```\n\n1. First. Then\n2. **Second!** ok\n\n| a | b |\n|--|--|\n| 1. | 2 |\nDone. ";
    const whole = read(text).split("\n").filter((line) => line !== "");
    for (let size = 1; size < 12; size++) {
      let [from, spoken] = [0, ""];
      for (let to = size; to < text.length + size; to += size) {
        const length = speakableLength(text.slice(from, to));
        spoken += `${read(text.slice(from, from + length))}\n`;
        from += length;
      }
      spoken += read(text.slice(from));
      const words = (lines: string): string[] => lines.match(/[\p{L}\p{N}]+/gu) ?? [];
      expect([size, words(spoken)]).toEqual([size, words(whole.join("\n"))]);
    }
  });
});
