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
    command: ["command/command-tests"],
    doctor: ["doctor/doctor-tests"],
};

/** The same: the compiler makes of it what it makes of the source as it is. */
type Outcome = "killed" | "survived" | "endless" | "not compiled" | "same";

interface Result extends Mutant {
    line: number;
    outcome: Outcome;
    /** The first test that noticed, or why none could. */
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
function run(command: string[], limitMs: number, environment = {}): { code: number | null; text: string } {
    const { exitCode, stdout, stderr, signalCode } = Bun.spawnSync(command, {
        timeout: Math.ceil(limitMs), killSignal: "SIGKILL", maxBuffer: 1 << 26, env: { ...process.env, ...environment },
    });
    return { code: signalCode === "SIGKILL" ? null : exitCode ?? 1, text: stdout.toString() + stderr.toString() };
}

function compile(folder: string, environment = {}): boolean {
    const targets = (programs[folder] ?? []).map((program) => parse(program).base);
    return run(["ninja", "-C", build, ...targets], 1_200_000, environment).code === 0;
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

/** What the tests of the whole program run, and those of its folder do not. */
const ofTheWholeProgram = /(main|RemoteSession)\.cpp$/i;

/** Every source of a folder that its tests are about, and the headers that hold code of their own. */
function sourcesOf(folder: string): string[] {
    const below = readdirSync(join(sources, folder), { recursive: true, encoding: "utf8" }).map((name) => join(folder, name));
    const isOwnHeader = (file: string) => file.endsWith(".h") && !below.includes(file.replace(/h$/, "cpp"));
    return below.filter((file) => (file.endsWith(".cpp") && !ofTheWholeProgram.test(file)) || isOwnHeader(file)).sort();
}

const fingerprintOf = (path: string) => Bun.hash(readFileSync(path));

/** What the compiler made of a folder's sources. */
function libraryOf(folder: string): string {
    const below = readdirSync(join(build, folder), { recursive: true, encoding: "utf8" });
    return below.filter((name) => name.endsWith(".a")).sort().map((name) => fingerprintOf(join(build, folder, name))).join();
}

/** A folder with nothing changed. */
interface Original {
    library: string;
    programs: { path: string; fingerprint: number | bigint; /** How long it may take: several times what it took. */ limitMs: number }[];
}

function original(folder: string): Original {
    console.log(`==> ${folder}: building, and running its tests as they are`);
    if (!compile(folder)) fail(`${folder} does not build: ninja -C ${build}`);
    const tested = (programs[folder] ?? []).map((program) => {
        const path = join(build, "tests", program);
        const begin = performance.now();
        const { code, text } = run([path], 600_000);
        if (code !== 0) fail(`${program} fails with nothing changed:\n${text.slice(-2000)}`);
        return { path, fingerprint: fingerprintOf(path), limitMs: 10_000 + 4 * (performance.now() - begin) };
    });
    return { library: libraryOf(folder), programs: tested };
}

function failedTest(text: string): string {
    return /\[ {2}FAILED {2}\] ([\w./]+)/.exec(text)?.[1] ?? /\[ RUN {6}\] ([\w./]+)(?![^]*\[ RUN)/.exec(text)?.[1] ?? "the build";
}

/** The suites of the source's own name, and those that noticed others of its mutants, come first: they notice most, and soonest. */
function judge(mutant: Mutant, unchanged: Original, earlier: Iterable<Result>): Pick<Result, "outcome" | "by"> {
    // A program that the change does not reach cannot notice it.
    const reached = unchanged.programs.filter(({ path, fingerprint }) => fingerprintOf(path) !== fingerprint);
    if (reached.length === 0) return { outcome: "survived", by: "none of the folder's test programs contains it" };
    const noticed = [...earlier].filter(({ file, outcome, by }) => file === mutant.file && outcome === "killed" && by?.includes("."));
    const likely = [...new Set([`${parse(mutant.file).name}*`, ...noticed.map(({ by }) => `${by?.replace(/\.[^.]*$/, "")}.*`)])].join(":");
    for (const filter of [likely, `-${likely}`]) {
        for (const { path, limitMs } of reached) {
            const { code, text } = run([path, `--gtest_filter=${filter}`, "--gtest_fail_fast", "--gtest_brief=0"], limitMs);
            if (code === null) return { outcome: "endless", by: failedTest(text) };
            if (code !== 0) return { outcome: "killed", by: failedTest(text) };
        }
    }
    return { outcome: "survived" };
}

function attempt(mutant: Mutant, folder: string, unchanged: Original, earlier: Iterable<Result>): Result {
    const path = join(sources, mutant.file);
    const text = readFileSync(path, "utf8");
    const line = text.slice(0, mutant.offset).split("\n").length;
    writeFileSync(path, text.slice(0, mutant.offset) + mutant.becomes + text.slice(mutant.offset + mutant.was.length));
    try {
        // A mutant is compiled once: a compiler cache would only be filled with it.
        if (!compile(folder, { CCACHE_DISABLE: "1" })) return { ...mutant, line, outcome: "not compiled" };
        if (libraryOf(folder) === unchanged.library) return { ...mutant, line, outcome: "same" };
        return { ...mutant, line, ...judge(mutant, unchanged, earlier) };
    } finally {
        writeFileSync(path, text);
    }
}

/** Whether a mutant is one that tests can be asked about. */
const isJudged = ({ outcome }: Result) => outcome !== "not compiled" && outcome !== "same";

const nameOf = (mutant: Mutant) => `${mutant.file}:${mutant.offset}:${mutant.was}:${mutant.becomes}`;
const oneLine = (text: string) => text.replace(/\s+/g, " ");
const described = ({ file, line, was, becomes, by }: Result) => `${file}:${line} ${oneLine(was)} → ${oneLine(becomes)}${by ? ` (${by})` : ""}`;

/** What was found out before about sources that are still the same. */
function known(): Map<string, Result> {
    if (!existsSync(resultsPath)) return new Map();
    const results = readFileSync(resultsPath, "utf8").trim().split("\n").filter(Boolean).map((line) => JSON.parse(line) as Result);
    return new Map(results.map((result) => [nameOf(result), result]));
}

function tryFolder(folder: string, earlier: Map<string, Result>): Result[] {
    const unchanged = original(folder);
    const possible = sourcesOf(folder).flatMap((file) => mutantsOf(file, readFileSync(join(sources, file), "utf8")));
    const wasTried = (mutant: Mutant) => Number(earlier.has(nameOf(mutant)));
    const all = shuffled(possible, Number(values.seed)).sort((one, other) => wasTried(other) - wasTried(one));
    const sample = Math.min(Number(values.sample ?? all.length), all.length);
    const results: Result[] = [];
    const begin = performance.now();
    let tried = 0;
    for (const mutant of all) {
        const judged = results.filter(isJudged).length;
        if (judged >= sample) break;
        const before = earlier.get(nameOf(mutant));
        const result = before ?? attempt(mutant, folder, unchanged, earlier.values());
        results.push(result);
        if (before) continue;
        earlier.set(nameOf(mutant), result);
        appendFileSync(resultsPath, JSON.stringify(result) + "\n");
        const minutes = ((performance.now() - begin) / ++tried) * (sample - judged - 1) / 60_000;
        console.log(`[${folder} ${judged + Number(isJudged(result))}/${sample}, about ${minutes.toFixed(0)} min left] ${result.outcome}: ${described(result)}`);
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
    console.log(`| ${folder} | ${results.filter(isJudged).length} | ${count(results, "killed")} | ${count(results, "endless")} | ${count(results, "survived")} |`);
}
console.log("\nSurvivors:");
for (const result of [...all.values()].flat().filter(({ outcome }) => outcome === "survived")) console.log(described(result));
