// How many words of what people say are heard wrong.

import { textOf, type Outcome } from "../hearing";
import { marked, told, type Row } from "../row";
import { sayAll, type Bench } from "../scene";
import { errorsOf, percent, sum, type Errors } from "../words";

const errors = (outcome: Outcome): Errors => errorsOf(outcome.clip.words ?? "", textOf(outcome));

export async function sentences(bench: Bench): Promise<Row[]> {
    const recorded = bench.set.of("english");
    const isWrong = (outcome: Outcome): boolean => errors(outcome).wrong > 0;
    const share = (all: Outcome[]): [string, number] => {
        const { wrong, words } = sum(all.map(errors));
        return [percent(wrong, words), wrong / Math.max(1, words)];
    };
    const row = (what: string, all: Outcome[], most: number): Row => {
        const [text, part] = share(all);
        return marked(what, text, `${most} %`, 100 * part <= most);
    };
    const clean = await sayAll(bench, recorded, { label: "sentences", isWrong });
    const prompts = clean.filter(({ clip }) => clip.package === "asterisk-core-sounds-en-g722");
    const noisy = await sayAll(bench, recorded, { label: "sentences 10 dB", ratio: 10, isWrong });
    const synthetic = await sayAll(bench, bench.set.of("synthetic"), { label: "synthetic sentences", isWrong });
    return [
        row(`words wrong, ${clean.length} recordings`, clean, 7),
        row("the same with pink noise 10 dB below the voice", noisy, 15),
        told(`of these the ${prompts.length} prompts alone, without noise`, share(prompts)[0]),
        told(`words wrong, ${synthetic.length} sentences of synthetic voices`, share(synthetic)[0]),
    ];
}
