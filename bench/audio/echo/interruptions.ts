// What the bundled engine takes for an interruption in what the canceller leaves, frame by frame: by the level alone, and
// where its speech detector has to agree, as it has in the engine.
//   echo-bench --hard 4 --keep FOLDER; bun interruptions.ts FOLDER

import { readFileSync } from "node:fs";
import { join } from "node:path";
import { Hearing } from "../../../engine/src/hearing/hearing.ts";
import { InterruptionDetector } from "../../../engine/src/hearing/interruptionDetector.ts";
import { Room } from "../../../engine/src/hearing/room.ts";
import { Found, startListening } from "./listening.ts";

interface Recording {
  file: string;
  way: string;
  kind: string;
  /** From when until when the user spoke, in seconds. */
  said: [number, number][];
  /** The same of somebody else, who is neither to be noticed nor false. */
  others: [number, number][];
}

/** Takes a frame; gives true when it takes somebody to speak over the agent. */
interface Judge {
  take(frame: Int16Array): boolean;
  /** What was taken for somebody is over. */
  goOn(): void;
}

const frame = 160;
/** What is noticed so long after it was said was noticed still, in seconds. */
const late = 0.3;
/** What was taken for somebody is heard for at least so long: nothing else is found meanwhile, in seconds. */
const heardFor = 1;

class ByLevel implements Judge {
  readonly #detector = new InterruptionDetector();
  readonly #room = new Room();
  #isDeaf = false;

  take(samples: Int16Array): boolean {
    const level = this.#room.measure(samples);
    if (this.#isDeaf) return false;
    this.#isDeaf = this.#detector.take(level, this.#room.noise);
    return this.#isDeaf;
  }

  goOn(): void {
    this.#isDeaf = false;
  }
}

class AsTheEngine implements Judge {
  #hasBegun = false;
  readonly #hearing: Hearing;

  constructor(probabilities: number[]) {
    const nothing = (): void => {};
    const began = (): void => void (this.#hasBegun = true);
    this.#hearing = new Hearing({ began, paused: nothing, resumed: nothing, ended: nothing, dropped: nothing }, new Found(probabilities));
    this.#hearing.isOwnVoice = true;
  }

  take(samples: Int16Array): boolean {
    this.#hasBegun = false;
    this.#hearing.take(samples);
    return this.#hasBegun;
  }

  goOn(): void {
    this.#hearing.reset();
  }
}

class Count {
  said = 0;
  noticed = 0;
  delays: number[] = [];
  falseOnes = 0;
  aloneSeconds = 0;

  add({ said, others }: Recording, samples: Int16Array, judge: Judge): void {
    const found = new Set<number>();
    let deafUntil = 0;
    for (let at = 0; at + frame <= samples.length; at += frame) {
      const now = (at + frame) / 16_000;
      const sentence = said.findIndex(([from, to]) => now >= from && now <= to + late);
      const isOther = others.some(([from, to]) => now >= from && now <= to + late);
      if (sentence < 0 && !isOther) this.aloneSeconds += 0.01;
      if (deafUntil > 0 && now >= deafUntil) {
        judge.goOn();
        deafUntil = 0;
      }
      if (!judge.take(samples.subarray(at, at + frame)) || deafUntil > 0) continue;
      const to = said[sentence]?.[1];
      deafUntil = to === undefined ? now + heardFor : to + late;
      if (to === undefined) this.falseOnes += isOther ? 0 : 1;
      else if (!found.has(sentence)) {
        found.add(sentence);
        this.delays.push(now - (said[sentence]?.[0] ?? now));
      }
    }
    this.said += said.length;
    this.noticed += found.size;
  }

  toString(): string {
    const sorted = this.delays.toSorted((a, b) => a - b);
    const median = sorted[Math.floor(sorted.length / 2)] ?? NaN;
    const share = Math.round((100 * this.noticed) / this.said);
    return `${this.noticed} of ${this.said} (${share} %), ${Math.round(median * 1000)} ms; ${this.falseOnes} in ${(this.aloneSeconds / 60).toFixed(1)} min`;
  }
}

const [folder = "."] = process.argv.slice(2);
const recordings = readFileSync(join(folder, "index.jsonl"), "utf8").trim().split("\n").map((line) => JSON.parse(line) as Recording);
const listen = startListening();
const counts = new Map<string, Count>();
const countOf = (kind: string, column: string): Count => {
  const key = `${kind} | ${column}`;
  const count = counts.get(key) ?? new Count();
  counts.set(key, count);
  return count;
};
const columns = new Set<string>();
for (const recording of recordings.filter(({ way }) => way !== "raw")) {
  const bytes = readFileSync(join(folder, recording.file));
  const samples = new Int16Array(bytes.buffer, bytes.byteOffset, bytes.byteLength / 2);
  const probabilities = await listen?.(samples);
  for (const kind of ["all", recording.kind]) {
    const add = (column: string, judge: Judge): void => {
      columns.add(column);
      countOf(kind, column).add(recording, samples, judge);
    };
    add(`${recording.way}: level`, new ByLevel());
    if (probabilities) add(`${recording.way}: engine`, new AsTheEngine(probabilities));
  }
}
console.log(`| noticed of what was said, after how long; false ones while the program is alone | ${[...columns].join(" | ")} |`);
console.log(`|---|${"---|".repeat(columns.size)}`);
for (const kind of ["all", ...new Set(recordings.map(({ kind }) => kind))])
  console.log(`| ${kind} | ${[...columns].map((column) => countOf(kind, column)).join(" | ")} |`);
