// Entry point: `bun src/main.ts` in this folder. Runs until SIGTERM or SIGINT.

import { homedir } from "node:os";
import { join } from "node:path";
import { BuiltInBrain } from "./brain.ts";
import { Children } from "./children.ts";
import { Choices } from "./choices.ts";
import { systemClock } from "./clock.ts";
import { Engine } from "./engine.ts";
import { chooseLocale } from "./language.ts";
import { standardErrorLog as log } from "./log.ts";
import { defaultPort, isRecord } from "./protocol.ts";
import { PortTaken, serve } from "./server.ts";
import { EspeakSynthesiser } from "./synthesiser.ts";

const portCheckMs = 1_000;

async function main(): Promise<void> {
  const environment = { ...process.env };
  const children = new Children(environment);
  const locale = chooseLocale(environment);
  const port = Number(environment.PALOMET_PORT ?? defaultPort);
  const stateHome = environment.XDG_STATE_HOME || join(environment.HOME ?? homedir(), ".local/state");

  // Before anything is opened: a second engine must not touch the first one's data.
  if (await isTaken(port)) return;

  const engine = new Engine({
    clock: systemClock,
    log,
    locale,
    folder: join(stateHome, "palomet"),
    choices: new Choices(children, locale),
    synthesiser: new EspeakSynthesiser(children, log),
    recogniser: () => ({ recognise: async () => ({ kind: "none" }) }),
    brain: new BuiltInBrain(systemClock, locale),
  });
  const end = (): void => {
    children.killAll();
    engine.close();
    process.exit(0);
  };
  process.on("SIGTERM", end);
  process.on("SIGINT", end);
  try {
    serve(engine, port);
  } catch (error) {
    if (!(error instanceof PortTaken)) throw error;
    engine.close();
    if (!(await isTaken(port))) log(`a porta ${port} estava ocupada`);
    process.exit(1);
  }
  log(`servindo em http://127.0.0.1:${port}`);
  log("  documentos: GET state, history, options; eventos: GET events; áudio: WebSocket /audio");
  log("  comandos: POST listen, stop, mute, new, sample, say, act, draft/clear, settings");
  if (!children.find("espeak-ng")) log("o espeak-ng não está instalado; respondo por escrito");
}

/** Says who holds the port, if somebody does, and sets the exit code. */
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
  log(isEngine ? `outro motor já serve na porta ${port}` : `a porta ${port} está ocupada por outro programa`);
  return true;
}

await main();
