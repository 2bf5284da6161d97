// What it does besides talking, asked for aloud and without a language model: a timer, a sum, a note, an application, the volume.

import { existsSync, mkdirSync, readFileSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import { MediaPlayer, NotificationServer, ScreenSaver } from "../../engine/test/support/desktopServices";
import { answerTo, giveUp, request, sayOnce, sayUntil } from "./conversation";
import { run, until } from "./process";
import { otherVoice, type Voice } from "./sound";
import { check, type Stage, step } from "./stage";

interface Told {
    voice?: Voice;
    /** What has to be so as well when it has answered. */
    isDone?: () => boolean;
    /** Asks again what this answers: giving up is a no. */
    again?: () => Promise<unknown>;
}

/** Says something that is meant for it, and gives what it answers aloud, which has to be like that. */
export async function tell(stage: Stage, text: string, wanted: RegExp, { voice, isDone = () => true, again }: Told = {}): Promise<string> {
    const { sound } = stage;
    for (;;) {
        const from = performance.now();
        const { heard, since } = await sayOnce(stage, text, voice);
        let problem = `"${text}" was ${JSON.stringify(heard)}`;
        if (heard.action === "accepted") {
            const answer = await answerTo(stage, since);
            await until(`"${answer}" to be heard`, () => sound.speakers.audibleSeconds(from) > 0.3);
            if (wanted.test(answer) && isDone()) return answer;
            problem = `to "${heard.text}" it says "${answer}"`;
        }
        await giveUp(stage, problem);
        await again?.();
    }
}

/** A timer is set, asked after, rings aloud and in a notification, and is stopped. */
export async function timer(stage: Stage): Promise<void> {
    const { watcher, sound, environment } = stage;
    const notifications = await NotificationServer.open(environment);
    const before = watcher.spoken.length;
    const set = await tell(stage, "Palomet, set a timer for thirty seconds.", /^The timer rings in 30 seconds\.$/);
    const left = await tell(stage, "Palomet, how much time is left?", /rings in \d+ seconds?\.$/);
    const isRing = (sentence: string): boolean => /30 seconds is done/.test(sentence);
    const ring = await until("the timer to ring", () => watcher.spoken.slice(before).find(isRing), 60_000);
    const rung = performance.now();
    await until("the ring to be heard", () => sound.speakers.audibleSeconds(rung) > 0.3);
    const shown = await until("the notification", () => notifications.shown.at(-1));
    check(shown.actions.join() === "stop,Stop,snooze,Snooze", `the notification is ${JSON.stringify(shown)}`);
    await watcher.reach("waiting", watcher.states.lastIndexOf("speaking"));
    await sayUntil(stage, "Palomet, stop.", ({ action }) => action === "accepted");
    const since = watcher.states.length;
    await watcher.post("say", { text: "How much time is left?" });
    const after = await answerTo(stage, since);
    check(after === "There are no timers.", `after the ring was stopped it says "${after}"`);
    await until("the notification to go", () => notifications.takenBack.includes(shown.id));
    await notifications.close();
    const rang = `ringing: "${ring}" (a notification says "${shown.text}")`;
    step(`A timer set aloud: "${set}", asked after: "${left}", ${rang}, stopped: "${after}"`);
}

/** A media player and the screen do as they are told, the screen after a yes. */
export async function useDesktop(stage: Stage): Promise<void> {
    const { environment } = stage;
    const metadata = { type: "a{sv}", data: [["xesam:title", { type: "s", data: "The lighthouse" }]] };
    const player = await MediaPlayer.open("rehearsal", "Playing", metadata, environment);
    const saver = await ScreenSaver.open(environment);
    const ask = (text: string): Promise<string> => request(stage, text);
    const playing = await ask("What is playing?");
    check(playing.includes("The lighthouse"), `asked what is playing it says "${playing}"`);
    await ask("Pause the music.");
    check(player.calls.join() === "Pause", `the player was told ${player.calls.join()}`);
    const question = await ask("Lock the screen.");
    check(/^May I\?/.test(question) && saver.locks === 0, `told to lock the screen it says "${question}" (locked ${saver.locks} times)`);
    const locked = await ask("Yes.");
    check(saver.locks === 1, `after a yes the screen was locked ${saver.locks} times`);
    await Promise.all([player.close(), saver.close()]);
    step(`Typed, it tells what plays: "${playing}", pauses it, and locks the screen: "${question}" "${locked}"`);
}

export async function calculate(stage: Stage): Promise<void> {
    const answer = await tell(stage, "Palomet, what is twenty plus thirty?", /\b50\b/);
    step(`Asked what twenty plus thirty is, it says "${answer}"`);
}

/** What is to stay is written down after a yes, and read out. */
export async function takeNote(stage: Stage): Promise<void> {
    const file = join(stage.environment.HOME!, "Documents/Palomet/Notes.md");
    const question = await tell(stage, "Palomet, note that the milk is gone.", /^May I\? Note: the milk is gone\.$/);
    check(!existsSync(file), "it wrote the note before it was allowed to");
    const again = (): Promise<string> => request(stage, "Note that the milk is gone.");
    const done = await tell(stage, "Palomet, yes please.", /./, { isDone: () => existsSync(file), again });
    check(readFileSync(file, "utf8").includes("the milk is gone"), `the notes are ${readFileSync(file, "utf8")}`);
    const read = await tell(stage, "Palomet, can you read my notes?", /the milk is gone/i, { voice: otherVoice });
    step(`A note is asked about: "${question}", taken: "${done}", and read: "${read}"`);
}

/** An application of the menu is opened by its name; where the user does not want to be asked, at once. */
export async function openApplication(stage: Stage): Promise<void> {
    const { environment, screen, watcher } = stage;
    const folder = join(environment.XDG_DATA_HOME!, "applications");
    mkdirSync(folder, { recursive: true });
    const entry = ["[Desktop Entry]", "Type=Application", "Name=Calculator", "Exec=xev -name Sums -geometry 200x100+900+500", ""];
    writeFileSync(join(folder, "sums.desktop"), entry.join("\n"));
    const asks = (await watcher.state())?.settings.confirmActions as string[];
    await watcher.post("settings", { confirmActions: asks.filter((id) => id !== "open") });
    const window = async (): Promise<string> => (await screen.do("search", "--onlyvisible", "--name", "^Sums$").catch(() => "")).trim();
    check((await window()) === "", "the application is open before it was asked for");
    const answer = await tell(stage, "Palomet, can you open the calculator?", /^Opening Calculator\.$/);
    const id = await until("the application's window", window);
    await screen.do("windowkill", id);
    await until("the application to be gone", async () => (await window()) === "");
    await watcher.post("settings", { confirmActions: asks });
    step(`An application is opened, without a question when none is wanted: "${answer}"`);
}

export async function changeVolume(stage: Stage): Promise<void> {
    const { environment, watcher } = stage;
    const level = async (): Promise<string> => /(\d+)%/.exec(await run(["pactl", "get-sink-volume", "@DEFAULT_SINK@"], environment))?.[1] ?? "";
    const before = await level();
    const answer = await tell(stage, "Palomet, could you set the volume to forty percent?", /^The volume is at 40%\.$/, { voice: otherVoice });
    const now = await level();
    check(now === "40" && before !== now, `the volume went from ${before}% to ${now}%`);
    await run(["pactl", "set-sink-volume", "@DEFAULT_SINK@", `${before}%`], environment);
    await watcher.settle();
    step(`The volume is changed from ${before}% to ${now}%: "${answer}"`);
}
