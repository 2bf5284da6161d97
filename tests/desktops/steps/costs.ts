// What the program costs there: docs/performance.md has the same on a bare display.

import { readFileSync } from "node:fs";
import { join } from "node:path";
import { end, startPiped, until } from "../../rehearsal/process";
import { check } from "../../rehearsal/stage";
import { closeWindow, palomet, type Place, status, windowInFront } from "../place";
import { processesOf } from "../session";
import { quit, startAlone } from "./session";

/** In megabytes: the window was never opened, and it is open. */
const mostClosed = 65;
const mostOpen = 80;
const starts = 5;
const longestStartMs = 20_000;
/** What is held for a moment after something was shown is given back by then. */
const calmMs = 3000;

/** The memory that is the program's own, with its part of what it shares, with the microphone open. */
export async function costs(place: Place): Promise<string> {
    const { desktop, watcher } = place;
    const seen: string[] = [];
    if (desktop.hasTray) seen.push(`${median(await timesOfStarts(place)).toFixed(0)} ms to its icon`);
    await until("its microphone", async () => (await watcher.state())?.device === "Microphone");
    // Where there is no tray the window has opened by itself.
    if (desktop.hasTray) {
        await Bun.sleep(calmMs);
        const closed = megabytes();
        check(closed < mostClosed, `with the window closed it takes ${closed.toFixed(1)} MB`);
        seen.push(`${closed.toFixed(1)} MB`);
    }
    await palomet(place, "--open");
    await windowInFront(place);
    await Bun.sleep(calmMs);
    const open = megabytes();
    check(open < mostOpen, `with the window open it takes ${open.toFixed(1)} MB`);
    seen.push(`${open.toFixed(1)} MB with the window open`);
    await closeWindow(place);
    return seen.join(", ");
}

/** From each start to the icon in the tray, in milliseconds. */
async function timesOfStarts(place: Place): Promise<number[]> {
    const { environment } = place.session;
    const watch = startPiped(["gdbus", "monitor", "--session", "--dest", "org.kde.StatusNotifierWatcher"], environment, join(place.folder, "tray.log"));
    let text = "";
    void watch.stdout.pipeTo(new WritableStream({ write: (piece) => void (text += new TextDecoder().decode(piece)) }));
    await until("the tray to be watched", () => text.includes("is owned by"));
    const times: number[] = [];
    while (times.length < starts) {
        await quit(place);
        text = "";
        const begun = performance.now();
        startAlone(place);
        while (!text.includes("StatusNotifierItemRegistered")) {
            check(performance.now() - begun < longestStartMs, "no icon comes");
            await Bun.sleep(1);
        }
        times.push(performance.now() - begun);
        await until("it to wait", async () => (await status(place).catch(() => undefined))?.state === "waiting");
    }
    await end(watch);
    return times;
}

function megabytes(): number {
    const [id] = processesOf(/^palomet$/);
    return (Number(/^Pss: +(\d+) kB/m.exec(readFileSync(`/proc/${id}/smaps_rollup`, "utf8"))?.[1]) * 1024) / 1e6;
}

const median = (values: number[]) => values.sort((one, other) => one - other)[Math.floor(values.length / 2)]!;
