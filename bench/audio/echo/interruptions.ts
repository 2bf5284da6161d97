// What the bundled engine takes for an interruption in what the canceller leaves, frame by frame.
//   echo-bench --hard 4 --keep FOLDER; bun interruptions.ts FOLDER

import { readFileSync } from "node:fs";
import { join } from "node:path";
import { InterruptionDetector } from "../../../engine/src/hearing/interruptionDetector.ts";
import { Room } from "../../../engine/src/hearing/room.ts";

interface Recording {
  file: string;
  way: string;
  kind: string;
  /** From when until when the user spoke, in seconds. */
  said: [number, number][];
  /** The same of somebody else, who is neither to be noticed nor false. */
  others: [number, number][];
}

const frame = 160;
/** What is noticed so long after it was said was noticed still, in seconds. */
const late = 0.3;
/** What was taken for somebody is heard for at least so long: nothing else is found meanwhile, in seconds. */
const heardFor = 1;

class Count {
  said = 0;
  noticed = 0;
  delays: number[] = [];
  falseOnes = 0;
  aloneSeconds = 0;

  add({ file, said, others }: Recording): void {
    const bytes = readFileSync(join(folder, file));
    const samples = new Int16Array(bytes.buffer, bytes.byteOffset, bytes.byteLength / 2);
    const detector = new InterruptionDetector();
    const room = new Room();
    const found = new Set<number>();
    let deafUntil = 0;
    for (let at = 0; at + frame <= samples.length; at += frame) {
      const now = (at + frame) / 16_000;
      const level = room.measure(samples.subarray(at, at + frame));
      const sentence = said.findIndex(([from, to]) => now >= from && now <= to + late);
      const isOther = others.some(([from, to]) => now >= from && now <= to + late);
      if (sentence < 0 && !isOther) this.aloneSeconds += 0.01;
      if (now < deafUntil) continue;
      if (!detector.take(level, room.noise)) continue;
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
const ways = [...new Set(recordings.map(({ way }) => way))].filter((way) => way !== "raw");
const kinds = ["all", ...new Set(recordings.map(({ kind }) => kind))];
console.log(`| noticed of what was said, after how long; false ones while the program is alone | ${ways.join(" | ")} |`);
console.log(`|---|${"---|".repeat(ways.length)}`);
for (const kind of kinds) {
  const cells = ways.map((way) => {
    const count = new Count();
    for (const recording of recordings) {
      if (recording.way === way && (kind === "all" || recording.kind === kind)) count.add(recording);
    }
    return count.toString();
  });
  console.log(`| ${kind} | ${cells.join(" | ")} |`);
}
