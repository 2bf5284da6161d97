// The strip above a window that fills the screen: seen, without the focus, and in no list.

import { until } from "../../rehearsal/process";
import { check } from "../../rehearsal/stage";
import { differenceOf, stillPicture } from "../pictures";
import { palomet, type Place, Terminal } from "../place";

/** A desktop may draw a shadow around it. */
const withShadow = 1.7;

export async function aboveFullScreen(place: Place): Promise<string> {
    const { session, desktop, watcher } = place;
    const terminal = await Terminal.open(place, { isFullScreen: true });
    await until("a window that fills the screen", () => desktop.windows.isFullScreen(session, terminal.id));
    await stillPicture(place, "full-screen");
    const since = watcher.states.length;
    await palomet(place, "--listen");
    await watcher.reach("listening", since);
    await until("the strip", () => desktop.windows.strip(session, "full-screen"));
    // Nothing else changes on a screen that is filled.
    const area = await until("the strip to be seen", async () => {
        const found = await differenceOf(place, "full-screen", "strip-above-full-screen");
        return found > 5000 && found < 440 * 40 * withShadow && found;
    });
    check(await desktop.windows.isInFront(session, terminal.id), "the strip took the focus");
    const names = await desktop.windows.list(session);
    check(!names.includes("Palomet"), `the list of windows has the strip: ${names.join(", ")}`);
    await palomet(place, "--stop");
    await watcher.reach("waiting", since);
    await until("the strip to go", async () => (await desktop.windows.strip(session, "full-screen")) === undefined);
    await terminal.close();
    return `the strip is seen above a window that fills the screen (${area} pixels), has no focus, and is in no list`;
}
