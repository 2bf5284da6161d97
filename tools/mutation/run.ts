// Tries mutants one at a time, and says which of them no test notices.
//   bun run.ts SOURCES OUTPUT [FOLDER…] [--sample N] [--seed N]

import { appendFileSync, existsSync, readdirSync, readFileSync, writeFileSync } from "node:fs";
import { join, parse } from "node:path";
import { parseArgs } from "node:util";
import { type Mutant, mutantsOf } from "./mutants.ts";

/** The test programs of each folder, those that a change is most likely to fail in first. */
const programs: Record<string, string[]> = {
    model: ["model/model-tests", "model/model-network-tests"],
    shortcuts: ["shortcuts/shortcuts-tests"],
    audio: ["audio/audio-threads-tests", "audio/audio-tests", "audio/audio-dsp-tests"],
    app: ["app/app-tests"],
};

type Outcome = "killed" | "survived" | "endless" | "not compiled";

interface Result extends Mutant {
    line: number;
    outcome: Outcome;
    /** The first test that noticed. */
    by?: string;
}

const { values, positionals } = parseArgs({
    options: { sample: { type: "string" }, seed: { type: "string", default: "1" } },
    allowPositionals: true,
});
const [sources = "", output = "", ...wanted] = positionals;
const build = join(output, "build");
const resultsPath = join(output, "results.jsonl");

function fail(reason: string): never {
    console.error(`mutate: ${reason}`);
    process.exit(1);
}

/** Runs a program; what it printed, and null when it was still running after the limit. */
function run(command: string[], limitMs: number): { code: number | null; text: string } {
    const { exitCode, stdout, stderr, signalCode } = Bun.spawnSync(command, { timeout: Math.ceil(limitMs), killSignal: "SIGKILL", maxBuffer: 1 << 26 });
    return { code: signalCode === "SIGKILL" ? null : exitCode ?? 1, text: stdout.toString() + stderr.toString() };
}

const pathOf = (program: string) => join(build, "tests", program);

function compile(folder: string): boolean {
    return run(["ninja", "-C", build, ...(programs[folder] ?? []).map((program) => parse(program).base)], 1_200_000).code === 0;
}

/** A seeded shuffle: the same seed chooses the same mutants. */
function shuffled<T>(items: T[], seed: number): T[] {
    let state = seed >>> 0;
    const random = () => {
        state = (state + 0x6d2b79f5) >>> 0;
        let mixed = Math.imul(state ^ (state >>> 15), state | 1);
        mixed ^= mixed + Math.imul(mixed ^ (mixed >>> 7), mixed | 61);
        return ((mixed ^ (mixed >>> 14)) >>> 0) / 2 ** 32;
    };
    const order = [...items];
    for (let index = order.length - 1; index > 0; --index) {
        const other = Math.floor(random() * (index + 1));
        [order[index], order[other]] = [order[other] as T, order[index] as T];
    }
    return order;
}

/** Every source of a folder, and the headers that hold code of their own; not what only wires, which the whole program's tests run. */
function sourcesOf(folder: string): string[] {
    const below = readdirSync(join(sources, folder), { recursive: true, encoding: "utf8" }).map((name) => join(folder, name));
    const isOwnHeader = (file: string) => file.endsWith(".h") && !below.includes(file.replace(/h$/, "cpp"));
    return below.filter((file) => (file.endsWith(".cpp") && !/main\.cpp$/i.test(file)) || isOwnHeader(file)).sort();
}

/** How long each test program may take: several times what it took with nothing changed. */
function baseline(folder: string): Map<string, number> {
    console.log(`==> ${folder}: building, and running its tests as they are`);
    if (!compile(folder)) fail(`${folder} does not build: ninja -C ${build}`);
    const limits = new Map<string, number>();
    for (const program of programs[folder] ?? []) {
        const begin = performance.now();
        const { code, text } = run([pathOf(program)], 600_000);
        if (code !== 0) fail(`${program} fails with nothing changed:\n${text.slice(-2000)}`);
        limits.set(program, 10_000 + 4 * (performance.now() - begin));
    }
    return limits;
}

