// Measures how the bundled engine hears, through its port, as a front end would.
//   bun measure.ts FOLDER [NAME…]    FOLDER: where the set is made and the report is kept; NAME: only these scenes

import { rmSync } from "node:fs";
import { cpus, loadavg } from "node:os";
import { join } from "node:path";
import { sources, writePart } from "./page";
import { line } from "./row";
import type { Bench, Scene } from "./scene";
import { footprint } from "./scenes/footprint";
import { answer, gaps, onset, text } from "./scenes/latency";
import { name, otherSpeech } from "./scenes/name";
import { noise } from "./scenes/noise";
import { portuguese } from "./scenes/portuguese";
import { sentences } from "./scenes/sentences";
import { sounds } from "./scenes/sounds";
import { ClipSet } from "./set/clips";

const scenes: Record<string, Scene> = { footprint, onset, text, answer, gaps, sentences, noise, sounds, name, otherSpeech, portuguese };

const [folder, ...names] = process.argv.slice(2);
if (!folder) throw new Error("which folder?");
const unknown = names.filter((one) => !Object.hasOwn(scenes, one));
if (unknown.length > 0) throw new Error(`no such scene: ${unknown.join(", ")}; there are ${Object.keys(scenes).join(", ")}`);

const report = join(folder, "report.jsonl");
if (names.length === 0) rmSync(report, { force: true });
const bench: Bench = {
    set: new ClipSet(join(folder, "set")),
    speed: Number(process.env.PALOMET_EARS_SPEED ?? 4),
    every: Number(process.env.PALOMET_EARS_EVERY ?? 1),
    report,
};
const load = loadavg()[0]!.toFixed(1);
const machine = `${cpus().length} cores of ${cpus()[0]!.model}`;
const rows: string[] = [];
const failed: string[] = [];
for (const [scene, measure] of Object.entries(scenes)) {
    if (names.length > 0 && !names.includes(scene)) continue;
    console.error(`==> ${scene}`);
    try {
        const found = (await measure(bench)).map(line);
        console.log(found.join("\n"));
        rows.push(...found);
    } catch (problem) {
        console.error(`${problem instanceof Error ? problem.stack : problem}`);
        failed.push(scene);
    }
}

// A page with a hole in it would hide the hole.
if (names.length === 0 && failed.length === 0 && bench.every === 1) {
    const table = `Measured by \`bench/ears/run\` on ${new Date().toISOString().slice(0, 10)}: ${machine}, load average ${load} before it began; the set was ${bench.set.digest}.

| what | here | to reach | met |
|---|---|---|---|
${rows.join("\n")}
`;
    writePart("the figures", table);
    writePart("the recordings", sources(bench.set));
}
if (failed.length > 0) {
    console.error(`failed: ${failed.join(", ")}`);
    process.exitCode = 1;
}
