// Spells the agent's name right in the text of a recogniser that does not know it.

import { isNearly, plainWords } from "../base/words.ts";

/** Gives the text with each name in the place of what is nearly that name. */
export function respelled(text: string, names: string[]): string {
  const words = text.split(" ");
  for (const name of names) {
    const wanted = plainWords(name);
    if (wanted.length === 0) continue;
    for (let at = 0; at + wanted.length <= words.length; at++) {
      const said = words.slice(at, at + wanted.length);
      if (!wanted.every((part, index) => isNearly(plainWords(said[index]!).join(""), part))) continue;
      const [before = ""] = /^[^\p{L}\p{N}]*/u.exec(said[0]!) ?? [];
      const [after = ""] = /[^\p{L}\p{N}]*$/u.exec(said.at(-1)!) ?? [];
      words.splice(at, wanted.length, ...`${before}${name}${after}`.split(" "));
    }
  }
  return words.join(" ");
}
