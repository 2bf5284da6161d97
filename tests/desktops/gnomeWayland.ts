// GNOME on Wayland, in a window of the X server that has no screen. It has no layers for the strip, so Palomet goes through its
// X server, as do the terminals.

import { mkdirSync, readFileSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import { run } from "../rehearsal/process";
import type { Desktop, Screens } from "./desktop";
import { appIndicators, gnomeX11, setUp } from "./gnome";
import { half, height, width } from "./screens";
import type { Session } from "./session";

/** The shell's own launcher, with which the session starts it, for a shell inside a window. */
function insideWindow(home: string): void {
    const folder = join(home, ".local/share/applications");
    mkdirSync(folder, { recursive: true });
    const own = readFileSync("/usr/share/applications/org.gnome.Shell.desktop", "utf8");
    writeFileSync(join(folder, "org.gnome.Shell.desktop"), own.replace(/^Exec=.*$/m, "Exec=/usr/bin/gnome-shell --nested --wayland"));
}

const configuration = ["--dest", "org.gnome.Mutter.DisplayConfig", "--object-path", "/org/gnome/Mutter/DisplayConfig", "--method"];

/** Makes the screen that wide, as the settings' page does. */
async function resize({ environment }: Session, wide: number): Promise<void> {
    const call = (...parameters: string[]) => run(["gdbus", "call", "--session", ...configuration, ...parameters], environment);
    const state = await call("org.gnome.Mutter.DisplayConfig.GetCurrentState");
    const serial = /^\(uint32 (\d+)/.exec(state)?.[1] ?? "0";
    const connector = /\(\('([\w-]+)'/.exec(state)?.[1] ?? "";
    const mode = new RegExp(`'(${wide}x[^']*)', ${wide}, `).exec(state)?.[1] ?? "";
    const screen = `(0, 0, 1.0, uint32 0, true, [('${connector}', '${mode}', @a{sv} {})])`;
    await call("org.gnome.Mutter.DisplayConfig.ApplyMonitorsConfig", serial, "1", `[${screen}]`, "{}");
}

/** Its X server knows of the pointer only above windows of its own, and so Palomet does not know on which of two screens it is. */
const screens: Screens = {
    turned: (session) => resize(session, half),
    one: (session) => resize(session, width),
};

const gnomeWayland: Omit<Desktop, "hasTray" | "setUp"> = {
    ...gnomeX11,
    type: "wayland",
    environment: { ...gnomeX11.environment, MUTTER_DEBUG_DUMMY_MODE_SPECS: `${width}x${height}:${half}x${height}` },
    // The shell itself was started before there was a display in it.
    member: /^gsd-keyboard$/,
    keys: "nobody",
    hasOnAltSpace: undefined,
    ofScreen: undefined,
    setScale: undefined,
    screens,

    /** As the settings do with a key that the desktop has: it is the command's from then on. */
    async bind({ environment }: Session, keys: Record<string, string>): Promise<void> {
        const set = (...setting: string[]) => run(["gsettings", "set", ...setting], environment);
        for (const own of ["activate-window-menu", "cycle-windows"]) await set("org.gnome.desktop.wm.keybindings", own, "[]");
        const plugin = "org.gnome.settings-daemon.plugins.media-keys";
        const paths = Object.keys(keys).map((_, index) => `/org/gnome/settings-daemon/plugins/media-keys/custom-keybindings/custom${index}/`);
        for (const [index, [key, command]] of Object.entries(keys).entries()) {
            const binding = `${plugin}.custom-keybinding:${paths[index]}`;
            await set(binding, "name", command);
            await set(binding, "command", command);
            await set(binding, "binding", key.replace("Mod1+", "<Alt>"));
        }
        await set(plugin, "custom-keybindings", JSON.stringify(paths).replaceAll('"', "'"));
    },
};

const inWindow = (extensions: string[]) => async (home: string) => {
    await setUp(home, extensions);
    insideWindow(home);
};

export const gnomeWaylandBare: Desktop = { ...gnomeWayland, hasTray: false, setUp: inWindow([]) };
export const gnomeWaylandWithIcons: Desktop = { ...gnomeWayland, hasTray: true, setUp: inWindow([appIndicators]) };
