// A language model of a server: chosen in the window, it answers aloud while it still writes, and does what it asks leave for at a
// yes and not at a no. The server is a real one, in the ways of one that users have.

import { existsSync, mkdirSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import { type Answer, ChatServer } from "../../engine/test/support/chatServer";
import { ollama } from "../../engine/test/support/servers/ollama";
import { answerTo, request, say } from "./conversation";
import { tell } from "./hands";
import { run, until } from "./process";
import { check, program, type Stage, step, words } from "./stage";
import { find, reach } from "./window";

const serverName = "Lighthouse";
const model = `${ollama.offered[0]} · ${serverName}`;

export async function thinkByServer(stage: Stage): Promise<void> {
    const { environment, watcher } = stage;
    const folder = join(environment.XDG_CONFIG_HOME!, "palomet");
    const file = join(folder, "engine.json");
    const server = await ChatServer.open(ollama);
    mkdirSync(folder, { recursive: true });
    writeFileSync(file, JSON.stringify({ servers: [{ name: serverName, address: server.address }] }));
    try {
        await choose(stage);
        await listenWhileItWrites(stage, server);
        await allow(stage, server);
    } finally {
        server.close();
        rmSync(file);
    }
    check(await watcher.post("settings", { brainModel: "built-in" }), "the built-in answers were refused");
    await watcher.settle();
}

/** The model is among those of the Brain pane, and a click on it chooses it. */
async function choose(stage: Stage): Promise<void> {
    const { environment, screen, tree, watcher } = stage;
    const title = words["pane.brain"]!;
    const listed = await until("the model in the list", async () => {
        // The window asks the engine for its models when it is opened, or called to the front.
        await run([program, "--open", "brain"], environment);
        const shown = await find(stage);
        await reach(stage, shown, title);
        await screen.click(await tree.place(await tree.find(shown.node, "combo box", words["brain.model"]!)));
        // The window writes names in its own way.
        const name = (await tree.names(shown.node)).find((one) => one.toLowerCase() === model.toLowerCase());
        if (name === undefined) await screen.key("Escape");
        return name;
    });
    const shown = await find(stage);
    await screen.click(await tree.place(await tree.find(shown.node, "list item", listed)));
    await until("the model to be chosen", async () => (await watcher.state())?.settings.brainModel === model);
    const picture = await screen.picture("brain-server", shown);
    step(`"${listed}" is listed under ${title}, and a click chooses it (${picture})`);
}

/** The first sentence is spoken before the second one is written. */
async function listenWhileItWrites({ watcher, sound, ...stage }: Stage, server: ChatServer): Promise<void> {
    const [first, second] = ["The lighthouse stands on the hill.", "Its lamp is lit every evening."];
    const whole = ollama.words(`${first} `, second);
    const end = whole.indexOf("\n\n") + 2;
    server.answers = [{ body: whole.slice(0, end), then: "silence" }];
    const since = watcher.states.length;
    const before = watcher.spoken.length;
    const from = performance.now();
    const heard = await say({ watcher, sound, ...stage }, "Palomet, tell me about the lighthouse.");
    check(heard.action === "accepted", `the question was ${JSON.stringify(heard)}`);
    await until("the first sentence", () => watcher.spoken.slice(before).includes(first));
    server.more(whole.slice(end));
    const answer = await answerTo({ watcher, sound, ...stage }, since);
    check(answer === `${first} ${second}`, `it says "${answer}"`);
    await until("the answer to be heard", () => sound.speakers.audibleSeconds(from) > 0.3);
    check(watcher.spoken.slice(before).join(" ") === answer, `it spoke "${watcher.spoken.slice(before).join('", "')}"`);
    const { body } = server.chats.at(-1)!;
    check(/lighthouse|light house/i.test(body.messages.at(-1)!.content), `the model was asked "${body.messages.at(-1)!.content}"`);
    check(body.tools?.some((tool) => tool.function.name === "note") ?? false, "the model was offered no tools");
    step(`Asked "${heard.text}" it speaks the first sentence while the second one is being written: "${answer}"`);
}

/** A tool that is to be asked about is not used after a no, and used after a yes. */
async function allow(stage: Stage, server: ChatServer): Promise<void> {
    const list = join(stage.environment.HOME!, "Documents/Palomet/Lists/shopping.md");
    const call = { body: ollama.calls({ name: "note", given: { do: "add", list: "shopping", items: "tea" } }) };
    const question = /^May I\? add to the list “shopping”: tea$/;
    let asks = 0;
    const wish = async (...then: Answer[]): Promise<void> => {
        server.answers = [call, ...then];
        const answer = await request(stage, "I am out of tea.");
        check(question.test(answer), `typed that it is out of tea it says "${answer}"`);
        check(!existsSync(list), "it did it before it was allowed to");
        asks = server.chats.length;
    };
    server.answers = [call];
    const asked = await tell(stage, "Palomet, I am out of tea.", question);
    asks = server.chats.length;
    const refused = await tell(stage, "Palomet, no thanks.", /^All right, I will not\.$/, { again: wish });
    check(server.chats.length === asks, "the model was asked what the user had refused");
    check(!existsSync(list), "it did what it was not allowed to");
    const answered = { body: ollama.words("Tea is on your list.") };
    await wish(answered);
    const isDone = (): boolean => existsSync(list);
    const done = await tell(stage, "Palomet, yes please.", /^Tea is on your list\.$/, { isDone, again: () => wish(answered) });
    check(readFileSync(list, "utf8").includes("tea"), `the list is ${readFileSync(list, "utf8")}`);
    const told = server.chats.at(-1)!.body.messages.at(-1)!;
    check(told.role === "tool" && /tea/.test(told.content), `the model was told ${JSON.stringify(told)}`);
    step(`A tool is asked about: "${asked}"; after a no: "${refused}", after a yes: "${done}"`);
}
