// Reads the output of the `claude` tool: one JSON object a line.

import { isRecord, parseJson } from "../base/json.ts";
import { cut } from "../base/text.ts";

export type ClaudeEvent =
  | { kind: "session"; session: string; model: string | undefined }
  | { kind: "text"; text: string }
  | { kind: "tool"; name: string; detail: string }
  | { kind: "result"; text: string; isError: boolean; costUsd: number; session: string | undefined; denied: DeniedTool[] };

/** A tool that the model wanted to use, and was not allowed to. */
export interface DeniedTool {
  name: string;
  /** The tool's input, as the model gave it. */
  input: Record<string, unknown>;
  /** The input in one short line, to be shown. */
  detail: string;
}

const longestDetail = 200;

/** Gives the events of one line, none for a line that is not understood. */
export function readClaudeLine(line: string): ClaudeEvent[] {
  const value = parseJson(line);
  if (!isRecord(value)) return [];
  const session = typeof value.session_id === "string" ? value.session_id : undefined;
  switch (value.type) {
    case "system":
      return session === undefined ? [] : [{ kind: "session", session, model: textOf(value.model) }];
    case "assistant":
      return isRecord(value.message) && Array.isArray(value.message.content)
        ? value.message.content.flatMap(readBlock)
        : [];
    case "result":
      return [
        {
          kind: "result",
          text: textOf(value.result) ?? "",
          isError: value.is_error === true || (typeof value.subtype === "string" && value.subtype !== "success"),
          costUsd: typeof value.total_cost_usd === "number" && value.total_cost_usd >= 0 ? value.total_cost_usd : 0,
          session,
          denied: Array.isArray(value.permission_denials) ? value.permission_denials.flatMap(readDenial) : [],
        },
      ];
    default:
      return [];
  }
}

function readBlock(block: unknown): ClaudeEvent[] {
  if (!isRecord(block)) return [];
  if (block.type === "text" && typeof block.text === "string") return [{ kind: "text", text: block.text }];
  if (block.type === "tool_use" && typeof block.name === "string") {
    return [{ kind: "tool", name: block.name, detail: detailOf(block.input) }];
  }
  return [];
}

function readDenial(denial: unknown): DeniedTool[] {
  if (!isRecord(denial) || typeof denial.tool_name !== "string") return [];
  const input = isRecord(denial.tool_input) ? denial.tool_input : {};
  return [{ name: denial.tool_name, input, detail: detailOf(input) }];
}

/** Names in one line what a tool is used on. */
function detailOf(input: unknown): string {
  if (!isRecord(input)) return "";
  for (const key of ["command", "file_path", "notebook_path", "pattern", "path", "url", "query", "description"]) {
    const text = textOf(input[key]);
    if (text !== undefined && text.trim() !== "") {
      const line = text.replace(/\s+/g, " ").trim();
      return line.length > longestDetail ? `${cut(line, longestDetail - 1)}…` : line;
    }
  }
  return "";
}

function textOf(value: unknown): string | undefined {
  return typeof value === "string" ? value : undefined;
}
