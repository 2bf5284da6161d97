// Cuts the microphone's stream into utterances. A speech detector tells speech from other sounds, a little later than the
// samples come; while there is none, or it is late, the energy of the sound has to do. Samples are kept by their number,
// and the number of samples is the only clock, so that sound that comes in a burst is cut like any other.

import { sampleRate } from "../base/protocol.ts";
import { SampleRing } from "../sound/sampleRing.ts";
import { EnergyGate, onsetFrames } from "./energyGate.ts";
import { InterruptionDetector } from "./interruptionDetector.ts";
import { OwnVoice } from "./ownVoice.ts";
import { Room } from "./room.ts";
import type { SpeechDetector, Verdict } from "./speechDetector.ts";
import { SpeechEvidence } from "./speechEvidence.ts";

const ms = sampleRate / 1000;
const frameLength = 10 * ms;
/** What an utterance holds of the time before its onset. */
const preRoll = 350 * ms;
/** Speech was noticed no later than this after it had begun. */
const longestNotice = 1_000 * ms;
const longest = 30_000 * ms;
/** An utterance may be over when it was silent for this long; the recogniser gets no more of the silence. */
export const pause = 200 * ms;
/** The energy gate's utterances are voiced for at least so many frames. */
const shortestVoicedFrames = 12;
/** The agent has fallen silent this long after it was told to stop. Later sound is not its own if it lasts long enough. */
const silenced = 200 * ms;
const goesOn = 100 * ms;
/** Both detectors have to notice an interruption within this time. */
const agreement = 200 * ms;
/** A window that is likelier speech than this goes on with speech that has begun. */
const goesOnProbability = 0.35;
/** The detector takes up to this much of the silence for speech. Where the room is quiet, the level tells better. */
const tail = 96 * ms;
/** A sound this far above the noise may be speech: the detector is to judge at once, dB. */
const urgentMargin = 6;
/** Samples that are not judged yet count as silence when they are no more than these, and not loud. */
const mostUnjudged = 100 * ms;

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
  /** The speech may be over: these are its samples if it is. */
  paused(samples: Int16Array): void;
  /** The speech was not over. */
  resumed(): void;
  /** The speech is over. Its samples are those that were told at the last pause, if it has not resumed. */
  ended(utterance: Utterance): void;
  /** The sound that had begun was no speech. */
  dropped(): void;
}

/** The utterance that is being heard. */
interface Open {
  from: number;
  begunAt: number;
  speechEnd: number;
  overlaps: boolean;
  /** The detector is sure that it holds speech. */
  isSure: boolean;
  /** Loud frames that the energy gate had to do for. */
  voicedFrames: number;
  /** Speech after the agent had fallen silent, in samples. */
  goneOn: number;
  hasPaused: boolean;
}

export class Hearing {
  endSilenceMs = 800;

  readonly detector = new InterruptionDetector();
  readonly #room = new Room();
  readonly #gate = new EnergyGate();
  readonly #evidence = new SpeechEvidence();
  readonly #ring = new SampleRing(longest + longestNotice + preRoll);
  readonly #ownVoice = new OwnVoice();
  #rest = new Int16Array(0);
  #open: Open | undefined;
  /** Samples before this number belong to what is over. */
  #over = 0;
  #judged = 0;
  #loudEnd = 0;
  /** The ends of the loud frames of the utterance that are not judged yet. */
  #unjudged: number[] = [];
  #interruptedAt = -Infinity;

