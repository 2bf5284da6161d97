// Plasma on X11. A screen reader sees its panel as one tree, with what is in the tray by name.

import { mkdirSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import { run } from "../rehearsal/process";
import type { Rectangle } from "../rehearsal/screen";
import type { Desktop } from "./desktop";
import type { Session } from "./session";
import { noticeBy, x11Screens, x11Terminal, x11Windows } from "./x11";

/** The windows stand left of it, the tray right. */
const middle = 640;

/** What stands in the panel, by name and place. */
export async function inPanel({ tree }: Session): Promise<{ name: string; place: Rectangle }[]> {
    const found: { name: string; place: Rectangle }[] = [];
    for (const window of await tree.windows(/^plasmashell$/)) {
        // The desktop itself is a window too.
        if ((await tree.place(window))[3] > 200) continue;
        for (const node of await tree.all(window, /./)) found.push({ name: await tree.name(node), place: await tree.place(node) });
    }
    return found;
}

const screenSaver = (method: string) => ["--dest", "org.freedesktop.ScreenSaver", "--object-path", "/ScreenSaver", "--method", `org.freedesktop.ScreenSaver.${method}`];

export const plasmaX11: Desktop = {
    name: "KDE",
    type: "x11",
    hasTray: true,
    session: ["startplasma-x11"],
    environment: { DESKTOP_SESSION: "plasma", XDG_CONFIG_DIRS: "/etc/xdg" },
    member: /^plasmashell$/,
    package: "plasma-workspace",
    logout: ["gdbus", "call", "--session", "--dest", "org.kde.Shutdown", "--object-path", "/Shutdown", "--method", "org.kde.Shutdown.logout"],
    closeKey: "alt+F4",
    keys: "x11",
    hasOnAltSpace: "KRunner",
    hasAutostart: true,
    folderDialog: /portal/i,
    screens: x11Screens,
    terminal: x11Terminal,

    windows: {
        ...x11Windows,
        async list(session: Session) {
            return (await inPanel(session)).filter(({ place }) => place[0] < middle).map(({ name }) => name);
        },
    },

    async trayItem(session: Session): Promise<Rectangle | undefined> {
        return (await inPanel(session)).find(({ name, place }) => /^palomet$/i.test(name) && place[0] > middle)?.place;
    },

    /** What it says stays for longer than five seconds, as a screen reader needs some of them to find it. */
    setUp(home: string): void {
        mkdirSync(join(home, ".config"), { recursive: true });
        writeFileSync(join(home, ".config/plasmanotifyrc"), "[Notifications]\nPopupTimeout=30000\n");
    },

    /** As its login does where the user has set another density of the fonts. */
    async setScale({ environment }: Session, scale: number): Promise<void> {
        await run(["sh", "-c", `echo "Xft.dpi: ${96 * scale}" | xrdb -nocpp -merge`], environment);
    },

    locker: {
        command: ["gdbus", "call", "--session", ...screenSaver("Lock")],
        isLocked: async ({ environment }: Session) => (await run(["gdbus", "call", "--session", ...screenSaver("GetActive")], environment)).includes("true"),
    },

    /** The panel follows the colours of the programs. */
    async setDark({ environment }: Session, isDark: boolean): Promise<void> {
        await run(["plasma-apply-colorscheme", isDark ? "BreezeDark" : "BreezeLight"], environment);
    },

    notice: (session, title, button) => noticeBy(session, /^plasmashell$/, title, button),
};
