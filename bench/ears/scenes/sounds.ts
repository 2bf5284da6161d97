// What is taken for speech that is none.

import { isCalled, roomNoise } from "../hearing";
import { Engine, until } from "../engine";
import { marked, told, type Row } from "../row";
import { sayAll, type Bench } from "../scene";
import { fan, joined, rate, scaled, seconds, silence, typing, type Signal } from "../set/signal";

const fanLevel = -40;
const typingLevel = -14;
const minute = 60;

export async function sounds(bench: Bench): Promise<Row[]> {
    const clips = bench.set.of("sound");
    const outcomes = await sayAll(bench, clips, { label: "sounds", isWrong: ({ openings, heard }) => openings > 0 || heard.length > 0 });
    const utterances = outcomes.reduce((count, { heard }) => count + heard.length, 0);
    const openings = outcomes.reduce((count, { openings: one }) => count + one, 0);
    const dog = bench.set.sound(clips.find(({ path }) => path?.endsWith("/dog.ogg"))!);
    const barking = joined(Array.from({ length: 30 }, () => [dog, silence(seconds(1.1))]).flat());
    const blowing = await during(bench, scaled(fan(seconds(minute), 3), fanLevel));
    const keys = await during(bench, scaled(typing(seconds(minute), 4), typingLevel));
    const barks = await during(bench, barking);
    return [
        marked(`utterances in ${outcomes.length} sounds that are no speech`, String(utterances), "2", utterances <= 2),
        told('the state "hearing" in the same', String(openings)),
        told("of the same taken for a call or a request", String(outcomes.filter(isCalled).length)),
        marked("utterances in a minute of a fan that is switched on", String(blowing), "0", blowing === 0),
        told("utterances in a minute of somebody typing", String(keys)),
        told("utterances in a dog's thirty barks", String(barks)),
    ];
}

/** How many utterances it finds in a sound that goes on, after the silence of the room. */
async function during({ speed }: Bench, sound: Signal): Promise<number> {
    const engine = await Engine.start({ speed });
    try {
        engine.microphone.noise = roomNoise();
        const from = await engine.microphone.say(joined([silence(seconds(3)), sound, silence(seconds(3))]));
        await engine.microphone.reach(from + sound.length + 6 * rate);
        await until("the end of what is heard", () => engine.phase === "waiting", 60_000);
        return (await engine.heard()).length;
    } finally {
        await engine.end();
    }
}
