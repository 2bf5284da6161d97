// The voice backend, as anybody on this machine sees it: its state, its events, its commands.

import type { Heard } from "../../engine/src/base/protocol";
import { until } from "./process";

const base = "http://127.0.0.1:4780";

export interface State {
    state: string;
    isMuted: boolean;
    isMicDead: boolean;
    device: string;
    conversation: { rows: { role: string; text: string }[] };
    heard?: Heard[];
    draft?: { text: string }[];
    settings: Record<string, unknown>;
    timings?: { transcribeMs?: number; totalMs: number };
}

export class Watcher {
    /** The states passed through, in order, each once. */
    readonly states: string[] = [];
    /** Each with its moment, for whoever looks for a fault. */
    readonly story: string[] = [];
    /** The sentences that were begun to be spoken, in order. */
    readonly spoken: string[] = [];
    level = 0;
    levelCount = 0;
    #isEnding = false;
    #changed = 0;

    start(): void {
        void this.#follow();
    }

    end(): void {
        this.#isEnding = true;
    }

    async state(): Promise<State | undefined> {
        try {
            const reply = await fetch(`${base}/state`, { signal: AbortSignal.timeout(2000) });
            return (await reply.json()) as State;
        } catch {
            return undefined;
        }
    }

    /** Whether it was taken. */
    async post(path: string, body?: unknown): Promise<boolean> {
        const reply = await fetch(`${base}/${path}`, {
            method: "POST",
            ...(body === undefined ? {} : { body: JSON.stringify(body), headers: { "content-type": "application/json" } }),
        });
        return reply.ok;
    }

    /** Waits until the loop is in a state that it entered after `since` states were counted. */
    async reach(wanted: string, since = 0, limitMs = 20_000): Promise<void> {
        await until(() => `the state "${wanted}" (passed through: ${this.states.slice(since).join(", ")})`,
            () => this.states.slice(since).includes(wanted), limitMs);
    }

    /** How many states were counted when it entered this one, after `since` of them. */
    after(wanted: string, since: number): number {
        return since + this.states.slice(since).indexOf(wanted);
    }

    /** Waits until the loop has been waiting for a while: what was said may be more than one utterance. */
    async settle(): Promise<void> {
        await until("the loop to settle", () => this.states.at(-1) === "waiting" && performance.now() - this.#changed > 1000, 60_000);
    }

    #note(state: string): void {
        if (this.states.at(-1) === state) return;
        this.states.push(state);
        this.story.push(`${(performance.now() / 1000).toFixed(2)} ${state}`);
        this.#changed = performance.now();
    }

    async #follow(): Promise<void> {
        while (!this.#isEnding) {
            try {
                const reply = await fetch(`${base}/events`);
                let rest = "";
                let event = "";
                for await (const chunk of reply.body!.pipeThrough(new TextDecoderStream() as never) as unknown as AsyncIterable<string>) {
                    const lines = (rest + chunk).split("\n");
                    rest = lines.pop() ?? "";
                    for (const line of lines) {
                        if (line.startsWith("event: ")) event = line.slice(7).trimEnd();
                        else if (line.startsWith("data: ")) this.#handle(event, line.slice(6).trimEnd());
                    }
                    if (this.#isEnding) return;
                }
            } catch {
                // Not there yet, or gone: look again.
            }
            await Bun.sleep(100);
        }
    }

    #handle(event: string, data: string): void {
        if (event === "phase") this.#note(data);
        if (event === "spoken") this.spoken.push(JSON.parse(data) as string);
        if (event !== "level") return;
        this.level = Number(data);
        this.levelCount += 1;
    }
}
