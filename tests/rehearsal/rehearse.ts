// The whole application from the first click to the last, with the program as a user would start it, or only the acts that are
// named. Pictures, recordings and logs stay in build/rehearsal/.

import { readFileSync } from "node:fs";
import { ask, changeSettings, draft, talkOver } from "./conversation";
import { freeWords, rename, sleepThroughSounds } from "./ears";
import { calculate, changeVolume, openApplication, takeNote, timer, useDesktop } from "./hands";
import { listenKey } from "./keys";
import { thinkByServer } from "./mind";
import { run, until } from "./process";
import type { Room } from "./sound";
import { check, perform, program, type Stage, step, words } from "./stage";
import { loseBackend, loseMicrophone, mute, think } from "./states";
import { Strip } from "./strip";
import { changeSwitch, closeWindow, listHistory, openWindow, showPanes, typeRequest } from "./window";

const soundServerKills = Number(process.env.PALOMET_SOUND_SERVER_KILLS ?? 10);

/** Speakers on a desk, a good deal softer at the microphone than whoever sits there; monologue.ts has a louder room. */
const desk: Room = { paths: [{ delayMs: 40, volumePercent: 45 }] };

/** Only what is about hearing needs a room in which the speakers are heard: on a busy machine their echo comes when nobody expects it. */
const headphones: Room = { paths: [] };

/** The story's acts, in their order. Each can be played without the others, on a stage of its own. */
const acts: Record<string, (stage: Stage) => Promise<void>> = {
    async window(stage) {
        await name(stage);
        await openWindow(stage);
        await typeRequest(stage);
        await listHistory(stage);
        await showPanes(stage);
        await changeSwitch(stage);
        await closeWindow(stage);
    },
    async hearing(stage) {
        await hear(stage, await Strip.beside(stage));
        await ask(stage);
        await talkOver(stage);
        await freeWords(stage);
        await sleepThroughSounds(stage);
        await rename(stage);
    },
    async hands(stage) {
        await openWindow(stage);
        await thinkByServer(stage);
        await closeWindow(stage);
        await draft(stage, await Strip.beside(stage));
        await timer(stage);
        await useDesktop(stage);
        await calculate(stage);
        await takeNote(stage);
        await openApplication(stage);
        await changeVolume(stage);
    },
    async trouble(stage) {
        const strip = await Strip.beside(stage);
        await command(stage);
        await listenKey(stage, strip);
        await answer(stage);
        await stop(stage);
        await think(stage, strip);
        await mute(stage, strip);
        await loseBackend(stage, strip);
        await loseMicrophone(stage, strip);
        await storm(stage);
    },
};

const wanted = process.argv.length > 2 ? process.argv.slice(2) : Object.keys(acts);
const unknown = wanted.find((act) => !(act in acts));
if (unknown !== undefined) throw new Error(`there is no act "${unknown}", only ${Object.keys(acts).join(", ")}`);

await perform("rehearsal", async (stage) => {
    await changeSettings(stage);
    for (const act of wanted) await acts[act]!(stage);
    await quit(stage);
}, wanted.includes("hearing") ? desk : headphones);

/** The menu names the microphone. */
async function name({ tray }: Stage): Promise<void> {
    await until("the state line with the microphone's name", async () => {
        await tray.open();
        return (await tray.menu())[0]?.label === `${words["state.waiting"]} · Microphone`;
    });
    step(`The menu says "${words["state.waiting"]} · Microphone"`);
}

/** Somebody speaks, and it hears that. */
async function hear({ watcher, sound }: Stage, strip: Strip): Promise<void> {
    const since = watcher.states.length;
    let loudest = 0;
    let isShown = false;
    const listening = setInterval(() => (loudest = Math.max(loudest, watcher.level)), 20);
    const shown = strip.photograph("hearing").finally(() => (isShown = true));
    do await sound.speak("There is somebody in this room, and nobody else is here."); while (!isShown);
    const line = await shown;
    await watcher.reach("hearing", since);
    clearInterval(listening);
    check(loudest > 0.01, `the microphone's level never rose (${loudest})`);
    step(`It hears a voice: level ${loudest.toFixed(2)}, state "hearing", and the strip says "${line}"`);
    await watcher.settle();
}

