// What each scene of the bench is given.

import { appendFileSync } from "node:fs";
import { type Outcome, type Room, sayEach } from "./hearing";
import type { Row } from "./row";
import type { Clip, ClipSet } from "./set/clips";
import type { Wanted } from "./engine";

export interface Bench {
    set: ClipSet;
    /** How many times faster than time itself the engine is spoken to where no latency is measured. */
    speed: number;
    /** What became of each clip is written here. */
    report: string;
    /** Less of everything, by this factor, for trying the bench itself. */
    every: number;
}

export type Scene = (bench: Bench) => Promise<Row[]>;

export interface Saying extends Room {
    label: string;
    wanted?: Wanted;
    isWrong?: (outcome: Outcome) => boolean;
}

/** Says the clips, and writes down what became of each. */
export async function sayAll({ set, speed, report, every }: Bench, clips: Clip[], { label, wanted = {}, isWrong, ...room }: Saying): Promise<Outcome[]> {
    const onOutcome = (outcome: Outcome): void => {
        const { clip, heard, openings, request } = outcome;
        const { id, package: package_, path, voice, words } = clip;
        const line = { scene: label, id, package: package_, path, voice, words, heard, openings, request, wrong: isWrong?.(outcome) };
        appendFileSync(report, `${JSON.stringify(line)}\n`);
    };
    const some = clips.filter((_, index) => index % every === 0);
    return await sayEach(set, some, { speed, ...wanted }, { onOutcome, ...room });
}
