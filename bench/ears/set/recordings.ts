// Which recordings of the packages are in the set, and what is said in them: the packages' own texts, where they have some.

import { gunzipSync } from "bun";
import { existsSync, readdirSync, readFileSync } from "node:fs";
import { join, relative } from "node:path";
import { folderOf } from "./packages";

export type RecordingKind = "english" | "portuguese" | "portuguese-letters" | "sound" | "other";

export interface Recording {
    kind: RecordingKind;
    package: string;
    /** In the package. */
    path: string;
    /** What is said; "" where nothing is, undefined where nobody has written it down. */
    words?: string;
    language?: string;
    /** How the decoder is to read it, where the file does not say. */
    format?: string[];
}

const prompts = "usr/share/asterisk/sounds/en_US_f_Allison";
const stamps = "usr/share/tuxpaint/stamps";
const testData = "usr/share/pocketsphinx/test/data";
const codec = "usr/share/codec2/raw";
const klettres = "usr/share/klettres";

const g722 = ["-f", "g722"];
const raw8k = ["-f", "s16le", "-ar", "8000", "-ac", "1"];

const promptsTaken = 91;
const frenchTaken = 200;

/** Words that the prompts' own texts spell wrong. */
const spelling: [RegExp, string][] = [
    [/represenatives/g, "representatives"],
    [/Un-indentified or witheld/g, "Unidentified or withheld"],
];

/** Recordings among the sounds in which somebody speaks, laughs or wails. */
const voices = [
    "seasonal/christmas/santahat", "seasonal/halloween/ghost", "seasonal/hanukkah/dreydl-gimmel", "seasonal/hanukkah/dreydl-hay",
    "seasonal/hanukkah/dreydl-nun", "seasonal/hanukkah/dreydl-shin", "space/apollo_lander", "symbols/faces/excited", "symbols/faces/happy",
    "symbols/faces/mad", "symbols/faces/sad", "town/roadsigns/xing_ped", "town/roadsigns/xing_school",
];

export function recordings(folder: string): Recording[] {
    const chosen = [...english(folder), ...portuguese(folder), ...letters(folder), ...sounds(folder)];
    const taken = new Set(chosen.map(({ path }) => path));
    return [...chosen, ...others(folder).filter(({ path }) => !taken.has(path))];
}

/** The texts of the prompts by their names, in the order of the package. */
function promptTexts(folder: string): Map<string, string> {
    const file = join(folderOf(folder, "asterisk-core-sounds-en"), "usr/share/doc/asterisk-core-sounds-en/core-sounds-en.txt.gz");
    const lines = new TextDecoder().decode(gunzipSync(readFileSync(file))).split("\n");
    return new Map(lines.flatMap((line): [string, string][] => {
        const found = /^([^;:\s]+):\s*(.*)$/.exec(line);
        return found ? [[found[1]!, spelling.reduce((text, [wrong, right]) => text.replaceAll(wrong, right), found[2]!.trim())]] : [];
    }));
}

/** Every so manieth, so that all of a list is represented. */
function spread<T>(list: T[], wanted: number): T[] {
    return Array.from({ length: wanted }, (_, index) => list[Math.floor((index * list.length) / wanted)]!);
}

function filesBelow(folder: string, name: string, below: string, pattern: RegExp): string[] {
    const root = folderOf(folder, name);
    return readdirSync(join(root, below), { recursive: true, encoding: "utf8" })
        .map((file) => relative(root, join(root, below, file)))
        .filter((file) => pattern.test(file))
        .sort();
}

/** The text beside a stamp in a language. */
function stampText(folder: string, path: string, language: string): string {
    const file = join(folderOf(folder, "tuxpaint-stamps-default"), path.replace(/_desc.*$/, ".txt"));
    const line = readFileSync(file, "utf8").split("\n").find((each) => each.startsWith(`${language}.utf8=`));
    return (line ?? "").replace(/^[^=]*=/, "").trim();
}

const animals: Record<string, string> = { mountaingoat: "mountain goat", nandou: "nandu", tucan: "toucan", wildboar: "wild boar" };

function animalOf(path: string): string {
    const name = /([^/]*)_desc\.ogg$/.exec(path)![1]!;
    return animals[name] ?? name;
}

