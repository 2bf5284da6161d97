// The keys that work from anywhere, while the user is in another program.

import { run, until } from "./process";
import type { OtherProgram } from "./screen";
import { check, program, type Stage, step } from "./stage";
import type { Strip } from "./strip";

/** Alt+Space makes it listen, and the program with the focus gets nothing of it. Escape is that program's, for nothing is said. */
export async function listenKey({ watcher, screen, environment }: Stage, strip: Strip): Promise<void> {
    const since = watcher.states.length;
    const pressed = performance.now();
    await screen.key("alt+space");
    await watcher.reach("listening", since);
    const took = Math.round(performance.now() - pressed);
    const line = await strip.photograph("listening");
    check(!strip.other.keys.includes("space"), "the space of Alt+Space went to the other program too");
    await expectFree(screen.key("Escape"), strip.other);
    await run([program, "--stop"], environment);
    await watcher.reach("waiting", watcher.after("listening", since));
    const waiting = performance.now();
    await strip.photograph("waiting");
    await strip.leave();
    const stayed = ((performance.now() - waiting) / 1000).toFixed(1);
    step(`Alt+Space makes it listen (${took} ms; the strip says "${line}"), Escape is free, palomet --stop ends it; the strip stays ${stayed} s more`);
}

/** While it thinks or speaks, Escape stops it, and the program with the focus does not get it. Afterwards that has it again. */
export async function stopKey({ watcher, sound, screen }: Stage, { other }: Strip, during: "thinking" | "speaking"): Promise<void> {
    const since = watcher.states.length;
    const before = count(other);
    check(watcher.states.at(-1) === during, `it is ${watcher.states.at(-1)}, and not ${during}`);
    const pressed = performance.now();
    await screen.key("Escape");
    await watcher.reach("waiting", since, 5000);
    const stopped = performance.now();
    await until("the silence to be recorded", () => sound.speakers.end > stopped + 700);
    const after = sound.speakers.audibleSeconds(stopped + 300);
    check(after === 0, `it spoke on for ${after.toFixed(2)} s after Escape`);
    check(count(other) === before, "the Escape that stopped it went to the other program too");
    await expectFree(screen.key("Escape"), other);
    step(`Escape while it is ${during} stops it (${Math.round(stopped - pressed)} ms), and is free again`);
}

async function expectFree(pressing: Promise<void>, other: OtherProgram): Promise<void> {
    const before = count(other);
    await pressing;
    await until("Escape in the other program", () => count(other) > before);
}

function count({ keys }: OtherProgram): number {
    return keys.filter((key) => key === "Escape").length;
}
