// From the microphone's samples to what was said: detects utterances, has them recognised one after another, and
// knows when the agent's own voice must not be listened to.

import type { Clock } from "../base/clock.ts";
import type { Log } from "../base/log.ts";
import type { Settings } from "../base/protocol.ts";
import type { Recogniser } from "../recognition/recogniser.ts";
import { LevelMeter } from "../sound/levelMeter.ts";
import { levelOf } from "../sound/loudness.ts";
import { Hearing, type Utterance } from "./hearing.ts";

export interface HeardSpeech {
  text: string;
  isUnderstood: boolean;
  hasRecogniser: boolean;
  endedAt: number;
  transcribeMs: number;
  overlapsSpeech: boolean;
  isSurelySomebody: boolean;
  /** It silenced the agent. */
  hasInterrupted: boolean;
  /** The agent was listening, without need of its name, when it began. */
  isWindowOpen: boolean;
}

export interface EarsPorts {
  clock: Clock;
  recogniser: Recogniser;
  settings: () => Settings;
  log: Log;
  level(level: number): void;
}

export interface EarsEvents {
  began(overlapsSpeech: boolean): void;
  heard(speech: HeardSpeech): void;
  changed(): void;
  context(): { isWindowOpen: boolean; isMuted: boolean };
}

/** A connected microphone that gives nothing for this long is dead. */
const deadAfterMs = 5_000;
/** Utterances that wait for the recogniser; what comes on top is let go. */
const mostWaiting = 4;
/** A meter stays at rest while nothing rises this far above the noise, dB. */
const meterMargin = 6;

export class Ears {
  /** What is being heard has silenced the agent. */
  hasInterrupted = false;

  readonly #hearing: Hearing;
  readonly #meter: LevelMeter;
  #isWindowOpen = false;
  #waiting = 0;
  #queue: Promise<void> = Promise.resolve();
  #abort = new AbortController();
  #isSounding = false;
  #cancelGuard = (): void => {};
  #isConnected = false;
  #isMicDead = false;
  #samplesAt = 0;
  #cancelDeadCheck = (): void => {};

  constructor(
    private readonly ports: EarsPorts,
    private readonly events: EarsEvents,
  ) {
    this.#meter = new LevelMeter(ports.clock, (level) => ports.level(level));
    this.#hearing = new Hearing({
      began: (overlapsSpeech) => {
        this.hasInterrupted = false;
        this.#isWindowOpen = events.context().isWindowOpen;
        events.began(overlapsSpeech);
      },
      ended: (utterance) => this.#recognise(utterance),
      dropped: () => events.changed(),
    });
    this.settingsChanged();
  }

  /** Somebody is speaking, or what was said is being recognised. */
  get isBusy(): boolean {
    return this.#hearing.isHearing || this.#waiting > 0;
  }

  /** There is a microphone that gives no sound at all. */
  get isMicDead(): boolean {
    return this.#isMicDead;
  }

  take(samples: Int16Array): void {
    this.#samplesAt = this.ports.clock.now();
    if (this.#isMicDead) {
      this.#isMicDead = false;
      this.events.changed();
    }
    if (this.events.context().isMuted) return this.#meter.clear();
    // Without echo cancellation there is no telling the agent's voice from another.
    if (this.#hearing.isOwnVoice && !this.ports.settings().isEchoCancelOn) return this.forget();
    const level = this.#hearing.take(samples);
    if (level === undefined) return;
    this.#meter.show(level < this.#hearing.noise + meterMargin ? 0 : levelOf(level));
  }

  /** The agent's own voice begins to sound, or has ended: it echoes for a while. */
  ownVoice(isSounding: boolean): void {
    this.#isSounding = isSounding;
    if (isSounding) {
      this.#cancelGuard();
      this.#hearing.isOwnVoice = true;
    } else {
      this.guard(this.ports.settings().echoGuardMs);
    }
  }

  /** For so long, only what stands out is heard. */
  guard(ms: number): void {
    this.#cancelGuard();
    this.#hearing.isOwnVoice = this.#isSounding || ms > 0;
    if (ms > 0) this.#cancelGuard = this.ports.clock.after(ms, () => (this.#hearing.isOwnVoice = this.#isSounding));
  }

  /** Lets go of what is being heard; what is already being recognised is still told. */
  forget(): void {
    this.#hearing.reset();
    this.#meter.clear();
  }

  /** Lets go of what is being heard and of what is being recognised. */
  abandon(): void {
    this.forget();
    this.#abort.abort();
    this.#abort = new AbortController();
  }

  /** Another microphone or loudspeaker: what was learned of its echo no longer holds. */
  deviceChanged(): void {
    this.#hearing.detector.forget();
  }

  /** A microphone is there, or there is none. */
  connect(isConnected: boolean): void {
    this.#isConnected = isConnected;
    this.#isMicDead = false;
    this.#samplesAt = this.ports.clock.now();
    this.#cancelDeadCheck();
    if (isConnected) this.#checkForLife();
    else this.forget();
    this.events.changed();
  }

  settingsChanged(): void {
    this.#hearing.endSilenceMs = this.ports.settings().endSilenceMs;
  }

  #checkForLife(): void {
    this.#cancelDeadCheck = this.ports.clock.after(deadAfterMs, () => {
      const isDead = this.#isConnected && this.ports.clock.now() - this.#samplesAt >= deadAfterMs;
      if (isDead && !this.#isMicDead) {
        this.#isMicDead = true;
        this.forget();
        this.events.changed();
      }
      this.#checkForLife();
    });
  }

  #recognise(utterance: Utterance): void {
    const { clock, log, recogniser } = this.ports;
    const endedAt = clock.now();
    const hasInterrupted = this.hasInterrupted;
    const isWindowOpen = this.#isWindowOpen;
    this.hasInterrupted = false;
    if (this.#waiting >= mostWaiting) {
      log("o reconhecedor não acompanha; uma fala foi deixada de lado");
      return this.events.changed();
    }
    const { signal } = this.#abort;
    this.#waiting++;
    this.#queue = this.#queue.then(async () => {
      const found = await recogniser.recognise(utterance.samples, signal);
      if (found.kind === "failed") log(`não reconheci uma fala (${found.problem})`);
      if (!signal.aborted) {
        const isUnderstood = found.kind === "text" && found.isUnderstood;
        this.events.heard({
          // What was not understood would mislead if it were shown as words.
          text: isUnderstood ? found.text : "…",
          isUnderstood,
          hasRecogniser: found.kind !== "none",
          endedAt,
          transcribeMs: clock.now() - endedAt,
          overlapsSpeech: utterance.overlapsSpeech,
          isSurelySomebody: utterance.isSurelySomebody,
          hasInterrupted,
          isWindowOpen,
        });
      }
      this.#waiting--;
      this.events.changed();
    });
    this.events.changed();
  }
}
