// Decides, while the agent's own voice sounds, whether somebody else speaks too. The echo canceller leaves a residue of
// the agent's voice that is weak, with short bursts; a person is loud and goes on. Each 10 ms frame counts as evidence:
// for somebody by how far it stands above a gate, against it by how far it lies below. Enough evidence in a row decides.
// The gate follows the residue. (Sequential test on a clipped log-likelihood ratio: Wald, "Sequential Analysis", 1947.)

/** The gate is never below this, dBFS: nobody speaks so softly into a microphone. */
const leastGate = -48;
/** The gate stands this far above the noise of the room and above the residue, dB. */
const noiseMargin = 12;
const residueMargin = 4;
/** The residue is taken to be this until it is known, dBFS: a canceller leaves more while it learns. */
const firstResidue = -38;
/** The residue of the first two seconds of the agent's voice says nothing about the later one. */
const firstFrames = 200;
/**
 * The residue is the level that 197 of 200 frames of the agent's own voice do not reach: a quantile by steps, in dB. It
 * sinks by 0.75 dB a second: who speaks softly is heard soon after a loud residue, or a missed word, has raised it.
 */
const upStep = 0.4925;
const downStep = 0.0075;
/** The residue is never taken to be more than this, dBFS: a person who speaks up is heard in any case. */
const mostResidue = -30;
/** A voice must not raise the gate that it is to pass: frames count for the residue only after this many others. */
const learningDelayFrames = 40;
/** A frame this many dB above the gate, or below it, has the evidence 1; no frame has more than `mostEvidence`. */
const evidenceScale = 6;
const mostEvidence = 1.5;
const enoughEvidence = 10;
/** Less is enough where a speech detector has to agree: what only sounds loud is none of its speech. */
const enoughToAsk = 7;

export class InterruptionDetector {
  #residue = firstResidue;
  #framesToSkip = firstFrames;
  #pending: number[] = [];
  #evidence = 0;

  /**
   * Takes the level of one frame while the agent's own voice sounds, dBFS. Gives true when somebody else speaks, or may
   * speak where a speech detector has to agree.
   */
  take(level: number, noise: number, hasToAgree = false): boolean {
    const gate = Math.max(leastGate, noise + noiseMargin, this.#residue + residueMargin);
    const evidence = Math.max(-mostEvidence, Math.min(mostEvidence, (level - gate) / evidenceScale));
    this.#evidence = Math.max(0, this.#evidence + evidence);
    if (this.#evidence >= (hasToAgree ? enoughToAsk : enoughEvidence)) {
      this.rest();
      return true;
    }
    this.#pending.push(level);
    if (this.#pending.length > learningDelayFrames) this.#learn(this.#pending.shift() ?? level);
    return false;
  }

  /** Drops the frames that do not count yet: the agent's own voice has ended, or somebody else's was found. */
  rest(): void {
    if (this.#evidence > 0 || this.#pending.length > 0) {
      this.#pending = [];
      this.#evidence = 0;
    }
  }

  /** Forgets the residue: the microphone or the loudspeaker has changed. */
  forget(): void {
    this.#residue = firstResidue;
    this.#framesToSkip = firstFrames;
    this.rest();
  }

  #learn(level: number): void {
    if (this.#framesToSkip > 0) return void this.#framesToSkip--;
    this.#residue += level > this.#residue ? upStep : -downStep;
    this.#residue = Math.max(-80, Math.min(mostResidue, this.#residue));
  }
}
