// Turns the microphone's samples into words: detects utterances, has them recognised one after another, and knows when
// the agent's own voice must not be listened to.

import type { Clock } from "../base/clock.ts";
import type { Log } from "../base/log.ts";
import { sampleRate, type Settings } from "../base/protocol.ts";
import type { Recogniser } from "../recognition/recogniser.ts";
import { LevelMeter } from "../sound/levelMeter.ts";
import { levelOf } from "../sound/loudness.ts";
import { Captions } from "./captions.ts";
import { Hearing, type Utterance } from "./hearing.ts";
import type { SpeechDetector } from "./speechDetector.ts";
import { Transcriber } from "./transcriber.ts";

export interface HeardSpeech {
  text: string;
  isUnderstood: boolean;
  hasRecogniser: boolean;
  endedAt: number;
  transcribeMs: number;
  overlapsSpeech: boolean;
  isSurelySomebody: boolean;
  /** The utterance silenced the agent. */
  hasInterrupted: boolean;
  /** The agent was listening without need of its name when the utterance began. */
  isWindowOpen: boolean;
}

export interface EarsPorts {
  clock: Clock;
  recogniser: Recogniser;
  /** Without it, whatever is loud enough is taken for speech. */
  speechDetector?: SpeechDetector;
  settings: () => Settings;
  /** The machine has time to show words while they are spoken, and is to do so. */
  isCaptioning: () => boolean;
  log: Log;
  level(level: number): void;
}

export interface EarsEvents {
  began(overlapsSpeech: boolean): void;
  heard(speech: HeardSpeech): void;
  /** The words of somebody who still speaks, as far as they are known. */
  captioned(text: string): void;
  changed(): void;
  context(): { isWindowOpen: boolean; isMuted: boolean };
}

/** A connected microphone that gives nothing for this long is dead. */
const deadAfterMs = 5_000;
/** Utterances that may wait for the recogniser; more are dropped. */
const mostWaiting = 4;
/** The meter stays at zero for levels less than this above the noise, dB. */
const meterMargin = 6;

export class Ears {
  /** The utterance that is being heard has silenced the agent. */
  hasInterrupted = false;

  readonly #hearing: Hearing;
  readonly #meter: LevelMeter;
  readonly #transcriber: Transcriber;
  readonly #captions: Captions;
  #isWindowOpen = false;
  #overlaps = false;
  #isSounding = false;
  /** The samples to come that may still hold the agent's own voice. */
  #guarded = 0;
  #isConnected = false;
  #isMicDead = false;
  #samplesAt = 0;
  #cancelDeadCheck = (): void => {};

  constructor(
    private readonly ports: EarsPorts,
    private readonly events: EarsEvents,
  ) {
    this.#meter = new LevelMeter(ports.clock, (level) => ports.level(level));
    this.#transcriber = new Transcriber(ports.recogniser);
    const glimpse = async (): Promise<string | undefined> => {
      const samples = this.#hearing.soFar;
      return samples && (await this.#transcriber.glimpse(samples));
    };
    this.#captions = new Captions(ports.clock, glimpse, (text) => events.captioned(text));
    const heard = {
      began: (overlapsSpeech: boolean) => this.#begin(overlapsSpeech),
      paused: (samples: Int16Array) => {
        this.#captions.stop();
        this.#transcriber.begin(samples);
      },
      resumed: () => {
        this.#transcriber.drop();
        this.#caption();
      },
      ended: (utterance: Utterance) => void this.#recognise(utterance),
      dropped: () => {
        this.#hush();
        events.changed();
      },
    };
    this.#hearing = new Hearing(heard, ports.speechDetector);
    this.settingsChanged();
  }

  /** Somebody is speaking, or what was said is being recognised. */
  get isBusy(): boolean {
    return this.#hearing.isHearing || this.#transcriber.waiting > 0;
  }

  /** The microphone is connected, but gives no samples. */
  get isMicDead(): boolean {
    return this.#isMicDead;
  }

  take(samples: Int16Array): void {
    this.#samplesAt = this.ports.clock.now();
    if (this.#isMicDead) {
      this.#isMicDead = false;
      this.events.changed();
    }
    if (this.#guarded > 0 && (this.#guarded -= samples.length) <= 0) this.#hearing.isOwnVoice = this.#isSounding;
    if (this.events.context().isMuted) return this.#meter.clear();
    // The agent's voice cannot be told from another without echo cancellation.
    if (this.#hearing.isOwnVoice && !this.ports.settings().isEchoCancelOn) return this.forget();
    const level = this.#hearing.take(samples);
    if (level === undefined) return;
    this.#meter.show(level < this.#hearing.noise + meterMargin ? 0 : levelOf(level));
  }

  /** Takes note that the agent's own voice begins to sound, or has ended and echoes for a while. */
  ownVoice(isSounding: boolean): void {
    this.#isSounding = isSounding;
    if (isSounding) {
      this.#guarded = 0;
      this.#hearing.isOwnVoice = true;
    } else {
      this.guard(this.ports.settings().echoGuardMs);
    }
  }

  /** Hears nothing but what stands out above the agent's own voice, for this time of the sound that is to come. */
  guard(ms: number): void {
    this.#guarded = (ms * sampleRate) / 1_000;
    this.#hearing.isOwnVoice = this.#isSounding || ms > 0;
  }

  /** Drops the utterance that is being heard. The ones that are already being recognised are still told. */
  forget(): void {
    this.#hearing.reset();
    this.#hush();
    this.#meter.clear();
  }

  /** Drops the utterance that is being heard and those that are being recognised. */
  abandon(): void {
    this.forget();
    this.#transcriber.abandon();
  }

  /** Forgets what was learned of the echo: the microphone or the loudspeaker is another. */
  deviceChanged(): void {
    this.#hearing.detector.forget();
  }

  /** Takes note that a microphone is there, or that there is none. */
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

  #begin(overlapsSpeech: boolean): void {
    this.hasInterrupted = false;
    this.#overlaps = overlapsSpeech;
    this.#isWindowOpen = this.events.context().isWindowOpen;
    this.#transcriber.prepare();
    this.#caption();
    this.events.began(overlapsSpeech);
  }

  #caption(): void {
    // What overlaps the agent's voice may be that voice.
    if (!this.#overlaps && this.ports.isCaptioning()) this.#captions.start();
  }

  /** Nothing of the utterance that was being heard is to be recognised any more. */
  #hush(): void {
    this.#captions.stop();
    this.#transcriber.drop();
  }

  async #recognise(utterance: Utterance): Promise<void> {
    const { clock, log } = this.ports;
    const endedAt = clock.now();
    const hasInterrupted = this.hasInterrupted;
    const isWindowOpen = this.#isWindowOpen;
    this.hasInterrupted = false;
    this.#captions.stop();
    if (this.#transcriber.waiting >= mostWaiting) {
      log("o reconhecedor não acompanha; uma fala foi deixada de lado");
      this.#hush();
      return this.events.changed();
    }
    const telling = this.#transcriber.finish(utterance.samples, (found) => {
      if (found.kind === "failed") log(`não reconheci uma fala (${found.problem})`);
      const isUnderstood = found.kind === "text" && found.isUnderstood;
      this.events.heard({
        // Words that were not understood would mislead if they were shown.
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
    });
    this.events.changed();
    await telling;
    this.events.changed();
  }
}
