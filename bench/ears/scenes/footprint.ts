// What the engine takes while nobody speaks.

import { fileText } from "../../../engine/src/machine/fileText";
import { Engine } from "../engine";
import { roomNoise } from "../hearing";
import { marked, told, type Row } from "../row";
import { type Bench } from "../scene";
import { seconds } from "../set/signal";

const settleSeconds = 20;
const measuredSeconds = 60;
const ticksASecond = 100;

/** The proportional share of memory of these processes, MB. */
export function memoryOf(processes: number[]): number {
    return processes.reduce((sum, process) => sum + numberIn(`/proc/${process}/smaps_rollup`, /^Pss:\s+(\d+)/m) * 1024, 0) / 1e6;
}

/** The processor time that these processes have taken so far, in seconds. */
function processorTime(processes: number[]): number {
    return processes.reduce((sum, process) => {
        const fields = fileText(`/proc/${process}/stat`).replace(/^.*\) /s, "").split(" ");
        return sum + (Number(fields[11] ?? 0) + Number(fields[12] ?? 0)) / ticksASecond;
    }, 0);
}

const numberIn = (path: string, pattern: RegExp): number => Number(pattern.exec(fileText(path))?.[1] ?? 0);

export async function footprint({ every }: Bench): Promise<Row[]> {
    const engine = await Engine.start();
    try {
        const { microphone } = engine;
        microphone.noise = roomNoise();
        await microphone.reach(microphone.place + seconds(settleSeconds));
        const processes = engine.processes;
        const before = processorTime(processes);
        const from = performance.now();
        await microphone.reach(microphone.place + seconds(measuredSeconds / every));
        const share = (100_000 * (processorTime(processes) - before)) / (performance.now() - from);
        const megabytes = memoryOf(processes);
        return [
            marked("memory (PSS) of the engine and its children, microphone open, nobody has spoken", `${megabytes.toFixed(0)} MB`, "130 MB", megabytes <= 130),
            marked("processor time of the same in a silent room", `${share.toFixed(1)} % of a core`, "5 % of a core", share <= 5),
            told("processes", String(processes.length)),
        ];
    } finally {
        await engine.end();
    }
}
