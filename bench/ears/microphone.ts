// A microphone in a room: gives the room's noise without end, and what is said into it, at a steady pace.

import { mixed, rate, type Signal, silence, toPcm } from "./set/signal";

const piece = rate / 50;
const piecesKept = 50 * 600;
const longestStall = 100;

export class Microphone {
    /** Of each piece the moment at which it was sent. */
    readonly #sentAt: number[] = [];
    #firstKept = 0;
    #pieces = 0;
    #queue: { signal: Signal; said: (from: number) => void }[] = [];
    #waiting: { piece: number; resolve: () => void }[] = [];
    #noise: Signal = silence(piece);
    #timer: ReturnType<typeof setTimeout> | undefined;

    /** `speed`: how many times faster than time itself it gives what it hears. */
    constructor(
        private readonly send: (samples: Int16Array<ArrayBuffer>) => void,
        readonly speed: number,
    ) {}

    open(): void {
        let last = performance.now();
        let owed = 0;
        const step = (): void => {
            const now = performance.now();
            // A machine that stood still gets no flood: what the microphone would have heard meanwhile is not heard.
            owed += (Math.min(now - last, longestStall) / 20) * this.speed;
            last = now;
            for (; owed >= 1; owed--) this.#give();
            this.#timer = setTimeout(step, 10);
        };
        step();
    }

    close(): void {
        clearTimeout(this.#timer);
    }

    /** The noise of the room from now on, over and over. */
    set noise(noise: Signal) {
        this.#noise = noise;
    }

    /** Says this as soon as what is being said has been. Gives the place of its first sample. */
    say(signal: Signal): Promise<number> {
        return new Promise((said) => this.#queue.push({ signal, said }));
    }

    /** Resolves when the sample at this place has been sent. */
    async reach(place: number): Promise<void> {
        const wanted = Math.floor(place / piece);
        if (wanted >= this.#pieces) await new Promise<void>((resolve) => this.#waiting.push({ piece: wanted, resolve }));
    }

    /** The place of the next sample. */
    get place(): number {
        return this.#pieces * piece;
    }

    /** When the sample at this place was sent. */
    sentAt(place: number): number {
        const moment = this.#sentAt[Math.floor(place / piece) - this.#firstKept];
        if (moment === undefined) throw new Error("a moment that is not known, or no longer");
        return moment;
    }

    #said: { signal: Signal; from: number } | undefined;

    #give(): void {
        if (!this.#said) {
            const next = this.#queue.shift();
            if (next) {
                this.#said = { signal: next.signal, from: this.place };
                next.said(this.place);
            }
        }
        const at = this.place % this.#noise.length;
        let sound: Signal = silence(piece);
        for (let index = 0; index < piece; index++) sound[index] = this.#noise[(at + index) % this.#noise.length]!;
        if (this.#said) {
            const { signal, from } = this.#said;
            const part = silence(piece);
            part.set(signal.subarray(this.place - from, this.place - from + piece));
            sound = mixed(sound, part);
            if (this.place - from + piece >= signal.length) this.#said = undefined;
        }
        this.send(toPcm(sound));
        this.#sentAt.push(performance.now());
        if (this.#sentAt.length > piecesKept) {
            this.#sentAt.splice(0, piecesKept / 2);
            this.#firstKept += piecesKept / 2;
        }
        this.#pieces++;
        this.#waiting = this.#waiting.filter(({ piece: wanted, resolve }) => {
            if (wanted < this.#pieces) resolve();
            return wanted >= this.#pieces;
        });
    }
}