  constructor(
    private readonly events: HearingEvents,
    private readonly speech?: SpeechDetector,
  ) {
    speech?.tell((verdict) => this.#judge(verdict));
  }

  /** The noise of the room, dBFS. */
  get noise(): number {
    return this.#room.noise;
  }

  get isHearing(): boolean {
    return this.#open !== undefined;
  }

  /** The agent's own voice sounds or echoes: only what both detectors take for somebody else is heard. */
  get isOwnVoice(): boolean {
    return this.#ownVoice.isNow;
  }

  set isOwnVoice(isSo: boolean) {
    if (isSo === this.isOwnVoice) return;
    this.#ownVoice.set(isSo, this.#ring.end);
    this.#interruptedAt = -Infinity;
    this.#gate.rest();
    this.detector.rest();
  }

  /** The samples of the utterance that is being heard, so far. */
  get soFar(): Int16Array | undefined {
    return this.#open?.isSure ? this.#ring.slice(this.#open.from, this.#ring.end) : undefined;
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
    this.#open = undefined;
    this.#over = this.#ring.end;
    this.#unjudged = [];
    this.#rest = new Int16Array(0);
    this.#interruptedAt = -Infinity;
    this.#gate.rest();
    this.#evidence.rest();
    this.detector.rest();
  }

  #takeFrame(frame: Int16Array): number {
    const level = this.#room.measure(frame);
    const at = this.#ring.end;
    this.#ring.add(frame);
    const isLoud = this.#gate.goesOn(level, this.noise);
    if (isLoud) this.#loudEnd = this.#ring.end;
    if (isLoud && this.isHearing) this.#unjudged.push(this.#ring.end);
    this.speech?.take(frame, at, this.isHearing || level > this.noise + urgentMargin);
    const isJudged = this.speech?.isAnswering ?? false;
    if (this.#open === undefined) this.#awaitOnset(level, isJudged);
    else this.#follow(this.#open, isJudged);
    return level;
  }

  #awaitOnset(level: number, isJudged: boolean): void {
    if (this.isOwnVoice) {
      if (this.detector.take(level, this.noise, isJudged)) this.#interruptedAt = this.#ring.end;
      if (!isJudged && this.#interruptedAt === this.#ring.end) return this.#begin(this.#ring.end, 0);
      return this.#awaitAgreement();
    }
    if (this.#gate.take(level, this.noise) && !isJudged) this.#begin(this.#ring.end, onsetFrames);
  }

  /** Somebody talks over the agent when both detectors say so. */
  #awaitAgreement(): void {
    const isRecent = this.#ring.end - this.#interruptedAt <= agreement;
    if (isRecent && this.#ownVoice.isAt(this.#judged) && this.#evidence.hasBegun) this.#begin(this.#ring.end, 0);
  }

  #judge(verdict: Verdict): void {
    if (verdict.to <= this.#over) return;
    const isOwn = this.#ownVoice.isAt(verdict.to);
    // What spoke for speech may have been that voice, or the one before it.
    if (this.#open === undefined && isOwn !== this.#ownVoice.isAt(this.#judged)) this.#evidence.rest();
    this.#ownVoice.forget(verdict.to);
    this.#judged = verdict.to;
    this.#unjudged = this.#unjudged.filter((end) => end > verdict.to);
    this.#evidence.take(verdict);
    if (this.#open === undefined) {
      if (isOwn) this.#awaitAgreement();
      else if (this.#evidence.hasBegun) this.#begin(this.#evidence.begunAt, 0, verdict.to, false);
      return;
    }
    this.#followVerdict(this.#open, verdict);
  }

  #begin(noticedFrom: number, voicedFrames: number, now = this.#ring.end, overlaps = this.isOwnVoice): void {
    const from = Math.max(noticedFrom - preRoll, now - longestNotice - preRoll, this.#over);
    this.#open = {
      from,
      begunAt: now,
      speechEnd: now,
      overlaps,
      isSure: this.#evidence.isSure,
      voicedFrames,
      goneOn: 0,
      hasPaused: false,
    };
    this.#gate.rest();
    this.detector.rest();
    this.events.began(this.#open.overlaps);
  }

  #follow(open: Open, isJudged: boolean): void {
    const now = this.#ring.end;
    if (!isJudged) {
      // A detector that is late has not judged what came before either.
      for (const end of this.#unjudged.splice(0)) {
        open.voicedFrames++;
        this.#goOn(open, end, end - frameLength);
      }
      return this.#look(open, now);
    }
    const isQuiet = this.#loudEnd <= this.#judged && now - this.#judged <= mostUnjudged;
    if (isQuiet) this.#look(open, now);
  }

  #followVerdict(open: Open, { from, to, probability }: Verdict): void {
    if (this.#evidence.isSure) open.isSure = true;
    if (probability >= goesOnProbability) {
      this.#goOn(open, Math.max(to - tail, Math.min(to, this.#loudEnd)), from);
    }
    this.#look(open, to);
  }

  /** Speech went on up to here, with what begins there. */
  #goOn(open: Open, end: number, from: number): void {
    if (from >= open.begunAt + silenced) open.goneOn += Math.max(0, end - from);
    if (end <= open.speechEnd) return;
    open.speechEnd = end;
    if (!open.hasPaused) return;
    open.hasPaused = false;
    this.events.resumed();
  }

  /** Looks at the time `now` whether the speech is over, or may be. */
  #look(open: Open, now: number): void {
    const silence = now - open.speechEnd;
    const isLong = now - open.from >= longest;
    const isSpeech = open.isSure || open.voicedFrames >= shortestVoicedFrames;
    if (silence >= this.endSilenceMs * ms || isLong) return this.#end(open, now, isSpeech);
    if (silence < pause || open.hasPaused || !isSpeech) return;
    open.hasPaused = true;
    this.events.paused(this.#samplesOf(open, now));
  }

  #end(open: Open, now: number, isSpeech: boolean): void {
    this.#open = undefined;
    this.#over = now;
    this.#unjudged = [];
    this.#evidence.rest();
    if (!isSpeech) return this.events.dropped();
    this.events.ended({
      samples: this.#samplesOf(open, now),
      overlapsSpeech: open.overlaps,
      isSurelySomebody: !open.overlaps || open.goneOn >= goesOn,
      durationMs: (now - open.from) / ms,
    });
  }

  #samplesOf(open: Open, now: number): Int16Array {
    return this.#ring.slice(open.from, Math.min(now, open.speechEnd + pause));
  }
}
