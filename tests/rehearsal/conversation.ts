// The sentences that are said aloud in a rehearsal, and what must come of them.

import type { Heard } from "../../engine/src/base/protocol";
import type { State } from "./backend";
import { run, until } from "./process";
import { check, program, type Stage, step } from "./stage";
import { otherVoice, usualVoice, type Voice } from "./sound";
import type { Strip } from "./strip";

/** An interruption must be over so soon after its first sound, in milliseconds. */
const silentWithin = 300;
const interruptions = 3;

/** Settings that are changed hold, one that is none is refused, and all of it is what the rest of the rehearsal needs. */
export async function changeSettings({ watcher }: Stage): Promise<void> {
    const settings = { brainModel: "built-in", endSilenceMs: 600, followUpMs: 800, voiceSpeed: 1.1 };
    check(await watcher.post("settings", settings), "good settings were refused");
    check(!(await watcher.post("settings", { voiceSpeed: 9 })), "a voice nine times as fast was taken");
    const kept = (await watcher.state())?.settings ?? {};
    check(Object.entries(settings).every(([key, value]) => kept[key] === value), `the settings are ${JSON.stringify(kept)}`);
    step(`Settings are changed: ${JSON.stringify(settings)}; a bad one is refused`);
}

/** Says something to it, and gives what it took that for and did with it. */
export async function say({ watcher, sound }: Stage, text: string, voice?: Voice): Promise<Heard> {
    const before = (await watcher.state())?.heard ?? [];
    await sound.speak(text, voice);
    return await until(`"${text}" to be heard`, async () => {
        const now = await watcher.state();
        // While somebody speaks the newest entry is not yet all that is said.
        return now?.state !== "hearing" && now?.heard?.filter((one) => !before.some(({ at }) => at === one.at)).at(-1);
    });
}

/** So many sentences of a rehearsal may have to be said again. */
const mostRepeated = 3;
let repeated = 0;

/**
 * Says something until it is taken as it was meant; `since` is where its states begin then. A busy machine's sound server loses
 * a piece of a sentence now and then.
 */
export async function sayUntil(stage: Stage, text: string, isMeant: (heard: Heard) => boolean, voice?: Voice): Promise<{ heard: Heard; since: number }> {
    for (;;) {
        const said = await sayOnce(stage, text, voice);
        if (isMeant(said.heard)) return said;
        await giveUp(stage, `"${text}" was ${JSON.stringify(said.heard)}`);
    }
}

/** Says something, and gives what it took that for, and where its states begin then. */
export async function sayOnce(stage: Stage, text: string, voice?: Voice): Promise<{ heard: Heard; since: number }> {
    const since = stage.watcher.states.length;
    const first = await say(stage, text, voice);
    // A gap after the name: what follows is heard by itself.
    const heard = first.action === "summoned" ? await following(stage, first).catch(() => first) : first;
    return { heard, since };
}

async function following({ watcher }: Stage, { at }: Heard): Promise<Heard> {
    return await until("what follows the name", async () => {
        const now = await watcher.state();
        const newest = now?.state === "hearing" ? undefined : now?.heard?.at(-1);
        return newest?.at === at ? undefined : newest;
    }, 5_000);
}

/** Ends what was not as it was meant, so that it can be said again, as long as that has not been too often. */
export async function giveUp(stage: Stage, problem: string): Promise<void> {
    check(++repeated <= mostRepeated, problem);
    step(`To be said again: ${problem}`);
    await stage.watcher.post("stop");
    await settle(stage);
}

/** Waits until nothing goes on, and what it would hear without its name is over. */
export async function settle({ watcher }: Stage): Promise<void> {
    await until("it to wait", () => watcher.states.at(-1) === "waiting");
    await watcher.settle();
}

/** Types a request, and gives the answer, once it has said all of it. */
export async function request(stage: Stage, text: string): Promise<string> {
    const since = stage.watcher.states.length;
    await run([program, "--say", text], stage.environment);
    return await answerTo(stage, since);
}

/** What it has answered, once it has said all of it. */
export async function answerTo({ watcher }: Stage, since: number): Promise<string> {
    await watcher.reach("speaking", since);
    await watcher.reach("waiting", watcher.after("speaking", since), 60_000);
    return (await watcher.state())?.conversation.rows.at(-1)?.text ?? "";
}

