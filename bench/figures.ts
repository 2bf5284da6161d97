// Runs the benches of a build folder one after the other, and writes what they say into docs/performance.md and build/echo.md.
//   bun figures.ts FOLDER [NAME…]

import { readdirSync, statSync, writeFileSync } from "node:fs";
import { cpus, loadavg } from "node:os";
import { join } from "node:path";

type Clock = "cpu_time" | "real_time";

/** A figure that Google Benchmark gives, and its floor. Times are in nanoseconds. */
interface Pair {
    what: string;
    name: string;
    floorName: string;
    floor: string;
    clock: Clock;
    reach?: number | { timesFloor: number };
}

const milliseconds = 1e6;

function format(what: string, floor: "number" | "date"): Pair {
    return {
        what: `format: ${what}`, name: `format ${what}`, clock: "cpu_time",
        floorName: `ICU's own ${floor} format`, floor: floor === "number" ? "bareIcuNumber" : "bareIcuDate",
    };
}

const pairs: Record<string, Pair[]> = {
    "audio-dsp-bench": [
        ...[44100, 48000].map((rate): Pair => ({
            what: `resampler, 1024 frames at ${rate} Hz`, name: `resampler/${rate}`, clock: "cpu_time",
            floorName: "a plain loop", floor: `plainLoop/${rate}`, reach: { timesFloor: 1.1 },
        })),
        {
            what: "echo canceller, a frame of 10 ms", name: "echoCanceller", clock: "cpu_time",
            floorName: "the library's as it comes", floor: "plainCanceller", reach: 0.13 * milliseconds,
        },
    ],
    "model-bench": [
        ...[{ rows: 90, size: "20 KB", reach: 5 }, { rows: 10000, size: "2 MB", reach: 25 }].flatMap(({ rows, size, reach }): Pair[] => [
            {
                what: `decoding a state document of ${size}`, name: `decodeState/${rows}`, clock: "cpu_time",
                floorName: "the bare parser", floor: `parseState/${rows}`, reach: reach * milliseconds,
            },
            {
                what: `event to the snapshot published, less the 100 ms wait, ${size}`, name: `eventToSnapshot/${rows}/manual_time`,
                clock: "real_time", floorName: "a bare request", floor: `bareRequest/${rows}/manual_time`, reach: reach * milliseconds,
            },
        ]),
        ...["number", "seconds", "usd", "speed", "since"].map((what) => format(what, "number")),
        ...["clock", "day"].map((what) => format(what, "date")),
    ],
};

function time(nanoseconds: number): string {
    if (nanoseconds < 1000) return `${nanoseconds.toFixed(0)} ns`;
    if (nanoseconds < milliseconds) return `${(nanoseconds / 1000).toFixed(2)} µs`;
    return `${(nanoseconds / milliseconds).toFixed(2)} ms`;
}

async function outputOf(command: string[]): Promise<string> {
    const process = Bun.spawn(command, { stdin: "ignore", stdout: "pipe", stderr: "inherit" });
    const output = await new Response(process.stdout).text();
    if ((await process.exited) !== 0) throw new Error(`${command.join(" ")} failed`);
    return output;
}

async function rowsOfPairs(program: string, wanted: Pair[]): Promise<string[]> {
    interface Measured { name: string; cpu_time: number; real_time: number; time_unit: "ns" | "us" | "ms" | "s"; run_type: "iteration" | "aggregate" }
    // In turns: a virtual machine is now faster and now slower, for seconds on end.
    const options = ["--benchmark_format=json", "--benchmark_repetitions=9", "--benchmark_min_time=0.3", "--benchmark_enable_random_interleaving"];
    const report = JSON.parse(await outputOf([program, ...options])) as { benchmarks: Measured[] };
    const nanoseconds = (name: string, clock: Clock): number => {
        const found = report.benchmarks
            .filter((each) => each.run_type === "iteration" && each.name === name)
            .map((each) => each[clock] * { ns: 1, us: 1e3, ms: 1e6, s: 1e9 }[each.time_unit])
            .sort((a, b) => a - b);
        if (found.length === 0) throw new Error(`${program} has no ${name}`);
        // The same work costs the processor the same: what is more was somebody else's. What waits for others varies by itself.
        return found[clock === "cpu_time" ? 0 : Math.floor(found.length / 2)]!;
    };
    return wanted.map(({ what, name, floorName, floor, clock, reach }) => {
        const least = nanoseconds(floor, clock);
        const here = nanoseconds(name, clock);
        const most = typeof reach === "object" ? reach.timesFloor * least : reach;
        const mark = typeof reach === "object" ? `${reach.timesFloor} × the floor` : reach === undefined ? "reported" : time(reach);
        const isMet = most === undefined ? "" : here <= most ? "yes" : "no";
        return `| ${what} | ${floorName} ${time(least)} | ${time(here)} | ${mark} | ${isMet} |`;
    });
}

function writePage(path: string, text: string): void {
    writeFileSync(join(import.meta.dir, "..", path), text);
    console.error(`==> ${path}`);
}

const [folder, ...names] = process.argv.slice(2);
if (!folder) throw new Error("which folder?");
const programs = readdirSync(folder, { recursive: true, encoding: "utf8" })
    .map((path) => join(folder, path))
    .filter((path) => path.endsWith("-bench") && statSync(path).isFile())
    .filter((path) => names.length === 0 || names.some((name) => path.endsWith(`/${name}`)))
    .sort();

const rows: string[] = [];
const failed: string[] = [];
const load = loadavg()[0]!.toFixed(1);
const machine = `on ${new Date().toISOString().slice(0, 10)}: ${cpus().length} cores of ${cpus()[0]!.model}`;
for (const program of programs) {
    const name = program.split("/").at(-1)!;
    console.error(`==> ${name}`);
    try {
        if (name === "echo-bench") {
            writePage("build/echo.md", `# Echo canceller

What the backend hears of the near end and of the echo, by \`bench/run echo-bench\` ${machine}: raw, past the library's canceller as it comes, and past
ours, over every scenario of \`bench/audio/echo\`. Only the last row depends on the machine.

${(await outputOf([program])).trim()}
`);
            continue;
        }
        const found = pairs[name]
            ? await rowsOfPairs(program, pairs[name])
            : (await outputOf([program])).split("\n").filter((line) => line.startsWith("| "));
        if (found.length === 0) throw new Error(`${name} gave no figure`);
        console.log(found.join("\n"));
        rows.push(...found);
    } catch (problem) {
        console.error(`${problem}`);
        failed.push(name);
    }
}
// A page with a hole in it would hide the hole.
if (names.length === 0 && failed.length === 0) {
    writePage("docs/performance.md", `# Performance

What \`bench/run\` measured ${machine}, load average ${load} before it began (above 1 the figures of the wall clock are too high, the last of a hundred
first). Each figure stands beside its floor, the least that does the same work, taken in the same run; read the one against the other, for the machine is
in both. The figures of the resampler, the canceller, the decoding and the formats are processor time, the least of nine rounds, as are their floors; all
others are the wall clock's. desktops.md has start and memory on whole desktops, on X11 and on Wayland.

| what | floor in the same run | here | to reach | met |
|---|---|---|---|---|
${rows.join("\n")}
`);
}
if (failed.length > 0) {
    console.error(`failed: ${failed.join(", ")}`);
    process.exitCode = 1;
}
