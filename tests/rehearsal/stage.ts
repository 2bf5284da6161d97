// The stage of a rehearsal: a desktop and a sound server of its own, with the program as a user would start it. Prints each step
// with its time, keeps recordings and logs, and leaves nothing running.

import { existsSync, mkdirSync, mkdtempSync, readFileSync, rmSync } from "node:fs";
import { loadavg, tmpdir } from "node:os";
import { join, resolve } from "node:path";
import { AccessibleTree } from "./accessible";
import { Watcher } from "./backend";
import { startDesktop, TrayItem } from "./desktop";
import { endAll, type Environment, start, until } from "./process";
import { Screen } from "./screen";
import { type Room, SoundDesk } from "./sound";

const root = resolve(import.meta.dir, "../..");
export const program = process.env.PALOMET_PROGRAM ?? join(root, "build/release/palomet");
export const words = JSON.parse(readFileSync(join(root, "resources/en.lproj/strings.json"), "utf8")) as Record<string, string>;

const begin = performance.now();
const seconds = () => ((performance.now() - begin) / 1000).toFixed(2).padStart(6);

export const step = (text: string) => console.log(`${seconds()} s  ${text}`);

export function check(holds: boolean, what: string): void {
    if (!holds) throw new Error(what);
}

export interface Stage {
    environment: Environment;
    sound: SoundDesk;
    watcher: Watcher;
    palomet: ReturnType<typeof start>;
    tray: TrayItem;
    screen: Screen;
    tree: AccessibleTree;
    /** The program's log. */
    log: string;
    /** Where recordings, pictures and logs are kept. */
    folder: string;
}

/** Builds the stage, lets it happen, clears up, and ends with 0 only if all of it happened. */
export async function perform(name: string, play: (stage: Stage) => Promise<void>, room?: Room): Promise<never> {
    const folder = process.env.PALOMET_REHEARSAL ?? join(root, "build", name);
    try {
        await onStage(folder, play, room);
        console.log(`${seconds()} s  Everything happened. Pictures, recordings and logs: ${folder}`);
        process.exit(0);
    } catch (problem) {
        const load = loadavg().map((value) => value.toFixed(1)).join(", ");
        console.error(`${seconds()} s  FAILED: ${problem instanceof Error ? problem.message : problem}`);
        console.error(`          Logs: ${folder}. The machine's load: ${load}`);
        await endAll();
        process.exit(1);
    }
}

async function onStage(folder: string, play: (stage: Stage) => Promise<void>, room?: Room): Promise<void> {
    rmSync(folder, { recursive: true, force: true });
    mkdirSync(folder, { recursive: true });
    const runtimeFolder = mkdtempSync(join(tmpdir(), "palomet-"));

    const environment = await startDesktop(folder, runtimeFolder);
    const screen = new Screen(environment, folder);
    const tree = await AccessibleTree.open(environment);
    step("A desktop with a tray is there");
    const sound = new SoundDesk(environment, folder, room);
    await sound.start();
    step("A sound server with a microphone and speakers is there");

    const log = join(environment.HOME!, "Library/Logs/loquent/palomet.log");
    const palomet = start([program], environment, join(folder, "palomet.out"));
    const watcher = new Watcher();
    watcher.start();
    try {
        const tray = await TrayItem.find(environment);
        step("Palomet is in the tray");
        await watcher.reach("waiting");
        step("The backend answers and waits");
        await until("the microphone", async () => (await watcher.state())?.device === "Microphone");
        await play({ environment, sound, watcher, palomet, tray, screen, tree, log, folder });
    } finally {
        await Bun.write(join(folder, "state.json"), JSON.stringify({ ...(await watcher.state()), story: watcher.story }, undefined, 1));
        watcher.end();
        sound.end();
        if (existsSync(log)) await Bun.write(join(folder, "palomet.log"), Bun.file(log));
        await endAll();
        await remove(runtimeFolder);
    }
}

/** What the buses have started ends with them, and clears up in there meanwhile. */
async function remove(folder: string): Promise<void> {
    let problem: unknown;
    await until(() => `${folder} to be gone (${problem})`, () => {
        try {
            rmSync(folder, { recursive: true, force: true });
        } catch (caught) {
            problem = caught;
        }
        return !existsSync(folder);
    });
}
