// The window: opened from a terminal, in front of others, and known by its own name and icon.

import { until } from "../../rehearsal/process";
import { check } from "../../rehearsal/stage";
import { closeWindow, type Place, property, Terminal, windowInFront } from "../place";

/** Asked for in a terminal, it comes to the front with the focus, from nowhere and from behind the terminal. */
export async function fromTerminal(place: Place): Promise<string> {
    const terminal = await Terminal.open(place, "-geometry", "150x40+60+60");
    for (const command of ["palomet --open", "palomet --open voice", "palomet"]) {
        await terminal.turnTo();
        await terminal.type(command);
        await windowInFront(place);
        await place.session.screen.whole(`after-${command.replaceAll(/\W+/g, "-")}`);
    }
    await closeWindow(place);
    await terminal.close();
    return "palomet --open and a second palomet bring the window to the front with the focus, from behind the terminal too";
}

/** The launcher of the desktop's menu does the same. */
export async function fromMenu(place: Place): Promise<string> {
    const terminal = await Terminal.open(place, "-geometry", "150x40+60+60");
    const launch = "gio launch /usr/share/applications/org.palomet.Palomet.desktop";
    await terminal.type(launch);
    await windowInFront(place);
    await terminal.turnTo();
    await terminal.type(launch);
    await windowInFront(place);
    await closeWindow(place);
    await terminal.close();
    return "its entry in the applications menu brings the window to the front, from behind another too";
}

/** It says which program it is of, and the panel's list of windows has it by its name, once. */
export async function identity(place: Place): Promise<string> {
    const { session, desktop } = place;
    const terminal = await Terminal.open(place);
    await terminal.type("palomet --open");
    const { id } = await windowInFront(place);
    const text = await property(place, id, "WM_CLASS", "_NET_WM_NAME", "_KDE_NET_WM_DESKTOP_FILE", "_GTK_APPLICATION_ID", "_NET_WM_ICON");
    check(/^WM_CLASS\(STRING\) = "palomet", "palomet"$/m.test(text), `its class is not palomet: ${text}`);
    check(/^_NET_WM_NAME\(UTF8_STRING\) = "Palomet"$/m.test(text), "its title is not Palomet");
    for (const name of ["_KDE_NET_WM_DESKTOP_FILE", "_GTK_APPLICATION_ID"]) {
        check(text.includes(`${name}(UTF8_STRING) = "org.palomet.Palomet"`), `${name} is not that of its desktop file`);
    }
    const sizes = [...text.matchAll(/Icon \((\d+) x \d+\)/g)].map(([, size]) => Number(size));
    check([16, 32, 48].every((size) => sizes.includes(size)), `it has icons of ${sizes.join(", ")} only`);
    await until("its name in the list of windows", async () => (await desktop.windowList(session)).filter((name) => name === "Palomet").length === 1);
    await session.screen.whole("window-list");
    await closeWindow(place);
    await until("its name to leave the list of windows", async () => !(await desktop.windowList(session)).includes("Palomet"));
    await terminal.close();
    return `its class, desktop file and icons (${sizes.join(", ")}) are its own, and the panel lists it as "Palomet", once`;
}
