// Makes the set of clips by which the engine's hearing is measured.
//   bun make.ts FOLDER    FOLDER/packages: what is fetched; FOLDER/set: the clips, 16 kHz mono WAV, and manifest.jsonl

import { createHash } from "node:crypto";
import { mkdirSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { join, resolve } from "node:path";
import { writeWav } from "../../../engine/src/sound/wav";
import type { Clip } from "./clips";
import { fetchPackages, folderOf, run } from "./packages";
import { recordings } from "./recordings";
import { atLevel, extent, fromPcm, rate, type Signal, toPcm } from "./signal";
import { spoken } from "./spoken";

/** The level of everything in the set where it sounds, dBFS: somebody who sits before the microphone. */
const level = -26;
const atOnce = 40;

type About = Omit<Clip, "id" | "file" | "durationMs" | "fromMs" | "toMs">;

/** A file of sound, and how the decoder is to read it where the file does not say. */
interface Source {
    file: string;
    format?: string[];
}

/** Their samples, all by one run of the decoder: to start it takes longer than to decode a clip. */
async function decoded(sources: Source[], scratch: string): Promise<Signal[]> {
    mkdirSync(scratch, { recursive: true });
    const output = (index: number): string => join(scratch, `${index}.raw`);
    await run([
        "ffmpeg", "-v", "error", "-nostdin", "-y",
        ...sources.flatMap(({ file, format = [] }) => [...format, "-i", file]),
        ...sources.flatMap((_, index) => ["-map", `${index}:a`, "-ac", "1", "-ar", String(rate), "-f", "s16le", output(index)]),
    ], scratch);
    const signals = sources.map((_, index) => {
        const bytes = readFileSync(output(index));
        return fromPcm(new Int16Array(bytes.buffer, bytes.byteOffset, bytes.length >> 1));
    });
    rmSync(scratch, { recursive: true });
    return signals;
}

const milliseconds = (samples: number): number => Math.round((samples * 1000) / rate);

async function make(folder: string): Promise<void> {
    const packages = join(folder, "packages");
    const set = join(folder, "set");
    await fetchPackages(packages);
    rmSync(set, { recursive: true, force: true });
    mkdirSync(join(folder, "scratch"), { recursive: true });
    const clips: Clip[] = [];
    const counts: Record<string, number> = {};
    const contents = new Set<string>();

    const keep = (about: About, signal: Signal): void => {
        const [from, to] = extent(signal);
        // A sound without a sample that can be heard is none.
        if (to <= from) return;
        const wav = writeWav(toPcm(atLevel(signal, level)), rate);
        const content = `${about.kind} ${createHash("sha256").update(wav).digest("hex")}`;
        // Packages use a recording more than once.
        if (contents.has(content)) return;
        contents.add(content);
        const number = (counts[about.kind] = (counts[about.kind] ?? 0) + 1);
        const id = `${about.kind}-${String(number).padStart(3, "0")}`;
        const file = `${about.kind}/${id}.wav`;
        mkdirSync(join(set, about.kind), { recursive: true });
        writeFileSync(join(set, file), wav);
        clips.push({ id, file, ...about, durationMs: milliseconds(signal.length), fromMs: milliseconds(from), toMs: milliseconds(to) });
    };
    const scratch = join(folder, "scratch");
    const inTurn = async <T>(list: T[], source: (one: T, index: number) => Promise<Source>, about: (one: T) => About): Promise<void> => {
        for (let at = 0; at < list.length; at += atOnce) {
            const part = list.slice(at, at + atOnce);
            const signals = await decoded(await Promise.all(part.map(source)), join(scratch, "decoded"));
            part.forEach((one, index) => keep(about(one), signals[index]!));
        }
    };
    await inTurn(
        spoken(),
        async (one, index) => {
            const file = join(scratch, `${index}.wav`);
            await run(one.voice.command(one.words, file), scratch);
            return { file };
        },
        ({ voice, ...about }) => ({ ...about, voice: voice.name }),
    );
    await inTurn(
        recordings(packages),
        async ({ package: name, path, format }) => ({ file: join(folderOf(packages, name), path), ...(format ? { format } : {}) }),
        ({ format, language = "en", ...about }) => ({ ...about, language }),
    );
    rmSync(scratch, { recursive: true });
    const manifest = clips.map((clip) => JSON.stringify(clip)).join("\n") + "\n";
    writeFileSync(join(set, "manifest.jsonl"), manifest);
    console.error(`==> ${set}: ${Object.entries(counts).map(([kind, count]) => `${count} ${kind}`).join(", ")}`);
    const digest = createHash("sha256");
    for (const { file } of clips) digest.update(readFileSync(join(set, file)));
    writeFileSync(join(set, "digest"), `${digest.update(manifest).digest("hex")}\n`);
}

await make(resolve(process.argv[2] ?? join(import.meta.dir, "../../../build/ears")));
