// What the desktop is asked to say while the window is closed, and where a click on that leads.

import { until } from "../../rehearsal/process";
import { words } from "../../rehearsal/stage";
import { stillPicture } from "../pictures";
import { closeWindow, type Place, windowInFront } from "../place";
import { quit, start, startAlone } from "./session";

const port = 4780;
/** It waits a minute before it says anything. */
const longestWaitMs = 90_000;

/** Another program has the port: the desktop says so after a minute, and a click on ${found.button ? "its button" : "that"} opens the window at what may be wrong. */
export async function portTaken(place: Place): Promise<string> {
    await quit(place);
    const other = Bun.serve({ port, hostname: "127.0.0.1", fetch: () => new Response(null, { status: 404 }) });
    try {
        startAlone(place);
        // Without a tray its window opens by itself.
        if (!place.desktop.hasTray) await closeWindow(place);
        return await said(place, "port", "brain");
    } finally {
        await other.stop(true);
        await quit(place);
        await start(place);
        if (!place.desktop.hasTray) await closeWindow(place);
    }
}

/** Nothing has come from the microphone for a minute. */
export async function microphoneLost(place: Place): Promise<string> {
    await place.sound.stop();
    try {
        return await said(place, "microphone", "listening");
    } finally {
        await place.sound.restart();
        await until("its microphone", async () => (await place.watcher.state())?.device === "Microphone");
    }
}

async function said(place: Place, notice: string, pane: string): Promise<string> {
    const { session: { screen, tree }, session, desktop } = place;
    const title = words[`notice.${notice}`]!;
    const find = () => desktop.notice(session, title, words["menu.open"]!);
    const found = await until(`the notification "${title}"`, find, longestWaitMs);
    await screen.whole(`notification-${notice}`);
    await screen.click(found.button ?? found.itself);
    await windowInFront(place);
    const heading = words[`pane.${pane}.subtitle`]!;
    await until(`the pane "${pane}"`, async () => {
        const names = await Promise.all((await tree.windows()).map((window) => tree.names(window)));
        return names.flat().includes(heading);
    });
    await until("what it said to go", async () => (await find()) === undefined);
    await stillPicture(place, `notification-${notice}-opened`);
    await closeWindow(place);
    return `the desktop says "${title}", and a click on that opens the window in front, at "${words[`pane.${pane}`]}"`;
}
