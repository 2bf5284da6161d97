// The conversation as a chat model takes it, as much of it as its window holds.

import { isRecord, parseJson } from "../base/json.ts";
import type { Row } from "../base/protocol.ts";
import { cut } from "../base/text.ts";
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
/** The part of the window that what tools say may always have. */
const resultShare = 1 / 4;

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
 * The messages that fit into a window of so many tokens, with tools of so many bytes beside them. What tools said is cut first, then
 * the oldest turns are left out; the first message and the last turn always stay.
 */
export function fitted(messages: readonly Message[], window: number, toolBytes: number): Message[] {
  const room = window * (1 - answerShare) - toolBytes / bytesPerToken;
  const [first, ...rest] = withResultsCut(messages, room, window * resultShare);
  if (first === undefined) return [];
  let left = room - tokensOf(first);
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

/** The window that holds these messages, with tools of so many bytes beside them, in tokens. */
export function windowFor(messages: readonly Message[], toolBytes: number): number {
  return (tokensIn(messages) + toolBytes / bytesPerToken) / (1 - answerShare);
}

/** Cuts the longest of what tools said, until all messages have room, or it has only `least` left. */
function withResultsCut(messages: readonly Message[], room: number, least: number): readonly Message[] {
  const tokens = tokensIn(messages);
  const results = messages.filter(({ role }) => role === "tool");
  if (tokens <= room || results.length === 0) return messages;
  let left = Math.max(least, room - tokens + tokensIn(results));
  let most = Infinity;
  for (const [at, size] of results.map(tokensOf).sort((one, other) => one - other).entries()) {
    const share = left / (results.length - at);
    if (size > share) {
      most = share;
      break;
    }
    left -= size;
  }
  return messages.map((message) => {
    const size = tokensOf(message);
    if (message.role !== "tool" || size <= most) return message;
    const kept = Math.max(0, most - messageTokens) / (size - messageTokens);
    return { ...message, content: cut(message.content, Math.floor(message.content.length * kept)) };
  });
}

function tokensIn(messages: readonly Message[]): number {
  return messages.reduce((sum, message) => sum + tokensOf(message), 0);
}

function tokensOf(message: Message): number {
  const calls = "tool_calls" in message ? JSON.stringify(message.tool_calls) : "";
  return Buffer.byteLength(message.content + calls) / bytesPerToken + messageTokens;
}
