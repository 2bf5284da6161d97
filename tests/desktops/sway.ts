// sway with waybar, its windows behind each other in tabs. It shows itself in a window of the X server that has no screen.

import { mkdirSync, readFileSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import { run, until } from "../rehearsal/process";
import { isStrip, type Rectangle } from "../rehearsal/screen";
import { check } from "../rehearsal/stage";
import type { Desktop, Notice, OwnWindow } from "./desktop";
import { changeIn } from "./pictures";
import { half, height, width } from "./screens";
import { processesOf, type Session } from "./session";
import { inPixels } from "./wayland";

/** A pixel at each edge may look as before. */
const rounding = 4;

interface Box {
    x: number;
    y: number;
    width: number;
    height: number;
}

interface Node {
    id: number;
    name: string | null;
    pid?: number;
    /** A client of X11 has none. */
    app_id?: string | null;
    rect: Box;
    /** Within that. */
    window_rect: Box;
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

const isIt = (node: Node, window: string) => node.name === window || String(node.id) === window;

/** The content of a window, without what sway draws around it. */
const contentOf = ({ rect, window_rect }: Node): Rectangle => [rect.x + window_rect.x, rect.y + window_rect.y, window_rect.width, window_rect.height];

/** The program's window, if it can be seen. */
async function ownView(session: Session): Promise<Node | undefined> {
    return (await views(session)).find(({ name, app_id, visible }) => name === "Palomet" && app_id && visible === true);
}

/** The output that is there from the start. */
const first = "X11-1";
const second = "X11-2";

interface Output {
    name: string;
    /** "normal", or by how many degrees it is turned. */
    transform: string;
}

async function outputs({ environment }: Session): Promise<Output[]> {
    return JSON.parse(await run(["swaymsg", "-t", "get_outputs"], environment)) as Output[];
}

/** A screen that was turned by a quarter stands in the picture as it hangs on the wall: what is right of it is up. */
const upright = ([left, top, wide, high]: Rectangle): Rectangle => [top, height - left - wide, high, wide];

/** Of the windows in which sway shows its outputs, which have no names, the second is the later one. */
async function moveSecond({ screen }: Session, left: number): Promise<void> {
    const window = await until("the second screen", async () => {
        const all = [...(await screen.ask("xwininfo", "-root", "-children")).matchAll(/^ +(0x\w+) /gm)].map(([, id]) => id!);
        return all.length > 1 && all.sort((one, other) => Number(one) - Number(other)).at(-1);
    });
    await screen.hand("windowmove", window, String(left), "0");
}

/** What the user adds to the configuration that sway brings. */
const additions = `
workspace_layout tabbed
output ${first} mode ${width}x${height}
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
        async own(session: Session): Promise<OwnWindow | undefined> {
            const window = await ownView(session);
            return window && { id: String(window.id), place: inPixels(session, contentOf(window)) };
        },
        /** sway lists no surfaces of layers. The strip is what changed, of its size, in the lower half of the screen. */
        async strip(session: Session, before: string): Promise<Rectangle | undefined> {
            const isTurned = (await outputs(session)).some(({ name, transform }) => name === first && transform === "90");
            const lowerHalf: Rectangle = isTurned ? [0, 0, height / 2, half] : [0, height / 2, width, height / 2];
            const change = await changeIn(session, before, "strip", lowerHalf);
            const found = change && isTurned ? upright(change) : change;
            return found && isStrip({ width: found[2], height: found[3] }, session.screen.scale, rounding) ? found : undefined;
        },
        async identity(session: Session): Promise<string> {
            const window = await ownView(session);
            check(window?.app_id === "org.palomet.Palomet", `it is of the program ${window?.app_id}`);
            check(window?.name === "Palomet", `its title is ${window?.name}`);
            return "its program and its title";
        },
        async onDisplay(session: Session, [left, top, width, height]: Rectangle): Promise<Rectangle> {
            const window = await ownView(session);
            const [x, y] = window ? contentOf(window) : [0, 0];
            return inPixels(session, [left + x, top + y, width, height]);
        },
        async find(session: Session, title: string) {
            const found = (await views(session)).find((node) => isIt(node, title));
            return found && String(found.id);
        },
        async isInFront(session: Session, window: string) {
            return (await views(session)).some((node) => isIt(node, window) && node.focused && node.visible === true);
        },
        async isFullScreen(session: Session, window: string) {
            return (await views(session)).some((node) => isIt(node, window) && node.fullscreen_mode === 1);
        },
        async activate({ environment }: Session, window: string) {
            await run(["swaymsg", `[con_id=${window}] focus`], environment);
        },
        async list(session: Session) {
            return (await views(session)).map(({ name }) => name ?? "");
        },
    },

    screens: {
        /** The second is a window of its own in the X server, which nobody manages. sway cannot unplug it, nor disable it there:
         * what is one screen again has another beside it on which nobody is. */
        async two(session: Session): Promise<void> {
            await run(["swaymsg", "output", first, "mode", `${half}x${height}`], session.environment);
            if ((await outputs(session)).length === 1) await run(["swaymsg", "create_output"], session.environment);
            await run(["swaymsg", "output", second, "mode", `${half}x${height}`, "position", String(half), "0"], session.environment);
            await moveSecond(session, half);
        },
        async turned({ environment }: Session): Promise<void> {
            await run(["swaymsg", "output", first, "mode", `${height}x${half}`, "transform", "90"], environment);
        },
        async one(session: Session): Promise<void> {
            await run(["swaymsg", "output", first, "mode", `${width}x${height}`, "transform", "0", "position", "0", "0"], session.environment);
            if ((await outputs(session)).length === 1) return;
            await moveSecond(session, width);
            await run(["swaymsg", "output", second, "position", String(width), "0"], session.environment);
            await run(["swaymsg", "focus", "output", first], session.environment);
        },
    },

    async setScale({ environment }: Session, scale: number): Promise<void> {
        await run(["swaymsg", "output", first, "scale", String(scale)], environment);
    },

    terminal: (title, isFullScreen) => ["foot", "-T", title, "--override=locked-title=yes", "--override=colors.background=b0c4de", "--override=colors.foreground=202020", ...(isFullScreen ? ["--fullscreen"] : []), "bash", "--norc"],

    async trayItem(session: Session): Promise<Rectangle | undefined> {
        const { tree } = session;
        for (const bar of await tree.windows(/^waybar$/)) {
            const places = await Promise.all((await tree.all(bar, /^icon$/)).map(async (node) => inPixels(session, await tree.place(node))));
            // What is hidden has a place nevertheless.
            const [last] = places.filter(([left]) => left > half).slice(-1);
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
        await run(["swaymsg", "reload"], environment);
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

    locker: {
        command: ["swaylock", "--color", "203040"],
        isLocked: async () => processesOf(/^swaylock$/).length > 0,
    },

    async bind({ environment }: Session, keys: Record<string, string>): Promise<void> {
        const path = configuration(environment.HOME!);
        const lines = Object.entries(keys).map(([key, command]) => `bindsym ${key} exec ${command}\n`);
        writeFileSync(path, readFileSync(path, "utf8") + lines.join(""));
        await run(["swaymsg", "reload"], environment);
    },
};
