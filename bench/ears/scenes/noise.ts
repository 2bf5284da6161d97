// Whether somebody is heard at all when the room is loud.

import { marked, told, type Row } from "../row";
import { sayAll, type Bench } from "../scene";
import type { Clip } from "../set/clips";

const utterances = 64;
const least = 60;

/** People who say a few words and people who say many, from all over the recordings. */
export function someoneSpeaks(clips: Clip[]): Clip[] {
    const fit = clips.filter(({ fromMs, toMs }) => toMs - fromMs >= 600 && toMs - fromMs <= 8000);
    return Array.from({ length: utterances }, (_, index) => fit[Math.floor((index * fit.length) / utterances)]!);
}

export async function noise(bench: Bench): Promise<Row[]> {
    const clips = someoneSpeaks(bench.set.of("english"));
    const rows: Row[] = [];
    for (const ratio of [undefined, 10, 5, 0]) {
        const label = ratio === undefined ? "without noise" : `with pink noise ${ratio} dB below the voice`;
        const outcomes = await sayAll(bench, clips, {
            label: `heard ${label}`, isWrong: ({ heard }) => heard.length === 0, ...(ratio === undefined ? {} : { ratio }),
        });
        const heard = outcomes.filter((one) => one.heard.length > 0).length;
        const here = `${heard} of ${outcomes.length}`;
        const what = `utterances heard ${label}`;
        rows.push(ratio === 5 ? marked(what, here, `${least} of ${utterances}`, heard >= (least * outcomes.length) / utterances) : told(what, here));
    }
    return rows;
}
