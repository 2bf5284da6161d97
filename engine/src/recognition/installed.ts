// The recognisers of this machine, of which the one that is set is asked first, and the others where it fails.

import type { Clock } from "../base/clock.ts";
import type { Locale } from "../base/language.ts";
import type { Log } from "../base/log.ts";
import { grammarModel, moonshineBase, moonshineTiny } from "../base/models.ts";
import type { Settings } from "../base/protocol.ts";
import type { Children } from "../machine/children.ts";
import type { Choices } from "../machine/choices.ts";
import { shipped, type Shipped } from "../machine/shipped.ts";
import { ConfirmedRecogniser } from "./confirmed.ts";
import { moonshineCompanion, MoonshineRecogniser } from "./moonshine.ts";
import { FirstOf, type Recogniser } from "./recogniser.ts";
import { SphinxRecogniser } from "./sphinx.ts";
import { WhisperRecogniser } from "./whisper.ts";
import { WhisperAddonRecogniser } from "./whisperAddon.ts";

export interface Surroundings {
  children: Children;
  clock: Clock;
  log: Log;
  choices: Choices;
  locale: Locale;
  settings: () => Settings;
  /** The recognisers' programs read and write here. */
  folder: string;
  /** The questions that the engine can answer by itself, as one would say them. */
  requests: string[];
}

export function installedRecognisers(around: Surroundings, brought: Readonly<Shipped> = shipped): Recogniser {
  const { children, clock, log, choices, locale, settings, folder, requests } = around;
  const names = (): string[] => settings().wakeWords;
  const sphinx = new SphinxRecogniser(children, folder, () => ({
    ...locale,
    wakeWords: names(),
    actionPhrases: settings().actionPhrases,
    requests,
  }));
  const whisperModel = (): string | undefined => {
    const files = choices.whisperFiles();
    return (files.find(({ name }) => name === settings().whisperModel) ?? files[0])?.path;
  };
  const whisper = brought.whisper
    ? new WhisperAddonRecogniser(children, clock, log, brought.whisper, locale.language, whisperModel, names)
    : new WhisperRecogniser(children, folder, locale.language, whisperModel, names);
  const [base, tiny] = [brought.base, brought.tiny].map((model) => moonshineCompanion(children, clock, log, brought, model));
  const judge = locale.language === "en" ? undefined : (base ?? tiny);
  const own = new Map<string, Recogniser | undefined>([
    [moonshineBase, base && new MoonshineRecogniser(base, names)],
    [moonshineTiny, tiny && new MoonshineRecogniser(tiny, names)],
    [grammarModel, judge ? new ConfirmedRecogniser(sphinx, judge) : sphinx],
  ]);
  void sphinx.prepare();
  return new FirstOf(() => {
    const models = [settings().whisperModel, ...choices.recogniserModels()];
    return [...new Set(models.map((model) => (own.has(model) ? own.get(model) : whisper)))].filter((each) => each !== undefined);
  });
}
