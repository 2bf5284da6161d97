// GNOME on X11, with the extension that shows the icons of programs, and as it comes, without.

import { mkdirSync, readFileSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import { homeOf } from "../rehearsal/desktop";
import { type Environment, run, until } from "../rehearsal/process";
import type { Rectangle } from "../rehearsal/screen";
import type { Desktop, Notice } from "./desktop";
import type { Session } from "./session";
import { x11Screens, x11Terminal, x11Windows } from "./x11";

export const appIndicators = "ubuntu-appindicators@ubuntu.com";
/** Lets the shell answer what its looking glass would, for it tells nobody where it shows what. */
const lookingGlass = "looking-glass@palomet.org";

/** What the shell says to that expression. */
export async function ask({ environment }: Pick<Session, "environment">, expression: string): Promise<unknown> {
    const shell = ["--dest", "org.gnome.Shell", "--object-path", "/org/gnome/Shell", "--method", "org.gnome.Shell.Eval"];
    // Without quotes in the answer there is nothing to be escaped.
    const code = `Array.from(JSON.stringify(${expression}) ?? "null", (sign) => sign.charCodeAt(0)).join(" ")`;
    const answer = await run(["gdbus", "call", "--session", ...shell, code], environment);
    const signs = /^\(true, '"([\d ]+)"'\)$/m.exec(answer)?.[1];
    if (signs === undefined) throw new Error(`the shell does not say: ${answer}`);
    return JSON.parse(String.fromCharCode(...signs.split(" ").map(Number)));
}

export async function setUp(home: string, extensions: string[]): Promise<void> {
    const folder = join(home, ".local/share/gnome-shell/extensions", lookingGlass);
    mkdirSync(folder, { recursive: true });
    writeFileSync(join(folder, "metadata.json"), JSON.stringify({ uuid: lookingGlass, name: "Looking glass", description: "Says what is where", "shell-version": ["43"] }));
    writeFileSync(join(folder, "extension.js"), "function init() {}\nfunction enable() { global.context.unsafe_mode = true; }\nfunction disable() {}\n");
    // Or else it says that there is nobody to lock the screen, above whatever is there.
    const shell = join(home, ".local/share/gnome-shell");
    writeFileSync(join(shell, "lock-warning-shown"), "");
    // Where nobody guards what is plugged in, its guard falls over, and the session with it.
    const sessions = join(home, ".config/gnome-session/sessions");
    mkdirSync(sessions, { recursive: true });
    const own = readFileSync("/usr/share/gnome-session/sessions/gnome.session", "utf8").replace("org.gnome.SettingsDaemon.UsbProtection;", "");
    writeFileSync(join(sessions, "gnome.session"), own);
    const settings = [
        ["org.gnome.shell", "enabled-extensions", JSON.stringify([lookingGlass, ...extensions]).replaceAll('"', "'")],
        ["org.gnome.shell", "welcome-dialog-last-shown-version", "'99'"],
        ["org.gnome.desktop.session", "idle-delay", "0"],
    ];
    for (const setting of settings) await run(["dbus-run-session", "--", "gsettings", "set", ...setting], homeOf(home));
}

/** A setting of GNOME's, which other desktops' portals read, too. */
export async function setOfGnome(environment: Environment, group: string, name: string, value: string): Promise<void> {
    await run(["gsettings", "set", `org.gnome.desktop.${group}`, name, value], environment);
}

export const gnomeX11: Omit<Desktop, "hasTray" | "setUp"> = {
    name: "GNOME",
    type: "x11",
    session: ["gnome-session", "--builtin"],
    environment: { DESKTOP_SESSION: "gnome", XDG_SESSION_DESKTOP: "gnome", XDG_MENU_PREFIX: "gnome-", XDG_CONFIG_DIRS: "/etc/xdg" },
    hasSystemBus: true,
    member: /^gnome-shell$/,
    package: "gnome-shell",
    logout: ["gnome-session-quit", "--logout", "--no-prompt"],
    closeKey: "alt+F4",
    keys: "x11",
    hasOnAltSpace: "the window menu",
    // What runs a command.
    ofScreen: { keyCode: 120, flags: 0x80000, text: "⌥F2" },
    hasAutostart: true,
    // One click opens the menu.
    opensTrayByTwoClicks: true,
    screens: x11Screens,
    terminal: x11Terminal,

    windows: {
        ...x11Windows,
        /** The switcher's, by the names of their programs. */
        async list(session: Session) {
            const names = "imports.ui.altTab.getWindows(null).map((window) => imports.gi.Shell.WindowTracker.get_default().get_window_app(window).get_name())";
            return (await ask(session, names)) as string[];
        },
    },

    async trayItem(session: Session): Promise<Rectangle | undefined> {
        const items = "Object.entries(Main.panel.statusArea).filter(([name, item]) => /^appindicator-/i.test(name) && item.visible).map(([, item]) => [...item.get_transformed_position(), ...item.get_transformed_size()].map(Math.round))";
        return ((await ask(session, items)) as Rectangle[])[0];
    },

    async notice(session: Session, title: string): Promise<Notice | undefined> {
        const tray = "Main.messageTray";
        const place = `[...${tray}._banner.get_transformed_position(), ...${tray}._banner.get_transformed_size()].map(Math.round)`;
        // It slides in from above.
        const isThere = `${tray}._notification?.title === ${JSON.stringify(title)} && ${tray}._notificationState === 2`;
        const itself = (await ask(session, `${isThere} ? ${place} : null`)) as Rectangle | null;
        return itself ? { itself } : undefined;
    },

    async setScale({ environment }: Session, scale: number): Promise<void> {
        await setOfGnome(environment, "interface", "text-scaling-factor", String(scale));
    },

    async setDark({ environment }: Session, isDark: boolean): Promise<void> {
        await setOfGnome(environment, "interface", "color-scheme", isDark ? "prefer-dark" : "default");
    },

    async setContrast({ environment }: Session, isMore: boolean): Promise<void> {
        await setOfGnome(environment, "a11y.interface", "high-contrast", String(isMore));
    },

    /** It shows the overview first. */
    async settle(session: Session): Promise<void> {
        await until("the shell", () => ask(session, "true").catch(() => false), 60_000);
        await until("the overview to go", async () => {
            if (!(await ask(session, "Main.layoutManager._startingUp || Main.overview.visible"))) return true;
            await session.screen.key("Escape");
            return false;
        });
    },
};

export const gnomeX11Bare: Desktop = { ...gnomeX11, hasTray: false, setUp: (home) => setUp(home, []) };
export const gnomeX11WithIcons: Desktop = { ...gnomeX11, hasTray: true, setUp: (home) => setUp(home, [appIndicators]) };
