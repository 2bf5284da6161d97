// Whether the Portuguese phrases are understood, and nothing else is taken for one of them.

import type { Outcome } from "../hearing";
import { marked, told, type Row } from "../row";
import { sayAll, type Bench, type Saying } from "../scene";
import type { Clip } from "../set/clips";
import { percent, plain } from "../words";

const mostFalse = 0.02;

const isUnderstood = ({ heard }: Outcome): boolean => heard.some(({ text }) => text !== "…" && text.trim() !== "");
const isRight = ({ heard, clip }: Outcome): boolean => plain(heard.map(({ text }) => text).join(" ")).join(" ") === plain(clip.words ?? "").join(" ");

export async function portuguese(bench: Bench): Promise<Row[]> {
    const { set } = bench;
    const say = async (clips: Clip[], saying: Omit<Saying, "wanted">): Promise<Outcome[]> => await sayAll(bench, clips, { ...saying, wanted: { language: "pt" } });
    const known = await say(set.of("portuguese-phrase"), { label: "Portuguese phrases", isWrong: (outcome) => !isRight(outcome) });
    const rows = [told(`Portuguese phrases heard right, synthetic voices`, `${known.filter(isRight).length} of ${known.length}`)];
    const foreign = set.of("other").filter(({ language }) => language === "es").filter((_, index) => index % 10 === 0);
    const none: [string, Clip[]][] = [
        ["names of food and numbers, people", set.of("portuguese")],
        ["letters and syllables, people", set.of("portuguese-letters")],
        ["names of animals in Spanish, people", foreign],
        ["sentences, synthetic voices", set.of("portuguese-sentence")],
    ];
    const people: Outcome[] = [];
    for (const [what, clips] of none) {
        const outcomes = await say(clips, { label: `Portuguese, none of its phrases: ${what}`, isWrong: isUnderstood });
        rows.push(told(`taken for a Portuguese phrase: ${what}`, `${outcomes.filter(isUnderstood).length} of ${outcomes.length}`));
        if (what.endsWith("people")) people.push(...outcomes);
    }
    const wrong = people.filter(isUnderstood).length;
    return [...rows, marked("of all people together", percent(wrong, people.length), `${100 * mostFalse} %`, wrong <= mostFalse * people.length)];
}
