// Answers a request by a server's model, by the `claude` tool, or by what the engine knows itself where there is neither.

import type { Clock } from "../base/clock.ts";
import type { Locale } from "../base/language.ts";
import type { Log } from "../base/log.ts";
import { builtInModel, partsOfServedModel } from "../base/models.ts";
import { phrases } from "../base/phrases.ts";
import type { Session, Settings } from "../base/protocol.ts";
import type { Choices } from "../machine/choices.ts";
import type { ModelServers } from "../machine/modelServers.ts";
import type { Answer, Answering, Brain, Request } from "./answer.ts";
import { type AnswerContext, builtInAnswer, knownAnswer, knownAnswers } from "./builtInAnswers.ts";
import type { Failure } from "./chatClient.ts";
import type { ChatMind } from "./chatMind.ts";
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
    const reply = await this.parts.sentenceMind.reply(request, answering, signal);
    if (reply) return reply;
    if (partsOfServedModel(request.settings.brainModel)) return await this.#answerByServer(request, answering, signal);
    const path = this.#tool(request.settings);
    if (path === undefined) return await this.#answerItself(request, answering, signal);
    const { watched, hasAnswered } = watch(answering);
    let { problem, ...answer } = await this.parts.claude.answer(path, request, watched, signal);
    if (problem !== undefined && request.session !== undefined && !hasAnswered() && !signal.aborted) {
      // The tool may have forgotten the session: the request begins a new one.
      ({ problem, ...answer } = await this.parts.claude.answer(path, { ...request, session: undefined }, watched, signal));
    }
    if (problem !== undefined && !signal.aborted) {
      this.parts.log(`o claude falhou (${problem})`);
      const known = knownAnswer(request.text, this.#context(request)) ?? phrases[this.parts.locale.language].modelAway;
      answering.text(hasAnswered() ? `\n${phrases[this.parts.locale.language].modelAway}` : known);
    }
    return answer;
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

  async #answerByServer(request: Request, answering: Answering, signal: AbortSignal): Promise<Answer> {
    const name = request.settings.brainModel;
    const { watched, hasAnswered } = watch(answering);
    const model = this.parts.servers.find(name);
    const unknown = { costUsd: 0, problem: { failure: "missing" as const, detail: "não conheço o servidor" } };
    const { problem, ...answer } = model ? await this.parts.chatMind.answer(model, request, watched, signal) : unknown;
    if (problem === undefined || signal.aborted) return answer;
    this.parts.log(`o modelo ${name} falhou (${[failures[problem.failure], problem.detail].filter((part) => part !== "").join("; ")})`);
    const sentence = this.#sentence(problem.failure, name);
    if (hasAnswered()) {
      answering.text(`\n${sentence}`);
      return answer;
    }
    answering.text(sentence);
    return (await this.#answerByHands(request, apart(answering), signal)) ?? answer;
  }

  async #answerItself(request: Request, answering: Answering, signal: AbortSignal): Promise<Answer> {
    const answer = await this.#answerByHands(request, answering, signal);
    if (answer) return answer;
    answering.text(builtInAnswer(request.text, this.#context(request)));
    return { costUsd: 0 };
  }

  /** Answers without a language model what it understands; undefined when that is nothing. */
  async #answerByHands(request: Request, answering: Answering, signal: AbortSignal): Promise<Answer | undefined> {
    const context = this.#context(request);
    return await this.parts.sentenceMind.answer(request, (text) => knownAnswers(text, context), answering, signal);
  }

  /** What the user is told of a failure. */
  #sentence(failure: Failure, name: string): string {
    const { modelAway, modelBroke, modelMissing, tooLong } = phrases[this.parts.locale.language];
    if (failure === "missing") return modelMissing(partsOfServedModel(name)?.model ?? name);
    if (failure === "tooLong") return tooLong;
    return failure === "cutOff" ? modelBroke : modelAway;
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

/** Hands an answer on, and tells whether there was any. */
function watch(answering: Answering): { watched: Answering; hasAnswered: () => boolean } {
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
function apart(answering: Answering): Answering {
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
