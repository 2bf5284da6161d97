// A conversation from the first word to the last, on a desktop of its own, with the program as a user would start it. Prints each
// step with its time; keeps recordings and logs in build/rehearsal/; exits with 0 only if every step happened.

import { existsSync, mkdirSync, mkdtempSync, readFileSync, rmSync } from "node:fs";
import { tmpdir } from "node:os";
import { join, resolve } from "node:path";
import { Watcher } from "./backend";
import { startDesktop, TrayItem } from "./desktop";
import { endAll, type Environment, run, start, until } from "./process";
import { SoundDesk } from "./sound";

const root = resolve(import.meta.dir, "../..");
const program = process.env.PALOMET_PROGRAM ?? join(root, "build/release/palomet");
const folder = process.env.PALOMET_REHEARSAL ?? join(root, "build/rehearsal");
const words = JSON.parse(readFileSync(join(root, "resources/en.lproj/strings.json"), "utf8")) as Record<string, string>;
const soundServerKills = Number(process.env.PALOMET_SOUND_SERVER_KILLS ?? 10);

const begin = performance.now();
const seconds = () => ((performance.now() - begin) / 1000).toFixed(2).padStart(6);
const step = (text: string) => console.log(`${seconds()} s  ${text}`);

function check(holds: boolean, what: string): void {
    if (!holds) throw new Error(what);
}

async function rehearse(): Promise<void> {
    rmSync(folder, { recursive: true, force: true });
    mkdirSync(folder, { recursive: true });
    const runtimeFolder = mkdtempSync(join(tmpdir(), "palomet-"));

    const environment = await startDesktop(folder, runtimeFolder);
    step("A desktop with a tray is there");
    const sound = new SoundDesk(environment, folder);
    await sound.start();
    step("A sound server with a microphone and speakers is there");

    const log = join(environment.HOME!, "Library/Logs/loquent/palomet.log");
    const palomet = start([program], environment, join(folder, "palomet.out"));
    const watcher = new Watcher();
    watcher.start();
    try {
        const tray = await TrayItem.find(environment);
        step("Palomet is in the tray");
        await watcher.reach("waiting");
        step("The backend answers and waits");
        await until("the state line with the microphone's name", async () => {
            await tray.open();
            return (await tray.menu())[0]?.label === `${words["state.waiting"]} · Microphone`;
        });
        step(`The menu says "${words["state.waiting"]} · Microphone"`);

        await hear(watcher, sound);
        await command(environment);
        await shortcut(watcher, environment);
        await answer(watcher, sound, environment);
        await interrupt(watcher, sound, tray);
        await storm(watcher, sound);
        await quit(palomet, tray, log);
    } finally {
        watcher.end();
        sound.end();
        sound.recording.save(join(folder, "speakers.wav"));
        if (existsSync(log)) await Bun.write(join(folder, "palomet.log"), Bun.file(log));
        await endAll();
        rmSync(runtimeFolder, { recursive: true, force: true });
    }
}

/** Somebody speaks, and it hears that. */
async function hear(watcher: Watcher, sound: SoundDesk): Promise<void> {
    const since = watcher.states.length;
    let loudest = 0;
    const listening = setInterval(() => (loudest = Math.max(loudest, watcher.level)), 20);
    await sound.speak("Palomet, can you hear what I am saying to you?");
    await watcher.reach("hearing", since);
    clearInterval(listening);
    check(loudest > 0.01, `the microphone's level never rose (${loudest})`);
    step(`It hears a voice: level ${loudest.toFixed(2)}, state "hearing"`);
    await watcher.settle();
}

/** The command line asks the running program how it is. */
async function command(environment: Environment): Promise<void> {
    const from = performance.now();
    const status = (await run([program, "--status"], environment)).split("\n");
    check(status[0] === "waiting" && status[1] === "Microphone", `--status says ${status.join(", ")}`);
    step(`palomet --status says "${status[0]}" (${Math.round(performance.now() - from)} ms)`);
}

/** The listen key works from anywhere; Stop ends the listening. */
async function shortcut(watcher: Watcher, environment: Environment): Promise<void> {
    const since = watcher.states.length;
    await run(["xdotool", "key", "alt+space"], environment);
    await watcher.reach("listening", since);
    await run([program, "--stop"], environment);
    await watcher.reach("waiting", since + watcher.states.slice(since).indexOf("listening"));
    step("Alt+Space makes it listen, palomet --stop ends that");
}

/** A typed request is answered aloud, to the end. */
async function answer(watcher: Watcher, sound: SoundDesk, environment: Environment): Promise<void> {
    const since = watcher.states.length;
    const from = performance.now();
    await run([program, "--say", "What time is it?"], environment);
    await watcher.reach("speaking", since);
    await watcher.reach("waiting", since + watcher.states.slice(since).indexOf("speaking"), 60_000);
    const audible = sound.recording.audibleSeconds(from);
    check(audible > 0.5, `the answer could not be heard (${audible.toFixed(2)} s of sound)`);
    const answered = (await watcher.state())?.conversation.rows.at(-1)?.text ?? "";
    step(`It answers "${answered}" (${watcher.states.slice(since).join(", ")}; ${audible.toFixed(1)} s heard)`);
}

/** Stop in the menu ends an answer at once. */
async function interrupt(watcher: Watcher, sound: SoundDesk, tray: TrayItem): Promise<void> {
    const since = watcher.states.length;
    const from = performance.now();
    await watcher.post("say", { text: "What can you do?" });
    await watcher.reach("speaking", since);
    await until("the first words", () => sound.recording.audibleSeconds(from) > 0.3);
    const pressed = performance.now();
    await tray.click(words["menu.stop"]!);
    await watcher.reach("waiting", since + watcher.states.slice(since).indexOf("speaking"), 3000);
    const stopped = performance.now();
    await Bun.sleep(1000);
    const after = sound.recording.audibleSeconds(stopped + 300);
    check(after === 0, `it spoke on for ${after.toFixed(2)} s after Stop`);
    step(`Stop in the menu silences it (${Math.round(stopped - pressed)} ms to "waiting")`);
}

/** A sound server that dies takes only the sound of that moment with it. */
async function storm(watcher: Watcher, sound: SoundDesk): Promise<void> {
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
    await watcher.reach("waiting", since + watcher.states.slice(since).indexOf("speaking"), 60_000);
    check(sound.recording.audibleSeconds(from) > 0.5, "the answer after the storm could not be heard");
    step("It still answers aloud");
}

async function quit(palomet: ReturnType<typeof start>, tray: TrayItem, log: string): Promise<void> {
    await tray.click(words["menu.quit"]!);
    const code = await Promise.race([palomet.exited, Bun.sleep(6000).then(() => "none")]);
    check(code === 0, `quit ended with exit code ${code}`);
    const lines = readFileSync(log, "utf8").split("\n").filter((line) => line.startsWith("saindo: "));
    const expected = [/^saindo: pedido de saída recebido$/, /^saindo: parando o processo de voz \(pid \d+\)$/, /^saindo: pronto$/];
    check(lines.length === expected.length && expected.every((pattern, index) => pattern.test(lines[index]!)),
        `the log's last lines are not those of an orderly end: ${lines.join(" | ")}`);
    step("Quit in the menu ends it in order, exit code 0");
}

try {
    await rehearse();
    console.log(`${seconds()} s  Everything happened. Recordings and logs: ${folder}`);
    process.exit(0);
} catch (problem) {
    console.error(`${seconds()} s  FAILED: ${problem instanceof Error ? problem.message : problem}`);
    console.error(`          Logs: ${folder}`);
    await endAll();
    process.exit(1);
}
