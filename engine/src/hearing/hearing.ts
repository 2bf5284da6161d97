// Detects speech by its energy, and cuts the microphone's stream into utterances. This is pure computation on 10 ms
// frames; the number of samples is its only clock.

import { sampleRate } from "../base/protocol.ts";
import { decibels } from "../sound/loudness.ts";
import { InterruptionDetector } from "./interruptionDetector.ts";

const frameMs = 10;
const frameLength = (sampleRate * frameMs) / 1000;

/** The noise is never taken to be lower than this, dBFS: no microphone is quieter. */
const leastNoise = -72;
/** Speech is louder than this, dBFS. */
const leastSpeech = -52;
/** Speech stands this far above the noise to begin, and this far to go on, dB. */
const onsetMargin = 12;
const continueMargin = 8;
/** An utterance begins when `onsetFrames` of the last `onsetWindow` frames are loud. */
const onsetWindow = 12;
const onsetFrames = 8;
const preRollFrames = 35;
const shortestVoicedFrames = 12;
/** The agent has fallen silent this long after it was told to stop. Later sound is not its own if it lasts long enough. */
const silencedFrames = 20;
const goesOnFrames = 10;
const longestFrames = 30_000 / frameMs;
/** The noise is the softest tenth of a second of the last five seconds. */
const noiseBlockFrames = 10;
const noiseBlocks = 50;

export interface Utterance {
  samples: Int16Array;
  /** The utterance began while the agent's own voice was sounding or had just ended. */
  overlapsSpeech: boolean;
  /** The utterance was not over the agent's own voice, or went on when that had fallen silent. */
  isSurelySomebody: boolean;
  durationMs: number;
}

export interface HearingEvents {
  /** Somebody began to speak. */
  began(overlapsSpeech: boolean): void;
  ended(utterance: Utterance): void;
  /** The sound that had begun was too short to be speech. */
  dropped(): void;
}

export class Hearing {
  endSilenceMs = 800;
  /** The agent's own voice sounds or echoes: only what the detector takes for somebody else is heard. */
  isOwnVoice = false;

  readonly detector = new InterruptionDetector();

  #rest = new Int16Array(0);
  #recent: Int16Array[] = [];
  #loud: boolean[] = [];
  #frames: Int16Array[] | undefined;
  #voiced = 0;
  #silent = 0;
  #overlaps = false;
  #followed = 0;
  #goneOn = 0;
  #offset = 0;
  #block: number[] = [];
  #minima: number[] = [];

  constructor(private readonly events: HearingEvents) {}

  /** The noise of the room, dBFS. */
  get noise(): number {
    return Math.max(leastNoise, this.#minima.length === 0 ? leastNoise : Math.min(...this.#minima));
  }

  get isHearing(): boolean {
    return this.#frames !== undefined;
  }

  /** Takes samples as they come. Gives the level of their loudest frame, dBFS, or undefined when no frame was complete. */
  take(samples: Int16Array): number | undefined {
    const joined = new Int16Array(this.#rest.length + samples.length);
    joined.set(this.#rest);
    joined.set(samples, this.#rest.length);
    let loudest: number | undefined;
    let at = 0;
    for (; at + frameLength <= joined.length; at += frameLength) {
      const level = this.#takeFrame(joined.subarray(at, at + frameLength));
      if (loudest === undefined || level > loudest) loudest = level;
    }
    this.#rest = joined.slice(at);
    return loudest;
  }

  /** Forgets the utterance that is being heard, without an event. The noise stays known. */
  reset(): void {
    this.#frames = undefined;
    this.#loud = [];
    this.#recent = [];
    this.#rest = new Int16Array(0);
    this.detector.rest();
  }

  #takeFrame(frame: Int16Array): number {
    const level = this.#measure(frame);
    this.#learnNoise(level);
    if (this.#frames === undefined) this.#awaitOnset(frame, level);
    else this.#follow(this.#frames, frame, level);
    return level;
  }

  #awaitOnset(frame: Int16Array, level: number): void {
    this.#recent.push(frame);
    if (this.#recent.length > preRollFrames) this.#recent.shift();
    let begins: boolean;
    if (this.isOwnVoice) {
      this.#loud = [];
      begins = this.detector.take(level, this.noise);
    } else {
      this.detector.rest();
      this.#loud.push(level > Math.max(leastSpeech, this.noise + onsetMargin));
      if (this.#loud.length > onsetWindow) this.#loud.shift();
      begins = this.#loud.filter(Boolean).length >= onsetFrames;
    }
    if (!begins) return;
    this.#frames = this.#recent;
    this.#recent = [];
    this.#loud = [];
    this.#voiced = onsetFrames;
    this.#silent = 0;
    this.#followed = 0;
    this.#goneOn = 0;
    this.#overlaps = this.isOwnVoice;
    this.events.began(this.#overlaps);
  }

  #follow(frames: Int16Array[], frame: Int16Array, level: number): void {
    frames.push(frame);
    this.#followed++;
    if (level > Math.max(leastSpeech, this.noise + continueMargin)) {
      this.#voiced++;
      if (this.#followed > silencedFrames) this.#goneOn++;
      this.#silent = 0;
    } else {
      this.#silent++;
    }
    if (this.#silent * frameMs < this.endSilenceMs && frames.length < longestFrames) return;
    this.#frames = undefined;
    if (this.#voiced < shortestVoicedFrames) return this.events.dropped();
    const samples = new Int16Array(frames.length * frameLength);
    frames.forEach((part, index) => samples.set(part, index * frameLength));
    this.events.ended({
      samples,
      overlapsSpeech: this.#overlaps,
      isSurelySomebody: !this.#overlaps || this.#goneOn >= goesOnFrames,
      durationMs: frames.length * frameMs,
    });
  }

  /** The mean square as a level, dBFS, without the constant offset that some microphones add. */
  #measure(frame: Int16Array): number {
    let sum = 0;
    let squares = 0;
    for (const sample of frame) {
      sum += sample;
      squares += sample * sample;
    }
    this.#offset += 0.1 * (sum / frame.length - this.#offset);
    const meanSquare = squares / frame.length - (2 * this.#offset * sum) / frame.length + this.#offset ** 2;
    return decibels(Math.max(0, meanSquare) / 32768 ** 2);
  }

  #learnNoise(level: number): void {
    this.#block.push(10 ** (level / 10));
    if (this.#block.length < noiseBlockFrames) return;
    this.#minima.push(decibels(this.#block.reduce((sum, power) => sum + power, 0) / this.#block.length));
    if (this.#minima.length > noiseBlocks) this.#minima.shift();
    this.#block = [];
  }
}
