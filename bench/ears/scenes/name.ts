// Whether it comes when it is called, and only then.

import { isCalled, type Outcome } from "../hearing";
import { marked, told, type Row } from "../row";
import { sayAll, type Bench } from "../scene";
import { errorsOf, percent, sum } from "../words";

/** What sounds alike is heard as the name or not by a hair: one pass tells too little of one in a hundred. */
const passes = 4;

export async function name(bench: Bench): Promise<Row[]> {
    const { set } = bench;
    const missed = (outcome: Outcome): boolean => !isCalled(outcome);
    const calls = async (ratio?: number): Promise<Outcome[]> =>
        await sayAll(bench, set.of("name"), { label: `name ${ratio ?? "clean"}`, isWrong: missed, ...(ratio === undefined ? {} : { ratio }) });
    const count = (outcomes: Outcome[]): number => outcomes.filter(isCalled).length;
    const row = (what: string, outcomes: Outcome[], least?: number): Row => {
        const here = `${count(outcomes)} of ${outcomes.length}`;
        return least === undefined ? told(what, here) : marked(what, here, `${least} of 54`, count(outcomes) >= (least * outcomes.length) / 54);
    };
    const clean = await calls();
    const soft = await calls(20);
    const loud = await calls(10);
    const inside = await sayAll(bench, set.of("name-inside"), { label: "name inside", isWrong: missed });
    const alike: Outcome[] = [];
    for (let pass = 0; pass < passes; pass++) {
        alike.push(...await sayAll(bench, set.of("alike"), { label: `alike ${pass + 1}`, pass, isWrong: isCalled }));
    }
    const others: Row[] = [];
    for (const called of ["Computer", "Maria Clara", "Old Man River", "Zephyrine"]) {
        const clips = set.of("other-name").filter((clip) => clip.name === called);
        const outcomes = await sayAll(bench, clips, { label: `name ${called}`, wanted: { settings: { wakeWords: [called] } }, isWrong: missed });
        others.push(told(`"${called}" heard as the name`, `${count(outcomes)} of ${outcomes.length}`));
    }
    const wrong = sum(clean.filter(isCalled).filter(({ clip }) => clip.request !== "").map(({ clip, request }) => errorsOf(clip.request ?? "", request ?? "")));
    return [
        row("the name heard", clean, 48),
        row("the same with pink noise 20 dB below the voice", soft, 40),
        row("the same with pink noise 10 dB below the voice", loud),
        told("words wrong in the requests beside the name", percent(wrong.wrong, wrong.words)),
        row("the name heard in the middle of a sentence", inside),
        marked(
            `heard as the name, of ${alike.length} that sound alike: ${alike.length / passes} sentences, each ${passes} times`,
            String(count(alike)), "1 %", count(alike) <= alike.length / 100,
        ),
        ...others,
    ];
}

/** An hour in which people speak of something else. */
export async function otherSpeech(bench: Bench): Promise<Row[]> {
    const clips = bench.set.of("other", "english", "synthetic");
    const outcomes = await sayAll(bench, clips, { label: "other speech", isWrong: isCalled });
    const minutes = outcomes.reduce((total, { clip }) => total + clip.durationMs, 0) / 60_000;
    const called = outcomes.filter(isCalled).length;
    return [marked(`heard as the name in ${minutes.toFixed(0)} minutes of other speech, ${outcomes.length} recordings`, String(called), "0", called === 0)];
}
