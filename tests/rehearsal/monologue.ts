// Ten minutes of the agent's own speech, heard by the microphone as a room returns it, while somebody turns the volume every
// minute: nothing of it may be taken for somebody. At the end somebody does speak, and must be heard. Recordings and logs stay
// in build/monologue/.
//   $PALOMET_MINUTES: how long, 10; $PALOMET_ROOM: "drifting" where the speakers' clock is not the microphone's

import { changeSettings, talkOver } from "./conversation";
import { check, perform, type Stage, step } from "./stage";

const minutes = Number(process.env.PALOMET_MINUTES ?? 10);

/** The way from the speakers to the microphone, and by the wall. */
const room = {
    paths: [{ delayMs: 60, volumePercent: 80 }, { delayMs: 95, volumePercent: 50 }],
    isDrifting: process.env.PALOMET_ROOM === "drifting",
};

/** What the speakers' volume is turned to, minute by minute, per cent of its way. */
const volumes = [100, 70, 90, 50, 80, 100, 60];

const subjects = [
    "The old lighthouse keeper", "A letter from my aunt", "Every train to the coast", "The garden behind the school", "Nobody in the village",
    "The first snow of the year", "A good cup of coffee", "The people upstairs", "Our neighbour's dog", "The museum by the river",
];
const events = [
    "arrived later than anybody had thought", "was seen again on the third of May", "costs forty seven dollars and sixty cents",
    "sounds louder in the evening than at noon", "has been repaired twice since last winter", "waits for better weather",
];
const endings = [", and that was all.", ", although it rained!", " before six o'clock.", ", or so they say.", " without a word.", ", which surprised us all.", "."];

/** A paragraph that no other is like. */
function paragraph(number: number): string {
    const pick = (list: string[], step: number) => list[(number * 7 + step) % list.length]!;
    return Array.from({ length: 8 }, (_, line) => pick(subjects, line * 3) + " " + pick(events, line * 5 + number) + pick(endings, line)).join(" ");
}

await perform("monologue", async (stage) => {
    await changeSettings(stage);
    const { watcher, sound } = stage;
    const from = performance.now();
    let spoken = 0;
    let turned = 0;
    const hand = setInterval(() => void sound.turn(volumes[++turned % volumes.length]!), 60_000);
    for (let number = 0; spoken < minutes * 60; number++) {
        const since = watcher.states.length;
        const asked = performance.now();
        await watcher.post("say", { text: paragraph(number) });
        await watcher.reach("speaking", since);
        await watcher.reach("waiting", watcher.after("speaking", since), 300_000);
        spoken += sound.speakers.audibleSeconds(asked);
        const heard = await heardSoFar(stage);
        step(`${spoken.toFixed(0)} s spoken, ${heard.length} times taken for somebody${heard.length === 0 ? "" : `: ${JSON.stringify(heard.at(-1))}`}`);
    }
    clearInterval(hand);
    await sound.turn(volumes[0]!);
    const heard = await heardSoFar(stage);
    const hearing = watcher.states.filter((state) => state === "hearing").length;
    check(heard.length === 0 && hearing === 0, `it took its own voice for somebody ${heard.length} times, and listened to it ${hearing} times`);
    step(`In ${((performance.now() - from) / 60_000).toFixed(1)} minutes with ${(spoken / 60).toFixed(1)} of its own voice and the volume turned ${turned} times nothing was taken for somebody`);
    await talkOver(stage);
}, room);

async function heardSoFar({ watcher }: Stage) {
    return (await watcher.state())?.heard ?? [];
}
