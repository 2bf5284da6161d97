// What stands between a mind and whoever hears its answer.

import type { Answering } from "./answer.ts";

/** Hands an answer on, and tells whether there was any. */
export function watch(answering: Answering): { watched: Answering; hasAnswered: () => boolean } {
  let hasAnswered = false;
  const watched: Answering = {
    text(piece, spoken) {
      hasAnswered = true;
      answering.text(piece, spoken);
    },
    tool: (text) => answering.tool(text),
  };
  return { watched, hasAnswered: () => hasAnswered };
}

/** Hands on what follows a sentence. */
export function apart(answering: Answering): Answering {
  let isFirst = true;
  return {
    text(piece, spoken) {
      if (piece === "") return;
      answering.text(isFirst ? ` ${piece}` : piece, spoken);
      isFirst = false;
    },
    tool: (text) => answering.tool(text),
  };
}
