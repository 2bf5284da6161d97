// The item in the tray: seen, opened and used with the pointer.

import { until, run } from "../../rehearsal/process";
import type { Rectangle } from "../../rehearsal/screen";
import { check, words } from "../../rehearsal/stage";
import { closeWindow, type Place, Terminal, windowInFront } from "../place";

/** A sign can be made out from this contrast on. */
const leastContrast = 3;

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

/** A click with the other button opens its menu, whose last but one item, reached by the keys, opens the window in front. */
export async function menu(place: Place): Promise<string> {
    const { session: { screen }, session, desktop, watcher } = place;
    const terminal = await Terminal.open(place);
    const where = await until("the icon in the tray", () => desktop.trayItem(session));
    await screen.whole("menu-before");
    await screen.click(where, 3);
    const area = await until("the menu", async () => {
        const found = await differenceOf(place, "menu-before", "menu");
        return found > 10_000 && found;
    });
    await screen.key("Up");
    await screen.key("Up");
    await screen.key("Return");
    const window = await windowInFront(place);
    await closeWindow(place);
    await screen.click(where, 3);
    await until("the menu", async () => (await differenceOf(place, "menu-before", "menu-again")) > 10_000);
    const since = watcher.states.length;
    // The state cannot be chosen: the first that can is Listen.
    await screen.key("Down");
    await screen.key("Return");
    await watcher.reach("listening", since);
    await watcher.post("stop");
    await watcher.settle();
    await terminal.close();
    return `its menu (${area} pixels) opens; "${words["menu.open"]}" opens the window (${window.width}×${window.height}) in front, "${words["menu.listen"]}" listens`;
}

/** How many pixels are not the same in a picture that was taken and in another that is taken now. */
export async function differenceOf({ session: { screen, environment } }: Place, before: string, now: string): Promise<number> {
    const picture = await screen.whole(now);
    const both = [picture.replace(`${now}.png`, `${before}.png`), picture];
    return Number(await run(["sh", "-c", 'compare -metric AE -fuzz 3% "$1" "$2" null: 2>&1 || true', "sh", ...both], environment));
}

/** A click on it brings the window to the front that lies behind another. */
export async function click(place: Place): Promise<string> {
    const { session: { screen }, session, desktop } = place;
    const terminal = await Terminal.open(place, "-geometry", "150x40+60+60");
    const where = await until("the icon in the tray", () => desktop.trayItem(session));
    await screen.click(where);
    await windowInFront(place);
    await terminal.turnTo();
    await screen.click(where);
    await windowInFront(place);
    await closeWindow(place);
    await terminal.close();
    check((await screen.window()) === undefined, "the window did not close");
    return "a click on the icon opens the window, and brings it to the front from behind another";
}
