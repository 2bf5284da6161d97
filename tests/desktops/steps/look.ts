// What the user wants to look otherwise: dark or light, and with more contrast.

import { join } from "node:path";
import { run, until } from "../../rehearsal/process";
import { stillPicture } from "../pictures";
import { closeWindow, palomet, type Place, windowInFront } from "../place";
import { icon } from "./tray";

/** Where the panel becomes dark, and light again, the icon can still be made out. */
export async function darkAndLight(place: Place): Promise<string> {
    const { session, desktop } = place;
    const seen: string[] = [];
    for (const isDark of [true, false]) {
        const name = isDark ? "dark" : "light";
        await desktop.setDark!(session, isDark);
        await stillPicture(place, `panel-${name}`);
        seen.push(`${name}: ${await icon(place)}`);
        await palomet(place, "--open");
        await windowInFront(place);
        await stillPicture(place, `window-${name}`);
        await closeWindow(place);
    }
    return seen.join("; ");
}

/** With more contrast its colours are others, and the usual ones again without. */
export async function contrast(place: Place): Promise<string> {
    const { session, session: { screen, environment }, desktop, folder } = place;
    const picture = (name: string) => join(folder, "pictures", `contrast-${name}.png`);
    await palomet(place, "--open", "listening");
    await windowInFront(place);
    const changed = async (name: string) => {
        const window = await screen.window();
        if (window) await screen.picture(`contrast-${name}`, window);
        const both = [picture("usual"), picture(name)];
        return Number(await run(["sh", "-c", 'compare -metric AE -fuzz 3% "$1" "$2" null: 2>&1 || true', "sh", ...both], environment));
    };
    await stillPicture(place, "contrast-before");
    await changed("usual");
    await desktop.setContrast!(session, true);
    const area = await until("more contrast", async () => {
        const found = await changed("more");
        return found > 500 && found;
    });
    await desktop.setContrast!(session, false);
    await until("the usual contrast", async () => (await changed("usual-again")) < 100);
    await closeWindow(place);
    return `with more contrast ${area} pixels of the window are others, and the usual ones again without`;
}