/** A question asked aloud is understood without a network, and answered aloud. */
export async function ask(stage: Stage): Promise<void> {
    const { sound } = stage;
    const from = performance.now();
    const isMeant = ({ action, text }: Heard): boolean => action === "accepted" && /what time is it/i.test(text);
    const { heard: question, since } = await sayUntil(stage, "Palomet, what time is it?", isMeant);
    const answer = await answerTo(stage, since);
    const audible = sound.speakers.audibleSeconds(from);
    const told = new Set([0, 1, 2].map((minutes) => clock(new Date(Date.now() - minutes * 60_000))));
    check(told.has(answer), `asked for the time it says "${answer}"`);
    check(audible > 0.7, `the answer could not be heard (${audible.toFixed(2)} s of sound)`);
    step(`Asked aloud "${question.text}" it says "${answer}" (${audible.toFixed(1)} s heard; ${await tookTo(stage)})`);
}

function clock(now: Date): string {
    return `It is ${now.getHours() % 12 || 12}:${String(now.getMinutes()).padStart(2, "0")} ${now.getHours() < 12 ? "AM" : "PM"}.`;
}

async function tookTo({ watcher }: Stage): Promise<string> {
    const timings = (await watcher.state())?.timings;
    return `${Math.round(timings?.transcribeMs ?? 0)} ms to understand, ${Math.round(timings?.totalMs ?? 0)} ms to the first word`;
}

/** Whoever talks over an answer silences it and is understood. */
export async function talkOver(stage: Stage): Promise<void> {
    const { watcher, sound } = stage;
    const took: number[] = [];
    let heard: Heard | undefined;
    await sound.prepare("Palomet, what day is it?");
    for (let round = 0; round < interruptions; round++) {
        const since = watcher.states.length;
        const from = performance.now();
        await watcher.post("say", { text: "What can you do?" });
        await watcher.reach("speaking", since);
        await until("the first words", () => sound.speakers.audibleSeconds(from) > 1 + 0.4 * round, 5000);
        const interrupted = performance.now();
        heard = await say(stage, "Palomet, what day is it?");
        check(/^(interrupted|accepted)$/.test(heard.action), `talking over the answer was ${JSON.stringify(heard)}`);
        const [voice] = sound.mouth.audibleMoments(interrupted);
        check(voice !== undefined, "nobody spoke");
        await until("the silence to be recorded", () => sound.speakers.end > voice! + 1000);
        const last = sound.speakers.audibleMoments(from, voice! + 1000).at(-1) ?? 0;
        took.push(Math.round(last + 10 - voice!));
        step(`Talked over, it is silent ${took.at(-1)} ms after the first sound, and takes it for "${heard.text}" (${heard.action})`);
        if (heard.action === "accepted") {
            const day = await answerTo(stage, since + watcher.states.slice(since).indexOf("hearing"));
            check(/^Today is /.test(day), `asked for the day it says "${day}"`);
        }
        await watcher.post("stop");
        await watcher.settle();
    }
    const median = [...took].sort((a, b) => a - b)[Math.floor(took.length / 2)]!;
    check(median <= silentWithin, `it was silent only after ${took.join(", ")} ms`);
}

/** Sentences are taken down, shown, and carried out by the phrase. */
export async function draft(stage: Stage, strip: Strip): Promise<void> {
    const { watcher } = stage;
    await watcher.post("settings", { isDraftOn: true });
    // The usual voice says "day" much as "they", which nothing but the words around it could tell.
    for (const [text, voice] of [["Palomet, what time is it?", usualVoice], ["What day is it today?", otherVoice]] as const) {
        const heard = await say(stage, text, voice);
        check(heard.action === "drafted", `"${text}" was ${JSON.stringify(heard)}`);
    }
    const entries = ((await watcher.state()) as State).draft?.map(({ text }) => text) ?? [];
    check(entries.length === 2, `the draft is ${JSON.stringify(entries)}`);
    const line = await strip.photograph("drafting", { line: /^2 / });
    const since = watcher.states.length;
    const phrase = await say(stage, "Go ahead.");
    check(phrase.action === "acted", `the phrase was ${JSON.stringify(phrase)}`);
    const answer = await answerTo(stage, since);
    check(/^It is .* Today is /.test(answer), `the draft was answered "${answer}"`);
    check(((await watcher.state())?.draft ?? []).length === 0, "the draft is not empty");
    await watcher.post("settings", { isDraftOn: false });
    step(`Drafted "${entries.join('", "')}" (the strip says "${line}"); on "${phrase.text}" it says "${answer}"`);
    await watcher.settle();
}
