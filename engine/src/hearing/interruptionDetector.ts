// Decides, while the agent's own voice sounds, whether somebody else speaks too. What the echo canceller leaves of the
// agent's voice is weak, with short bursts; a person is loud and goes on. Each 10 ms frame is evidence, for by how far
// it stands above a gate, against when it lies below; enough of it in a row decides. The gate follows what the
// canceller leaves. (Sequential test on a clipped log-likelihood ratio: Wald, "Sequential Analysis", 1947.)

/** Never below this, dBFS: nobody speaks so softly into a microphone. */
const leastGate = -48;
/** The gate stands this far above the noise of the room and above the residue, dB. */
const noiseMargin = 12;
const residueMargin = 4;
/** Before anything is known of the residue it is taken to be this, dBFS: a canceller leaves more while it learns. */
const firstResidue = -38;
/** What it leaves in the first two seconds of the agent's voice says nothing of what it will leave later. */
const firstFrames = 200;
/** The residue is the level that 199 of 200 frames of the agent's own voice do not reach: a quantile by steps, in dB. */
const upStep = 0.995;
const downStep = 0.005;
/** However much is left, a person who speaks up is heard, dBFS. */
const mostResidue = -30;
/** A voice must not raise the gate that it is to pass: what was learned last does not count yet. */
const learningDelayFrames = 40;
/** So many dB above the gate, or below it, are the evidence of 1; no frame counts for more than the second. */
const evidenceScale = 6;
const mostEvidence = 1.5;
const enoughEvidence = 9;

export class InterruptionDetector {
  #residue = firstResidue;
  #framesToSkip = firstFrames;
  #pending: number[] = [];
  #evidence = 0;

  /** Takes one frame's level while the agent's own voice sounds, dBFS; true when somebody else speaks. */
  take(level: number, noise: number): boolean {
    const gate = Math.max(leastGate, noise + noiseMargin, this.#residue + residueMargin);
    const evidence = Math.max(-mostEvidence, Math.min(mostEvidence, (level - gate) / evidenceScale));
    this.#evidence = Math.max(0, this.#evidence + evidence);
    if (this.#evidence >= enoughEvidence) {
      this.rest();
      return true;
    }
    this.#pending.push(level);
    if (this.#pending.length > learningDelayFrames) this.#learn(this.#pending.shift() ?? level);
    return false;
  }

  /** The agent's own voice has ended, or somebody else's was found: what is not yet learned is left out. */
  rest(): void {
    if (this.#evidence > 0 || this.#pending.length > 0) {
      this.#pending = [];
      this.#evidence = 0;
    }
  }

  /** The microphone or the loudspeaker changed: nothing is known of the residue. */
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
