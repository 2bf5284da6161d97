// docs/hearing.md: the parts of it that the bench writes, between marks.

import { readFileSync, writeFileSync } from "node:fs";
import { resolve } from "node:path";
import type { Clip, ClipSet } from "./set/clips";

export const page = resolve(import.meta.dir, "../../docs/hearing.md");

export function writePart(name: string, text: string): void {
    const before = readFileSync(page, "utf8");
    const [begin, end] = [`<!-- ${name} -->\n`, `<!-- end of ${name} -->\n`];
    const from = before.indexOf(begin);
    const to = before.indexOf(end);
    if (from < 0 || to < from) throw new Error(`${page} has no place for ${name}`);
    writeFileSync(page, before.slice(0, from + begin.length) + text + before.slice(to));
    console.error(`==> ${page}: ${name}`);
}

const shown: [Clip["kind"], string][] = [
    ["english", "People who speak English"],
    ["portuguese", "People who speak Portuguese"],
    ["portuguese-letters", "Letters and syllables in Portuguese"],
    ["sound", "No speech"],
];

/** Every recording with a name, by kind, package and folder. */
export function sources(set: ClipSet): string {
    return shown.map(([kind, title]) => {
        const clips = set.of(kind);
        const folders = new Map<string, string[]>();
        for (const { package: name, path } of clips) {
            const [, folder, file] = /^(.*)\/([^/]*)$/.exec(path!)!;
            const place = `${name}: ${folder}`;
            folders.set(place, [...(folders.get(place) ?? []), file!]);
        }
        const lines = [...folders].map(([place, files]) => `- \`${place}/\`: ${files.join(", ")}`);
        return `**${title}, ${clips.length}**\n\n${lines.join("\n")}\n`;
    }).join("\n");
}
