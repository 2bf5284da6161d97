// Answers by a server of the chat API: the conversation goes to the model, its words are handed on as they come, and the tools
// that it calls are the agent's hands. What `confirmActions` names is asked about first.

import { parseJson } from "../base/json.ts";
import { cut } from "../base/text.ts";
import type { Hand } from "../hands/hand.ts";
import type { ServedModel } from "../machine/modelServers.ts";
import type { Answer, Answering, Request } from "./answer.ts";
import { Asking } from "./asking.ts";
import { chat, type ChatOutcome, type Failure } from "./chatClient.ts";
import { callMessage, earlierMessages, fitted, type Message, windowFor } from "./chatHistory.ts";
import type { ToolCall } from "./chatReader.ts";
import { isAskable, readIntent } from "./consent.ts";
import type { MindParts } from "./mind.ts";

/** A problem has begun when the answer had, and broke off. */
export type ChatAnswer = Answer & { problem?: { failure: Failure; detail: string; hasBegun?: boolean } };

/** A call that waits for a yes, with the words that it was asked for in. */
interface AskedCall {
  call: ToolCall;
  hand: Hand;
  given: unknown;
  intent: string;
}

/** A request that is being answered. */
interface Thought {
  model: ServedModel;
  messages: Message[];
  rounds: number;
  /** What was done, in words for the user, as long as the model has not said so. */
  done: string[];
}

interface Use {
  request: Request;
  answering: Answering;
  signal: AbortSignal;
}

/** The model is asked so often for one request: it may use tools in between. */
const mostRounds = 8;
/** No more things than this are asked for at once. */
const mostAsked = 5;
/** The tokens of a conversation with a model whose window nobody has told. */
const usualWindow = 4_096;
/** What a tool says is cut at this length, in characters. */
const longestResult = 8_000;

export class ChatMind {
  readonly #asking: Asking<{ thought: Thought; calls: AskedCall[] }>;
  /** The models, by their names, that cannot use tools, and the windows that are smaller than thought. */
  readonly #toolless = new Set<string>();
  readonly #windows = new Map<string, number>();

  constructor(private readonly parts: MindParts) {
    this.#asking = new Asking(parts.clock, parts.phrases);
  }

  /** False when the model cannot use tools, as far as is known. */
  usesTools(model: ServedModel): boolean {
    return this.#tools(model) !== undefined;
  }

  /**
   * The answer's `problem` says what went wrong; after "toolless" the model is asked without tools. The text that came before it was
   * handed on. Never rejects.
   */
  async answer(model: ServedModel, request: Request, answering: Answering, signal: AbortSignal): Promise<ChatAnswer> {
    const use = { request, answering: apart(answering), signal };
    const reply = this.#asking.reply(request);
    if (reply?.isYes) {
      const { thought, calls } = reply.what;
      for (const asked of calls) await this.#act(asked, thought, use);
      return await this.#think(thought, use);
    }
    if (reply) {
      answering.text(this.parts.phrases.allRight);
      return { costUsd: 0 };
    }
    const { handsBeside, instructions, toolRules } = this.parts.phrases;
    const rules = this.usesTools(model) ? [toolRules] : this.parts.hands.length > 0 ? [handsBeside] : [];
    const system = [instructions(request.settings.voiceName), ...rules].join(" ");
    const messages: Message[] = [
      { role: "system", content: system },
      ...earlierMessages([...request.earlier, { role: "user", text: request.text, at: request.askedAt }]),
    ];
    return await this.#think({ model, messages, rounds: 0, done: [] }, use);
  }

  refuse(): void {
    this.#asking.refuse();
  }

