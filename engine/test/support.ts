// What the tests share: a clock that they move, fakes of the engine's ports, and an engine made of them.

import { mkdtempSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { createServer } from "node:net";
import { tmpdir } from "node:os";
import { join } from "node:path";
import type { Clock } from "../src/base/clock.ts";
import { chooseLocale } from "../src/base/language.ts";
import type { Settings } from "../src/base/protocol.ts";
import { Engine } from "../src/engine.ts";
import { Microphone } from "../src/hearing/microphone.ts";
import { Children } from "../src/machine/children.ts";
import { Choices } from "../src/machine/choices.ts";
import type { LinkSocket } from "../src/port/audioLink.ts";
import type { Recogniser, Recognition } from "../src/recognition/recogniser.ts";
import { readClip, writeWav, type Clip } from "../src/sound/wav.ts";
import type { Answering, Brain, Request } from "../src/thought/brain.ts";
import { builtInAnswer } from "../src/thought/builtInAnswers.ts";
import type { Synthesiser } from "../src/voice/synthesiser.ts";

export class ManualClock implements Clock {
  time = new Date(2026, 0, 5, 15, 20).getTime();
  #timers: { at: number; work: () => void }[] = [];

  now(): number {
    return this.time;
  }

  after(ms: number, work: () => void): () => void {
    const timer = { at: this.time + ms, work };
    this.#timers.push(timer);
    return () => (this.#timers = this.#timers.filter((other) => other !== timer));
  }

  get pending(): number {
    return this.#timers.length;
  }

  /** Moves on, running what falls due in its order, and lets what was waiting go on. */
  async advance(ms: number): Promise<void> {
    const end = this.time + ms;
    await settle();
    for (;;) {
      const next = this.#timers.filter(({ at }) => at <= end).sort((a, b) => a.at - b.at)[0];
      if (!next) break;
      this.time = Math.max(this.time, next.at);
      this.#timers = this.#timers.filter((timer) => timer !== next);
      next.work();
      await settle();
    }
    this.time = end;
  }
}

/** Lets every promise that is already fulfilled be followed. */
export async function settle(): Promise<void> {
  for (let turn = 0; turn < 30; turn++) await Promise.resolve();
}

const folders: string[] = [];

export function temporaryFolder(): string {
  const folder = mkdtempSync(join(tmpdir(), "palomet-engine-"));
  folders.push(folder);
  return folder;
}

/** What clear.ts does at the end. */
export function removeTemporaryFolders(): void {
  for (const folder of folders.splice(0)) rmSync(folder, { recursive: true, force: true });
}

/** An executable shell script of this name, alone in a folder; gives the folder. */
export function program(name: string, script: string, folder = temporaryFolder()): string {
  writeFileSync(join(folder, name), `#!/bin/sh\n${script}\n`, { mode: 0o755 });
  return folder;
}

export async function freePort(): Promise<number> {
  const server = createServer();
  await new Promise<void>((resolve) => server.listen(0, "127.0.0.1", resolve));
  const address = server.address();
  await new Promise((resolve) => server.close(resolve));
  return typeof address === "object" && address !== null ? address.port : 0;
}

/** Resolves when an engine serves there. */
export async function serving(port: number): Promise<void> {
  for (;;) {
    const answer = await fetch(`http://127.0.0.1:${port}/state`).catch(() => undefined);
    if (answer?.ok) return;
    await Bun.sleep(5);
  }
}

/** Whether it still runs; one that has ended may stand in the process table until somebody collects it. */
export function isAlive(pid: number): boolean {
  try {
    return !/^\d+ \(.*\) [ZX]/.test(readFileSync(`/proc/${pid}/stat`, "utf8"));
  } catch {
    return false;
  }
}

export function clipOf(durationMs: number): Clip {
  const samples = new Int16Array((16_000 * durationMs) / 1000).fill(8_000);
  const clip = readClip(writeWav(samples, 16_000));
  if (!clip) throw new Error("not a clip");
  return clip;
}

export class FakeSynthesiser implements Synthesiser {
  spoken: string[] = [];
  clip: Clip | undefined = clipOf(1_000);

  async speak(sentence: string): Promise<Clip | undefined> {
    this.spoken.push(sentence);
    return this.clip;
  }
}

/** Gives what it is told to, an utterance after the other; at once, or when it is told to. */
export class FakeRecogniser implements Recogniser {
  answers: Recognition[] = [];
  heard: Int16Array[] = [];
  isSlow = false;
  #release: (() => void)[] = [];

  async recognise(samples: Int16Array): Promise<Recognition> {
    this.heard.push(samples);
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

/** Answers at once, or when it is told to. */
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

export function bench(folder = temporaryFolder(), clock = new ManualClock(), path = ""): Bench {
  const children = new Children({ PATH: path });
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
    choices: new Choices(children, locale),
    synthesiser,
    recogniser: (_settings: () => Settings) => recogniser,
    brain,
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

/** Lets the microphone hear a tone of this level for so long; by default, the noise of a quiet room. */
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

/** A sine of 200 Hz whose root mean square is at this level. */
export function tone(ms: number, dbfs: number): Int16Array {
  const peak = 32_768 * Math.SQRT2 * 10 ** (dbfs / 20);
  return Int16Array.from({ length: (16_000 * ms) / 1000 }, (_, index) =>
    Math.round(peak * Math.sin((2 * Math.PI * 200 * index) / 16_000)),
  );
}
