// The clips of the set, as its manifest tells of them.

import { readFileSync } from "node:fs";
import { join } from "node:path";
import type { RecordingKind } from "./recordings";
import { fromPcm, type Signal } from "./signal";
import type { SpokenKind } from "./spoken";

/** A line of manifest.jsonl. */
export interface Clip {
    id: string;
    /** Below the set's folder. */
    file: string;
    kind: RecordingKind | SpokenKind;
    language: string;
    /** What is said; "" where nothing is. Not there where nobody has written it down. */
    words?: string;
    /** Where a recording comes from. */
    package?: string;
    path?: string;
    /** Who speaks, where no person does. */
    voice?: string;
    /** The name that is called, and what is said beside it. */
    name?: string;
    request?: string;
    durationMs: number;
    /** Where sound begins and ends in it. */
    fromMs: number;
    toMs: number;
}

export class ClipSet {
    readonly clips: Clip[];

    constructor(private readonly folder: string) {
        const lines = readFileSync(join(folder, "manifest.jsonl"), "utf8").trim().split("\n");
        this.clips = lines.map((line) => JSON.parse(line) as Clip);
    }

    get digest(): string {
        return readFileSync(join(this.folder, "digest"), "utf8").trim().slice(0, 12);
    }

    of(...kinds: Clip["kind"][]): Clip[] {
        return this.clips.filter(({ kind }) => kinds.includes(kind));
    }

    sound({ file }: Clip): Signal {
        const bytes = readFileSync(join(this.folder, file));
        const samples = new Int16Array(bytes.buffer.slice(bytes.byteOffset + 44, bytes.byteOffset + bytes.length));
        return fromPcm(samples);
    }
}
