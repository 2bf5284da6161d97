// How long it takes: to notice that somebody speaks, to have the text, to answer.

import { Engine, until } from "../engine";
import { roomNoise } from "../hearing";
import { marked, median, told, type Row } from "../row";
import type { Bench } from "../scene";
import type { Clip } from "../set/clips";
import { rate, seconds } from "../set/signal";
import { someoneSpeaks } from "./noise";

const endSilenceMs = 800;
const milliseconds = (value: number): string => `${value.toFixed(0)} ms`;
const samples = (ms: number): number => (ms * rate) / 1000;

async function inRoom<T>(use: (engine: Engine) => Promise<T>): Promise<T> {
    const engine = await Engine.start({ settings: { endSilenceMs, followUpMs: 1000 } });
    try {
        engine.microphone.noise = roomNoise();
        await engine.microphone.reach(engine.microphone.place + seconds(3));
        return await use(engine);
    } finally {
        await engine.end();
    }
}

/** Says a clip, and tells the moment at which the sample so many milliseconds after its first one was sent. */
async function say(engine: Engine, bench: Bench, clip: Clip): Promise<(ms: number) => number> {
    const from = await engine.microphone.say(bench.set.sound(clip));
    await engine.microphone.reach(from + samples(clip.durationMs));
    await engine.microphone.reach(from + samples(clip.toMs) + samples(endSilenceMs));
    return (ms) => engine.microphone.sentAt(from + samples(ms));
}

async function rest(engine: Engine): Promise<void> {
    await until("the engine to wait", () => engine.phase === "waiting", 60_000);
    await engine.microphone.reach(engine.microphone.place + seconds(1.5));
    engine.forget();
}

export async function onset(bench: Bench): Promise<Row[]> {
    return await inRoom(async (engine) => {
        const took: number[] = [];
        const clips = someoneSpeaks(bench.set.of("english")).filter((_, index) => index % bench.every === 0);
        for (const clip of clips) {
            const sentAt = await say(engine, bench, clip);
            const opened = engine.told.find(({ event, data }) => event === "phase" && data === "hearing");
            if (opened) took.push(opened.at - sentAt(clip.fromMs));
            await rest(engine);
        }
        const middle = median(took);
        return [marked(`somebody begins to speak to "hearing", median of ${took.length}`, milliseconds(middle), "120 ms", middle <= 120)];
    });
}

export async function text(bench: Bench): Promise<Row[]> {
    const ofThreeSeconds = bench.set.of("english").filter(({ fromMs, toMs }) => toMs - fromMs > 2500 && toMs - fromMs < 3500);
    return await inRoom(async (engine) => {
        const took: number[] = [];
        for (const clip of ofThreeSeconds.slice(0, Math.ceil(20 / bench.every))) {
            const sentAt = await say(engine, bench, clip);
            const ended = sentAt(clip.toMs + endSilenceMs);
            // A pause in it may have ended an utterance before.
            await until("the text", () => engine.phase === "waiting" && engine.told.some(({ event, data }) => event === "phase" && data === "hearing"), 60_000);
            const last = engine.told.findLast(({ event }) => event === "phase")!;
            took.push(last.at - ended);
            await rest(engine);
        }
        const middle = median(took);
        const most = Math.max(...took);
        return [
            marked(`end silence after three seconds of speech to the text, median of ${took.length}`, milliseconds(middle), "20 ms", middle <= 20),
            told("the longest of them", milliseconds(most)),
        ];
    });
}

export async function answer(bench: Bench): Promise<Row[]> {
    const questions = bench.set.of("name").filter(({ words }) => words === "Palomet, what time is it?");
    return await inRoom(async (engine) => {
        const took: number[] = [];
        for (const clip of [...questions, ...questions].slice(0, Math.ceil(12 / bench.every))) {
            const sentAt = await say(engine, bench, clip);
            const ended = sentAt(clip.toMs + endSilenceMs);
            const came = await until("the answer", () => engine.clips[0], 5000).catch(() => undefined);
            if (came) took.push(came.cameAt + came.leadMs - ended);
            await engine.quiet();
            await rest(engine);
        }
        const middle = median(took);
        return [marked(`end silence after a question to the first sound of its answer, median of ${took.length} answers`, milliseconds(middle), "250 ms", middle <= 250)];
    });
}

const answerOfSix =
    "The train leaves at seven. It stops in three towns on its way to the coast. You can buy the ticket on board! " +
    "Would you like me to remind you? There is also a later one, but it is slower and has no dining car. That is all I know.";

export async function gaps(_: Bench): Promise<Row[]> {
    return await inRoom(async (engine) => {
        const between: number[] = [];
        for (let round = 0; round < 3; round++) {
            const since = engine.told.length;
            await engine.post("say", { text: answerOfSix });
            await engine.event("the answer", ({ event }) => event === "turnEnd", since, 120_000);
            engine.clips.forEach(({ from }, index, all) => {
                if (index > 0) between.push(from - all[index - 1]!.to);
            });
            await rest(engine);
        }
        const most = Math.max(0, ...between);
        return [marked(`the longest of ${between.length} gaps between the sentences of an answer`, milliseconds(most), "60 ms", between.length > 0 && most <= 60)];
    });
}
