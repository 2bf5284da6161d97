// The window, as somebody sees and uses it: opened from the tray, its panes, a request typed, a setting changed, and closed.

import type { AccessibleTree, Node } from "./accessible";
import { answerTo } from "./conversation";
import { run, until } from "./process";
import type { XWindow } from "./screen";
import { check, program, type Stage, step, words } from "./stage";

const panes = ["now", "history", "listening", "voice", "brain"] as const;

/** The window on the screen, and the same as a screen reader has it. */
interface Shown extends XWindow {
    node: Node;
}

/** The tray menu opens the window, and it gets the focus. */
export async function openWindow(stage: Stage): Promise<void> {
    const { tray, screen } = stage;
    const from = performance.now();
    await tray.click(words["menu.open"]!);
    const { id, width, height } = await find(stage);
    await until("the window's focus", async () => (await screen.focused()) === id);
    const took = Math.round(performance.now() - from);
    const title = (await screen.do("getwindowname", id)).trim();
    check(title === "Palomet", `the window's title is "${title}"`);
    step(`"${words["menu.open"]}" in the menu opens the window "${title}", ${width}×${height}, with the focus (${took} ms)`);
}

/** Each pane is shown, by a click or by the command line, and is what is seen and read out. */
export async function showPanes(stage: Stage): Promise<void> {
    const { screen, tree, environment } = stage;
    const shown = await find(stage);
    for (const pane of panes) {
        const title = words[`pane.${pane}`]!;
        const isClicked = pane !== "brain";
        if (isClicked) await screen.click(await tree.place(await tree.find(shown.node, "page tab", title)));
        else await run([program, "--open", pane], environment);
        await reach(stage, shown, title);
        const picture = await screen.picture(pane, shown);
        const inside = await tree.names(shown.node);
        step(`${isClicked ? "A click" : `palomet --open ${pane}`} shows ${title} (${inside.length} names, such as "${inside.at(-1)}"; ${picture})`);
    }
}

/** A request that is typed in the window is answered aloud, and both are to be read there. */
export async function typeRequest(stage: Stage): Promise<void> {
    const { screen, tree, sound, watcher } = stage;
    const shown = await find(stage);
    await screen.click(await tree.place(await tree.find(shown.node, "page tab", words["pane.now"]!)));
    await reach(stage, shown, words["pane.now"]!);
    const field = await tree.find(shown.node, "text", words["now.typeInstead"]!);
    await screen.click(await tree.place(field));
    await until("the request field's focus", () => tree.has(field, "focused"));
    const since = watcher.states.length;
    const from = performance.now();
    const question = "What day is it?";
    await screen.type(question);
    await screen.key("Return");
    const answer = await answerTo(stage, since);
    const audible = sound.speakers.audibleSeconds(from);
    check(/^Today is /.test(answer), `asked for the day it says "${answer}"`);
    check(audible > 0.5, `the answer could not be heard (${audible.toFixed(2)} s of sound)`);
    await until("the conversation in the window", async () => {
        const all = await tree.names(shown.node);
        return [question, answer].every((text) => all.some((name) => name.includes(text)));
    });
    // The strip lies over the window as long as it is there.
    await until("the strip to go", async () => (await screen.strip()) === undefined);
    const picture = await screen.picture("now-conversation", shown);
    step(`Typed in the window, "${question}" is answered "${answer}" (${audible.toFixed(1)} s heard; ${picture})`);
}

/** The command line lists the conversations that the window lists, in its words and for programs. */
export async function listHistory(stage: Stage): Promise<void> {
    const { screen, tree, watcher, environment } = stage;
    const asked = ["What time is it?", "What day is it?"];
    check(await watcher.post("new"), "no other conversation is begun");
    const since = watcher.states.length;
    await run([program, "--say", asked[0]!], environment);
    await answerTo(stage, since);
    await watcher.settle();
    const shown = await find(stage);
    await screen.click(await tree.place(await tree.find(shown.node, "page tab", words["pane.history"]!)));
    await reach(stage, shown, words["pane.history"]!);
    const listed = await until("both conversations in the window", async () => {
        const names = await Promise.all((await tree.all(shown.node, /^list item$/)).map((item) => tree.name(item)));
        return names.length === asked.length && names;
    });
    const lines = (await run([program, "--history"], environment)).trimEnd().split("\n").map((line) => line.split(/ {2,}/));
    const told = lines.map(([day, outcome, question]) => `${question} ${day} ${outcome}`);
    check(told.join() === listed.join(), `--history says "${told.join('", "')}", the window "${listed.join('", "')}"`);
    const kept = JSON.parse(await run([program, "--history", "--json"], environment)) as { firstQuestion: string; answers: number }[];
    check(kept.map(({ firstQuestion }) => firstQuestion).join() === asked.join(), `--history --json says ${JSON.stringify(kept)}`);
    step(`palomet --history lists what the window lists: "${told.join('", "')}"; --json the same`);
}

/** A switch is turned by the mouse and turned back by the keyboard, and the engine follows. */
export async function changeSwitch(stage: Stage): Promise<void> {
    const { screen, tree, watcher } = stage;
    const shown = await find(stage);
    await screen.click(await tree.place(await tree.find(shown.node, "page tab", words["pane.listening"]!)));
    await reach(stage, shown, words["pane.listening"]!);
    const name = words["listening.directed"]!;
    const button = await tree.find(shown.node, "check box", name);
    const becomes = async (isOn: boolean): Promise<number> => {
        const from = performance.now();
        await until(`the setting to be ${isOn}`, async () => (await watcher.state())?.settings.isDirectedOn === isOn);
        await until(`the switch to be ${isOn}`, async () => (await tree.has(button, "checked")) === isOn);
        return Math.round(performance.now() - from);
    };
    await becomes(true);
    await screen.click(await tree.place(button));
    const off = await becomes(false);
    await tree.focus(button);
    await screen.key("space");
    const on = await becomes(true);
    step(`"${name}" is turned off by the mouse (${off} ms) and on by the keyboard (${on} ms), and the engine follows`);
}

/** Closing the window leaves the program where it was, in the tray. */
export async function closeWindow(stage: Stage): Promise<void> {
    const { screen, environment, palomet } = stage;
    await screen.key("alt+F4");
    await until("the window to close", async () => (await screen.window()) === undefined);
    const status = (await run([program, "--status"], environment)).split("\n")[0];
    check(status === "waiting" && palomet.exitCode === null, `with its window closed it is "${status}"`);
    step(`Alt+F4 closes the window; Palomet stays in the tray, "${status}"`);
}

export async function find({ screen, tree }: Stage): Promise<Shown> {
    const window = await until("the window", () => screen.window());
    const node = await until("the window's contents", () => whichHas(tree, "page tab"));
    return { ...window, node };
}

async function whichHas(tree: AccessibleTree, role: string): Promise<Node | undefined> {
    for (const window of await tree.windows()) {
        if (await tree.firstOf(window, role)) return window;
    }
    return undefined;
}

/** Waits until that pane is what is chosen in the sidebar, and its title stands over the page. */
export async function reach({ tree }: Stage, { node }: Shown, title: string): Promise<void> {
    const tab = await tree.find(node, "page tab", title);
    await until(`the pane ${title}`, () => tree.has(tab, "selected"));
    await tree.find(node, "heading", title);
}
