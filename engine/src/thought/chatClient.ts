// Asks a server of the chat API for one message, and hands on its words as they come.

import type { Clock } from "../base/clock.ts";
import { cut } from "../base/text.ts";
import { errorIn, jsonOf, KeyMissing, request, Stranger, type ModelServer } from "../machine/modelServer.ts";
import { ChatReader, type Ending, type ToolCall } from "./chatReader.ts";
import { EventReader } from "./eventReader.ts";
import { Musing } from "./musing.ts";

export interface ChatRequest {
  model: string;
  messages: readonly unknown[];
  tools?: readonly unknown[];
}

export interface ChatCall {
  server: ModelServer;
  wanted: ChatRequest;
  /** Gets the words of the answer as they come. */
  onText: (text: string) => void;
  clock: Clock;
  /** Closes the connection at once. */
  signal: AbortSignal;
}

export type Failure =
  /** The server does not have the model. */
  | "missing"
  /** Nobody answers there, or not with an answer. */
  | "away"
  | "silent"
  | "slow"
  | "cutOff"
  /** The conversation is longer than the model's window. */
  | "tooLong"
  /** The model cannot use tools. */
  | "toolless"
  | "stopped";

export type ChatOutcome =
  | { kind: "finished"; text: string; calls: ToolCall[] }
  /** `detail` says more, for the log. The words that came before were handed on. */
  | { kind: "failed"; failure: Failure; detail: string; window?: number; hasBegun?: boolean };

/** A server that says nothing for so long has hung. */
const silenceMs = 60_000;
/** A message that is not complete by then comes too slowly. */
const longestMs = 5 * 60_000;
/** An answer is cut off when it is longer, in bytes of the stream and in characters of text. */
const [longestStream, longestText] = [32 << 20, 64 << 10];
const longestDetail = 200;

/** Never rejects. */
export async function chat(call: ChatCall): Promise<ChatOutcome> {
  let hasBegun = false;
  const told = (text: string): void => {
    hasBegun ||= text.trim() !== "";
    call.onText(text);
  };
  const outcome = await exchange({ ...call, onText: told });
  if (outcome.kind === "finished") return outcome;
  // A server may say the key that it refuses.
  const key = call.server.key?.();
  const detail = key === undefined ? outcome.detail : outcome.detail.replaceAll(key, "…");
  return { ...outcome, detail: cut(detail, longestDetail), ...(hasBegun ? { hasBegun } : {}) };
}

async function exchange({ server, wanted, onText, clock, signal }: ChatCall): Promise<ChatOutcome> {
  const ending = new AbortController();
  let failure: Failure | undefined;
  const giveUp = (why: Failure) => (): void => {
    failure ??= why;
    ending.abort();
  };
  const stop = giveUp("stopped");
  if (signal.aborted) stop();
  signal.addEventListener("abort", stop);
  let cancelSilence = clock.after(silenceMs, giveUp("silent"));
  const cancelSlow = clock.after(longestMs, giveUp("slow"));
  const heard = (): void => {
    cancelSilence();
    cancelSilence = clock.after(silenceMs, giveUp("silent"));
  };
  try {
    const answer = await request(server, "/chat/completions", { ...wanted, stream: true }, ending.signal);
    heard();
    return await read(answer, onText, heard, () => failure !== undefined);
  } catch (error) {
    if (error instanceof KeyMissing) return failed("away", "não consigo ler a chave");
    if (error instanceof Stranger) return failed("away", "outro usuário serve na porta");
    return failed(failure ?? "away", failure ? "" : codeOf(error));
  } finally {
    cancelSilence();
    cancelSlow();
    signal.removeEventListener("abort", stop);
    // What the server would still send is not waited for.
    ending.abort();
  }
}

async function read(answer: Response, onText: (text: string) => void, heard: () => void, isOver: () => boolean): Promise<ChatOutcome> {
  if (answer.status !== 200) return refusal(answer.status, errorIn(await jsonOf(answer)));
  let text = "";
  const musing = new Musing((piece) => {
    if (text.length > longestText) return;
    text += piece;
    onText(piece);
  });
  const reader = new ChatReader((piece) => musing.take(piece));
  const type = answer.headers.get("content-type") ?? "";
  const isStream = /^text\/event-stream\b/.test(type);
  const outcome = (ending: Ending | undefined): ChatOutcome => {
    if (ending?.kind === "error") return refusal(answer.status, ending);
    if (ending?.kind === "nonsense") return failed("away", "a resposta não se entende");
    musing.end();
    if (ending) return { kind: "finished", text, calls: reader.calls };
    // A page, or any other text, is no answer that broke off.
    return isStream || reader.hasBegun ? failed("cutOff", "") : failed("away", "a resposta não se entende");
  };
  if (/^application\/json\b/.test(type)) {
    const whole = await jsonOf(answer);
    reader.take(JSON.stringify(whole) ?? "");
    reader.end();
    return outcome(reader.ending);
  }
  const events = new EventReader((data) => reader.take(data), () => reader.tooLong());
  let length = 0;
  try {
    for await (const piece of answer.body ?? []) {
      if (isOver()) break;
      heard();
      events.take(piece);
      length += piece.length;
      if (text.length > longestText) return { kind: "finished", text, calls: [] };
      if (length > longestStream) reader.tooLong();
      if (reader.ending) return outcome(reader.ending);
    }
  } catch (error) {
    if (isOver()) throw error;
    // The connection was lost.
  }
  if (isOver()) throw new Error("over");
  events.end();
  reader.end();
  // Half an event is none that is not understood.
  return reader.ending?.kind === "nonsense" ? outcome(undefined) : outcome(reader.ending);
}

/** Servers name their reasons each in their own way. */
function refusal(status: number, error: { message: string; code: string; window?: number } | undefined): ChatOutcome {
  const { message = "", code = "", window } = error ?? {};
  const said = `${code} ${message}`;
  const kind = (): Failure => {
    if (/exceed_context|context_length|context (size|length|window)|too many tokens/i.test(said)) return "tooLong";
    if (/\btools?\b/i.test(message) && /support|require|enable|allow/i.test(message)) return "toolless";
    if (/model_not_found|model.*(not found|not exist|not loaded)|no models? loaded|unknown model/i.test(said)) return "missing";
    return status === 404 && error !== undefined ? "missing" : "away";
  };
  const what = [status === 200 ? "" : String(status), message === "" ? code : message].filter((part) => part !== "").join(": ");
  return failed(kind(), what, window);
}

function failed(failure: Failure, detail: string, window?: number): ChatOutcome {
  const line = detail.replace(/[\p{C}\s]+/gu, " ").trim();
  return { kind: "failed", failure, detail: line, ...(window === undefined ? {} : { window }) };
}

/** The message of such an error may hold the address. */
function codeOf(error: unknown): string {
  const { code, name } = error as { code?: unknown; name?: unknown };
  return typeof code === "string" ? code : String(name);
}
