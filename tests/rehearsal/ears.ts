// What is said in free words, what is no speech, and names that it is given: all of it heard as it was meant.

import { join } from "node:path";
import type { Heard } from "../../engine/src/base/protocol";
import { say, sayUntil, settle } from "./conversation";
import { run, startPiped } from "./process";
import { otherVoice, usualVoice } from "./sound";
import { check, type Stage, step } from "./stage";

const question = "Palomet, could you tell me what time it is in Lisbon right now?";
const sounds = Number(process.env.PALOMET_SOUNDS ?? 90);
/** It may take so many of them for somebody, if it does nothing about it. */
const mostTakenForSomebody = 2;

/** The words alone, without case and marks. */
const plain = (text: string): string => text.toLowerCase().replace(/[^a-z0-9' ]+/g, " ").replace(/\s+/g, " ").trim();

/** A question that it does not know by heart is heard to the word, from two people, and in noise. */
export async function freeWords(stage: Stage): Promise<void> {
    const { sound, watcher, environment } = stage;
    await sound.prepare(question, usualVoice);
    await sound.prepare(question, otherVoice);
    const heard: string[] = [];
    for (const isNoisy of [false, true]) {
        const noise = isNoisy ? await makeNoise(stage) : undefined;
        const playing = noise === undefined ? undefined : startPiped(["paplay", "--device=mouth", noise], environment, join(stage.folder, "noise.log"));
        for (const voice of [usualVoice, otherVoice] as const) {
            const isMeant = ({ action, text }: Heard): boolean => action === "accepted" && plain(text) === plain(question);
            heard.push((await sayUntil(stage, question, isMeant, voice)).heard.text);
            await watcher.post("stop");
            await settle(stage);
        }
        playing?.kill();
        await playing?.exited;
        await settle(stage);
    }
    step(`Asked in free words by two voices, with and without noise, it hears "${heard[0]}" each time`);
}

/** Sounds that are no speech wake nobody. */
export async function sleepThroughSounds(stage: Stage): Promise<void> {
    const { watcher, sound } = stage;
    const before = await soFar(stage);
    const since = watcher.states.length;
    await sound.play(await makeSounds(stage));
    await settle(stage);
    const news = (await soFar(stage)).filter(({ at }) => !before.some((one) => one.at === at));
    check(news.every(({ action }) => action === "ignored"), `a sound was obeyed: ${JSON.stringify(news)}`);
    check(news.length <= mostTakenForSomebody, `${news.length} sounds were taken for somebody: ${JSON.stringify(news)}`);
    const others = watcher.states.slice(since).filter((state) => !["waiting", "hearing"].includes(state));
    check(others.length === 0, `sounds made it ${others.join(", ")}`);
    step(`${sounds} sounds that are no speech wake nobody (${news.length} taken for somebody)`);
}

/** It answers to each name that it is given, from the next moment on, and no longer to the one before. */
export async function rename(stage: Stage): Promise<void> {
    const { watcher } = stage;
    for (const [name, before] of [["Computer", "Palomet"], ["Maria Clara", "Computer"]] as const) {
        check(await watcher.post("settings", { wakeWords: [name] }), `the name "${name}" was refused`);
        const stranger = await say(stage, `${before}, what day is it?`);
        check(stranger.action === "ignored", `named "${name}", it took "${before}" for its name: ${JSON.stringify(stranger)}`);
        await settle(stage);
        await sayUntil(stage, `${name}, what day is it?`, ({ action }) => action === "accepted");
        await watcher.post("stop");
        await settle(stage);
        step(`Named "${name}", it comes when it is called so, and not when it is called "${before}"`);
    }
    check(await watcher.post("settings", { wakeWords: ["palomet"] }), "its own name was refused");
}

async function soFar({ watcher }: Stage): Promise<Heard[]> {
    return (await watcher.state())?.heard ?? [];
}

/** The same noise every time, some 20 dB below the voices. */
async function makeNoise({ folder, environment }: Stage): Promise<string> {
    const path = join(folder, "noise.wav");
    await run(["sox", "-R", "-n", "-r", "16000", "-c", "1", "-b", "16", path, "synth", "60", "pinknoise", "vol", "-26dB"], environment);
    return path;
}

/** One file of short sounds with a little silence between them: knocks, hums, whistles, hisses, strings, slides, each in many pitches. */
async function makeSounds({ folder, environment }: Stage): Promise<string> {
    const kinds: ((step: number) => string[])[] = [
        (step) => ["synth", "0.05", "brownnoise", "fade", "l", "0", "0.05", "0.04", "lowpass", String(200 + 100 * step)],
        (step) => ["synth", "0.4", "sine", String(80 + 40 * step)],
        (step) => ["synth", "0.3", "sine", String(600 + 150 * step)],
        (step) => ["synth", "0.5", "whitenoise", "highpass", String(300 + 250 * step)],
        (step) => ["synth", "0.6", "pluck", String(90 + 30 * step)],
        (step) => ["synth", "0.4", "sine", `${200 + 60 * step}-${1800 - 60 * step}`],
        (step) => ["synth", "0.2", "square", String(100 + 45 * step)],
        (step) => ["synth", "0.5", "pinknoise", "tremolo", String(4 + 2 * step), "90"],
        (step) => ["synth", "0.03", "whitenoise", "fade", "l", "0", "0.03", "0.025", "bandpass", String(1500 + 300 * step), "400"],
    ];
    const parts: string[] = [];
    for (let number = 0; number < sounds; number++) {
        const part = join(folder, `sound-${number + 1}.wav`);
        const synth = kinds[number % kinds.length]!(Math.floor(number / kinds.length));
        await run(["sox", "-R", "-n", "-r", "16000", "-c", "1", "-b", "16", part, ...synth, "norm", "-9", "pad", "0", "0.3"], environment);
        parts.push(part);
    }
    const path = join(folder, "sounds.wav");
    await run(["sox", ...parts, path], environment);
    return path;
}
