// The screens: two beside each other, another size, and scales other than 1.

import { until } from "../../rehearsal/process";
import type { Rectangle } from "../../rehearsal/screen";
import { stillPicture } from "../pictures";
import { closeWindow, palomet, type Place, windowInFront } from "../place";
import { half, height, width } from "../screens";
import { quit, start } from "./session";
import { icon } from "./tray";

const scales = [1.5, 2];
/** A point is two pixels at most. */
const rounding = 2;
/** So much of a window has to be on a screen to be taken hold of. */
const hold = 100;

/** The strip stands on the screen on which the pointer is, also on one that was added. */
export async function two(place: Place): Promise<string> {
    const { session, session: { screen }, desktop: { screens } } = place;
    const places: Rectangle[] = [];
    try {
        await screens.two!(session);
        for (const [index, middle] of [half / 2, half + half / 2].entries()) {
            await screen.hand("mousemove", String(middle), "300");
            places.push(await stripIn(place, `screens-${index + 1}`, [index * half, 0, half, height]));
        }
    } finally {
        await screens.one(session);
    }
    places.push(await stripIn(place, "screens-one-again", [0, 0, width, height]));
    return `on two screens the strip is on the pointer's, at ${places.slice(0, 2).map(([left]) => left).join(" and ")}, and on one again at ${places[2]![0]}`;
}

/** On a screen that becomes higher than wide, window and strip come to where they can be seen. */
export async function turned(place: Place): Promise<string> {
    const { session, desktop: { screens, windows } } = place;
    await palomet(place, "--open");
    const { id } = await windowInFront(place);
    await windows.move?.(session, id, half + hold, 100);
    try {
        await screens.turned(session);
        const place1 = await until("the window on the screen that is there", async () => {
            const found = (await windows.own(session))?.place;
            if (!found) return undefined;
            const [left, top, wide] = found;
            return left <= half - hold && left + wide >= hold && top >= 0 && top <= height - hold && found;
        });
        await stripIn(place, "screen-turned", [0, 0, half, height]);
        await screens.one(session);
        await stripIn(place, "screen-turned-back", [0, 0, width, height]);
        await closeWindow(place);
        return `on a screen of ${half}×${height} the window comes to ${place1.slice(0, 2).join(", ")}, and the strip to its middle`;
    } finally {
        await screens.one(session);
    }
}

/** As large as the desktop wants its programs. */
export async function scaled(place: Place): Promise<string> {
    const { session, desktop } = place;
    const { screen } = session;
    const seen: string[] = [];
    try {
        for (const scale of scales) {
            await begin(place, scale);
            await stripIn(place, `scale-${scale}-strip`, [0, 0, width, height]);
            await palomet(place, "--open", "listening");
            await windowInFront(place);
            let window: Rectangle = [0, 0, 0, 0];
            await until(() => `the window on the screen at scale ${scale}, which is at ${window.join(", ")}`, async () => {
                const [left, top, wide, high] = (window = (await desktop.windows.own(session))?.place ?? window);
                return left >= 0 && top >= 0 && left + wide <= width + rounding && top + high <= height + rounding;
            });
            await stillPicture(place, `scale-${scale}`);
            await closeWindow(place);
            if (desktop.hasTray) await icon(place);
            seen.push(`at ${scale} the strip is ${440 * scale}×${40 * scale} and the window ${window[2]}×${window[3]}`);
        }
    } finally {
        await begin(place, 1);
    }
    return seen.join("; ");

    async function begin(where: Place, scale: number): Promise<void> {
        await quit(where);
        await desktop.setScale!(session, scale);
        screen.scale = scale;
        await start(where);
    }
}

/** Shows the strip, which has to stand in the middle of that screen, above its bottom; gives its place. */
async function stripIn(place: Place, picture: string, [left, top, wide, high]: Rectangle): Promise<Rectangle> {
    const { session, desktop: { windows }, watcher } = place;
    const before = `${picture}-before`;
    await stillPicture(place, before);
    const since = watcher.states.length;
    await palomet(place, "--listen");
    await watcher.reach("listening", since);
    const found = await until(`the strip in the middle of the screen at ${left}`, async () => {
        const at = await windows.strip(session, before);
        if (!at) return undefined;
        const isInMiddle = Math.abs(at[0] + at[2] / 2 - left - wide / 2) <= 2;
        return isInMiddle && at[1] > top + high / 2 && at[1] + at[3] < top + high && at;
    });
    await session.screen.whole(picture);
    await palomet(place, "--stop");
    await watcher.reach("waiting", watcher.after("listening", since));
    await until("the strip to go", async () => (await windows.strip(session, before)) === undefined);
    return found;
}
