// Speaks to one engine again and again for as long as a day, and looks at what it holds.
//   bun soak.ts FOLDER [TURNS] [SECONDS]    FOLDER: where the set is; a turn every so many seconds

import { readdirSync, readFileSync } from "node:fs";
import { join } from "node:path";
import { Engine, until } from "./engine";
import { isCalled, roomNoise, say } from "./hearing";
import { median } from "./row";
import { ClipSet } from "./set/clips";

/** So many turns are an hour, at one every five minutes. */
const anHour = 12;
/** The last hour may hold so much more than the first after it: what is loaded on first use is there by then. */
const mostGrowth = 1.05;

interface Footprint {
    /** Of their own; what they map of files depends on who else maps them. */
    megabytes: number;
    descriptors: number;
    processes: number;
}

function footprint(processes: number[]): Footprint {
    const anonymous = (process: number): number =>
        Number(/^Anonymous:\s+(\d+)/m.exec(readFileSync(`/proc/${process}/smaps_rollup`, "utf8"))?.[1] ?? 0) * 1024;
    return {
        megabytes: processes.reduce((sum, process) => sum + anonymous(process), 0) / 1e6,
        descriptors: processes.reduce((sum, process) => sum + readdirSync(`/proc/${process}/fd`).length, 0),
        processes: processes.length,
    };
}

const [folder, turns = "288", every = "300"] = process.argv.slice(2);
if (!folder) throw new Error("which folder?");
const set = new ClipSet(join(folder, "set"));
const requests = set.of("name", "name-choosing");
const remarks = set.of("english", "synthetic", "sound");
const engine = await Engine.start({ settings: { followUpMs: 1000 } });
const footprints: Footprint[] = [];
let answered = 0;
try {
    engine.microphone.noise = roomNoise();
    for (let turn = 0; turn < Number(turns); turn++) {
        const from = performance.now();
        const request = requests[(turn * 7) % requests.length]!;
        const outcome = await say(engine, request, set.sound(request));
        if (isCalled(outcome)) {
            answered++;
            // Called without a request it listens for one, which then does not come.
            await until("the answer's end", () => engine.phase === "waiting", 120_000);
        }
        const remark = remarks[(turn * 11) % remarks.length]!;
        await say(engine, remark, set.sound(remark));
        await until("the engine to wait", () => engine.phase === "waiting", 120_000);
        engine.forget();
        footprints.push(footprint(engine.processes));
        if ((turn + 1) % anHour === 0) {
            const { megabytes, descriptors, processes } = footprints.at(-1)!;
            console.log(`turn ${String(turn + 1).padStart(4)}: ${megabytes.toFixed(1)} MB, ${descriptors} descriptors, ${processes} processes, ${answered} answered`);
        }
        await Bun.sleep(Math.max(0, from + Number(every) * 1000 - performance.now()));
    }
} finally {
    await engine.end();
}
const memory = (part: Footprint[]): number => median(part.map(({ megabytes }) => megabytes));
const first = memory(footprints.slice(anHour, 2 * anHour));
const last = memory(footprints.slice(-anHour));
console.log(`after the first hour ${first.toFixed(1)} MB, in the last ${last.toFixed(1)} MB`);
if (!(last <= mostGrowth * first)) {
    console.error("it holds more than after the first hour");
    process.exitCode = 1;
}
