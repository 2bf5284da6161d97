// The conversation as a chat model takes it, as much of it as its window holds.

import { isRecord, parseJson } from "../base/json.ts";
import type { Row } from "../base/protocol.ts";
import type { ToolCall } from "./chatReader.ts";

export type Message =
  | { role: "system" | "user"; content: string }
  | { role: "assistant"; content: string; tool_calls?: { id: string; type: "function"; function: { name: string; arguments: string } }[] }
  | { role: "tool"; content: string; tool_call_id: string };

/** Every token of every vocabulary stands for some bytes: three on the average at least, whatever the language. */
const bytesPerToken = 3;
/** What a message costs besides its words, in tokens. */
const messageTokens = 8;
/** The part of the window that is kept for the answer. */
const answerShare = 1 / 4;

/** What was said before, without what the tools did: the words of the answers tell that. */
export function earlierMessages(rows: readonly Row[]): Message[] {
  const messages: Message[] = [];
  for (const { role, text } of rows) {
    if (role === "tool" || text.trim() === "") continue;
    const last = messages.at(-1);
    // Models want turns in turn, also where an answer was stopped before it began.
    if (last?.role === role) last.content += `\n${text}`;
    else if (role === "user" || messages.length > 0) messages.push({ role, content: text });
  }
  return messages;
}

export function callMessage(text: string, calls: readonly ToolCall[]): Message {
  // Servers read the arguments back, and refuse a conversation in which they are no object.
  const isObject = (given: string): boolean => isRecord(parseJson(given));
  const tool_calls = calls.map(({ id, name, given }) => ({
    id,
    type: "function" as const,
    function: { name, arguments: isObject(given) ? given : "{}" },
  }));
  return { role: "assistant", content: text, tool_calls };
}

/**
 * The messages that fit into a window of so many tokens, with tools of so many bytes beside them. The oldest turns are left out
 * first; the first message and the last turn always stay.
 */
export function fitted(messages: readonly Message[], window: number, toolBytes: number): Message[] {
  const [first, ...rest] = messages;
  if (first === undefined) return [];
  let left = window * (1 - answerShare) - tokensOf(first) - toolBytes / bytesPerToken;
  const lastTurn = rest.findLastIndex(({ role }) => role === "user");
  let from = rest.length;
  for (let at = rest.length - 1; at >= 0; at--) {
    const message = rest[at] as Message;
    left -= tokensOf(message);
    if (left < 0 && at < lastTurn) break;
    // What is kept begins with what the user said.
    if (message.role === "user") from = at;
  }
  return [first, ...rest.slice(from)];
}

function tokensOf(message: Message): number {
  const calls = "tool_calls" in message ? JSON.stringify(message.tool_calls) : "";
  return Buffer.byteLength(message.content + calls) / bytesPerToken + messageTokens;
}
