// The strip: what it shows in each state, seen and read out, and that it leaves the focus where it was.

import { join } from "node:path";
import type { Node } from "./accessible";
import { until } from "./process";
import { isStrip, OtherProgram } from "./screen";
import { check, type Stage, words } from "./stage";

export class Strip {
    #announcement: Node | undefined;

    private constructor(
        private readonly stage: Stage,
        readonly other: OtherProgram,
    ) {}

    /** Looks at it from another program, which the user turns to. */
    static async beside(stage: Stage): Promise<Strip> {
        return new Strip(stage, await OtherProgram.start(stage.environment, stage.screen, join(stage.folder, "other-program.log")));
    }

    /** Waits until it is gone. */
    async leave(): Promise<void> {
        await until("the strip to go", async () => (await this.stage.screen.strip()) === undefined);
    }

    /**
     * Takes a picture of it in that state, as soon as it shows it, and gives the line that it shows beside the state. A picture
     * counts if it said the same before and after, and the other program had the focus all the time.
     */
    async photograph(state: string, { line = /^/, name = state } = {}): Promise<string> {
        const word = words[`state.${state}`]!;
        let last = "";
        const read = await until(() => `the strip to say "${word}" (it says "${last}")`, async () => {
            const window = await this.stage.screen.strip();
            if (window === undefined) return;
            last = await this.#words();
            const [shown, beside = ""] = last.split(/: (.*)/s);
            if (shown !== word || !line.test(beside)) return;
            try {
                await this.stage.screen.picture(`strip-${name}`, window);
            } catch (problem) {
                // It may have gone already.
                last = String(problem);
                return;
            }
            check((await this.stage.screen.focused()) === this.other.id, `the strip took the focus in the state "${state}"`);
            return (await this.#words()) === last && (await this.stage.screen.strip())?.id === window.id && { beside };
        });
        return read.beside;
    }

    /** What it has read out: the state, and the line if there is one. */
    async #words(): Promise<string> {
        const { tree } = this.stage;
        this.#announcement ??= await until("the strip's words", async () => {
            for (const window of await tree.windows()) {
                const [, , width, height] = await tree.place(window);
                if (isStrip({ width, height })) return tree.firstOf(window, "notification");
            }
            return undefined;
        });
        return tree.name(this.#announcement);
    }
}
