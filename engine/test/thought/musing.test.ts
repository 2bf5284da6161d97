import { expect, test } from "bun:test";
import { Musing } from "../../src/thought/musing.ts";

function say(text: string, size: number): string {
  let said = "";
  const musing = new Musing((piece) => (said += piece));
  for (let at = 0; at < text.length; at += size) musing.take(text.slice(at, at + size));
  musing.end();
  return said;
}

const cases: [string, string][] = [
  ["<think>Hm. Five?</think>\n\nIt is five.", "It is five."],
  ["\n<think>\n</think>Yes.", "Yes."],
  ["Plain.", "Plain."],
  ["<thinking is hard", "<thinking is hard"],
  ["<th", "<th"],
  ["Later <think>x</think> stays", "Later <think>x</think> stays"],
  ["<think>never ends </thin", ""],
  ["", ""],
];

test("what a model writes for itself before it answers is left out, wherever the pieces are cut", () => {
  for (const [text, said] of cases) {
    for (let size = 1; size <= text.length + 1; size++) expect([text, size, say(text, size).trimStart()]).toEqual([text, size, said]);
  }
});
