// sway with waybar, its windows behind each other in tabs. It shows itself in a window of the X server that has no screen.

import { mkdirSync, readFileSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import { run } from "../rehearsal/process";
import type { Rectangle } from "../rehearsal/screen";
import type { Desktop, Notice } from "./desktop";
import { processesOf, type Session } from "./session";

interface Node {
    name: string | null;
    pid?: number;
    window?: number | null;
    focused: boolean;
    visible?: boolean;
    fullscreen_mode?: number;
    nodes: Node[];
    floating_nodes: Node[];
}

/** All windows that sway manages. */
async function views({ environment }: Session): Promise<Node[]> {
    const below = (node: Node): Node[] => [node, ...[...node.nodes, ...node.floating_nodes].flatMap(below)];
    const root = JSON.parse(await run(["swaymsg", "-t", "get_tree"], environment)) as Node;
    return below(root).filter(({ pid }) => pid !== undefined);
}

const isIt = (node: Node, window: string) => node.name === window || String(node.window) === window;

/** What the user adds to the configuration that sway brings. */
const additions = `
workspace_layout tabbed
output X11-1 mode 1280x800
`;
const configuration = (home: string) => join(home, ".config/sway/config");

export const sway: Desktop = {
    name: "sway",
    type: "wayland",
    hasTray: true,
    session: ["sway"],
    environment: { WLR_BACKENDS: "x11", WLR_RENDERER: "pixman" },
    member: /^waybar$/,
    package: "sway",
    logout: ["swaymsg", "exit"],
    closeKey: "super+shift+q",
    keys: "nobody",
    hasAutostart: false,

    windows: {
        async find(session: Session, title: string) {
            return (await views(session)).find((node) => isIt(node, title))?.name ?? undefined;
        },
        async isInFront(session: Session, window: string) {
            return (await views(session)).some((node) => isIt(node, window) && node.focused && node.visible === true);
        },
        async isFullScreen(session: Session, window: string) {
            return (await views(session)).some((node) => isIt(node, window) && node.fullscreen_mode === 1);
        },
        async activate({ environment }: Session, window: string) {
            await run(["swaymsg", `[title="^${window}$"] focus`], environment);
        },
        async list(session: Session) {
            return (await views(session)).map(({ name }) => name ?? "");
        },
    },

    terminal: (title, isFullScreen) => ["foot", "-T", title, "--override=locked-title=yes", ...(isFullScreen ? ["--fullscreen"] : []), "bash", "--norc"],

    async trayItem({ tree }: Session): Promise<Rectangle | undefined> {
        for (const bar of await tree.windows(/^waybar$/)) {
            const places = await Promise.all((await tree.all(bar, /^icon$/)).map((node) => tree.place(node)));
            // What is hidden has a place nevertheless.
            const [last] = places.filter(([left]) => left > 640).slice(-1);
            if (last) return last;
        }
        return undefined;
    },

    /** The notifications stand in the corner below the panel, the newest above; only what they say can be asked. */
    async notice({ environment }: Session, title: string): Promise<Notice | undefined> {
        const { data } = JSON.parse(await run(["makoctl", "list"], environment)) as { data: { summary: { data: string } }[][] };
        return data[0]?.[0]?.summary.data === title ? { itself: [970, 40, 300, 60] } : undefined;
    },

    /** waybar has its colours from the user's file. */
    async setDark({ environment }: Session, isDark: boolean): Promise<void> {
        const folder = join(environment.HOME!, ".config/waybar");
        mkdirSync(folder, { recursive: true });
        const own = readFileSync("/etc/xdg/waybar/style.css", "utf8");
        const [ground, text] = isDark ? ["#202020", "#f0f0f0"] : ["#f0f0f0", "#202020"];
        writeFileSync(join(folder, "style.css"), `${own}\nwindow#waybar, #tray { background: ${ground}; color: ${text}; }\n`);
        for (const bar of processesOf(/^waybar$/)) process.kill(bar, "SIGUSR2");
    },

    setUp(home: string): void {
        mkdirSync(join(home, ".config/sway"), { recursive: true });
        const own = readFileSync("/etc/sway/config", "utf8")
            .replace(/^bar \{.*?^\}/ms, "bar {\n    swaybar_command waybar\n}")
            // The wallpapers are in a package of their own.
            .replace(/^output \* bg .*$/m, "");
        writeFileSync(configuration(home), own + additions);
    },

    async tile({ environment }: Session, isBeside: boolean): Promise<void> {
        await run(["swaymsg", "layout", isBeside ? "splith" : "tabbed"], environment);
    },

    async bind({ environment }: Session, keys: Record<string, string>): Promise<void> {
        const path = configuration(environment.HOME!);
        const lines = Object.entries(keys).map(([key, command]) => `bindsym ${key} exec ${command}\n`);
        writeFileSync(path, readFileSync(path, "utf8") + lines.join(""));
        await run(["swaymsg", "reload"], environment);
    },
};
