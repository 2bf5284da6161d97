// The windows of a desktop on X11, as its window manager tells of them.

import { type Environment, run } from "../rehearsal/process";
import type { Rectangle } from "../rehearsal/screen";
import { check } from "../rehearsal/stage";
import { half, height } from "./screens";
import type { Notice, OwnWindow, Screens, Windows } from "./desktop";
import type { Session } from "./session";

export const x11Windows: Omit<Windows, "list"> = {
    async own({ screen, environment }: Session): Promise<OwnWindow | undefined> {
        const window = await screen.window();
        return window && { id: window.id, place: await placeOf(environment, window.id) };
    },

    async strip({ screen, environment }: Session): Promise<Rectangle | undefined> {
        const strip = await screen.strip();
        return strip && (await placeOf(environment, strip.id));
    },

    async identity(session: Session, { id }: OwnWindow): Promise<string> {
        const text = await properties(session, ["-id", id], "WM_CLASS", "_NET_WM_NAME", "_KDE_NET_WM_DESKTOP_FILE", "_GTK_APPLICATION_ID", "_NET_WM_ICON");
        check(/^WM_CLASS\(STRING\) = "palomet", "Palomet"$/m.test(text), `its class is not Palomet: ${text}`);
        check(/^_NET_WM_NAME\(UTF8_STRING\) = "Palomet"$/m.test(text), "its title is not Palomet");
        for (const name of ["_KDE_NET_WM_DESKTOP_FILE", "_GTK_APPLICATION_ID"]) {
            check(text.includes(`${name}(UTF8_STRING) = "org.palomet.Palomet"`), `${name} is not that of its desktop file`);
        }
        const sizes = [...text.matchAll(/Icon \((\d+) x \d+\)/g)].map(([, size]) => Number(size));
        check([16, 32, 48].every((size) => sizes.includes(size)), `it has icons of ${sizes.join(", ")} only`);
        return `its class, desktop file and icons (${sizes.join(", ")})`;
    },

    async find({ screen }: Session, title: string): Promise<string | undefined> {
        return (await screen.do("search", "--onlyvisible", "--name", `^${title}$`).catch(() => "")).trim() || undefined;
    },

    async isInFront(session: Session, window: string): Promise<boolean> {
        const text = await properties(session, ["-root"], "_NET_ACTIVE_WINDOW", "_NET_CLIENT_LIST_STACKING");
        const active = /^_NET_ACTIVE_WINDOW.*# (0x\w+)/m.exec(text)?.[1];
        // The numbers are written in either way.
        if (Number(active) !== Number(window)) return false;
        // The window manager says who is in front before that one gets the keys.
        if (Number(await session.screen.do("getwindowfocus").catch(() => "")) !== Number(window)) return false;
        const stack = [...(/^_NET_CLIENT_LIST_STACKING.*$/m.exec(text)?.[0] ?? "").matchAll(/0x\w+/g)].map(([one]) => one);
        const kinds = await Promise.all(stack.map((one) => properties(session, ["-id", one], "_NET_WM_WINDOW_TYPE").catch(() => "")));
        const ordinary = stack.filter((_, index) => !/_DOCK|_DESKTOP/.test(kinds[index]!));
        return Number(ordinary.at(-1)) === Number(window);
    },

    async isFullScreen(session: Session, window: string): Promise<boolean> {
        return /_STATE_FULLSCREEN/.test(await properties(session, ["-id", window], "_NET_WM_STATE"));
    },

    async move({ screen }: Session, window: string, left: number, top: number): Promise<void> {
        await screen.do("windowmove", window, String(left), String(top));
    },

    async activate({ screen }: Session, window: string): Promise<void> {
        await screen.do("windowactivate", "--sync", window);
    },
};

const randr = ({ environment }: Session, ...parameters: string[]) => run(["xrandr", ...parameters], environment);

/** The only output of an X server without a screen, which is called "screen". */
export const x11Screens: Screens = {
    async two(session: Session): Promise<void> {
        await randr(session, "--setmonitor", "left", `${half}/169x${height}/211+0+0`, "screen");
        await randr(session, "--setmonitor", "right", `${half}/169x${height}/211+${half}+0`, "none");
    },

    async turned(session: Session): Promise<void> {
        await randr(session, "--newmode", "portrait", "0", String(half), "0", "0", String(half), String(height), "0", "0", String(height));
        await randr(session, "--addmode", "screen", "portrait");
        await randr(session, "--output", "screen", "--mode", "portrait");
    },

    async one(session: Session): Promise<void> {
        const areas = await randr(session, "--listactivemonitors");
        for (const name of ["right", "left"]) if (areas.includes(` ${name} `)) await randr(session, "--delmonitor", name);
        await randr(session, "--output", "screen", "--mode", `${2 * half}x${height}`);
    },
};

/** Where a program's notification of that title shows it, and its button of that name, as a screen reader has them. */
export async function noticeBy({ tree }: Session, program: RegExp, title: string, button: string): Promise<Notice | undefined> {
    for (const window of await tree.windows(program)) {
        const places = new Map<string, Rectangle>();
        for (const node of await tree.all(window, /^(label|static|text|heading|push button)$/)) {
            // What goes away meanwhile has neither.
            const [name, place] = await Promise.all([tree.name(node), tree.place(node)]).catch(() => [""] as const);
            if (name && place) places.set(name, place);
        }
        const itself = places.get(title);
        if (itself) return { itself, button: places.get(button) };
    }
    return undefined;
}

/** Where that window is on the whole display. It may go meanwhile. */
async function placeOf(environment: Environment, id: string): Promise<Rectangle> {
    const text = await run(["xwininfo", "-id", id], environment).catch(() => "");
    const number = (name: string) => Number(new RegExp(`^ *${name}: +(-?\\d+)$`, "m").exec(text)?.[1]);
    return [number("Absolute upper-left X"), number("Absolute upper-left Y"), number("Width"), number("Height")];
}

function properties({ environment }: Session, window: string[], ...names: string[]): Promise<string> {
    return run(["xprop", ...window, ...names], environment);
}

/** A terminal of X11, large enough to lie above others, and of a colour that no menu has. */
export const x11Terminal = (title: string, isFullScreen: boolean) =>
    ["xterm", "-T", title, "-bg", "lightsteelblue", ...(isFullScreen ? ["-fullscreen"] : ["-geometry", "120x40+60+60"]), "-e", "bash", "--norc"];
