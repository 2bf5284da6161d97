// Fakes of the engine's ports.

import type { Clock } from "../../src/base/clock.ts";
import { chooseLocale } from "../../src/base/language.ts";
import type { LinkSocket } from "../../src/port/audioLink.ts";
import type { RecogniseOptions, Recogniser, Recognition } from "../../src/recognition/recogniser.ts";
import type { Clip } from "../../src/sound/wav.ts";
import type { Answering, Brain, Request } from "../../src/thought/answer.ts";
import { builtInAnswer } from "../../src/thought/builtInAnswers.ts";
import type { Synthesiser } from "../../src/voice/synthesiser.ts";
import { clipOf } from "./sounds.ts";

export class FakeSynthesiser implements Synthesiser {
  spoken: string[] = [];
  clip: Clip | undefined = clipOf(1_000);

  async speak(sentence: string): Promise<Clip | undefined> {
    this.spoken.push(sentence);
    return this.clip;
  }
}

/** Gives the answers that it was told, one for each utterance: at once, or when it is released. */
export class FakeRecogniser implements Recogniser {
  answers: Recognition[] = [];
  heard: Int16Array[] = [];
  signals: AbortSignal[] = [];
  isSlow = false;
  /** Somebody has begun to speak so often. */
  prepared = 0;
  /** The words of the beginning of what is said. */
  glimpse = "";
  #release: (() => void)[] = [];

  prepare(): void {
    this.prepared++;
  }

  async recognise(samples: Int16Array, signal: AbortSignal, { isPartial }: RecogniseOptions = {}): Promise<Recognition> {
    if (signal.aborted) return { kind: "none" };
    if (isPartial) return { kind: "text", text: this.glimpse, isUnderstood: this.glimpse !== "" };
    this.heard.push(samples);
    this.signals.push(signal);
    const answer = this.answers.shift() ?? { kind: "none" };
    if (this.isSlow) await new Promise<void>((resolve) => this.#release.push(resolve));
    return answer;
  }

  release(): void {
    for (const resolve of this.#release.splice(0)) resolve();
  }

  will(text: string): void {
    this.answers.push({ kind: "text", text, isUnderstood: true });
  }
}

/** Gives the built-in answers: at once, or when it is released. */
export class FakeBrain implements Brain {
  requests: Request[] = [];
  isSlow = false;
  costUsd = 0;
  #release: (() => void)[] = [];

  constructor(readonly clock: Clock) {}

  async answer(request: Request, answering: Answering, signal: AbortSignal): Promise<{ costUsd: number; session?: string }> {
    this.requests.push(request);
    if (this.isSlow) {
      await new Promise<void>((resolve) => {
        this.#release.push(resolve);
        signal.addEventListener("abort", () => resolve());
      });
    }
    const locale = chooseLocale({ PALOMET_LANGUAGES: "en-US" });
    const now = new Date(this.clock.now());
    const { lastAnswer, text } = request;
    if (!signal.aborted) answering.text(builtInAnswer(text, { now, locale, name: "Palomet", lastAnswer }));
    return { costUsd: this.costUsd, session: "s1" };
  }

  release(): void {
    for (const resolve of this.#release.splice(0)) resolve();
  }

  refuse(): void {}

  session(): { model: string; claudePath: string; claudeVersion: string; isReady: boolean } {
    return { model: "fake", claudePath: "", claudeVersion: "", isReady: true };
  }
}

export class FakeSocket implements LinkSocket {
  sent: { type: string; id?: number; data?: string; format?: string; on?: boolean; device?: string }[] = [];

  send(text: string): void {
    this.sent.push(JSON.parse(text));
  }

  get types(): string[] {
    return this.sent.map(({ type }) => type);
  }

  /** The front end's report that the clip of this index was played. */
  played(index: number): string {
    return JSON.stringify({ type: "played", id: this.ids[index] });
  }

  get ids(): number[] {
    return this.sent.flatMap(({ id }) => (id === undefined ? [] : [id]));
  }
}
