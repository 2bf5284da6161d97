// What the program shows while it thinks, speaks, is muted, has no microphone, and has no backend.

import { readdirSync, readFileSync } from "node:fs";
import { answerTo } from "./conversation";
import { stopKey } from "./keys";
import { run, until } from "./process";
import { check, program, type Stage, step, words } from "./stage";
import type { Strip } from "./strip";
import { Thinker } from "./thinker";

/** Long enough to be seen and stopped. */
const notes = "You wanted to call the carpenter about the window, and then to have a long cup of tea with all of your neighbours. " +
    "After that you wanted to write a letter to your aunt, and to walk to the lighthouse and back before it rains.";

/** It thinks for as long as it takes, and says then what it has thought; Escape ends both. */
export async function think(stage: Stage, strip: Strip): Promise<void> {
    const { watcher, environment } = stage;
    const thinker = await Thinker.hire(stage);
    const ask = async (text: string) => {
        const since = watcher.states.length;
        await run([program, "--say", text], environment);
        await watcher.reach("thinking", since);
        return since;
    };
    await ask("Whom do I have to call?");
    const asked = await strip.photograph("thinking", { line: /notes\.txt/ });
    await stopKey(stage, strip, "thinking");
    const since = await ask("Whom do I have to call?");
    await strip.photograph("thinking", { line: /notes\.txt/ });
    await thinker.answer(notes);
    await watcher.reach("speaking", since);
    const spoken = await strip.photograph("speaking", { line: /^You wanted/ });
    await stopKey(stage, strip, "speaking");
    await thinker.dismiss();
    step(`While it thinks the strip says "${asked}", while it speaks "${spoken.slice(0, 40)}…"`);
}

/** Mute in the menu makes it deaf, and the strip says where that can be undone. */
export async function mute({ watcher, screen, tray }: Stage, strip: Strip): Promise<void> {
    const since = watcher.states.length;
    await screen.key("alt+space");
    await watcher.reach("listening", since);
    await strip.photograph("listening");
    await tray.click(words["menu.mute"]!);
    const line = await strip.photograph("muted", { line: new RegExp(`^${words["strip.mutedInMenu"]}$`) });
    check((await watcher.state())?.isMuted === true, "it is not muted");
    await strip.leave();
    await until("the menu to offer Unmute", async () => (await tray.menu()).some(({ label }) => label === words["menu.unmute"]));
    await tray.click(words["menu.unmute"]!);
    await watcher.reach("waiting", since + 1);
    step(`Muted in the menu, the strip says "${line}" and goes; Unmute ends that`);
}

/** Without a sound server there is no microphone: whoever wants to be listened to is told so. With the next server it listens again. */
export async function loseMicrophone({ watcher, sound, screen }: Stage, strip: Strip): Promise<void> {
    await sound.stop();
    await until("the microphone to be missed", async () => (await watcher.state())?.isMicDead);
    const since = watcher.states.length;
    await screen.key("alt+space");
    const line = await strip.photograph("muted", { line: new RegExp(`^${words["strip.needsMicrophone"]}$`), name: "needs-microphone" });
    await sound.start();
    const from = performance.now();
    await until("the microphone to be back", async () => (await watcher.state())?.isMicDead === false);
    const took = ((performance.now() - from) / 1000).toFixed(1);
    check(watcher.states.slice(since).includes("muted"), `without a microphone it was ${watcher.states.slice(since).join(", ")}`);
    await watcher.post("stop");
    await watcher.settle();
    step(`Without a sound server, Alt+Space makes the strip say "${line}"; the microphone is back ${took} s after the server`);
}

/** A backend that dies is missed at once, and another takes its place by itself. */
export async function loseBackend(stage: Stage, strip: Strip): Promise<void> {
    const { watcher, sound, tray, environment, palomet } = stage;
    const since = watcher.states.length;
    await watcher.post("say", { text: "What can you do?" });
    await watcher.reach("speaking", since);
    await strip.photograph("speaking", { line: /^I can/ });
    const backend = childrenOf(palomet.pid).find((pid) => nameOf(pid) === "bun");
    check(backend !== undefined, "the program has no backend");
    const killed = performance.now();
    process.kill(backend!, "SIGKILL");
    const offline = words["state.offline"];
    const returned = until("the backend to be back", async () => (await watcher.state()) && performance.now());
    await Promise.all([
        strip.photograph("offline"),
        until("--status to say offline", async () => (await run([program, "--status"], environment)).startsWith("offline")),
        until("the menu to say so", async () => (await tray.menu())[0]?.label === offline),
    ]);
    const seen = performance.now();
    const away = (await returned) - killed;
    await until("the menu to say that it waits", async () => (await tray.menu())[0]?.label === `${words["state.waiting"]} · Microphone`);
    const back = performance.now();
    check(away > 1900, `the backend was away for no more than ${Math.round(away)} ms`);
    const [seenAfter, backAfter] = [seen - killed, back - killed].map(Math.round);
    step(`Its backend killed, strip, menu and --status say "${offline}" (${seenAfter} ms); another answers after ${Math.round(away)} ms, and is shown after ${backAfter} ms`);
    await watcher.settle();
    const asked = watcher.states.length;
    const from = performance.now();
    await run([program, "--say", "What time is it?"], environment);
    const answer = await answerTo(stage, asked);
    check(sound.speakers.audibleSeconds(from) > 0.5, "the new backend's answer could not be heard");
    step(`The new backend says "${answer}"`);
}

function childrenOf(pid: number): number[] {
    const threads = readdirSync(`/proc/${pid}/task`);
    return threads.flatMap((thread) => readFileSync(`/proc/${pid}/task/${thread}/children`, "utf8").split(" ").filter(Boolean).map(Number));
}

function nameOf(pid: number): string {
    return readFileSync(`/proc/${pid}/comm`, "utf8").trim();
}
