// Where the steps happen: the desktop, its session of the moment, and what a person has there besides.

import { existsSync, statSync } from "node:fs";
import { join } from "node:path";
import type { Node } from "../rehearsal/accessible";
import type { Watcher } from "../rehearsal/backend";
import { type Program, run, start, until } from "../rehearsal/process";
import type { Rectangle } from "../rehearsal/screen";
import type { SoundDesk } from "../rehearsal/sound";
import { program } from "../rehearsal/stage";
import type { Desktop, OwnWindow } from "./desktop";
import { stillPicture } from "./pictures";
import type { Session } from "./session";

export interface Place {
    readonly desktop: Desktop;
    readonly sound: SoundDesk;
    readonly watcher: Watcher;
    readonly folder: string;
    /** The session of the moment; there is another after a new login. */
    session: Session;
}

/** The window of a terminal, in which a person types commands. */
export class Terminal {
    static readonly #open = new Set<Terminal>();

    private constructor(
        private readonly place: Place,
        readonly id: string,
        private readonly process: Program,
    ) {}

    static async open(place: Place, { isFullScreen = false } = {}): Promise<Terminal> {
        const { session, desktop, folder } = place;
        const title = `terminal ${Math.round(performance.now())}`;
        const prompts = join(folder, `${title.replace(" ", "-")}.prompts`);
        const environment = { ...session.environment, PROMPT_COMMAND: `echo >> ${prompts}` };
        const process = start(desktop.terminal(title, isFullScreen), environment, join(folder, "terminal.log"));
        const id = await until("the terminal", () => desktop.windows.find(session, title));
        await until("the terminal's focus", () => desktop.windows.isInFront(session, id));
        // The first keys may be lost on a busy machine, although it has the focus.
        await until("the terminal to take keys", async () => {
            if (!existsSync(prompts)) return false;
            const { size } = statSync(prompts);
            await session.screen.key("Return");
            return until("a prompt", () => statSync(prompts).size > size, 2000).catch(() => false);
        });
        const terminal = new Terminal(place, id, process);
        Terminal.#open.add(terminal);
        return terminal;
    }

    static async closeAll(): Promise<void> {
        for (const terminal of Terminal.#open) await terminal.close();
    }

    async type(command: string): Promise<void> {
        await this.place.session.screen.type(`${command}\n`);
    }

    async close(): Promise<void> {
        this.process.kill("SIGTERM");
        await this.process.exited;
        Terminal.#open.delete(this);
    }
}

/** Closes what a step has left open that ended before its time. */
export async function tidy(place: Place): Promise<void> {
    const { desktop: { windows }, session } = place;
    await session.screen.key("Escape");
    await Terminal.closeAll();
    const window = await windows.own(session);
    if (!window) return;
    await windows.activate(session, (await windows.find(session, "Palomet")) ?? window.id);
    await closeWindow(place);
}

/** The program's window, once it is in front and has the focus. */
export async function windowInFront({ session, desktop: { windows } }: Place): Promise<OwnWindow> {
    return until("the window in front, with the focus", async () => {
        const window = await windows.own(session);
        return window && (await windows.isInFront(session, window.id)) && window;
    });
}

/** Where something of the program's window is on the whole display. */
export async function placeOf({ session, desktop: { windows } }: Place, node: Node): Promise<Rectangle> {
    const found = await session.tree.place(node);
    return (await windows.onDisplay?.(session, found)) ?? found;
}

/** Scrolls the page until that can be seen, and gives it. */
export async function inSight(place: Place, node: Node): Promise<Node> {
    const { screen } = place.session;
    const [left] = await placeOf(place, node);
    await screen.hand("mousemove", String(left), "500");
    await until("it to be in sight", async () => {
        const [, top] = await placeOf(place, node);
        if (top > 220 && top < 700) return true;
        // A compositor inside a window hands the turn of a wheel on with what the pointer does next; of what is turned after
        // the pointer was moved, XWayland's first step is lost.
        await screen.hand("click", "--repeat", "3", "5", "mousemove_relative", "1", "0");
        return false;
    });
    await stillPicture(place, "in-sight");
    return node;
}

/** Closes the window that is in front by the desktop's own key. */
export async function closeWindow(place: Place): Promise<void> {
    const { session, desktop: { windows, closeKey } } = place;
    await windowInFront(place);
    await until("the window to close", async () => {
        await session.screen.key(closeKey);
        // A menu that is still closing takes the key.
        return until("it", async () => (await windows.own(session)) === undefined, 3000).catch(() => false);
    });
}

export async function status(place: Place): Promise<{ state: string; hotKeyProblem: string }> {
    return JSON.parse(await run([program, "--status", "--json"], place.session.environment));
}

/** What the program says to that. */
export function palomet({ session }: Place, ...options: string[]): Promise<string> {
    return run([program, ...options], session.environment);
}
