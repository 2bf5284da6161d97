// Entry point: `bun src/main.ts` in this folder. Runs until SIGTERM or SIGINT.

import { availableParallelism, homedir, loadavg } from "node:os";
import { join } from "node:path";
import { systemClock } from "./base/clock.ts";
import { isRecord } from "./base/json.ts";
import { chooseLocale } from "./base/language.ts";
import { bounded, standardErrorLog } from "./base/log.ts";
import { phrases } from "./base/phrases.ts";
import { defaultPort } from "./base/protocol.ts";
import { StartFailures } from "./base/startFailures.ts";
import { Engine } from "./engine.ts";
import { Listener } from "./hearing/listener.ts";
import { prepare as prepareSentences } from "./hands/parsing/sentence.ts";
import { Microphone } from "./hearing/microphone.ts";
import { Children } from "./machine/children.ts";
import { Choices } from "./machine/choices.ts";
import { Guard } from "./machine/guard.ts";
import { Keys } from "./machine/keys.ts";
import { ModelServers } from "./machine/modelServers.ts";
import { readPreferences } from "./machine/preferences.ts";
import { shipped } from "./machine/shipped.ts";
import { PortTaken, serve } from "./port/server.ts";
import { installedRecognisers } from "./recognition/installed.ts";
import { EngineBrain } from "./thought/brain.ts";
import { knownPhrases } from "./thought/builtInAnswers.ts";
import { ChatMind } from "./thought/chatMind.ts";
import { Claude } from "./thought/claude.ts";
import { SentenceMind } from "./thought/sentenceMind.ts";
import { ProgramSynthesiser } from "./voice/synthesiser.ts";

/** Words are shown while they are spoken when more processors than these are idle. */
const leastSpareCores = 2;
const portCheckMs = 1_000;
/** An engine that has lived for this long has started. */
const settledAfterMs = 60_000;
const log = bounded(standardErrorLog, systemClock);
const environment = { ...process.env };
const stateHome = environment.XDG_STATE_HOME || join(environment.HOME ?? homedir(), ".local/state");
const folder = join(stateHome, "palomet");
const failures = new StartFailures(join(folder, "failing.json"), standardErrorLog, systemClock);

async function main(): Promise<void> {
  const children = new Children(environment, new Guard());
  const locale = chooseLocale(environment);
  const port = Number(environment.PALOMET_PORT ?? defaultPort);

  // This comes before anything is opened: a second engine must not touch the first one's data.
  if (await isTaken(port)) return;

  // The keys that the servers need leave the environment before the first child gets it.
  const servers = new ModelServers(() => readPreferences(environment, log).servers ?? [], new Keys(environment), log);
  const choices = new Choices(children, locale, shipped, servers);
  const preferences = readPreferences(environment, log);
  const claude = new Claude(children, systemClock, phrases[locale.language]);
  let prepare = async (): Promise<void> => {};
  const requests = knownPhrases(locale.language);
  const engine = new Engine({
    clock: systemClock,
    log,
    locale,
    folder,
    choices,
    synthesiser: new ProgramSynthesiser(children, () => choices.voices(), join(folder, "voice"), log),
    recogniser: (settings) =>
      installedRecognisers({ children, clock: systemClock, log, choices, locale, settings, requests, folder: join(folder, "recogniser") }),
    ...speechDetectorFor(children),
    isCaptioning: () => preferences.captions ?? spareCores() > leastSpareCores,
    brain: (hands) => {
      const parts = { clock: systemClock, language: locale.language, phrases: phrases[locale.language], log, hands };
      const [chatMind, sentenceMind] = [new ChatMind(parts), new SentenceMind(parts)];
      const brain = new EngineBrain({ clock: systemClock, locale, claude, chatMind, sentenceMind, servers, choices, log });
      prepare = () => brain.prepare();
      return brain;
    },
    microphone: (onSamples) => new Microphone(children, systemClock, log, onSamples),
  });
  let isEnding = false;
  const end = async (): Promise<void> => {
    if (isEnding) return;
    isEnding = true;
    engine.quiet();
    await children.endAll();
    engine.close();
    process.exit(0);
  };
  process.on("SIGTERM", () => void end());
  process.on("SIGINT", () => void end());
  try {
    serve(engine, port, log);
  } catch (error) {
    if (!(error instanceof PortTaken)) throw error;
    engine.close();
    if (!(await isTaken(port))) failures.tell(`a porta ${port} estava ocupada`);
    process.exit(1);
  }
  systemClock.after(0, () => prepareSentences(locale.language));
  void prepare().then(() => engine.changed());
  const isAgain = failures.isAgain;
  systemClock.after(settledAfterMs, () => failures.settle());
  if (isAgain) return;
  log(`servindo em http://127.0.0.1:${port}`);
  log("  documentos: GET state, history, options; eventos: GET events; áudio: WebSocket /audio");
  log("  comandos: POST listen, stop, mute, new, sample, say, act, draft/clear, settings");
  if (choices.voices().length === 0) log("não há voz instalada (espeak-ng, flite ou RHVoice); respondo por escrito");
}

function speechDetectorFor(children: Children): { speechDetector?: Listener } {
  const { runtime, speechDetector: model } = shipped;
  if (runtime && model) return { speechDetector: new Listener(children, systemClock, log, { runtime, model }) };
  log("o detector de fala não está instalado; tomo por fala o que soa alto");
  return {};
}

/** The processors that had nothing to do in the last minute. */
function spareCores(): number {
  return availableParallelism() - (loadavg()[0] ?? 0);
}

/** Tells whether somebody holds the port; if so, logs who does and sets the exit code. */
async function isTaken(port: number): Promise<boolean> {
  let probe: { stop(): void };
  try {
    probe = Bun.listen({ hostname: "127.0.0.1", port, socket: { data() {} } });
    probe.stop();
    return false;
  } catch {
    process.exitCode = 1;
  }
  const holder = await fetch(`http://127.0.0.1:${port}/state`, { signal: AbortSignal.timeout(portCheckMs) })
    .then((answer) => answer.json())
    .catch(() => undefined);
  const isEngine = isRecord(holder) && typeof holder.state === "string" && isRecord(holder.conversation);
  failures.tell(isEngine ? `outro motor já serve na porta ${port}` : `a porta ${port} está ocupada por outro programa`);
  return true;
}

/** Logs one line only: the engine is started again two seconds later, and may fail again. */
function fail(error: unknown): never {
  const [what = "", where = ""] = (error instanceof Error ? (error.stack ?? error.message) : String(error)).split("\n");
  failures.tell(`parei: ${what.trim()} ${where.trim()}`.trim());
  process.exit(1);
}

process.on("uncaughtException", fail);
process.on("unhandledRejection", fail);
await main().catch(fail);
