// The window: opened from a terminal, in front of others, and known by its own name and icon.

import type { Node } from "../../rehearsal/accessible";
import { run, until } from "../../rehearsal/process";
import { check, words } from "../../rehearsal/stage";
import { closeWindow, palomet, type Place, placeOf, Terminal, windowInFront } from "../place";

const screenWidth = 1280;
const screenHeight = 800;
/** The window's least width where it is asked. */
const leastWidth = 960;
const iconSizes = [16, 22, 24, 32, 48, 64, 128, 256];

/** Asked for in a terminal, it comes to the front with the focus. */
export async function open(place: Place): Promise<string> {
    await type(place, await Terminal.open(place), "palomet --open voice");
    return "palomet --open, typed in a terminal, opens the window in front, with the focus";
}

/** So it does when it lies behind the terminal. */
export async function openBehind(place: Place): Promise<string> {
    await type(place, await terminalBefore(place), "palomet --open voice");
    return "palomet --open brings the window to the front, with the focus";
}

export async function startAgain(place: Place): Promise<string> {
    await type(place, await terminalBefore(place), "palomet");
    return "a second palomet brings the window to the front, with the focus";
}

/** What the desktop's own launchers do with its entry. */
export async function launch(place: Place): Promise<string> {
    await type(place, await terminalBefore(place), "gio launch /usr/share/applications/org.palomet.Palomet.desktop");
    return "its entry, launched, brings the window to the front, with the focus";
}

async function terminalBefore(place: Place): Promise<Terminal> {
    await palomet(place, "--open");
    await until("the window", () => place.desktop.windows.own(place.session));
    return Terminal.open(place);
}

async function type(place: Place, terminal: Terminal, command: string): Promise<void> {
    await terminal.type(command);
    await windowInFront(place);
    await closeWindow(place);
    await terminal.close();
}

/** It says which program it is of, and the panel's list of windows has it by its name, once. */
export async function identity(place: Place): Promise<string> {
    const { session, desktop } = place;
    const terminal = await Terminal.open(place);
    await terminal.type("palomet --open");
    const told = await desktop.windows.identity(session, await windowInFront(place));
    for (const size of iconSizes) {
        const file = `/usr/share/icons/hicolor/${size}x${size}/apps/org.palomet.Palomet.png`;
        const found = await run(["identify", "-format", "%wx%h", file], session.environment).catch(() => "missing");
        check(found === `${size}x${size}`, `the icon of ${size} for desktops that draw no SVG is ${found}`);
    }
    await until("its name in the list of windows", async () => (await desktop.windows.list(session)).filter((name) => name === "Palomet").length === 1);
    await session.screen.whole("window-list");
    await closeWindow(place);
    await until("its name to leave the list of windows", async () => !(await desktop.windows.list(session)).includes("Palomet"));
    await terminal.close();
    return `${told} are its own, and the panel lists it as "Palomet", once`;
}

/** In a tile that is too narrow for it, it goes sideways to what does not show. */
export async function inTile(place: Place): Promise<string> {
    const { session: { screen }, session, desktop, watcher } = place;
    const terminal = await Terminal.open(place);
    await terminal.type("palomet --open now");
    await windowInFront(place);
    await desktop.tile!(session, true);
    const tile = await until("the tile", async () => {
        const window = await desktop.windows.own(session);
        return window && window.place[2] < leastWidth && window.place;
    });
    const button = await headerButton(place, words["menu.listen"]!);
    const rightOf = async () => {
        const [left, , width] = await placeOf(place, button);
        return left + width;
    };
    check((await rightOf()) > screenWidth, "the button shows before the window was moved sideways");
    // The end of the thumb's track, above the tile's edge.
    await screen.hand("mousemove", String(screenWidth - 10), String(screenHeight - 8), "click", "1");
    await until("the button to show", async () => (await rightOf()) <= screenWidth);
    await screen.whole("narrow-tile");
    const since = watcher.states.length;
    await screen.click(await placeOf(place, button));
    await watcher.reach("listening", since);
    await watcher.post("stop");
    await watcher.settle();
    await desktop.tile!(session, false);
    await closeWindow(place);
    await terminal.close();
    return `in a tile of ${tile[2]} it goes sideways, and its buttons can be clicked`;
}

/** The button of that name at the top of the page. */
function headerButton({ session: { tree } }: Place, name: string): Promise<Node> {
    return until(`the button "${name}"`, async () => {
        for (const window of await tree.windows()) {
            for (const button of await tree.all(window, /^push button$/)) {
                if ((await tree.name(button)) === name && (await tree.place(button))[1] < 200) return button;
            }
        }
        return undefined;
    });
}
