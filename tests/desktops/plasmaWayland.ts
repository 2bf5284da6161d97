// Plasma on Wayland, in a window of the X server that has no screen. Palomet is a client of Wayland there: its window by itself,
// its strip by the layer shell. KWin tells of its windows only to scripts that run inside it, and those tell by its log.

import { chmodSync, mkdirSync, readFileSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import { run, until } from "../rehearsal/process";
import { isStrip, type Rectangle } from "../rehearsal/screen";
import { check } from "../rehearsal/stage";
import type { Desktop, OwnWindow, Screens } from "./desktop";
import { inPanel, plasmaX11 } from "./plasma";
import { half, height, width } from "./screens";
import type { Session } from "./session";
import { inPixels } from "./wayland";
import { x11Terminal } from "./x11";

interface Surface {
    id: string;
    title: string;
    /** Its desktop file's name. */
    program: string;
    pid: number;
    /** What the program draws, without the frame, in KWin's own points. */
    content: Rectangle;
    isActive: boolean;
    isFullScreen: boolean;
    isMinimized: boolean;
    isOrdinary: boolean;
    /** In the list of windows; what the layer shell places is in none. */
    isListed: boolean;
    /** The higher, the nearer to the user. */
    layer: number;
}

const listing = `workspace.clientList().map((window) => ({
    id: String(window.internalId),
    title: window.caption,
    program: String(window.desktopFileName),
    pid: window.pid,
    content: [window.bufferGeometry.x, window.bufferGeometry.y, window.bufferGeometry.width, window.bufferGeometry.height],
    isActive: window.active,
    isFullScreen: window.fullScreen,
    isMinimized: window.minimized,
    isOrdinary: window.normalWindow,
    isListed: !window.skipTaskbar,
    layer: window.stackingOrder,
}))`;

let questions = 0;

/** What a script inside KWin has for that expression. */
async function ask({ environment }: Session, expression: string): Promise<unknown> {
    const home = environment.HOME!;
    const mark = `palomet-answer-${process.pid}-${++questions}:`;
    const script = join(home, "question.js");
    writeFileSync(script, `console.info(${JSON.stringify(mark)} + JSON.stringify(${expression}));\n`);
    const call = (path: string, method: string, ...parameters: string[]) =>
        run(["gdbus", "call", "--session", "--dest", "org.kde.KWin", "--object-path", path, "--method", `org.kde.kwin.${method}`, ...parameters], environment);
    const number = /\d+/.exec((await call("/Scripting", "Scripting.loadScript", script, mark)).replace("int32", ""))?.[0];
    await call(`/${number}`, "Script.run");
    const answer = await until("KWin's answer", () => {
        const lines = readFileSync(join(home, "../session.log"), "utf8").split("\n");
        return lines.find((line) => line.includes(mark));
    });
    await call("/Scripting", "Scripting.unloadScript", mark);
    return JSON.parse(answer.slice(answer.indexOf(mark) + mark.length));
}

const surfaces = async (session: Session) => (await ask(session, listing)) as Surface[];
/** A window that another program shows for one may have that program's name behind its title. */
const isIt = (surface: Surface, window: string) => surface.id === window || surface.title.replace(/ — Portal$/, "") === window;
/** What the layer shell places has no title. */
const isOwnStrip = ({ title, content: [, , width, height] }: Surface) => title === "" && isStrip({ width, height });
const isOwn = ({ program, isOrdinary, isMinimized }: Surface) => program === "org.palomet.Palomet" && isOrdinary && !isMinimized;

/** The place of a part of a window, which the program knows within that alone. */
const within = ({ content: [x, y] }: Surface, [left, top, width, height]: Rectangle): Rectangle => [left + x, top + y, width, height];

async function own(session: Session): Promise<Surface | undefined> {
    return (await surfaces(session)).find(isOwn);
}

/** As the toolkit numbers keys. */
const modifiers: Record<string, number> = { ctrl: 0x04000000, alt: 0x08000000 };
/** By what its portal calls them. */
const actions: Record<string, string> = { Listen: "1", Stop: "2" };

/** What the page of the settings does. */
async function give({ environment }: Session, action: string, key: string): Promise<void> {
    const parts = key.split("+");
    const code = parts.slice(0, -1).reduce((sum, name) => sum + modifiers[name]!, parts.at(-1)!.toUpperCase().charCodeAt(0));
    const daemon = ["--dest", "org.kde.kglobalaccel", "--object-path", "/kglobalaccel", "--method", "org.kde.KGlobalAccel.setForeignShortcut"];
    await run(["gdbus", "call", "--session", ...daemon, `['palomet', '${actions[action]}', 'palomet', '${action}']`, `[${code}]`], environment);
}

/** An output is a window of the X server, and as large as that. The second is the later one. */
async function show({ screen }: Session, output: 1 | 2, left: number, wide: number): Promise<void> {
    const found = [...(await screen.ask("xwininfo", "-root", "-children")).matchAll(/^ +(0x\w+) "KDE Wayland Compositor/gm)];
    const window = found.map(([, id]) => id!).sort((one, other) => Number(one) - Number(other))[output - 1];
    check(window !== undefined, "the compositor shows no such window");
    await screen.hand("windowsize", window!, String(wide), String(height), "windowmove", window!, String(left), "0");
}

/** As the settings' page does. */
async function arrange({ environment }: Session, ...wishes: string[]): Promise<void> {
    await run(["kscreen-doctor", ...wishes], environment);
}

/** The window of a screen that is unplugged stays, beyond the edge. */
async function unplugSecond(session: Session): Promise<void> {
    await arrange(session, "output.2.disable");
    await show(session, 2, width, half);
}

const screens: Screens = {
    async two(session: Session): Promise<void> {
        await show(session, 1, 0, half);
        await show(session, 2, half, half);
        await arrange(session, "output.2.enable", `output.2.position.${half},0`);
    },
    turned: (session) => show(session, 1, 0, half),
    async one(session: Session): Promise<void> {
        await unplugSecond(session);
        await show(session, 1, 0, width);
    },
};

export const plasmaWayland: Desktop = {
    ...plasmaX11,
    type: "wayland",
    session: ["sh", "-c", 'PATH="$HOME/.local/bin:$PATH" exec startplasma-wayland'],
    // KWin's scripts are heard, and the panel tells a screen reader what it shows from the start.
    environment: { ...plasmaX11.environment, QT_LOGGING_RULES: "js.debug=true;js.info=true", QT_FORCE_STDERR_LOGGING: "1", QT_LINUX_ACCESSIBILITY_ALWAYS_ON: "1" },
    package: "plasma-workspace-wayland",
    keys: "portal",
    portal: { page: "Shortcuts — System Settings Module", give },
    screens,
    settle: unplugSecond,
    terminal: x11Terminal,

    windows: {
        async own(session: Session): Promise<OwnWindow | undefined> {
            const found = await own(session);
            return found && { id: found.id, place: inPixels(session, found.content) };
        },
        async strip(session: Session): Promise<Rectangle | undefined> {
            const found = (await surfaces(session)).find(isOwnStrip);
            return found && inPixels(session, found.content);
        },
        async identity(session: Session): Promise<string> {
            const found = await own(session);
            check(found?.program === "org.palomet.Palomet", `it is of the program ${found?.program}`);
            check(found?.title === "Palomet", `its title is ${found?.title}`);
            return "its program and its title";
        },
        async onDisplay(session: Session, place: Rectangle, other?: string): Promise<Rectangle> {
            const found = other === undefined ? await own(session) : (await surfaces(session)).find((surface) => isIt(surface, other));
            return inPixels(session, found ? within(found, place) : place);
        },
        async find(session: Session, title: string) {
            return (await surfaces(session)).find((surface) => isIt(surface, title))?.id;
        },
        async isInFront(session: Session, window: string) {
            const ordinary = (await surfaces(session)).filter(({ isOrdinary, isListed, isMinimized }) => isOrdinary && isListed && !isMinimized);
            const front = ordinary.sort((one, other) => one.layer - other.layer).at(-1);
            return front !== undefined && isIt(front, window) && front.isActive;
        },
        async isFullScreen(session: Session, window: string) {
            return (await surfaces(session)).some((surface) => isIt(surface, window) && surface.isFullScreen);
        },
        async activate(session: Session, window: string) {
            const wish = `workspace.clientList().filter((window) => String(window.internalId) === ${JSON.stringify(window)}).map((window) => { workspace.activeClient = window; return 1; })`;
            await ask(session, wish);
        },
        list: plasmaX11.windows.list,
    },

    async trayItem(session: Session): Promise<Rectangle | undefined> {
        return (await inPanel(session)).filter(({ name }) => /^palomet$/i.test(name)).map(({ place }) => inPixels(session, place)).find(([left]) => left > width / 2);
    },

    setScale: (session, scale) => arrange(session, `output.1.scale.${scale}`),

    async setUp(home: string): Promise<void> {
        await plasmaX11.setUp?.(home);
        const folder = join(home, ".local/bin");
        mkdirSync(folder, { recursive: true });
        const wrapper = join(folder, "kwin_wayland_wrapper");
        writeFileSync(wrapper, `#!/bin/sh\nexec /usr/bin/kwin_wayland_wrapper --width ${width} --height ${height} --output-count 2 "$@"\n`);
        chmodSync(wrapper, 0o755);
    },
};
