// Answers a request by the `claude` tool, or by what the engine knows itself where there is none.

import type { Clock } from "../base/clock.ts";
import type { Locale } from "../base/language.ts";
import type { Log } from "../base/log.ts";
import { builtInModel } from "../base/models.ts";
import { phrases } from "../base/phrases.ts";
import type { Session, Settings } from "../base/protocol.ts";
import type { Choices } from "../machine/choices.ts";
import type { Answer, Answering, Brain, Request } from "./answer.ts";
import { builtInAnswer, knownAnswer, type AnswerContext } from "./builtInAnswers.ts";
import type { Claude } from "./claude.ts";
import type { SentenceMind } from "./sentenceMind.ts";

export class EngineBrain implements Brain {
  constructor(
    private readonly clock: Clock,
    private readonly locale: Locale,
    private readonly claude: Claude,
    private readonly choices: Choices,
    private readonly log: Log,
    private readonly sentenceMind: SentenceMind,
  ) {}

  /** Looks for the `claude` tools. Answers are the built-in ones until a tool is found. */
  async prepare(): Promise<void> {
    await this.choices.claudeTools();
  }

  async answer(request: Request, answering: Answering, signal: AbortSignal): Promise<Answer> {
    const path = this.#tool(request.settings);
    if (path === undefined) {
      const context = this.#context(request);
      return await this.sentenceMind.answer(request, (sentence) => builtInAnswer(sentence, context), answering, signal);
    }
    let hasAnswered = false;
    const watched: Answering = {
      text(piece, spoken) {
        hasAnswered = true;
        answering.text(piece, spoken);
      },
      tool: (text) => answering.tool(text),
    };
    let { problem, ...answer } = await this.claude.answer(path, request, watched, signal);
    if (problem !== undefined && request.session !== undefined && !hasAnswered && !signal.aborted) {
      // The tool may have forgotten the session: the request begins a new one.
      ({ problem, ...answer } = await this.claude.answer(path, { ...request, session: undefined }, watched, signal));
    }
    if (problem !== undefined && !signal.aborted) {
      this.log(`o claude falhou (${problem})`);
      const known = knownAnswer(request.text, this.#context(request)) ?? phrases[this.locale.language].modelAway;
      answering.text(hasAnswered ? `\n${phrases[this.locale.language].modelAway}` : known);
    }
    return answer;
  }

  refuse(): void {
    this.sentenceMind.refuse();
  }

  session(settings: Settings): Omit<Session, "startedAt"> {
    const path = this.#tool(settings);
    if (path === undefined) return { model: builtInModel, claudePath: "", claudeVersion: "", isReady: true };
    const claudeVersion = this.choices.knownTools.get(path) ?? "";
    return { model: settings.brainModel, claudePath: path, claudeVersion, isReady: true };
  }

  #tool(settings: Settings): string | undefined {
    if (settings.brainModel === builtInModel) return undefined;
    const { knownTools } = this.choices;
    const { claudePath } = settings;
    return claudePath !== undefined && knownTools.has(claudePath) ? claudePath : knownTools.keys().next().value;
  }

  #context({ settings, lastAnswer }: Request): AnswerContext {
    return { now: new Date(this.clock.now()), locale: this.locale, name: settings.voiceName, lastAnswer };
  }
}
