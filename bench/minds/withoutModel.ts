// Measures what somebody waits for who has no model: from a request that a hand answers to the first sound, the voice's time included.

import { mkdtempSync, rmSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { chooseLocale } from "../../engine/src/base/language";
import type { Settings } from "../../engine/src/base/protocol";
import { Children } from "../../engine/src/machine/children";
import { Choices } from "../../engine/src/machine/choices";
import { withoutLead } from "../../engine/src/sound/wav";
import { ProgramSynthesiser } from "../../engine/src/voice/synthesiser";
import { Engine, until } from "../ears/engine";
import { leadOf } from "../ears/loudspeaker";

const requests = [
    "Set a timer for ten minutes.", "How much time is left?", "Cancel the timer.", "What is twenty plus thirty?",
    "How many miles is ten kilometers?", "What time is it in Tokyo?",
];

/** Of each request the time to its first sound, and the least that does the same: the voice alone, with the same answer. */
export async function withoutModel(rounds: number, warming: number): Promise<{ least: number[]; here: number[] }> {
    const [least, here]: number[][] = [[], []];
    const folder = mkdtempSync(join(tmpdir(), "palomet-minds-"));
    const engine = await Engine.start();
    const children = new Children(process.env);
    const choices = new Choices(children, chooseLocale({ PALOMET_LANGUAGES: "en-US" }));
    const voice = new ProgramSynthesiser(children, () => choices.voices(), folder, (line) => console.error(line));
    const going = new AbortController().signal;
    try {
        for (let round = 0; round < rounds + warming; round++) {
            engine.forget();
            const askedAt = performance.now();
            await engine.post("say", { text: requests[round % requests.length] });
            const { cameAt, leadMs } = await until("the answer", () => engine.clips[0]);
            const { conversation, settings } = await engine.state();
            await engine.quiet();
            const begunAt = performance.now();
            const clip = await voice.speak(conversation.rows.at(-1)!.text, settings as unknown as Settings, going);
            if (!clip) throw new Error("there is no voice");
            if (round < warming) continue;
            least!.push(performance.now() - begunAt + leadOf(withoutLead(clip).file));
            here!.push(cameAt + leadMs - askedAt);
        }
    } finally {
        await engine.end();
        rmSync(folder, { recursive: true, force: true });
    }
    return { least: least!, here: here! };
}
