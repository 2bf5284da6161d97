// store.test.ts runs this with a small file system mounted on the folder in the argument. It fills the file system, and
// prints what became of the store.

import { rmSync } from "node:fs";
import { join } from "node:path";
import { Store } from "../../src/memory/store.ts";
import { ManualClock } from "../support/clock.ts";
import { fillDisk } from "../support/fullDisk.ts";

const [folder = ""] = process.argv.slice(2);
const data = join(folder, "data");
const filler = join(folder, "filler");
const clock = new ManualClock();
const log: string[] = [];
const open = (): Store => new Store(data, (line) => log.push(line), clock);
const row = (text: string, at: number) => ({ role: "assistant" as const, text, at });
const conversation = (id: string) => ({ conversationId: id, startedAt: 1, costUsd: 0, answers: 0, rows: [], session: undefined });
const texts = (store: Store): string[] | undefined => store.latestConversation(1_000)?.rows.map(({ text }) => text.slice(0, 5));

const report: Record<string, unknown> = {};
let store = open();
store.saveSetting("kept", "1");
store.saveConversation(conversation("first"));
store.addRow("first", row("first", 1));
fillDisk(filler);
for (let at = 2; at < 60; at++) store.addRow("first", row(`${at}`.padEnd(5_000), at));
store.saveSetting("changed", "2");
await clock.advance(60_000);
report.full = { log: log.splice(0), rows: texts(store)?.length, settings: [...store.loadSettings().keys()] };

rmSync(filler);
store.saveConversation({ ...conversation("first"), answers: 7 });
await clock.advance(5_000);
report.room = { log: log.splice(0) };
store.addRow("first", row("last", 99));
store.close();
store = open();
const kept = store.latestConversation(1_000);
report.kept = { rows: kept?.rows.length, answers: kept?.answers, last: texts(store)?.at(-1), settings: [...store.loadSettings()] };
store.close();

fillDisk(filler);
store = open();
report.begunFull = { log: log.splice(0).length, rows: texts(store)?.length, settings: store.loadSettings().size };
store.addRow("first", row("added", 100));
store.saveSetting("changed", "3");
rmSync(filler);
store.close();
store = open();
report.closed = { log: log.splice(0), last: texts(store)?.at(-1), rows: texts(store)?.length, settings: [...store.loadSettings()] };
rmSync(data, { recursive: true });
store.close();
console.log(JSON.stringify(report));
