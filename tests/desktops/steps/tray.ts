// The item in the tray: seen, opened and used with the pointer.

import { until, run } from "../../rehearsal/process";
import type { Rectangle } from "../../rehearsal/screen";
import { words } from "../../rehearsal/stage";
import { changeIn, stillPicture } from "../pictures";
import { closeWindow, palomet, type Place, Terminal, windowInFront } from "../place";

/** A sign can be made out from this contrast on. */
const leastContrast = 3;

/** Where there is no tray its window comes by itself, or nothing of it would be seen. */
export async function none(place: Place): Promise<string> {
    const { place: [, , width, height] } = await windowInFront(place);
    await place.session.screen.whole("no-tray");
    await closeWindow(place);
    return `its window (${width}×${height}) opens by itself`;
}

/** Its icon is there, and can be made out on the panel. */
export async function icon(place: Place): Promise<string> {
    const { session, desktop } = place;
    const where = await until("the icon in the tray", () => desktop.trayItem(session));
    const contrast = await until("the icon to be drawn", async () => {
        const found = await contrastAt(place, where);
        return found >= leastContrast && found;
    });
    return `an icon at ${where.join(", ")}, ${contrast.toFixed(1)}:1 against the panel`;
}

/** The contrast of the lightest and the darkest that is to be seen there. */
async function contrastAt({ session: { screen, environment } }: Place, [left, top, width, height]: Rectangle): Promise<number> {
    const picture = await screen.whole("tray");
    const shades = await run(["convert", picture, "-crop", `${width}x${height}+${left}+${top}`, "-format", "%[fx:minima] %[fx:maxima]", "info:"], environment);
    const [dark, light] = shades.split(" ").map(Number).map(luminance);
    return (light! + 0.05) / (dark! + 0.05);
}

const luminance = (shade: number) => (shade <= 0.04045 ? shade / 12.92 : ((shade + 0.055) / 1.055) ** 2.4);

/** A click with the other button opens its menu; its items are clicked too: one opens the window in front, one listens. */
export async function menu(place: Place): Promise<string> {
    const { session: { screen }, watcher } = place;
    const terminal = await Terminal.open(place);
    const area = await openMenu(place);
    await screen.click(row(area, 4));
    const { place: [, , wide, high] } = await windowInFront(place);
    await closeWindow(place);
    const since = watcher.states.length;
    await screen.click(row(await openMenu(place), 1));
    await watcher.reach("listening", since);
    await watcher.post("stop");
    await watcher.settle();
    await terminal.close();
    return `its menu (${area[2]}×${area[3]}) opens; "${words["menu.open"]}" opens the window (${wide}×${high}) in front, "${words["menu.listen"]}" listens`;
}

const screenHeight = 800;
const widestMenu = 260;
/** The state, Listen, Stop, Mute, Open, Quit, all of a height. */
const rows = 6;
const row = ([left, top, width, height]: Rectangle, index: number): Rectangle =>
    [left, top + Math.round((height * index) / rows), width, Math.round(height / rows)];

/** Opens it, and gives where it is to be seen. */
async function openMenu(place: Place): Promise<Rectangle> {
    const { session, desktop } = place;
    const where = await until("the icon in the tray", () => desktop.trayItem(session));
    await stillPicture(place, "menu-before");
    await session.screen.click(where, 3);
    // Without the panel, in which the icon changes, and without what is far away: another panel may come or go meanwhile.
    const isBelow = where[1] < screenHeight / 2;
    const from = isBelow ? where[1] + where[3] + 2 : 0;
    const height = isBelow ? screenHeight - from : where[1] - 10;
    const side = Math.max(0, where[0] - widestMenu);
    return until("the menu", async () => {
        const found = await changeIn(session, "menu-before", "menu", [side, from, 2 * widestMenu, height]);
        return found && found[2] > 80 && found[3] > 100 && found;
    });
}

/** A click on it opens the window in front. */
export async function click(place: Place): Promise<string> {
    await clickIt(place, await Terminal.open(place));
    return "a click on the icon opens the window in front";
}

/** A click on it brings the window to the front that lies behind another. */
export async function clickBehind(place: Place): Promise<string> {
    await palomet(place, "--open");
    await until("the window", () => place.desktop.windows.own(place.session));
    await clickIt(place, await Terminal.open(place));
    return "a click on the icon brings the window to the front";
}

async function clickIt(place: Place, terminal: Terminal): Promise<void> {
    const { session, desktop } = place;
    const where = await until("the icon in the tray", () => desktop.trayItem(session));
    await session.screen.click(where, 1, desktop.opensTrayByTwoClicks ? 2 : 1);
    await windowInFront(place);
    await closeWindow(place);
    await terminal.close();
}
