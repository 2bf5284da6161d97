// A private sound server: speakers that are recorded, a room in which they are heard, and a microphone that hears the room.

import { writeFileSync } from "node:fs";
import { join } from "node:path";
import type { Subprocess } from "bun";
import { type Environment, run, start, startPiped, until } from "./process";

const rate = 16_000;

/** What the speakers played, with the time of each moment kept. */
export class Recording {
    #chunks: { at: number; samples: Int16Array }[] = [];

    add(bytes: Uint8Array): void {
        const even = bytes.byteLength & ~1;
        const samples = new Int16Array(bytes.buffer.slice(bytes.byteOffset, bytes.byteOffset + even));
        this.#chunks.push({ at: performance.now(), samples });
    }

    /** Root mean square of what was played between two moments, full scale being 1. */
    loudness(from: number, to = performance.now()): number {
        let sum = 0;
        let count = 0;
        for (const { at, samples } of this.#chunks) {
            if (at < from || at > to) continue;
            for (const sample of samples) sum += (sample / 32768) ** 2;
            count += samples.length;
        }
        return count === 0 ? 0 : Math.sqrt(sum / count);
    }

    /** Seconds between two moments in which something could be heard. */
    audibleSeconds(from: number, to = performance.now()): number {
        let audible = 0;
        for (const { at, samples } of this.#chunks) {
            if (at < from || at > to) continue;
            for (let begin = 0; begin < samples.length; begin += 160) {
                const part = samples.subarray(begin, begin + 160);
                if (part.some((sample) => Math.abs(sample) > 300)) audible += part.length / rate;
            }
        }
        return audible;
    }

    save(path: string): void {
        const length = this.#chunks.reduce((sum, chunk) => sum + chunk.samples.byteLength, 0);
        const header = new DataView(new ArrayBuffer(44));
        const text = (offset: number, word: string) =>
            [...word].forEach((letter, index) => header.setUint8(offset + index, letter.charCodeAt(0)));
        text(0, "RIFF");
        header.setUint32(4, 36 + length, true);
        text(8, "WAVEfmt ");
        header.setUint32(16, 16, true);
        header.setUint16(20, 1, true);
        header.setUint16(22, 1, true);
        header.setUint32(24, rate, true);
        header.setUint32(28, rate * 2, true);
        header.setUint16(32, 2, true);
        header.setUint16(34, 16, true);
        text(36, "data");
        header.setUint32(40, length, true);
        const parts = this.#chunks.map((chunk) => new Uint8Array(chunk.samples.buffer, chunk.samples.byteOffset, chunk.samples.byteLength));
        writeFileSync(path, Buffer.concat([new Uint8Array(header.buffer), ...parts]));
    }
}

export class SoundDesk {
    readonly recording = new Recording();
    #server: Subprocess | undefined;
    #isEnding = false;

    constructor(
        private readonly environment: Environment,
        private readonly folder: string,
    ) {}

    async start(): Promise<void> {
        this.#server = start(
            [
                "pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--disable-shm=yes", "--use-pid-file=no",
                "-L", "module-native-protocol-unix",
                "-L", "module-null-sink sink_name=speakers rate=48000 sink_properties=device.description=Speakers",
                "-L", "module-null-sink sink_name=room rate=48000 sink_properties=device.description=Room",
                "-L", "module-remap-source master=room.monitor source_name=microphone source_properties=device.description=Microphone",
                "-L", "module-loopback source=speakers.monitor sink=room latency_msec=40 remix=no",
            ],
            this.environment,
            join(this.folder, "sound-server.log"),
        );
        await until("the sound server", () => run(["pactl", "info"], this.environment).catch(() => undefined));
        await run(["pactl", "set-default-sink", "speakers"], this.environment);
        await run(["pactl", "set-default-source", "microphone"], this.environment);
        void this.#record();
    }

    /** The server dies without a word, as servers do, and another takes its place. */
    async restart(): Promise<void> {
        this.#server?.kill("SIGKILL");
        await this.#server?.exited;
        await this.start();
    }

    /** Somebody in the room says something; resolves when they have finished. */
    async speak(text: string, voice = "en-us"): Promise<void> {
        const path = join(this.folder, "spoken.wav");
        await run(["espeak-ng", "-v", voice, "-s", "150", "-w", path, text], this.environment);
        await run(["paplay", "--device=room", path], this.environment);
    }

    end(): void {
        this.#isEnding = true;
    }

    async #record(): Promise<void> {
        const recorder = startPiped(
            ["parec", "--raw", "--device=speakers.monitor", `--rate=${rate}`, "--channels=1", "--format=s16le", "--latency-msec=20"],
            this.environment,
            join(this.folder, "recorder.log"),
        );
        try {
            for await (const chunk of recorder.stdout) {
                if (this.#isEnding) return;
                this.recording.add(chunk);
            }
        } catch {
            // The server died; the next one is recorded anew.
        }
    }
}
