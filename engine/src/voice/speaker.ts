// The agent's voice: takes sentences in order, has each made into a clip, hands the clips to the front end, and knows
// which one is being heard. A sentence without a clip (no front end, no synthesiser) is shown as long as it takes to read.

import type { Clock } from "../base/clock.ts";
import type { Settings } from "../base/protocol.ts";
import { LevelMeter } from "../sound/levelMeter.ts";
import { envelopeStepMs, withoutLead, type Clip } from "../sound/wav.ts";
import type { Synthesiser } from "./synthesiser.ts";

export interface SpeakerOutput {
  /** Somebody is there to play clips. */
  readonly isConnected: boolean;
  play(id: number, clip: Clip): void;
  silence(): void;
}

export interface SpeakerEvents {
  /** This sentence begins to be heard, or to be shown. */
  started(sentence: string): void;
  level(level: number): void;
  /** The agent's own voice begins to sound, or has ended. */
  sounding(isSounding: boolean): void;
}

interface Line {
  id: number;
  sentence: string;
  clip?: Clip;
  state: "waiting" | "making" | "made" | "sent";
}

/** At most this many sentences are made into clips and sent before they are heard. */
const mostAhead = 3;
/** A clip is given up when it is not reported this long after it should have ended. */
const reportGraceMs = 4_000;

export class Speaker {
  #lines: Line[] = [];
  #nextId = firstId();
  #cancelTimer = (): void => {};
  #cancelLevel = (): void => {};
  #startedAt = 0;
  #started: Line | undefined;
  #isSounding = false;
  #abort = new AbortController();
  #idle: (() => void)[] = [];
  readonly #meter: LevelMeter;

  constructor(
    private readonly clock: Clock,
    private readonly synthesiser: Synthesiser,
    private readonly output: SpeakerOutput,
    private readonly settings: () => Settings,
    private readonly events: SpeakerEvents,
  ) {
    this.#meter = new LevelMeter(clock, (level) => events.level(level));
  }

  /** Something is still to be heard. */
  get isBusy(): boolean {
    return this.#lines.length > 0;
  }

  say(sentence: string): void {
    this.#lines.push({ id: this.#nextId++, sentence, state: "waiting" });
    this.#advance();
  }

  /** Resolves when all that was said has been heard, or was stopped. */
  async finished(): Promise<void> {
    if (this.#lines.length === 0) return;
    await new Promise<void>((resolve) => this.#idle.push(resolve));
  }

  /** Falls silent at once. */
  stop(): void {
    this.#abort.abort();
    this.#abort = new AbortController();
    if (this.#lines.some((line) => line.state === "sent" && line.clip)) this.output.silence();
    this.#lines = [];
    this.#settle();
  }

  /** The front end has played this clip, or has given it up. Ids of other clips are ignored. */
  played(id: number): void {
    const line = this.#lines.find((candidate) => candidate.id === id && candidate.state === "sent");
    if (line) this.#end(line);
  }

  /** The front end is gone: the clips that it was to play are dropped. */
  disconnected(): void {
    this.#lines = this.#lines.filter((line) => line.state !== "sent");
    this.#settle();
  }

  #end(line: Line): void {
    this.#lines = this.#lines.filter((candidate) => candidate !== line);
    this.#settle();
  }

  #settle(): void {
    if (this.#started && !this.#lines.includes(this.#started)) {
      this.#started = undefined;
      this.#cancelTimer();
      this.#cancelLevel();
    }
    this.#advance();
    if (this.#started === undefined || this.#started.clip === undefined) {
      this.#meter.clear();
      this.#sound(false);
    }
    if (this.#lines.length > 0) return;
    const waiting = this.#idle;
    this.#idle = [];
    for (const resolve of waiting) resolve();
  }

  #advance(): void {
    const ahead = this.#lines.slice(0, mostAhead);
    if (!ahead.some((line) => line.state === "making")) {
      const next = ahead.find((line) => line.state === "waiting");
      if (next) void this.#make(next);
    }
    for (const line of ahead) {
      if (line.state === "sent") continue;
      if (line.state !== "made") break;
      // A line that is only shown must neither overtake one that sounds, nor be overtaken by it.
      const isPlayed = line.clip !== undefined && this.output.isConnected;
      if (!isPlayed && line !== this.#lines[0]) break;
      if (isPlayed && this.#lines[0]?.state === "sent" && this.#lines[0].clip === undefined) break;
      if (!isPlayed) delete line.clip;
      line.state = "sent";
      if (line.clip) this.output.play(line.id, line.clip);
    }
    const first = this.#lines[0];
    if (first && first.state === "sent" && this.#started !== first) this.#start(first);
  }

  async #make(line: Line): Promise<void> {
    line.state = "making";
    // Before the others the silence is the pause between two sentences.
    const isAwaited = line === this.#lines[0];
    const signal = this.#abort.signal;
    const clip = this.output.isConnected
      ? await this.synthesiser.speak(line.sentence, this.settings(), signal).catch(() => undefined)
      : undefined;
    if (signal.aborted) return;
    if (clip) line.clip = isAwaited ? withoutLead(clip) : clip;
    line.state = "made";
    this.#advance();
  }

  #start(line: Line): void {
    this.#started = line;
    this.#startedAt = this.clock.now();
    const length = line.clip ? line.clip.durationMs + reportGraceMs : readingTime(line.sentence);
    this.#cancelTimer = this.clock.after(length, () => this.#end(line));
    if (line.clip) {
      this.#sound(true);
      this.#followLevel(line.clip);
    }
    this.events.started(line.sentence);
  }

  #followLevel(clip: Clip): void {
    this.#meter.show(clip.envelope[Math.floor((this.clock.now() - this.#startedAt) / envelopeStepMs)] ?? 0);
    if (this.clock.now() - this.#startedAt > clip.durationMs) return;
    this.#cancelLevel = this.clock.after(envelopeStepMs, () => this.#followLevel(clip));
  }

  #sound(isSounding: boolean): void {
    if (this.#isSounding === isSounding) return;
    this.#isSounding = isSounding;
    this.events.sounding(isSounding);
  }
}

/**
 * The front end goes on playing clips of an engine that has ended, and reports their ends to the next engine: two engines
 * must not count in the same place. The id is an integer of 48 bits, which every reader of JSON holds exactly.
 */
function firstId(): number {
  const [random = 0] = crypto.getRandomValues(new Uint32Array(1));
  return random * 2 ** 16;
}

function readingTime(sentence: string): number {
  return Math.min(8_000, Math.max(1_200, 60 * sentence.length));
}
