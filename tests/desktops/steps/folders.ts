// The desktop's own dialog for folders.

import { mkdirSync } from "node:fs";
import { join } from "node:path";
import { until } from "../../rehearsal/process";
import type { Rectangle } from "../../rehearsal/screen";
import { words } from "../../rehearsal/stage";
import { stillPicture } from "../pictures";
import { closeWindow, inSight, palomet, type Place, placeOf, windowInFront } from "../place";

/** It opens from the window, and what is chosen there is added. */
export async function choose(place: Place): Promise<string> {
    const { session: { screen, tree }, session, desktop, watcher, folder } = place;
    const chosen = join(folder, "chosen");
    mkdirSync(chosen, { recursive: true });
    await palomet(place, "--open", "brain");
    await windowInFront(place);
    const button = await until("the button for folders", async () => {
        for (const window of await tree.windows()) {
            for (const one of await tree.all(window, /^push button$/)) if ((await tree.name(one)) === words["button.addFolder"]) return one;
        }
        return undefined;
    });
    await screen.click(await placeOf(place, await inSight(place, button)));
    const title = words["brain.addFolder.title"]!;
    const dialog = await until("the dialog", () => desktop.windows.find(session, title));
    await until("the dialog's focus", () => desktop.windows.isInFront(session, dialog));
    await stillPicture(place, "folders");
    const program = desktop.folderDialog;
    if (program) await screen.click(await part(place, dialog, program, /^(combo box|text)$/));
    // The first sign opens the field, or is in it.
    await screen.type(chosen.slice(0, 1));
    await stillPicture(place, "folders-begun");
    await screen.type(chosen.slice(1));
    await stillPicture(place, "folders-typed");
    if (program) await screen.click(await part(place, dialog, program, /^push button$/, words["brain.addFolder.prompt"]!));
    else await screen.key("Return");
    await until("the folder among the settings", async () => {
        const { folders } = ((await watcher.state())?.settings ?? {}) as { folders?: string[] };
        return folders?.includes(chosen);
    });
    await until("the dialog to go", async () => !(await desktop.windows.find(session, title)));
    await stillPicture(place, "folders-added");
    await closeWindow(place);
    return `"${title}" opens above the window, and the folder that is typed there is added`;
}

/** Where the last of such parts of a program's windows is. */
function part({ session, session: { tree }, desktop: { windows } }: Place, dialog: string, program: RegExp, role: RegExp, name?: string): Promise<Rectangle> {
    return until(`the ${name ?? "field"} of the dialog`, async () => {
        for (const window of await tree.windows(program)) {
            const parts = await tree.all(window, role);
            const names = await Promise.all(parts.map((one) => tree.name(one)));
            const found = parts.findLast((_, index) => name === undefined || names[index] === name);
            if (!found) continue;
            const within = await tree.place(found);
            return (await windows.onDisplay?.(session, within, dialog)) ?? within;
        }
        return undefined;
    });
}
