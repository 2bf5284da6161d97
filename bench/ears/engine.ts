// The bundled engine as a process of its own, with the bench as its front end: it is heard and spoken to over the engine's port alone.

import { mkdtempSync, readFileSync, rmSync } from "node:fs";
import { createServer } from "node:net";
import { tmpdir } from "node:os";
import { join, resolve } from "node:path";
import type { Heard } from "../../engine/src/base/protocol";
import { Microphone } from "./microphone";
import { type Played, Loudspeaker } from "./loudspeaker";

const main = resolve(import.meta.dir, "../../engine/src/main.ts");

interface State {
    state: string;
    heard: Heard[];
    conversation: { rows: { role: string; text: string }[] };
    settings: Record<string, unknown>;
}

/** What the event stream told, and when. */
export interface Told {
    event: string;
    data: string;
    at: number;
}

export interface Wanted {
    language?: "en" | "pt";
    /** How many times faster than time itself the microphone gives what it hears. */
    speed?: number;
    settings?: Record<string, unknown>;
}

export class Engine {
    readonly microphone: Microphone;
    readonly loudspeaker: Loudspeaker;
    /** Since they were last forgotten. */
    told: Told[] = [];
    phase = "waiting";
    #isEnding = false;
    #lastHeardAt = 0;

    private constructor(
        private readonly process: ReturnType<typeof Bun.spawn>,
        private readonly folder: string,
        private readonly base: string,
        private readonly socket: WebSocket,
        speed: number,
    ) {
        this.microphone = new Microphone((samples) => this.socket.send(samples), speed);
        this.loudspeaker = new Loudspeaker((message) => this.socket.send(JSON.stringify(message)));
        socket.onmessage = ({ data }) => this.loudspeaker.take(JSON.parse(String(data)));
    }

    /** Starts one with a state of its own, connects, and opens the microphone in a silent room. */
    static async start({ language = "en", speed = 1, settings = {} }: Wanted = {}): Promise<Engine> {
        const folder = mkdtempSync(join(tmpdir(), "palomet-ears-"));
        const port = await freePort();
        const locale = language === "pt" ? "pt_BR.UTF-8" : "en_US.UTF-8";
        const { LANGUAGE: _, LC_ALL: __, ...rest } = process.env;
        const engine = Bun.spawn([process.execPath, main], {
            env: { ...rest, LANG: locale, LC_MESSAGES: locale, HOME: folder, XDG_STATE_HOME: folder, PALOMET_PORT: String(port), PALOMET_APP_AUDIO: "1" },
            stdin: "ignore", stdout: "ignore", stderr: Bun.file(join(folder, "engine.log")),
        });
        const base = `http://127.0.0.1:${port}`;
        await until("the engine", async () => (await fetch(`${base}/state`)).ok);
        const socket = new WebSocket(`ws://127.0.0.1:${port}/audio`);
        await new Promise((done, failed) => {
            socket.onopen = done;
            socket.onerror = failed;
        });
        socket.send(JSON.stringify({ type: "hello", device: "Microphone" }));
        const one = new Engine(engine, folder, base, socket, speed);
        void one.#follow();
        await one.set({ brainModel: "built-in", ...settings });
        one.microphone.open();
        return one;
    }

    async end(): Promise<void> {
        this.#isEnding = true;
        this.microphone.close();
        this.socket.close();
        this.process.kill("SIGTERM");
        await this.process.exited;
        rmSync(this.folder, { recursive: true, force: true });
    }

    /** Its process and all that it has started. */
    get processes(): number[] {
        const children = (of: number): number[] => {
            try {
                const own = readFileSync(`/proc/${of}/task/${of}/children`, "utf8").trim().split(" ").filter((one) => one !== "").map(Number);
                return [of, ...own.flatMap(children)];
            } catch {
                return [];
            }
        };
        return children(this.process.pid);
    }

    get log(): string {
        return readFileSync(join(this.folder, "engine.log"), "utf8");
    }

    get clips(): Played[] {
        return this.loudspeaker.clips;
    }

    /** Drops what was told and played so far. */
    forget(): void {
        this.told = [];
        this.loudspeaker.clips = [];
    }

    async state(): Promise<State> {
        return (await (await fetch(`${this.base}/state`)).json()) as State;
    }

    async post(path: string, body?: unknown): Promise<void> {
        const reply = await fetch(`${this.base}/${path}`, { method: "POST", ...(body === undefined ? {} : { body: JSON.stringify(body) }) });
        if (!reply.ok) throw new Error(`${path}: ${await reply.text()}`);
    }

    async set(settings: Record<string, unknown>): Promise<void> {
        await this.post("settings", settings);
    }

    /** What it has heard since it was last asked. */
    async heard(): Promise<Heard[]> {
        const { heard } = await this.state();
        const news = heard.filter(({ at }) => at > this.#lastHeardAt);
        this.#lastHeardAt = heard.at(-1)?.at ?? this.#lastHeardAt;
        return news;
    }

    /** Ends what it does, and lets what sounded in the room die away for it. */
    async quiet(): Promise<void> {
        await this.post("stop");
        await until("the engine to be quiet", () => this.phase === "waiting");
    }

    /** Waits for an event of the stream among those that are told after the first `since` of them. */
    async event(what: string, matches: (told: Told) => boolean, since = 0, limitMs = 20_000): Promise<Told> {
        return await until(what, () => this.told.slice(since).find(matches), limitMs);
    }

    async #follow(): Promise<void> {
        while (!this.#isEnding) {
            try {
                const reply = await fetch(`${this.base}/events`);
                let rest = "";
                let event = "";
                const decoder = new TextDecoder();
                for await (const bytes of reply.body as unknown as AsyncIterable<Uint8Array>) {
                    const at = performance.now();
                    const lines = (rest + decoder.decode(bytes, { stream: true })).split("\n");
                    rest = lines.pop() ?? "";
                    for (const line of lines) {
                        if (line.startsWith("event: ")) event = line.slice(7).trimEnd();
                        if (line.startsWith("data: ")) this.#take({ event, data: line.slice(6).trimEnd(), at });
                    }
                    if (this.#isEnding) return;
                }
            } catch {
                if (!this.#isEnding) await Bun.sleep(50);
            }
        }
    }

    #take(told: Told): void {
        if (told.event === "level" || told.event === "outLevel") return;
        if (told.event === "phase") this.phase = told.data;
        this.told.push(told);
    }
}

async function freePort(): Promise<number> {
    const server = createServer();
    await new Promise<void>((done) => server.listen(0, "127.0.0.1", done));
    const address = server.address();
    await new Promise((done) => server.close(done));
    if (address === null || typeof address === "string") throw new Error("no port");
    return address.port;
}

/** Looks again and again until something holds, and gives it. */
export async function until<T>(what: string, look: () => T | undefined | false | Promise<T | undefined | false>, limitMs = 30_000): Promise<T> {
    const deadline = performance.now() + limitMs;
    for (;;) {
        const found = await Promise.resolve().then(look).catch(() => undefined);
        if (found) return found;
        if (performance.now() > deadline) throw new Error(`waited ${limitMs / 1000} s in vain for ${what}`);
        await Bun.sleep(5);
    }
}
