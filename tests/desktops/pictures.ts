// Pictures of the whole screen, compared with each other.

import { run, until } from "../rehearsal/process";
import type { Place } from "./place";

/** How many pixels are not the same in a picture that was taken and in another that is taken now. */
export async function differenceOf({ session: { screen, environment } }: Place, before: string, now: string): Promise<number> {
    const picture = await screen.whole(now);
    const both = [picture.replace(`${now}.png`, `${before}.png`), picture];
    return Number(await run(["sh", "-c", 'compare -metric AE -fuzz 3% "$1" "$2" null: 2>&1 || true', "sh", ...both], environment));
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
