// What is read aloud of a text that a language model has written with markup (CommonMark, with the tables of GitHub): marks are left out,
// and what cannot be spoken becomes a pause. A line of the result is a sentence at least.

const fence = /^[ \t]*(?:>[ \t]*)*(`{3,}|~{3,})/;
const tableRule = /^(?=.*\|)[ \t]*\|?[ \t]*:?-+:?[ \t]*(\|[ \t]*:?-+:?[ \t]*)*\|?[ \t]*$/;
const rule = /^[ \t]*([-*_=])([ \t]*\1){2,}[ \t]*$/;
const tags = "a|b|i|u|s|em|strong|code|sub|sup|span|div|p|small|kbd|mark|del|ins|img|details|summary|ul|ol|li|h[1-6]|table|tr|t[dh]|hr";
/** Of what may be a comparison as well only what has attributes. */
const attributes = `(?:\\s+[\\w-]+=(?:"[^"<>]*"|'[^'<>]*'|[^\\s<>"']+))+`;
const tag = new RegExp(`</?(?:${tags})\\s*/?>|(?<![\\p{L}\\p{N}])<(?:${tags})${attributes}\\s*/?>`, "giu");
/** Emoji, with the marks that join and colour them, frames and shapes. Signs that are as good as letters, such as ©, stay. */
const pictures = new RegExp(
  "(?![©®™‼⁉ℹ])[\\p{Extended_Pictographic}\\p{Regional_Indicator}\\p{Emoji_Modifier}" +
    "\\u{2500}-\\u{27bf}\\u{200b}-\\u{200d}\\u{fe0e}\\u{fe0f}\\u{e0020}-\\u{e007f}]+",
  "gu",
);

/** The words of a text. A block of code becomes the sentence `code`. */
export function spokenText(text: string, code: string): string {
  const lines: string[] = [];
  let open: string | undefined;
  for (const line of text.split("\n")) {
    const [, mark = ""] = fence.exec(line) ?? [];
    if (open !== undefined) {
      if (closes(line, open)) open = undefined;
    } else if (mark !== "" && !line.slice(line.indexOf(mark) + mark.length).includes("`")) {
      open = mark;
      lines.push(code);
    } else {
      lines.push(tableRule.test(line) || rule.test(line) ? "" : spokenLine(line));
    }
  }
  return lines.join("\n");
}

/**
 * How much of a text that still grows can be spoken: up to the last end of a sentence or line that does not lie in a block of
 * code, whose end is to come, and is not the number of an item.
 */
export function speakableLength(text: string): number {
  let [end, at] = [0, 0];
  let open: string | undefined;
  for (const line of text.split("\n")) {
    const isWhole = at + line.length < text.length;
    const [, mark = ""] = fence.exec(line) ?? [];
    if (open !== undefined) {
      if (closes(line, open) && isWhole) [open, end] = [undefined, at + line.length + 1];
    } else if (mark !== "") {
      open = mark;
    } else if (isWhole) {
      end = at + line.length + 1;
    } else if (!mayBecomeFence(line)) {
      const item = /^[ \t>]*\d+[.)][ \t]/.exec(line)?.[0].length ?? 0;
      const stop = [...line.slice(item).matchAll(/[.!?…]["'”’»)*_]*\s/g)].at(-1);
      if (stop) end = at + item + stop.index + stop[0].length;
    }
    at += line.length + 1;
  }
  return end;
}

function closes(line: string, open: string): boolean {
  const text = line.replace(/^[ \t>]*/, "").trimEnd();
  return text.length >= open.length && text === open.charAt(0).repeat(text.length);
}

function mayBecomeFence(line: string): boolean {
  return /^[ \t>]*(`{1,2}|~{1,2})?$/.test(line);
}

function spokenLine(line: string): string {
  const isRow = /^[ \t]*\|.*\|[ \t]*$/.test(line);
  const cells = isRow ? line.trim().slice(1, -1).split(/(?<!\\)\|/).map((cell) => cell.trim()) : [line];
  const words = cells.filter((cell) => cell !== "").join(", ");
  return inline(block(words)).replace(/[ \t]+/g, " ").replace(/ +([,.;:!?])(?=\s|$)/g, "$1").trim();
}

/** Takes off what marks a line as a heading, an item or a quotation. */
function block(line: string): string {
  return line
    .replace(/^[ \t]*(>[ \t]*)+/, "")
    .replace(/^[ \t]*#{1,6}[ \t]+/, "")
    .replace(/[ \t]+#+[ \t]*$/, "")
    .replace(/^[ \t]*[-*+•◦▪‣–—][ \t]+/, "")
    .replace(/^[ \t]*\[[ xX]\][ \t]+/, "")
    .replace(/^([ \t]*)(\d+)[.)][ \t]+/, "$1$2, ");
}

function inline(line: string): string {
  return named(line)
    .replace(/<br ?\/?>/gi, ", ")
    .replace(tag, "")
    .replace(/&nbsp;/g, " ").replace(/&lt;/g, "<").replace(/&gt;/g, ">").replace(/&quot;/g, '"').replace(/&#39;/g, "'").replace(/&amp;/g, "&")
    .replace(/\\\(|\\\)|\\\[|\\\]/g, " ")
    .replace(/\\([!-/:-@[-`{-~])/g, "$1")
    .replace(/([0-9#*])\u{fe0f}?\u{20e3}/gu, "$1")
    .replace(/\s*(->|=>|[\u{2190}-\u{21ff}\u{2794}-\u{27be}])\s*/gu, ", ")
    .replace(pictures, " ")
    .replace(/(?<=\d)\s*\*\s*(?=\d)/g, " × ")
    // In the middle of a word an underscore is part of a name.
    .replace(/(?<=[\p{L}\p{N}])_+(?=[\p{L}\p{N}])/gu, " ")
    .replace(/[*_`~|]+/g, "")
    .replace(/\p{Cc}/gu, " ");
}

/** Links are called by their words, bare addresses by their host. */
function named(line: string): string {
  return line
    .replace(/!\[([^[\]]*)\]\((?:[^()]|\([^()]*\))*\)/g, "$1")
    .replace(/!?\[((?:[^[\]]|\[[^[\]]*\])*)\]\((?:[^()]|\([^()]*\))*\)/g, "$1")
    .replace(/!?\[([^[\]]+)\]\[[^[\]]*\]/g, "$1")
    // The beginning of this one has been read aloud.
    .replace(/\]\((?:[^()]|\([^()]*\))*\)/g, "")
    .replace(/\[\^[^[\]]*\]:?/g, "")
    .replace(/<(?:mailto:)?([^<>\s]+@[^<>\s]+)>/g, "$1")
    .replace(/<?\bhttps?:\/\/(?:www\.)?([^\s/<>?#)\]]+)([^\s<>]*?)([.,;:!?)\]]*)>?(?=\s|$)/g, "$1$3");
}
