// Where the steps happen: the desktop, its session of the moment, and what a person has there besides.

import { join } from "node:path";
import type { Watcher } from "../rehearsal/backend";
import { type Program, run, start, until } from "../rehearsal/process";
import type { XWindow } from "../rehearsal/screen";
import type { SoundDesk } from "../rehearsal/sound";
import { program } from "../rehearsal/stage";
import type { Desktop } from "./desktop";
import type { Session } from "./session";

export interface Place {
    readonly desktop: Desktop;
    readonly sound: SoundDesk;
    readonly watcher: Watcher;
    readonly folder: string;
    /** The session of the moment; there is another after a new login. */
    session: Session;
}

/** Numbers of windows are written in either way. */
const sameWindow = (one: string, other: string) => Number(one) === Number(other);

/** The window of a terminal, in which a person types commands. */
export class Terminal {
    private constructor(
        private readonly place: Place,
        readonly id: string,
        private readonly process: Program,
    ) {}

    static async open(place: Place, ...options: string[]): Promise<Terminal> {
        const { session, folder } = place;
        const title = `terminal ${performance.now()}`;
        const process = start(["xterm", "-T", title, ...options, "-e", "bash", "--norc"], session.environment, join(folder, "terminal.log"));
        const id = await until("the terminal", async () =>
            (await session.screen.do("search", "--onlyvisible", "--name", `^${title}$`).catch(() => "")).trim());
        const terminal = new Terminal(place, id, process);
        await until("the terminal's focus", async () => isInFront(place, id));
        return terminal;
    }

    /** A click into it brings it to the front. */
    async turnTo(): Promise<void> {
        await this.place.session.screen.do("windowactivate", "--sync", this.id);
        await until("the terminal in front", () => isInFront(this.place, this.id));
    }

    async type(command: string): Promise<void> {
        await this.place.session.screen.type(`${command}\n`);
    }

    async close(): Promise<void> {
        this.process.kill("SIGTERM");
        await this.process.exited;
    }
}

/** Whether it lies above all others, and gets the keys. */
export async function isInFront({ session }: Place, id: string): Promise<boolean> {
    const text = await run(["xprop", "-root", "_NET_ACTIVE_WINDOW", "_NET_CLIENT_LIST_STACKING"], session.environment);
    const active = /^_NET_ACTIVE_WINDOW.*# (0x\w+)/m.exec(text)?.[1] ?? "0";
    if (!sameWindow(active, id)) return false;
    const stack = [...(/^_NET_CLIENT_LIST_STACKING.*$/m.exec(text)?.[0] ?? "").matchAll(/0x\w+/g)].map(([one]) => one);
    const kinds = await Promise.all(stack.map((one) => run(["xprop", "-id", one, "_NET_WM_WINDOW_TYPE"], session.environment).catch(() => "")));
    const ordinary = stack.filter((_, index) => !/_DOCK|_DESKTOP/.test(kinds[index]!));
    return sameWindow(ordinary.at(-1) ?? "0", id);
}

/** The program's window, once it is in front and has the focus. */
export async function windowInFront(place: Place): Promise<XWindow> {
    return until("the window in front, with the focus", async () => {
        const window = await place.session.screen.window();
        return window && (await isInFront(place, window.id)) && window;
    });
}

/** Closes the window that is in front by the desktop's own key. */
export async function closeWindow(place: Place): Promise<void> {
    await windowInFront(place);
    await place.session.screen.key("alt+F4");
    await until("the window to close", async () => (await place.session.screen.window()) === undefined);
}

export async function status(place: Place): Promise<{ state: string; hotKeyProblem: string }> {
    return JSON.parse(await run([program, "--status", "--json"], place.session.environment));
}

/** What the program says to that. */
export function palomet({ session }: Place, ...options: string[]): Promise<string> {
    return run([program, ...options], session.environment);
}

/** A property of that window, as xprop has it. */
export async function property({ session }: Place, id: string, ...names: string[]): Promise<string> {
    return run(["xprop", "-id", id, ...names], session.environment);
}
