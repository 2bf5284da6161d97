// Answers a request by a server's model, by the `claude` tool, or by what the engine knows itself where there is neither. A model that
// can use tools has the hands; for any other one, the sentences that plainly ask for a hand are done as they are without a model.

import type { Clock } from "../base/clock.ts";
import type { Locale } from "../base/language.ts";
import type { Log } from "../base/log.ts";
import { builtInModel, partsOfServedModel } from "../base/models.ts";
import { phrases } from "../base/phrases.ts";
import type { Session, Settings } from "../base/protocol.ts";
import type { Choices } from "../machine/choices.ts";
import type { ModelServers, ServedModel } from "../machine/modelServers.ts";
import type { Answer, Answering, Brain, Request } from "./answer.ts";
import { apart, watch } from "./answering.ts";
import { type AnswerContext, builtInAnswer, knownAnswers } from "./builtInAnswers.ts";
import type { Failure } from "./chatClient.ts";
import type { ChatAnswer, ChatMind } from "./chatMind.ts";
import type { Claude } from "./claude.ts";
import type { SentenceMind } from "./sentenceMind.ts";

/** What went wrong, for the log. */
const failures: Record<Failure, string> = {
  missing: "não está no servidor",
  away: "o servidor não respondeu",
  silent: "o servidor calou-se por 60 s",
  slow: "a resposta demorou demais",
  cutOff: "a resposta acabou no meio",
  tooLong: "a conversa não cabe no modelo",
  toolless: "o modelo não usa ferramentas",
  stopped: "foi interrompido",
};

export interface BrainParts {
  clock: Clock;
  locale: Locale;
  claude: Claude;
  chatMind: ChatMind;
  sentenceMind: SentenceMind;
  servers: ModelServers;
  choices: Choices;
  log: Log;
}

export class EngineBrain implements Brain {
  constructor(private readonly parts: BrainParts) {}

  /** Looks for the `claude` tools and the servers of models. Answers are the built-in ones until a tool is found. */
  async prepare(): Promise<void> {
    await Promise.all([this.parts.choices.claudeTools(), this.parts.servers.look()]);
  }

