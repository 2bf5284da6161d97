// Pictures of the whole screen, compared with each other.

import { run, until } from "../rehearsal/process";
import type { Rectangle } from "../rehearsal/screen";
import type { Place } from "./place";
import type { Session } from "./session";

/** How many pixels are not the same in a picture that was taken and in another that is taken now. */
export async function differenceOf({ session: { screen, environment } }: Place, before: string, now: string): Promise<number> {
    const picture = await screen.whole(now);
    const both = [picture.replace(`${now}.png`, `${before}.png`), picture];
    return Number(await run(["sh", "-c", 'compare -metric AE -fuzz 3% "$1" "$2" null: 2>&1 || true', "sh", ...both], environment));
}

/** What of that part of the screen is not the same in a picture that was taken and in another that is taken now. */
export async function changeIn({ screen, environment }: Session, before: string, now: string, [left, top, width, height]: Rectangle): Promise<Rectangle | undefined> {
    const picture = await screen.whole(now);
    const changed = ["-compose", "difference", "-composite", "-crop", `${width}x${height}+${left}+${top}`, "+repage", "-threshold", "4%", "-trim"];
    const both = [picture.replace(`${now}.png`, `${before}.png`), picture];
    const found = await run(["convert", ...both, ...changed, "-format", "%w %h %X %Y", "info:"], environment).catch(() => "");
    const [wide, high, x, y] = found.split(" ").map(Number);
    return wide! > 1 && high! > 1 ? [left + x!, top + y!, wide!, high!] : undefined;
}

/** Takes a picture once nothing moves: what was opened or closed before may take its time. */
export async function stillPicture(place: Place, name: string): Promise<void> {
    await place.session.screen.whole(name);
    await until("the screen to be still", async () => {
        const isStill = (await differenceOf(place, name, `${name}-again`)) < 100;
        await place.session.screen.whole(name);
        return isStill;
    });
}