function failedTest(text: string): string {
    return /\[ {2}FAILED {2}\] ([\w./]+)/.exec(text)?.[1] ?? /\[ RUN {6}\] ([\w./]+)(?![^]*\[ RUN)/.exec(text)?.[1] ?? "the build";
}

/** The tests of the source's own name come first: they notice most, and soonest. */
function judge(mutant: Mutant, limits: Map<string, number>): Pick<Result, "outcome" | "by"> {
    const own = `${parse(mutant.file).name}*`;
    for (const filter of [own, `-${own}`]) {
        for (const [program, limit] of limits) {
            const { code, text } = run([pathOf(program), `--gtest_filter=${filter}`, "--gtest_fail_fast", "--gtest_brief=0"], limit);
            if (code === null) return { outcome: "endless", by: failedTest(text) };
            if (code !== 0) return { outcome: "killed", by: failedTest(text) };
        }
    }
    return { outcome: "survived" };
}

function attempt(mutant: Mutant, folder: string, limits: Map<string, number>): Result {
    const path = join(sources, mutant.file);
    const text = readFileSync(path, "utf8");
    const line = text.slice(0, mutant.offset).split("\n").length;
    writeFileSync(path, text.slice(0, mutant.offset) + mutant.becomes + text.slice(mutant.offset + mutant.was.length));
    try {
        return { ...mutant, line, ...(compile(folder) ? judge(mutant, limits) : { outcome: "not compiled" as const }) };
    } finally {
        writeFileSync(path, text);
    }
}

const nameOf = (mutant: Mutant) => `${mutant.file}:${mutant.offset}:${mutant.was}:${mutant.becomes}`;
const oneLine = (text: string) => text.replace(/\s+/g, " ");
const described = (result: Result) => `${result.file}:${result.line} ${oneLine(result.was)} → ${oneLine(result.becomes)}`;

/** What was found out before about sources that are still the same. */
function known(): Map<string, Result> {
    if (!existsSync(resultsPath)) return new Map();
    const results = readFileSync(resultsPath, "utf8").trim().split("\n").filter(Boolean).map((line) => JSON.parse(line) as Result);
    return new Map(results.map((result) => [nameOf(result), result]));
}

function tryFolder(folder: string, earlier: Map<string, Result>): Result[] {
    const limits = baseline(folder);
    const all = shuffled(sourcesOf(folder).flatMap((file) => mutantsOf(file, readFileSync(join(sources, file), "utf8"))), Number(values.seed));
    const sample = Math.min(Number(values.sample ?? all.length), all.length);
    const results: Result[] = [];
    const begin = performance.now();
    let tried = 0;
    for (const mutant of all) {
        const judged = results.filter((result) => result.outcome !== "not compiled").length;
        if (judged >= sample) break;
        const before = earlier.get(nameOf(mutant));
        const result = before ?? attempt(mutant, folder, limits);
        results.push(result);
        if (before) continue;
        appendFileSync(resultsPath, JSON.stringify(result) + "\n");
        const minutes = ((performance.now() - begin) / ++tried) * (sample - judged - 1) / 60_000;
        console.log(`[${folder} ${judged + 1}/${sample}, about ${minutes.toFixed(0)} min left] ${result.outcome}: ${described(result)}${result.by ? ` (${result.by})` : ""}`);
    }
    return results;
}

const folders = wanted.length > 0 ? wanted : Object.keys(programs);
for (const folder of folders) {
    if (!programs[folder]) fail(`no such folder: ${folder}; there are ${Object.keys(programs).join(", ")}`);
}
const earlier = known();
const all = new Map(folders.map((folder) => [folder, tryFolder(folder, earlier)]));
const count = (results: Result[], outcome: Outcome) => results.filter((result) => result.outcome === outcome).length;
console.log("\n| folder | mutants | noticed | never ending | survived |\n|---|---|---|---|---|");
for (const [folder, results] of all) {
    const judged = results.length - count(results, "not compiled");
    console.log(`| ${folder} | ${judged} | ${count(results, "killed")} | ${count(results, "endless")} | ${count(results, "survived")} |`);
}
console.log("\nSurvivors:");
for (const result of [...all.values()].flat().filter(({ outcome }) => outcome === "survived")) console.log(described(result));
