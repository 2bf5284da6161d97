// Reads what a server of the chat API streams: one JSON object an event. What is not understood is left out; what would make
// a tool call another one than the model meant ends the answer.

import { isRecord, parseJson } from "../base/json.ts";
import { errorIn } from "../machine/modelServer.ts";

/** A tool that the model wants to use, with the arguments as it wrote them. */
export interface ToolCall {
  id: string;
  name: string;
  given: string;
}

export type Ending =
  | { kind: "finished" }
  /** The server says that something is wrong. */
  | { kind: "error"; message: string; code: string; window?: number }
  /** The stream is none, or asks for more than is held. */
  | { kind: "nonsense" };

const mostCalls = 16;
const longestName = 64;
/** The arguments of all calls of an answer, in characters. */
const longestArguments = 64 << 10;

export class ChatReader {
  /** What ended the answer, if anything did. What comes after it is not read. */
  ending: Ending | undefined;
  /** An event of an answer was read. */
  hasBegun = false;
  #isComplete = false;
  #calls = new Map<number, ToolCall>();
  #givenLength = 0;

  constructor(private readonly onText: (text: string) => void) {}

  get calls(): ToolCall[] {
    return [...this.#calls].sort(([a], [b]) => a - b).map(([at, call]) => ({ ...call, id: call.id || `call_${at}` }));
  }

  /** Takes the data of one event. */
  take(data: string): void {
    if (this.ending) return;
    if (data.trim() === "[DONE]") return this.#end({ kind: "finished" });
    const value = parseJson(data);
    if (!isRecord(value)) return this.#end({ kind: "nonsense" });
    const error = errorIn(value);
    if (error) return this.#end({ kind: "error", ...error });
    // One that counts tokens has no choices.
    const choices = Array.isArray(value.choices) ? value.choices : [];
    const choice: unknown = choices.find((one: unknown) => isRecord(one) && (one.index ?? 0) === 0);
    if (!isRecord(choice)) return;
    this.hasBegun = true;
    // A server that does not stream sends the whole message.
    const delta = isRecord(choice.delta) ? choice.delta : choice.message;
    if (isRecord(delta)) this.#takeDelta(delta);
    if (typeof choice.finish_reason === "string" && choice.finish_reason !== "") this.#isComplete = true;
  }

  /** The stream has ended. Servers that said why the model stopped may leave out the mark of the end. */
  end(): void {
    if (this.#isComplete) this.ending ??= { kind: "finished" };
  }

  tooLong(): void {
    this.#end({ kind: "nonsense" });
  }

  #takeDelta({ content, tool_calls: calls }: Record<string, unknown>): void {
    const text = textOf(content);
    if (text !== "") this.onText(text);
    if (!Array.isArray(calls)) return;
    for (const call of calls) if (isRecord(call) && isRecord(call.function)) this.#takeCall(call, call.function);
  }

  #takeCall({ index, id }: Record<string, unknown>, { name, arguments: given }: Record<string, unknown>): void {
    const at = this.#placeOf(index, id);
    const call = this.#calls.get(at) ?? { id: "", name: "", given: "" };
    this.#calls.set(at, call);
    if (typeof id === "string" && call.id === "") call.id = id;
    // Names come whole, in pieces, or whole in each piece.
    if (typeof name === "string" && name !== call.name) call.name += name;
    const piece = typeof given === "string" ? given : isRecord(given) ? JSON.stringify(given) : "";
    call.given += piece;
    this.#givenLength += piece.length;
    const isTooMuch = this.#calls.size > mostCalls || call.name.length > longestName || call.id.length > longestName;
    if (isTooMuch || this.#givenLength > longestArguments) this.#end({ kind: "nonsense" });
  }

  /** Servers that do not number the calls give each an id, with its first piece at least. */
  #placeOf(index: unknown, id: unknown): number {
    if (typeof index === "number" && Number.isInteger(index) && index >= 0) return index;
    const known = [...this.#calls].find(([, call]) => call.id === id)?.[0];
    const isNew = typeof id === "string" && id !== "" && known === undefined;
    return isNew ? this.#calls.size : (known ?? Math.max(0, this.#calls.size - 1));
  }

  #end(ending: Ending): void {
    this.ending ??= ending;
  }
}

/** A text, or the texts among parts of several kinds. */
function textOf(content: unknown): string {
  if (typeof content === "string") return content;
  if (!Array.isArray(content)) return "";
  return content.map((part: unknown) => (isRecord(part) && part.type === "text" && typeof part.text === "string" ? part.text : "")).join("");
}