  /** Asks the model, uses the tools that it calls, and asks it again, until it has answered in words or asks for leave. */
  async #think(thought: Thought, use: Use): Promise<ChatAnswer> {
    while (!use.signal.aborted) {
      const outcome = await this.#ask(thought, use);
      const { text, calls: wanted } = outcome.kind === "finished" ? outcome : { text: "", calls: [] };
      // Some servers hand on calls of tools that the model was not offered.
      const calls = thought.rounds < mostRounds ? wanted : [];
      if (calls.length === 0 && text.trim() === "") {
        this.#tellDone(thought, use);
        return { costUsd: 0, problem: outcome.kind === "failed" ? outcome : { failure: "away", detail: "a resposta é vazia" } };
      }
      if (text.trim() !== "") thought.done = [];
      if (calls.length === 0) return { costUsd: 0 };
      thought.messages.push(callMessage(text, calls));
      const asked = await this.#use(calls, thought, use);
      if (asked.length > 0 && !use.signal.aborted) return this.#askLeave({ thought, calls: asked }, use);
    }
    return { costUsd: 0 };
  }

  /** Asks the model once: again with less of the conversation when that was too long. */
  async #ask(thought: Thought, { answering, signal }: Use): Promise<ChatOutcome> {
    const { model, messages } = thought;
    thought.rounds++;
    const tools = thought.rounds < mostRounds ? this.#tools(model) : undefined;
    const toolBytes = tools ? JSON.stringify(tools).length : 0;
    const known = this.#windows.get(model.name) ?? model.window ?? usualWindow;
    for (let attempt = 1, window = known; ; attempt++) {
      const sent = fitted(messages, window, toolBytes);
      const wanted = { model: model.id, messages: sent, ...(tools ? { tools } : {}) };
      const outcome = await chat({
        server: model.server,
        wanted,
        onText: (piece) => answering.text(piece),
        clock: this.parts.clock,
        signal,
      });
      if (outcome.kind === "finished") {
        if (window < known) this.#windows.set(model.name, window);
        return outcome;
      }
      if (outcome.failure === "toolless") this.#toolless.add(model.name);
      if (outcome.failure !== "tooLong") return outcome;
      const told = outcome.window !== undefined && outcome.window > 0 ? outcome.window : Infinity;
      if (told < window) this.#windows.set(model.name, told);
      const needed = Math.min(window, windowFor(sent, toolBytes));
      window = told < needed ? told : needed / 2;
      if (attempt === 3 || windowFor(fitted(messages, window, toolBytes), 0) === windowFor(sent, 0)) return outcome;
    }
  }

  /** Does what needs no leave. Gives the calls that need it. */
  async #use(calls: readonly ToolCall[], thought: Thought, use: Use): Promise<AskedCall[]> {
    const asked: AskedCall[] = [];
    const { confirmActions } = use.request.settings;
    for (const call of calls) {
      const answered = (content: string): void => void thought.messages.push({ role: "tool", content, tool_call_id: call.id });
      const hand = this.parts.hands.find(({ id }) => id === call.name);
      const given = parseJson(call.given.trim() === "" ? "{}" : call.given);
      const intent = hand && this.#intent(hand, given);
      if (hand === undefined) answered("There is no tool of this name.");
      else if (intent === undefined) answered("The arguments make no sense for this tool.");
      else if (!confirmActions.includes(hand.id)) await this.#act({ call, hand, given, intent }, thought, use);
      else if (!isAskable(intent)) answered("Not done: this cannot be put into a question that the user would understand.");
      else if (asked.length === mostAsked) answered("Not done: too much at once.");
      else asked.push({ call, hand, given, intent });
    }
    return asked;
  }

  /** Says what was done, where the model may not come to say it. */
  #tellDone(thought: Thought, { answering, signal }: Use): void {
    if (thought.done.length > 0 && !signal.aborted) answering.text([...new Set(thought.done)].join("\n"));
    thought.done = [];
  }

  #askLeave(wanted: { thought: Thought; calls: AskedCall[] }, use: Use): Answer {
    const { answering, signal } = use;
    const { phrases } = this.parts;
    this.#tellDone(wanted.thought, use);
    const ask = (words: (call: AskedCall) => string): string => phrases.mayI(wanted.calls.map(words).join("; "));
    answering.text(ask(({ intent }) => intent), ask(({ hand, intent }) => readIntent(hand.id, intent, phrases)));
    return { costUsd: 0, heard: this.#asking.ask(wanted, signal) };
  }

  async #act({ call, hand, given, intent }: AskedCall, thought: Thought, { answering, signal }: Use): Promise<void> {
    const { language, log, phrases } = this.parts;
    let content = "Not done: it would not be the same any more.";
    let words = phrases.notTheSame;
    // The world may have changed since it was asked for.
    if (!signal.aborted && this.#intent(hand, given) === intent) {
      answering.tool(`${hand.id}: ${intent}`);
      try {
        content = cut(await hand.act(given, language, signal), longestResult);
        words = content;
      } catch (error) {
        log(`a ação ${hand.id} falhou (${String(error)})`);
        content = cut(`It failed: ${String(error)}`, longestResult);
        words = phrases.handFailed;
      }
    }
    // What a model looks up is for its eyes.
    if (!hand.forModelsOnly) thought.done.push(words);
    thought.messages.push({ role: "tool", content, tool_call_id: call.id });
  }

  #intent(hand: Hand, given: unknown): string | undefined {
    try {
      return hand.intent(given, this.parts.language);
    } catch {
      return undefined;
    }
  }

  #tools({ name }: ServedModel): readonly unknown[] | undefined {
    if (this.parts.hands.length === 0 || this.#toolless.has(name)) return undefined;
    return this.parts.hands.map(({ id, description, parameters }) => ({ type: "function", function: { name: id, description, parameters } }));
  }
}

/** Begins a line for the words that come after a tool was used. */
function apart(answering: Answering): Answering {
  let [hasText, isNewLine] = [false, false];
  return {
    text(piece, spoken) {
      const hasWords = piece.trim() !== "";
      const isApart = hasText && hasWords && (isNewLine || spoken !== undefined);
      if (hasWords) [hasText, isNewLine] = [true, false];
      answering.text(isApart ? `\n${piece}` : piece, spoken);
    },
    tool(text) {
      isNewLine = true;
      answering.tool(text);
    },
  };
}
