// The windows of a desktop on X11, as its window manager tells of them.

import { run } from "../rehearsal/process";
import type { Rectangle } from "../rehearsal/screen";
import type { Notice, Windows } from "./desktop";
import type { Session } from "./session";

export const x11Windows: Omit<Windows, "list"> = {
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

    async activate({ screen }: Session, window: string): Promise<void> {
        await screen.do("windowactivate", "--sync", window);
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

function properties({ environment }: Session, window: string[], ...names: string[]): Promise<string> {
    return run(["xprop", ...window, ...names], environment);
}

/** A terminal of X11, large enough to lie above others, and of a colour that no menu has. */
export const x11Terminal = (title: string, isFullScreen: boolean) =>
    ["xterm", "-T", title, "-bg", "lightsteelblue", ...(isFullScreen ? ["-fullscreen"] : ["-geometry", "150x40+60+60"]), "-e", "bash", "--norc"];