/** The command line asks the running program how it is. */
async function command({ environment }: Stage): Promise<void> {
    const from = performance.now();
    const status = (await run([program, "--status"], environment)).split("\n");
    check(status[0] === "waiting" && status[1] === "Microphone", `--status says ${status.join(", ")}`);
    step(`palomet --status says "${status[0]}" (${Math.round(performance.now() - from)} ms)`);
}

/** A typed request is answered aloud, to the end. */
async function answer({ watcher, sound, environment }: Stage): Promise<void> {
    const since = watcher.states.length;
    const from = performance.now();
    await run([program, "--say", "What time is it?"], environment);
    await watcher.reach("speaking", since);
    await watcher.reach("waiting", watcher.after("speaking", since), 60_000);
    const audible = sound.speakers.audibleSeconds(from);
    check(audible > 0.5, `the answer could not be heard (${audible.toFixed(2)} s of sound)`);
    const answered = (await watcher.state())?.conversation.rows.at(-1)?.text ?? "";
    step(`Typed, it answers "${answered}" (${watcher.states.slice(since).join(", ")}; ${audible.toFixed(1)} s heard)`);
}

/** Stop in the menu ends an answer at once. */
async function stop({ watcher, sound, tray }: Stage): Promise<void> {
    const since = watcher.states.length;
    const from = performance.now();
    await watcher.post("say", { text: "What can you do?" });
    await watcher.reach("speaking", since);
    await until("the first words", () => sound.speakers.audibleSeconds(from) > 0.3);
    const pressed = performance.now();
    await tray.click(words["menu.stop"]!);
    await watcher.reach("waiting", watcher.after("speaking", since), 3000);
    const stopped = performance.now();
    await until("the silence to be recorded", () => sound.speakers.end > stopped + 1000);
    const after = sound.speakers.audibleSeconds(stopped + 300);
    check(after === 0, `it spoke on for ${after.toFixed(2)} s after Stop`);
    step(`Stop in the menu silences it (${Math.round(stopped - pressed)} ms to "waiting")`);
}

/** A sound server that dies takes only the sound of that moment with it. */
async function storm({ watcher, sound }: Stage): Promise<void> {
    for (let round = 1; round <= soundServerKills; ++round) {
        await sound.restart();
        const since = watcher.states.length;
        await until("the microphone after the sound server's return", async () => {
            await sound.speak("Hello, hello, hello.");
            return watcher.states.slice(since).includes("hearing");
        }, 30_000);
        await watcher.settle();
    }
    if (soundServerKills === 0) return;
    step(`The sound server died ${soundServerKills} times, and each time the microphone came back by itself`);
    const since = watcher.states.length;
    const from = performance.now();
    await watcher.post("say", { text: "What day is it?" });
    await watcher.reach("speaking", since);
    await watcher.reach("waiting", watcher.after("speaking", since), 60_000);
    check(sound.speakers.audibleSeconds(from) > 0.5, "the answer after the storm could not be heard");
    step("It still answers aloud");
}

async function quit({ palomet, tray, log }: Stage): Promise<void> {
    await tray.click(words["menu.quit"]!);
    const said = () => readFileSync(log, "utf8").split("\n").filter((line) => line.startsWith("saindo: "));
    await until("the log's last line", () => said().includes("saindo: pronto"), 6000);
    // A sanitizer looks through all the memory before it lets the process go.
    const code = await Promise.race([palomet.exited, Bun.sleep(60_000).then(() => "none")]);
    check(code === 0, `quit ended with exit code ${code}`);
    const lines = said();
    const expected = [/^saindo: pedido de saída recebido$/, /^saindo: parando o processo de voz \(pid \d+\)$/, /^saindo: pronto$/];
    check(lines.length === expected.length && expected.every((pattern, index) => pattern.test(lines[index]!)),
        `the log's last lines are not those of an orderly end: ${lines.join(" | ")}`);
    step("Quit in the menu ends it in order, exit code 0");
}
