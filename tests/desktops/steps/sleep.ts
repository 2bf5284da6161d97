// The computer sleeps.

import { readFileSync } from "node:fs";
import { until } from "../../rehearsal/process";
import { palomet, type Place, status } from "../place";
import { processesOf } from "../session";

const sleepMs = 5000;

/** Nothing runs for a while, as in a sleep; afterwards it is there, with its microphone, and listens. */
export async function sleep(place: Place): Promise<string> {
    const { watcher } = place;
    const asleep = [...processesOf(/^(palomet|pulseaudio)$/), ...processesOf(/^bun$/).filter(isEngine)];
    for (const id of asleep) process.kill(id, "SIGSTOP");
    await Bun.sleep(sleepMs);
    for (const id of asleep) process.kill(id, "SIGCONT");
    await until("it to wait", async () => (await status(place).catch(() => undefined))?.state === "waiting");
    await until("its microphone", async () => (await watcher.state())?.device === "Microphone");
    const since = watcher.states.length;
    await palomet(place, "--listen");
    await watcher.reach("listening", since);
    await palomet(place, "--stop");
    await watcher.reach("waiting", watcher.after("listening", since));
    return `after ${sleepMs / 1000} s in which none of its ${asleep.length} processes ran, it has its microphone and listens`;
}

const isEngine = (id: number) => readFileSync(`/proc/${id}/cmdline`, "utf8").includes("src/main.ts");
