// Loudspeakers that nobody hears: they take the clips of the engine, and report each when it would have been played.

import { readClip } from "../../engine/src/sound/wav";
import { extent, fromPcm, rate } from "./set/signal";

export interface Played {
    id: number;
    /** When its message came, when it began to be played, and when it ended. */
    cameAt: number;
    from: number;
    to: number;
    /** The silence before its first sound. */
    leadMs: number;
}

interface Message {
    type: string;
    id?: number;
    data?: string;
}

export class Loudspeaker {
    /** Since they were last forgotten. */
    clips: Played[] = [];
    /** Nothing is played, each clip is reported at once. */
    isOff = false;
    #busyUntil = 0;
    #pending = new Map<number, ReturnType<typeof setTimeout>>();

    constructor(private readonly report: (message: { type: "played"; id: number }) => void) {}

    take({ type, id, data }: Message): void {
        if (type === "stop") {
            for (const [one, timer] of [...this.#pending]) {
                clearTimeout(timer);
                this.#end(one);
            }
            this.#busyUntil = 0;
        }
        if (type !== "play" || id === undefined || data === undefined) return;
        const cameAt = performance.now();
        const clip = readClip(new Uint8Array(Buffer.from(data, "base64")));
        if (!clip || this.isOff) return this.report({ type: "played", id });
        const from = Math.max(cameAt, this.#busyUntil);
        const to = from + clip.durationMs;
        this.#busyUntil = to;
        this.clips.push({ id, cameAt, from, to, leadMs: leadOf(clip.file) });
        this.#pending.set(id, setTimeout(() => this.#end(id), to - cameAt));
    }

    #end(id: number): void {
        this.#pending.delete(id);
        this.report({ type: "played", id });
    }
}

export function leadOf(file: Uint8Array): number {
    const view = new DataView(file.buffer, file.byteOffset, file.byteLength);
    const samples = new Int16Array(file.slice(44, file.length & ~1).buffer);
    // The frames are counted at 16 kHz; the clip may have another rate.
    return (extent(fromPcm(samples))[0] * 1000) / rate * (rate / view.getUint32(24, true));
}