  async answer(request: Request, answering: Answering, signal: AbortSignal): Promise<Answer> {
    const { claude, sentenceMind } = this.parts;
    const reply = await sentenceMind.reply(request, answering, signal);
    if (reply) return reply;
    if (partsOfServedModel(request.settings.brainModel)) return await this.#answerByServer(request, answering, signal);
    const path = this.#tool(request.settings);
    if (path === undefined) return await this.#answerItself(request, answering, signal);
    const tool = { answer: (what: Request, to: Answering) => this.#askTool(path, what, to, signal), refuse: () => claude.refuse() };
    return await sentenceMind.answerFor(tool, request, answering, signal);
  }

  refuse(): void {
    this.parts.claude.refuse();
    this.parts.chatMind.refuse();
    this.parts.sentenceMind.refuse();
  }

  session(settings: Settings): Omit<Session, "startedAt"> {
    const { brainModel } = settings;
    if (partsOfServedModel(brainModel)) return { model: brainModel, claudePath: "", claudeVersion: "", isReady: true };
    const path = this.#tool(settings);
    if (path === undefined) return { model: builtInModel, claudePath: "", claudeVersion: "", isReady: true };
    const claudeVersion = this.parts.choices.knownTools.get(path) ?? "";
    return { model: settings.brainModel, claudePath: path, claudeVersion, isReady: true };
  }

  async #askTool(path: string, request: Request, answering: Answering, signal: AbortSignal): Promise<Answer> {
    const { watched, hasAnswered } = watch(answering);
    let { problem, ...answer } = await this.parts.claude.answer(path, request, watched, signal);
    if (problem !== undefined && request.session !== undefined && !hasAnswered() && !signal.aborted) {
      // The tool may have forgotten the session: the request begins a new one.
      ({ problem, ...answer } = await this.parts.claude.answer(path, { ...request, session: undefined }, watched, signal));
    }
    if (problem === undefined || signal.aborted) return answer;
    this.parts.log(`o claude falhou (${problem})`);
    const sentence = phrases[this.parts.locale.language].modelAway;
    return { ...(await this.#answerAfter(sentence, hasAnswered(), request, answering, signal)), ...answer };
  }

  async #answerByServer(request: Request, answering: Answering, signal: AbortSignal): Promise<Answer> {
    const { chatMind, servers, sentenceMind } = this.parts;
    const model = servers.find(request.settings.brainModel);
    const toolless = { answer: (what: Request, to: Answering) => this.#askServer(model, what, to, signal), refuse: () => chatMind.refuse() };
    const byHands = () => sentenceMind.answerFor(toolless, request, answering, signal);
    if (model && !chatMind.usesTools(model)) return await byHands();
    return await this.#askServer(model, request, answering, signal, byHands);
  }

  /** Answers by `byHands` when the model turns out not to use tools. */
  async #askServer(
    model: ServedModel | undefined,
    request: Request,
    answering: Answering,
    signal: AbortSignal,
    byHands?: () => Promise<Answer>,
  ): Promise<Answer> {
    const name = request.settings.brainModel;
    const { watched, hasAnswered } = watch(answering);
    const unknown: ChatAnswer = { costUsd: 0, problem: { failure: "missing", detail: "não conheço o servidor" } };
    const { problem, ...answer } = model ? await this.parts.chatMind.answer(model, request, watched, signal) : unknown;
    if (problem === undefined || signal.aborted) return answer;
    if (problem.failure === "toolless" && byHands && !hasAnswered()) return await byHands();
    this.parts.log(`o modelo ${name} falhou (${[failures[problem.failure], problem.detail].filter((part) => part !== "").join("; ")})`);
    const sentence = this.#sentence(problem.failure, name, problem.hasBegun);
    return { ...(await this.#answerAfter(sentence, hasAnswered(), request, answering, signal)), ...answer };
  }

  /** Says what went wrong with a model, and answers without one unless it had begun to answer. */
  async #answerAfter(sentence: string, hasAnswered: boolean, request: Request, answering: Answering, signal: AbortSignal): Promise<Answer> {
    answering.text(hasAnswered ? `\n${sentence}` : sentence);
    if (hasAnswered) return { costUsd: 0 };
    return (await this.#answerByHands(request, apart(answering), signal, true)) ?? { costUsd: 0 };
  }

  async #answerItself(request: Request, answering: Answering, signal: AbortSignal): Promise<Answer> {
    const answer = await this.#answerByHands(request, answering, signal);
    if (answer) return answer;
    answering.text(builtInAnswer(request.text, this.#context(request)));
    return { costUsd: 0 };
  }

  /** Answers without a language model what it understands; undefined when that is nothing. */
  async #answerByHands(request: Request, answering: Answering, signal: AbortSignal, isForModel = false): Promise<Answer | undefined> {
    const known = (text: string): string | undefined => knownAnswers(text, this.#context(request));
    return await this.parts.sentenceMind.answer(request, known, answering, signal, isForModel);
  }

  /** What the user is told of a failure. */
  #sentence(failure: Failure, name: string, hasBegun = false): string {
    const { modelAway, modelBroke, modelMissing, tooLong } = phrases[this.parts.locale.language];
    if (failure === "missing") return modelMissing(partsOfServedModel(name)?.model ?? name);
    if (failure === "tooLong") return tooLong;
    return failure === "cutOff" || hasBegun ? modelBroke : modelAway;
  }

  #tool(settings: Settings): string | undefined {
    if (settings.brainModel === builtInModel) return undefined;
    const { knownTools } = this.parts.choices;
    const { claudePath } = settings;
    return claudePath !== undefined && knownTools.has(claudePath) ? claudePath : knownTools.keys().next().value;
  }

  #context({ settings, lastAnswer }: Request): AnswerContext {
    return { now: new Date(this.parts.clock.now()), locale: this.parts.locale, name: settings.voiceName, lastAnswer };
  }
}
