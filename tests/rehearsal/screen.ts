// The screen: the program's windows, another program's window, the pointer, and pictures of it.

import { mkdirSync } from "node:fs";
import { join } from "node:path";
import { type Environment, run, startPiped, until } from "./process";
import { check } from "./stage";

export interface XWindow {
    id: string;
    width: number;
    height: number;
}

/** Left, top, width and height. */
export type Rectangle = [number, number, number, number];

/** Nothing else of the program's has the strip's size. */
export const isStrip = ({ width, height }: { width: number; height: number }, scale = 1, rounding = 0) =>
    Math.abs(width - 440 * scale) <= rounding && Math.abs(height - 40 * scale) <= rounding;

export class Screen {
    readonly #folder: string;
    /** How large the program draws itself there. */
    scale = 1;

    /** `outside` is where the screen itself is, if it is not that of the windows: a desktop may be shown inside a window. */
    constructor(
        private readonly environment: Environment,
        folder: string,
        private readonly outside = environment,
    ) {
        this.#folder = join(folder, "pictures");
        mkdirSync(this.#folder, { recursive: true });
    }

    /** The program's window, if it can be seen. */
    async window(): Promise<XWindow | undefined> {
        return (await this.#windows()).find((window) => !isStrip(window, this.scale));
    }

    /** The program's strip, if it can be seen. */
    async strip(): Promise<XWindow | undefined> {
        return (await this.#windows()).find((window) => isStrip(window, this.scale));
    }

    /** The window whose keys it gets. */
    async focused(): Promise<string> {
        return (await this.do("getwindowfocus")).trim();
    }

    async key(keys: string): Promise<void> {
        await this.hand("key", keys);
    }

    async type(text: string): Promise<void> {
        await this.hand("type", text);
    }

    /** Clicks into the middle of that place, so many times as fast as one does for a double click. */
    async click([left, top, width, height]: Rectangle, button: 1 | 3 = 1, times = 1): Promise<void> {
        const middle = [String(left + (width >> 1)), String(top + (height >> 1))];
        await this.hand("mousemove", ...middle, "click", "--repeat", String(times), "--delay", "80", String(button));
    }

    /** Takes a picture of that window, which has to show something, and says what it is like. */
    async picture(name: string, { id, width, height }: XWindow): Promise<string> {
        const path = join(this.#folder, `${name}.png`);
        await run(["import", "-silent", "-window", id, path], this.environment);
        const [columns, rows, colours] = (await run(["identify", "-format", "%w %h %k", path], this.environment)).split(" ").map(Number);
        check(columns === width && rows === height, `the picture ${name} is ${columns}×${rows}, and not ${width}×${height}`);
        check(colours! > 10, `the picture ${name} has no more than ${colours} colours`);
        return `${columns}×${rows}, ${colours} colours`;
    }

    /** Takes a picture of the whole screen, and gives its path. */
    async whole(name: string): Promise<string> {
        const path = join(this.#folder, `${name}.png`);
        await run(["import", "-silent", "-window", "root", path], this.outside);
        return path;
    }

    /** What the hands do, at the keyboard and the pointer. */
    hand(...parameters: string[]): Promise<string> {
        return run(["xdotool", ...parameters], this.outside);
    }

    /** What another tool says of the screen itself. */
    ask(...command: string[]): Promise<string> {
        return run(command, this.outside);
    }

    do(...parameters: string[]): Promise<string> {
        return run(["xdotool", ...parameters], this.environment);
    }

    async #windows(): Promise<XWindow[]> {
        const listing = await this.do("search", "--onlyvisible", "--name", "^Palomet$", "getwindowgeometry", "--shell", "%@").catch(() => "");
        const numbers = (name: string) => [...listing.matchAll(new RegExp(`^${name}=(\\d+)$`, "gm"))].map(([, digits]) => digits!);
        const [ids, widths, heights] = [numbers("WINDOW"), numbers("WIDTH"), numbers("HEIGHT")];
        return ids.map((id, index) => ({ id, width: Number(widths[index]), height: Number(heights[index]) }));
    }
}

/** Another program, which the user works with: it has the focus, and tells what keys it gets. */
export class OtherProgram {
    /** The keys that were pressed there, by name. */
    readonly keys: string[] = [];

    private constructor(readonly id: string) {}

    static async start(environment: Environment, screen: Screen, logPath: string): Promise<OtherProgram> {
        const viewer = startPiped(["stdbuf", "-oL", "xev", "-event", "keyboard", "-geometry", "500x300+100+100"], environment, logPath);
        const id = await until("another program's window", async () =>
            (await screen.do("search", "--onlyvisible", "--name", "^Event Tester$").catch(() => "")).trim());
        await screen.do("windowactivate", "--sync", id);
        const other = new OtherProgram(id);
        void other.#follow(viewer.stdout);
        await until("the other program's focus", async () => (await screen.focused()) === id);
        return other;
    }

    async #follow(output: ReadableStream<Uint8Array>): Promise<void> {
        let rest = "";
        let isPress = false;
        for await (const chunk of output.pipeThrough(new TextDecoderStream() as never) as unknown as AsyncIterable<string>) {
            const lines = (rest + chunk).split("\n");
            rest = lines.pop() ?? "";
            for (const line of lines) {
                if (/^Key/.test(line)) isPress = line.startsWith("KeyPress");
                const key = isPress && /keysym 0x[0-9a-f]+, (\w+)\)/.exec(line)?.[1];
                if (key) this.keys.push(key);
            }
        }
    }
}
