// Says the clips of the set to the engine one after another, each when the one before has been dealt with.

import type { Heard } from "../../engine/src/base/protocol";
import { Engine, until, type Wanted } from "./engine";
import type { Clip, ClipSet } from "./set/clips";
import { activeLevel, joined, pink, rate, scaled, seconds, type Signal, silence } from "./set/signal";

/** The level of a room in which nobody speaks, dBFS. */
const roomLevel = -75;
const noiseSeconds = 16;
/** Sound that the engine gets after a clip, at least: its end silence and what may come on top. */
const tailMs = 1600;
/** Time that the engine has after a clip, at least. */
const leastWaitMs = 400;
/** Samples by which each pass lies later. No multiple of it that is used is one of a frame: those have 320, 384 and 512. */
const passShift = 139;
/** The echo of its chime is not to be heard. */
const chimeMs = 500;

export interface Outcome {
    clip: Clip;
    heard: Heard[];
    /** The state became "hearing" so often while the clip sounded or after it. */
    openings: number;
    /** What it took down as a request. */
    request: string | undefined;
}

export const textOf = ({ heard }: Outcome): string => heard.map(({ text }) => text.replace(/^…$/, "")).join(" ");

/** It was called by its name: an utterance that does not hold it is ignored, for nothing else lets it in here. */
export const isCalled = ({ heard }: Outcome): boolean => heard.some(({ action }) => action !== "ignored" && action !== "echo");

export const roomNoise = (seed = 1): Signal => scaled(pink(seconds(noiseSeconds), seed), roomLevel);

/** The noise that lies so far below the voices of the set, dB. */
export function noiseBelow(signal: Signal, dB: number, seed = 2): Signal {
    return scaled(pink(seconds(noiseSeconds), seed), activeLevel(signal) - dB);
}

export interface Room {
    /** The noise in it lies so far below the voices, dB; without it nobody hears any. */
    ratio?: number;
    /** The same clips in another pass lie elsewhere in the engine's frames, in other noise. */
    pass?: number;
}

/** Gives the clips to an engine, and tells what came of each. */
export async function sayEach(
    set: ClipSet, clips: Clip[], wanted: Wanted, { ratio, pass = 0, onOutcome }: Room & { onOutcome?: (outcome: Outcome) => void } = {},
): Promise<Outcome[]> {
    const engine = await Engine.start(wanted);
    engine.loudspeaker.isOff = true;
    engine.microphone.noise = roomNoise(1 + pass);
    const lead = silence(pass * passShift);
    const outcomes: Outcome[] = [];
    try {
        // The room becomes known, and what starts with the first sound is started.
        await engine.microphone.reach(engine.microphone.place + seconds(2));
        for (const clip of clips) {
            const outcome = await say(engine, clip, joined([lead, set.sound(clip)]), ratio);
            onOutcome?.(outcome);
            if (engine.phase !== "waiting") {
                await engine.quiet();
                await engine.post("new");
                await Bun.sleep(chimeMs);
            }
            outcomes.push(outcome);
        }
    } finally {
        await engine.end();
    }
    return outcomes;
}

/** Says a clip to an engine, and waits until it has dealt with it; what it then does goes on. */
export async function say(engine: Engine, clip: Clip, sound: Signal, ratio?: number): Promise<Outcome> {
    engine.forget();
    await engine.heard();
    const rows = (await engine.state()).conversation.rows.length;
    const { microphone } = engine;
    if (ratio !== undefined) {
        microphone.noise = noiseBelow(sound, ratio);
        await microphone.reach(microphone.place + seconds(1.5));
    }
    const from = await microphone.say(sound);
    await microphone.reach(from);
    const since = microphone.sentAt(from);
    await microphone.reach(from + sound.length + (tailMs * rate) / 1000);
    await Bun.sleep(leastWaitMs);
    await until(`${clip.id} to be dealt with`, () => engine.phase !== "hearing", 60_000);
    const openings = engine.told.filter(({ event, data, at }) => event === "phase" && data === "hearing" && at >= since).length;
    const { conversation } = await engine.state();
    const request = conversation.rows.slice(rows).find(({ role }) => role === "user")?.text;
    return { clip, heard: await engine.heard(), openings, request };
}
