// An engine made of fakes, and a front end that is connected to it.

import { chooseLocale } from "../../src/base/language.ts";
import type { Settings } from "../../src/base/protocol.ts";
import { Engine } from "../../src/engine.ts";
import type { Hand } from "../../src/hands/hand.ts";
import { Microphone } from "../../src/hearing/microphone.ts";
import type { SpeechDetector } from "../../src/hearing/speechDetector.ts";
import { Children } from "../../src/machine/children.ts";
import { Choices } from "../../src/machine/choices.ts";
import type { ModelServers } from "../../src/machine/modelServers.ts";
import { findShipped } from "../../src/machine/shipped.ts";
import type { Brain } from "../../src/thought/answer.ts";
import { ManualClock, settle } from "./clock.ts";
import { FakeBrain, FakeRecogniser, FakeSocket, FakeSynthesiser } from "./fakes.ts";
import { temporaryFolder } from "./folders.ts";
import { tone } from "./sounds.ts";

export interface BenchOptions {
  speechDetector?: SpeechDetector;
  isCaptioning?: boolean;
  /** In the place of the fake brain. */
  brain?: (hands: readonly Hand[], clock: ManualClock) => Brain;
  servers?: ModelServers;
  /** Of the programs that the engine runs; its `PATH` is given apart. */
  environment?: Record<string, string>;
}

export interface Bench {
  engine: Engine;
  clock: ManualClock;
  recogniser: FakeRecogniser;
  synthesiser: FakeSynthesiser;
  brain: FakeBrain;
  folder: string;
  log: string[];
  /** Event names and data as they were sent. */
  events: [string, string][];
  phases(): string[];
}

export function bench(folder = temporaryFolder(), clock = new ManualClock(), path = "", options: BenchOptions = {}): Bench {
  const children = new Children({ HOME: folder, ...options.environment, PATH: path });
  const locale = chooseLocale({ PALOMET_LANGUAGES: "en-US" });
  const recogniser = new FakeRecogniser();
  const synthesiser = new FakeSynthesiser();
  const brain = new FakeBrain(clock);
  const log: string[] = [];
  const events: [string, string][] = [];
  const engine = new Engine({
    clock,
    log: (line) => log.push(line),
    locale,
    folder,
    choices: new Choices(children, locale, findShipped([]), options.servers),
    synthesiser,
    recogniser: (_settings: () => Settings) => recogniser,
    ...(options.speechDetector ? { speechDetector: options.speechDetector } : {}),
    isCaptioning: () => options.isCaptioning ?? false,
    brain: (hands) => options.brain?.(hands, clock) ?? brain,
    microphone: (onSamples) => new Microphone(children, clock, () => {}, onSamples),
  });
  const send = engine.events.send.bind(engine.events);
  engine.events.send = (name, data) => {
    events.push([name, data]);
    send(name, data);
  };
  const phases = (): string[] => events.filter(([name]) => name === "phase").map(([, data]) => data);
  return { engine, clock, recogniser, synthesiser, brain, folder, log, events, phases };
}

/** Connects a front end that has told its microphone. */
export function connect({ engine }: Bench, device = "Desk microphone"): FakeSocket {
  const socket = new FakeSocket();
  engine.link.opened(socket);
  engine.link.text(socket, JSON.stringify({ type: "hello", device }));
  return socket;
}

const chunk = 341;

/** Lets the microphone hear a tone of this level for so long, by default as soft as the noise of a quiet room. */
export async function hear(bench: Bench, socket: FakeSocket, ms: number, dbfs = -75): Promise<void> {
  const samples = tone(ms, dbfs);
  for (let at = 0; at < samples.length; at += chunk) {
    const part = samples.slice(at, at + chunk);
    bench.engine.link.audio(socket, new Uint8Array(part.buffer));
    await bench.clock.advance((part.length * 1000) / 16_000);
  }
}

/** Somebody makes a sound for as long as a few words take, and is silent again. */
export async function utter(bench: Bench, socket: FakeSocket, dbfs = -22): Promise<void> {
  await hear(bench, socket, 600, dbfs);
  await hear(bench, socket, 1_000);
}

/** Says something that the recogniser will understand as this text. */
export async function speak(bench: Bench, socket: FakeSocket, text: string, dbfs = -22): Promise<void> {
  bench.recogniser.will(text);
  await utter(bench, socket, dbfs);
  await settle();
}
