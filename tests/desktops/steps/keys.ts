// The keys that work from anywhere, and those that others had first.

import { join } from "node:path";
import type { Node } from "../../rehearsal/accessible";
import { run, until } from "../../rehearsal/process";
import { OtherProgram } from "../../rehearsal/screen";
import { check, words } from "../../rehearsal/stage";
import { differenceOf, stillPicture } from "../pictures";
import { closeWindow, inSight, palomet, type Place, placeOf, status, Terminal, windowInFront } from "../place";
import { quit, start } from "./session";

const layouts = ["us", "de", "us"];
/** What it says takes longer than this. */
const longestStopMs = 1500;
/** A title bar that loses its colour is less than a menu. */
const leastArea = 25_000;
/** What nobody has. */
const freeKey = "ctrl+alt+j";
const freeStopKey = "ctrl+alt+k";

/** The desktop has Alt+Space: it is refused, the window says so and what to do, and the doctor too. */
export async function refused(place: Place): Promise<string> {
    const { hotKeyProblem } = await status(place);
    check(hotKeyProblem === words["shortcut.taken"]!.replace("%@", "⌥Space"), `of Alt+Space it says "${hotKeyProblem}"`);
    await palomet(place, "--open", "listening");
    const button = await recorder(place);
    const said = await place.session.tree.description(button);
    check(said.includes("did not grant"), `in the window it says "${said}"`);
    await place.session.screen.whole("key-refused");
    await closeWindow(place);
    const doctor = await run(["sh", "-c", '"$0" --doctor || true', process.env.PALOMET_PROGRAM!], place.session.environment);
    check(/^!! {2}hot keys: Alt\+Space is (refused by X11|the desktop's own, for "activate window menu");?|^!! {2}hot keys: the desktop's portal granted none for Alt\+Space;/m.test(doctor), "the doctor has no word about Alt+Space");
    return `Alt+Space is the desktop's, and the window says: ${hotKeyProblem}`;
}

/** A wish for a key that the desktop has for the whole screen is refused, and the desktop keeps it. */
export async function ofScreen(place: Place): Promise<string> {
    const { session: { environment }, desktop } = place;
    const { text, ...key } = desktop.ofScreen!;
    const settings = join(environment.XDG_CONFIG_HOME!, "palomet/palomet.conf");
    await quit(place);
    const before = await Bun.file(settings).text().catch(() => "[General]\n");
    const wish = `listenShortcut=${JSON.stringify(JSON.stringify(key))}`;
    await Bun.write(settings, /^listenShortcut=/m.test(before) ? before.replace(/^listenShortcut=.*$/m, wish) : `${before}${wish}\n`);
    await start(place);
    const { hotKeyProblem } = await status(place);
    await quit(place);
    await Bun.write(settings, before);
    await start(place);
    check(hotKeyProblem === words["shortcut.taken"]!.replace("%@", text), `of ${text} it says "${hotKeyProblem}"`);
    return `of a key that the desktop has it says: ${hotKeyProblem}`;
}

/** Alt+Space goes on to open what the desktop has there, after the keyboard's layout has changed, too. */
export async function others(place: Place): Promise<string> {
    const { session: { screen, environment } } = place;
    const terminal = await Terminal.open(place);
    const opensItsOwn = async (when: string) => {
        await stillPicture(place, "before-alt-space");
        await screen.key("alt+space");
        await until(`what Alt+Space opens ${when}`, async () => {
            await stillPicture(place, "alt-space-still");
            return (await differenceOf(place, "before-alt-space", "alt-space")) > leastArea;
        });
        await screen.key("Escape");
        await until("it to go", async () => (await differenceOf(place, "before-alt-space", "after-alt-space")) < 5000);
    };
    await opensItsOwn("at first");
    for (const layout of layouts) {
        await run(["setxkbmap", layout], environment);
        await opensItsOwn(`with the layout ${layout}`);
        check((await status(place)).hotKeyProblem !== "", `with the layout ${layout} it took Alt+Space from the desktop`);
    }
    await terminal.close();
    return `Alt+Space opens ${place.desktop.hasOnAltSpace}, with the layouts ${layouts.join(", ")} too`;
}

/** Another key, pressed in the window, works from another program's window at once, which gets nothing of it. */
export async function another(place: Place): Promise<string> {
    const { session: { screen } } = place;
    await record(place);
    await until("the key to be granted", async () => (await status(place)).hotKeyProblem === "");
    await screen.whole("key-granted");
    await closeWindow(place);
    const other = await listensElsewhere(place);
    await pictureOfSpeech(place);
    const before = count(other, "Escape");
    await stopBy(place, "Escape");
    check(count(other, "Escape") === before, "the Escape that stopped it went to the other program too");
    await until("Escape in the other program", async () => {
        await screen.key("Escape");
        return count(other, "Escape") > before;
    });
    await screen.key(place.desktop.closeKey);
    return `${freeKey}, pressed in the window, listens from another program; Escape stops it while it speaks, and is the other's again`;
}

/** Where the desktop's portal gives keys, its own page appears for another key; what the user sets there works at once. */
export async function byPortal(place: Place): Promise<string> {
    const { session, session: { screen }, desktop } = place;
    const { page, give } = desktop.portal!;
    await record(place);
    await until("the desktop's own page", () => desktop.windows.find(session, page));
    await stillPicture(place, "page-of-keys");
    await until("the page to go", async () => {
        await screen.key(desktop.closeKey);
        return until("it", async () => !(await desktop.windows.find(session, page)), 3000).catch(() => false);
    });
    await give(session, "Listen", freeKey);
    await give(session, "Stop", freeStopKey);
    await until("the key to be granted", async () => (await status(place)).hotKeyProblem === "");
    await palomet(place, "--open", "listening");
    await recorder(place);
    await stillPicture(place, "key-granted");
    await closeWindow(place);
    const other = await listensElsewhere(place);
    await pictureOfSpeech(place);
    await stopBy(place, freeStopKey);
    check(!other.keys.includes("k"), "the key that stopped it went to the other program too");
    await screen.key(desktop.closeKey);
    return `for ${freeKey} the page "${page}" appears; set there, it listens from another program, and ${freeStopKey} stops it while it speaks`;
}

/** Presses the free key in the window, as the one to listen by. */
async function record(place: Place): Promise<void> {
    const { session: { screen, tree } } = place;
    await palomet(place, "--open", "listening");
    const button = await recorder(place);
    await screen.click(await placeOf(place, button));
    await until("the recording", async () => (await tree.description(button)).includes(words["recorder.type"]!));
    await screen.key(freeKey);
}

/** The free key listens from another program's window, which gets nothing of it, and the doctor says that it is held. */
async function listensElsewhere(place: Place): Promise<OtherProgram> {
    const { session: { screen, environment }, watcher, folder } = place;
    const other = await OtherProgram.start(environment, screen, join(folder, "other-program.log"));
    const since = watcher.states.length;
    await screen.key(freeKey);
    await watcher.reach("listening", since);
    check(!other.keys.includes("j"), "the key went to the other program too");
    await watcher.post("stop");
    await watcher.settle();
    const doctor = await run(["sh", "-c", '"$0" --doctor || true', process.env.PALOMET_PROGRAM!], environment);
    check(/^ok {2}hot keys: /m.test(doctor), `the doctor says of the key: ${/^.*hot keys.*$/m.exec(doctor)?.[0]}`);
    return other;
}

/** Makes it speak, until it says so itself, and the strip does. */
async function speak(place: Place): Promise<number> {
    const { session, desktop: { windows }, watcher } = place;
    await stillPicture(place, "before-speaking");
    const since = watcher.states.length;
    await watcher.post("say", { text: "What can you do?" });
    await until("it to speak", async () => (await status(place)).state === "speaking" && (await windows.strip(session, "before-speaking")));
    return since;
}

async function pictureOfSpeech(place: Place): Promise<void> {
    await speak(place);
    const { session, desktop: { windows }, watcher } = place;
    await session.screen.whole("speaking");
    await watcher.post("stop");
    await watcher.settle();
    await until("the strip to go", async () => (await windows.strip(session, "before-speaking")) === undefined);
}

/** That key stops it while it speaks, long before it would end by itself. */
async function stopBy(place: Place, key: string): Promise<void> {
    const { session: { screen }, watcher } = place;
    const since = await speak(place);
    check(watcher.states.at(-1) === "speaking", "it did not speak long enough");
    await screen.key(key);
    await watcher.reach("waiting", watcher.after("speaking", since), longestStopMs);
}

const count = ({ keys }: OtherProgram, name: string) => keys.filter((key) => key === name).length;

/** Where nobody gives keys to programs, the window and the doctor say what to bind instead, and that works. */
export async function byCommand(place: Place): Promise<string> {
    const { session, desktop, watcher } = place;
    const { screen, tree } = session;
    await palomet(place, "--open", "listening");
    const said = await until("the window's advice", async () => {
        for (const window of await tree.windows()) {
            const all = await tree.names(window);
            const texts = [...all, ...(await Promise.all((await tree.all(window, /^push button$/)).map((node) => tree.description(node))))];
            const found = texts.find((text) => text.includes(words["listening.keysByCommand"]!));
            if (found) return found;
        }
        return undefined;
    });
    await recorder(place);
    await screen.whole("keys-by-command");
    await closeWindow(place);
    const doctor = await run(["sh", "-c", '"$0" --doctor || true', process.env.PALOMET_PROGRAM!], session.environment);
    check(/^!! {2}hot keys: .*bind "palomet --listen" and "palomet --stop"/m.test(doctor), "the doctor does not say what to bind");
    await desktop.bind!(session, { "Mod1+space": "palomet --listen", "Mod1+Escape": "palomet --stop" });
    const terminal = await Terminal.open(place);
    const since = watcher.states.length;
    await screen.key("alt+space");
    await watcher.reach("listening", since);
    await watcher.post("stop");
    await watcher.settle();
    await pictureOfSpeech(place);
    await stopBy(place, "alt+Escape");
    await terminal.close();
    return `the window says: ${said}; bound so, Alt+Space listens and Alt+Escape stops it while it speaks`;
}

/** The button that records the listen key, scrolled to where it can be seen. */
async function recorder(place: Place): Promise<Node> {
    const { session: { tree } } = place;
    await windowInFront(place);
    const button = await until("the listen key in the window", async () => {
        for (const window of await tree.windows()) {
            const buttons = await tree.all(window, /^push button$/);
            const names = await Promise.all(buttons.map((node) => tree.name(node)));
            const places = await Promise.all(buttons.map((node) => tree.place(node)));
            const index = names.findIndex((name, at) => name === words["menu.listen"] && places[at]![1] > 200);
            if (index >= 0) return buttons[index];
        }
        return undefined;
    });
    return inSight(place, button);
}
