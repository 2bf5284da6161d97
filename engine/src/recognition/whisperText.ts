// Reads what Whisper writes.

import { cut } from "../base/text.ts";
import type { Recognition } from "./recogniser.ts";
import { respelled } from "./respelling.ts";

const longestText = 4_000;

/** Leaves out the remarks on sounds that are no words, such as [MUSIC] or (laughs), and spells the names right. */
export function readWhisper(output: string, names: string[]): Recognition {
  const words = output.replace(/\[[^\]]*\]|\([^)]*\)|\*[^*]*\*/g, " ").replace(/\s+/g, " ").trim();
  const text = /[\p{L}\p{N}]/u.test(words) ? cut(respelled(words, names), longestText) : "";
  return { kind: "text", text, isUnderstood: text !== "" };
}
