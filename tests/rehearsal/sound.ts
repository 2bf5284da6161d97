// A private sound server: speakers and a mouth that are recorded, a room in which both are heard, and a microphone that hears
// the room.

import { existsSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import type { Subprocess } from "bun";
import { type Environment, run, start, startPiped, until } from "./process";

const rate = 16_000;
/** Sound is looked at in pieces of 10 ms. */
const pieceLength = rate / 100;
/** What stays below is silence, full scale being 32768. */
const audible = 300;

/** One recorder's sound, from its start to its end. */
class Take {
    readonly samples: number[] = [];
    /** When its first sample was heard: a piece may arrive late, but never early. */
    startedAt = Infinity;
    #odd: number | undefined;

    add(bytes: Uint8Array): void {
        const whole = this.#odd === undefined ? bytes : Uint8Array.of(this.#odd, ...bytes);
        this.#odd = whole.length % 2 === 1 ? whole.at(-1) : undefined;
        const view = new DataView(whole.buffer, whole.byteOffset, whole.byteLength);
        for (let at = 0; at + 1 < whole.length; at += 2) this.samples.push(view.getInt16(at, true));
        this.startedAt = Math.min(this.startedAt, performance.now() - (this.samples.length * 1000) / rate);
    }
}

/** What came out of a loudspeaker, or of a mouth, and when. */
export class Recording {
    #takes: Take[] = [];

    begin(): Take {
        const take = new Take();
        this.#takes.push(take);
        return take;
    }

    /** The moments between these two, in milliseconds, at which something could be heard: the beginnings of 10 ms each. */
    audibleMoments(from: number, to = Infinity): number[] {
        const moments: number[] = [];
        for (const { samples, startedAt } of this.#takes) {
            const first = Math.max(0, Math.floor((from - startedAt) / 10));
            for (let piece = first; (piece + 1) * pieceLength <= samples.length && startedAt + piece * 10 < to; piece++) {
                for (let at = piece * pieceLength; at < (piece + 1) * pieceLength; at++) {
                    if (Math.abs(samples[at]!) <= audible) continue;
                    moments.push(startedAt + piece * 10);
                    break;
                }
            }
        }
        return moments;
    }

    audibleSeconds(from: number, to = Infinity): number {
        return this.audibleMoments(from, to).length / 100;
    }

    /** Up to which moment it was recorded. */
    get end(): number {
        const last = this.#takes.at(-1);
        return last && last.samples.length > 0 ? last.startedAt + (last.samples.length * 1000) / rate : 0;
    }

    save(path: string): void {
        const samples = Int16Array.from(this.#takes.flatMap((take) => take.samples));
        const header = new DataView(new ArrayBuffer(44));
        const text = (offset: number, word: string) =>
            [...word].forEach((letter, index) => header.setUint8(offset + index, letter.charCodeAt(0)));
        text(0, "RIFF");
        header.setUint32(4, 36 + samples.byteLength, true);
        text(8, "WAVEfmt ");
        header.setUint32(16, 16, true);
        header.setUint16(20, 1, true);
        header.setUint16(22, 1, true);
        header.setUint32(24, rate, true);
        header.setUint32(28, rate * 2, true);
        header.setUint16(32, 2, true);
        header.setUint16(34, 16, true);
        text(36, "data");
        header.setUint32(40, samples.byteLength, true);
        writeFileSync(path, Buffer.concat([new Uint8Array(header.buffer), new Uint8Array(samples.buffer)]));
    }
}

/** How the speakers are heard in the room: so much later, and in so many per cent of a volume control's way. */
export interface Path {
    delayMs: number;
    volumePercent: number;
}

export interface Room {
    paths: Path[];
    /** The speakers' clock is not the microphone's, and the echo's way changes all the time. */
    isDrifting?: boolean;
}

/** Who speaks in the room. */
export const usualVoice = "espeak-ng en-us";
export const otherVoice = "flite slt";
export type Voice = typeof usualVoice | typeof otherVoice;

function speech(voice: Voice, path: string, text: string): string[] {
    return voice === usualVoice ? ["espeak-ng", "-v", "en-us", "-s", "150", "-w", path, text] : ["flite", "-voice", "slt", "-t", text, "-o", path];
}

export class SoundDesk {
    readonly speakers = new Recording();
    /** Whoever is in the room. */
    readonly mouth = new Recording();
    #server: Subprocess | undefined;
    #isEnding = false;
    #spoken = new Map<string, string>();

    constructor(
        private readonly environment: Environment,
        private readonly folder: string,
        private readonly room: Room = { paths: [{ delayMs: 40, volumePercent: 100 }] },
    ) {}

    async start(): Promise<void> {
        // A null sink keeps its time in whole microseconds a piece and loses what is over, the more the smaller the pieces: at 48 kHz
        // two of them were 260 ppm apart, and 900 on a busy machine. At 50 kHz a sample lasts 20 µs, and all of them keep the same
        // time; at 49,992 they are 50 to 160 ppm apart.
        const sink = (name: string, description: string, sinkRate = 50_000) =>
            `module-null-sink sink_name=${name} rate=${sinkRate} sink_properties=device.description=${description}`;
        // Left alone, a loopback sets its rate again and again, which is an echo that never stands still.
        const adjusting = this.room.isDrifting ? 1 : 0;
        const loopback = (source: string, delayMs: number, more = "") =>
            `module-loopback source=${source}.monitor sink=room latency_msec=${delayMs} adjust_time=${adjusting} remix=no ${more}`;
        const modules = [
            "module-native-protocol-unix",
            sink("speakers", "Speakers", this.room.isDrifting ? 49_992 : 50_000),
            sink("mouth", "Mouth"),
            sink("room", "Room"),
            "module-remap-source master=room.monitor source_name=microphone source_properties=device.description=Microphone",
            loopback("mouth", 20),
            ...this.room.paths.map(({ delayMs }, index) => loopback("speakers", delayMs, `sink_input_properties=media.name=path${index}`)),
        ];
        // A room does not stutter, whatever the machine is busy with.
        const isUrgent = await run(["chrt", "--rr", "5", "true"], this.environment).then(() => true, () => false);
        this.#server = start(
            [
                ...(isUrgent ? ["chrt", "--rr", "5"] : []),
                "pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--disable-shm=yes", "--use-pid-file=no",
                ...modules.flatMap((module) => ["-L", module]),
            ],
            this.environment,
            join(this.folder, "sound-server.log"),
        );
        await until("the sound server", () => run(["pactl", "info"], this.environment).catch(() => undefined));
        // It gives its main thread, which hands samples to programs, the usual class again.
        if (isUrgent) await run(["chrt", "--rr", "-p", "5", String(this.#server.pid)], this.environment);
        await run(["pactl", "set-default-sink", "speakers"], this.environment);
        await run(["pactl", "set-default-source", "microphone"], this.environment);
        await this.#setVolumes();
        if (this.room.isDrifting) await this.#settle();
        void this.#record("speakers", this.speakers);
        void this.#record("mouth", this.mouth);
    }

    /** The air sets its rates to the two clocks, for which a loopback takes some ten seconds, and no room does. */
    async #settle(): Promise<void> {
        const seen: number[][] = [];
        const mean = (rates: number[]) => rates.reduce((sum, rate) => sum + rate, 0) / rates.length;
        await until("a room that has settled", async () => {
            await Bun.sleep(1000);
            const inputs = await run(["pactl", "list", "sink-inputs"], this.environment);
            seen.push([...inputs.matchAll(/(\d+)Hz/g)].map(([, rate]) => Number(rate)));
            return seen.length >= 10 && Math.abs(mean(seen.slice(-10, -5).flat()) - mean(seen.slice(-5).flat())) < 1;
        }, 60_000);
    }

    /** The server dies without a word, as servers do. */
    async stop(): Promise<void> {
        this.#server?.kill("SIGKILL");
        await this.#server?.exited;
    }

    /** Another takes its place. */
    async restart(): Promise<void> {
        await this.stop();
        await this.start();
    }

    /** Somebody turns the speakers' volume. */
    async turn(percent: number): Promise<void> {
        await run(["pactl", "set-sink-volume", "speakers", `${percent}%`], this.environment);
    }

    /** Somebody in the room says something; resolves when they have finished. */
    async speak(text: string, voice = usualVoice as Voice): Promise<void> {
        await this.play(await this.prepare(text, voice));
    }

    /** Something sounds in the room, to its end. */
    async play(path: string): Promise<void> {
        await run(["paplay", "--device=mouth", path], this.environment);
    }

    /** What is prepared can be said at once. */
    async prepare(text: string, voice = usualVoice as Voice): Promise<string> {
        const key = `${voice}: ${text}`;
        const path = this.#spoken.get(key) ?? join(this.folder, `said-${this.#spoken.size + 1}.wav`);
        this.#spoken.set(key, path);
        if (!existsSync(path)) await run(speech(voice, path, text), this.environment);
        return path;
    }

    end(): void {
        this.#isEnding = true;
        this.speakers.save(join(this.folder, "speakers.wav"));
        this.mouth.save(join(this.folder, "mouth.wav"));
    }

    async #setVolumes(): Promise<void> {
        for (const [index, { volumePercent }] of this.room.paths.entries()) {
            if (volumePercent === 100) continue;
            const inputs = await run(["pactl", "list", "sink-inputs"], this.environment);
            const input = inputs.split(/^Sink Input #/m).find((text) => text.includes(`media.name = "path${index}"`));
            await run(["pactl", "set-sink-input-volume", String(Number.parseInt(input ?? "", 10)), `${volumePercent}%`], this.environment);
        }
    }

    async #record(sink: string, recording: Recording): Promise<void> {
        const recorder = startPiped(
            ["parec", "--raw", `--device=${sink}.monitor`, `--rate=${rate}`, "--channels=1", "--format=s16le", "--latency-msec=20"],
            this.environment,
            join(this.folder, "recorder.log"),
        );
        const take = recording.begin();
        try {
            for await (const chunk of recorder.stdout) {
                if (this.#isEnding) return;
                take.add(chunk);
            }
        } catch {
            // The server died; the next one is recorded anew.
        }
    }
}
