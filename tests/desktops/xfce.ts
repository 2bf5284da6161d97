// XFCE. Its panel shows the tray in a process of its own, whose window stands in the panel.

import { run } from "../rehearsal/process";
import type { Rectangle } from "../rehearsal/screen";
import type { Desktop } from "./desktop";
import { setOfGnome } from "./gnome";
import { processesOf, type Session } from "./session";
import { noticeBy, x11Screens, x11Terminal, x11Windows } from "./x11";

/** The part of a window's number that the X server gave to the program. */
const clientOf = (id: string) => Number(id) >> 21;

export const xfce: Desktop = {
    name: "XFCE",
    type: "x11",
    hasTray: true,
    session: ["xfce4-session"],
    environment: { XDG_MENU_PREFIX: "xfce-", XDG_CONFIG_DIRS: "/etc/xdg", DESKTOP_SESSION: "xfce" },
    member: /^xfce4-panel$/,
    package: "xfce4-session",
    logout: ["xfce4-session-logout", "--logout", "--fast"],
    closeKey: "alt+F4",
    keys: "x11",
    hasOnAltSpace: "the window menu",
    hasAutostart: true,
    screens: x11Screens,
    terminal: x11Terminal,
    windows: { ...x11Windows, list: windowButtons },

    async trayItem({ environment }: Session): Promise<Rectangle | undefined> {
        const [tray] = processesOf(/^panel-\d+-systray/);
        if (tray === undefined) return undefined;
        const windows = [...(await run(["xwininfo", "-root", "-tree"], environment)).matchAll(/^\s+(0x\w+) "wrapper-2\.0": .* (\d+)x(\d+)\+\S+ +\+(\d+)\+(\d+)$/gm)];
        for (const [, leader] of windows) {
            if (!(await run(["xprop", "-id", leader!, "_NET_WM_PID"], environment).catch(() => "")).trim().endsWith(` = ${tray}`)) continue;
            // The window in the panel is of the same client.
            const inside = windows.find(([, id, width, , , top]) => clientOf(id!) === clientOf(leader!) && Number(width) > 10 && Number(top) === 0);
            const [width, height, left, top] = (inside ?? []).slice(2).map(Number);
            if (inside) return [left!, top!, width!, height!];
        }
        return undefined;
    },

    async setScale({ environment }: Session, scale: number): Promise<void> {
        await run(["xfconf-query", "-n", "-c", "xsettings", "-p", "/Xft/DPI", "-t", "int", "-s", String(96 * scale)], environment);
    },

    async setDark({ environment }: Session, isDark: boolean): Promise<void> {
        await run(["xfconf-query", "-n", "-c", "xsettings", "-p", "/Net/ThemeName", "-t", "string", "-s", isDark ? "Adwaita-dark" : "Adwaita"], environment);
    },

    setContrast: ({ environment }, isMore) => setOfGnome(environment, "a11y.interface", "high-contrast", String(isMore)),

    notice: (session, title, button) => noticeBy(session, /^xfce4-notifyd$/, title, button),
};

/** The names on the buttons of the panel's list of windows, among those of other buttons. */
async function windowButtons({ tree }: Session): Promise<string[]> {
    const names: string[] = [];
    for (const panel of await tree.windows(/^xfce4-panel$/)) {
        for (const button of await tree.all(panel, /^toggle button$/)) {
            // What is hidden has a place nevertheless.
            if ((await tree.place(button))[0] >= 0) names.push(await tree.name(button));
        }
    }
    return names;
}