function english(folder: string): Recording[] {
    // Whole sentences that can be spelled in one way only: no figures, no keys, no names of companies, no end left open.
    const isPlain = (text: string): boolean => {
        const count = text.split(/\s+/).length;
        return /^[A-Za-z][A-Za-z',;. -]*[A-Za-z.!?]$/.test(text) && count >= 4 && count <= 32 &&
            !/asterisk|digium|\.\.\.|voicemail|PBX|Waldo|voice mail|Comedian|Telex|keywords|Un-?mute|confbridge|IAX|forward|\b[A-Z] [A-Z]\b/i.test(text);
    };
    const seen = new Set<string>();
    const sentences = [...promptTexts(folder)].filter(([name, text]) => {
        const isNew = !seen.has(text.toLowerCase());
        seen.add(text.toLowerCase());
        return isNew && isPlain(text) && existsSync(join(folderOf(folder, "asterisk-core-sounds-en-g722"), prompts, `${name}.g722`));
    });
    const said = spread(sentences, promptsTaken).map(([name, words]): Recording => ({
        kind: "english", package: "asterisk-core-sounds-en-g722", path: `${prompts}/${name}.g722`, words, format: g722,
    }));
    const named = filesBelow(folder, "tuxpaint-stamps-default", stamps, /_desc\.ogg$/).map((path): Recording => ({
        // They say the animal's name alone, and not the text beside it.
        kind: "english", package: "tuxpaint-stamps-default", path, words: animalOf(path),
    }));
    return [...said, ...named, ...read(folder), speech()];
}

/** A novel read aloud, and cards called out. */
function read(folder: string): Recording[] {
    return ["librivox", "cards"].flatMap((part) => {
        const name = part === "cards" ? "cards/cards.transcription" : "librivox/transcription";
        const lines = readFileSync(join(folderOf(folder, "pocketsphinx-testdata"), testData, name), "utf8").trim().split("\n");
        return lines.map((line): Recording => {
            const [, words, file] = /<s>\s*(.*?)\s*<\/s>\s*\((.*)\)/.exec(line)!;
            return { kind: "english", package: "pocketsphinx-testdata", path: `${testData}/${part}/${file}.wav`, words: words! };
        });
    });
}

function speech(): Recording {
    return {
        kind: "english", package: "nodejs-whisper@0.3.1", path: "package/cpp/whisper.cpp/bindings/go/samples/jfk.wav",
        words: "And so, my fellow Americans, ask not what your country can do for you, ask what you can do for your country.",
    };
}

function portuguese(folder: string): Recording[] {
    const digits = ["zero", "um", "dois", "três", "quatro", "cinco", "seis", "sete", "oito", "nove"];
    return [
        ...filesBelow(folder, "tuxpaint-stamps-default", stamps, /_desc_pt_BR\.wav$/).map((path): Recording => ({
            kind: "portuguese", package: "tuxpaint-stamps-default", path, words: stampText(folder, path, "pt_BR"), language: "pt",
        })),
        ...digits.map((words, digit): Recording => ({
            kind: "portuguese", package: "tuxpaint-stamps-default", path: `${stamps}/symbols/math/${digit}_pt.ogg`, words, language: "pt",
        })),
    ];
}

function letters(folder: string): Recording[] {
    return filesBelow(folder, "klettres-data", `${klettres}/pt_BR`, /\.ogg$/).map((path) => ({
        kind: "portuguese-letters", package: "klettres-data", path, words: /([^/]*)\.ogg$/.exec(path)![1]!, language: "pt",
    }));
}

function sounds(folder: string): Recording[] {
    const isVoice = (path: string): boolean => voices.some((name) => path === `${stamps}/${name}.ogg`);
    const all = filesBelow(folder, "tuxpaint-stamps-default", stamps, /^(?!.*(_desc|\/math\/|\/alphabets\/)).*\.ogg$/);
    return all.filter((path) => !isVoice(path)).map((path) => ({ kind: "sound", package: "tuxpaint-stamps-default", path, words: "" }));
}

/** The rest of the prompts, and people who speak over the radio, French and Spanish: an hour in which nobody says a name. */
function others(folder: string): Recording[] {
    const of = (name: string, below: string, pattern: RegExp, more: Partial<Recording>): Recording[] =>
        filesBelow(folder, name, below, pattern).map((path) => ({ kind: "other", package: name, path, ...more }));
    return [
        ...of("asterisk-core-sounds-en-g722", prompts, /^(?!.*(silence\/|tone|beep|monkeys\.)).*\.g722$/, { language: "en", format: g722 }),
        ...of("codec2-examples", codec, /\/(big_dog|cq_ref|hts1|hts2|kristoff|mmt1|morig|forig|ve9qrp|vk5qi)\.raw$/, { language: "en", format: raw8k }),
        ...of("tuxpaint-stamps-default", stamps, /_desc_es\.ogg$/, { language: "es" }),
        ...spread(of("tuxpaint-stamps-default", stamps, /_desc_fr\.ogg$/, { language: "fr" }), frenchTaken),
    ];
}
