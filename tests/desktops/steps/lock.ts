// The screen is locked, and unlocked again.

import { join } from "node:path";
import { start, until } from "../../rehearsal/process";
import { check } from "../../rehearsal/stage";
import { changeIn, stillPicture } from "../pictures";
import { closeWindow, palomet, type Place, windowInFront } from "../place";
import { height, width } from "../screens";

/** Where the strip would be, above a panel or without. */
const middle = [width / 2 - 220, height - 160, 440, 160] as const;
/** Longer than the strip takes to come. */
const shownMs = 1500;

/** Behind a locked screen it hears who calls it, and shows nothing of it; whoever unlocks the screen finds it as it was. */
export async function lock(place: Place): Promise<string> {
    const { session, desktop, watcher, folder } = place;
    const { command, isLocked } = desktop.locker!;
    await palomet(place, "--open");
    await windowInFront(place);
    start(command, session.environment, join(folder, "locker.log"));
    await until("the screen to be locked", () => isLocked(session));
    try {
        await stillPicture(place, "locked");
        const since = watcher.states.length;
        await palomet(place, "--listen");
        await watcher.reach("listening", since);
        await Bun.sleep(shownMs);
        const shown = await changeIn(session, "locked", "locked-listening", [...middle]);
        check(shown === undefined || shown[2] < 400, `something can be seen where the strip stands: ${shown?.join(", ")}`);
        await palomet(place, "--stop");
        await watcher.reach("waiting", watcher.after("listening", since));
    } finally {
        await unlock(place);
    }
    await windowInFront(place);
    await closeWindow(place);
    return "behind it Palomet listens and is not seen, and its window is in front when it is unlocked";
}

/** Types the password, which the first key may only make the field appear for. */
async function unlock({ session, desktop }: Place): Promise<void> {
    const { screen } = session;
    await until("the screen to be unlocked", async () => {
        await screen.key("Escape");
        await screen.hand("mousemove", String(width / 2), String(height / 2), "mousemove_relative", "3", "3");
        await Bun.sleep(1000);
        await screen.type(process.env.PALOMET_PASSWORD!);
        await screen.key("Return");
        return until("it", async () => !(await desktop.locker!.isLocked(session)), 5000).catch(() => false);
    }, 60_000);
}
