// Measures, through the engine's port, what it adds to a model's time and a voice's. The voice is a program that gives a clip that
// is there already: what remains of it, the start of a program, counts as the engine's. Without a model the voice is a real one.
//   bun measure.ts

import { mkdirSync, mkdtempSync, rmSync, writeFileSync } from "node:fs";
import { createServer, type AddressInfo } from "node:net";
import { cpus, loadavg, tmpdir } from "node:os";
import { join, resolve } from "node:path";
import { Model } from "./model";
import { withoutModel } from "./withoutModel";

const rounds = 60;
/** What the first rounds cost is the runtime's. */
const warming = 10;

const folder = mkdtempSync(join(tmpdir(), "palomet-minds-"));
const clip = join(folder, "clip.wav");
writeClip(clip);
mkdirSync(join(folder, "bin"));
// It is the only one on the path.
const voice = join(folder, "bin/espeak-ng");
writeFileSync(voice, `#!/bin/sh\nexec /bin/cat ${clip}\n`, { mode: 0o755 });

const model = new Model();
await model.open();
const port = await freePort();
const engine = Bun.spawn([process.execPath, resolve(import.meta.dir, "../../engine/src/main.ts")], {
    env: { ...process.env, PATH: join(folder, "bin"), LANG: "en_US.UTF-8", LANGUAGE: "", HOME: folder, XDG_STATE_HOME: folder, XDG_CONFIG_HOME: folder, PALOMET_PORT: String(port) },
    stdin: "ignore", stdout: "ignore", stderr: "ignore",
});
const base = `http://127.0.0.1:${port}`;
while (!(await fetch(`${base}/state`).then(({ ok }) => ok, () => false))) await Bun.sleep(20);
const post = async (path: string, body?: object): Promise<void> => {
    const reply = await fetch(`${base}/${path}`, { method: "POST", ...(body ? { body: JSON.stringify(body) } : {}) });
    if (!reply.ok) throw new Error(`${path}: ${await reply.text()}`);
};
let played = (): void => {};
const socket = new WebSocket(`ws://127.0.0.1:${port}/audio`);
socket.onmessage = ({ data }) => {
    if (String(data).includes('"play"')) played();
};
await new Promise((done) => (socket.onopen = done));
socket.send('{"type":"hello","device":"Microphone"}');
await post("settings", { brainModel: "bench · Jan" });

const [sound, stop, leastSound, leastStop]: number[][] = [[], [], [], []];
for (let round = 0; round < rounds + warming; round++) {
    const mine = await answer(() => post("say", { text: "What time is it?" }), new Promise((done) => (played = () => done(undefined))), () => post("stop"));
    const least = await bareAnswer();
    if (round < warming) continue;
    sound!.push(mine.soundMs);
    stop!.push(mine.stopMs);
    leastSound!.push(least.soundMs);
    leastStop!.push(least.stopMs);
}
socket.close();
engine.kill("SIGTERM");
await engine.exited;
model.close();
rmSync(folder, { recursive: true, force: true });
const plain = await withoutModel(rounds, warming);

console.log(`on ${new Date().toISOString().slice(0, 10)}: ${cpus().length} cores of ${cpus()[0]!.model}, load average ${loadavg()[0]!.toFixed(1)}, ${rounds} answers, median and 95th of a hundred\n`);
console.log("| what | floor in the same run | here | to reach | met |\n|---|---|---|---|---|");
row("from a request to the first sound, without the model's and the voice's time", "one request, one program", leastSound!, sound!, 40);
row("without a model: from a request to the first sound, the voice's time included", "the voice alone", plain.least, plain.here, 250);
row("from stop to the end of the model's stream", "the request dropped", leastStop!, stop!, 50);

interface Times {
    soundMs: number;
    stopMs: number;
}

async function answer(ask: () => Promise<unknown>, first: Promise<unknown>, end: () => unknown): Promise<Times> {
    const left = model.left();
    const askedAt = performance.now();
    await ask();
    await first;
    const soundMs = performance.now() - askedAt - (model.saidAt - model.askedAt);
    const endedAt = performance.now();
    void end();
    await left;
    return { soundMs, stopMs: model.leftAt - endedAt };
}

/** The least that does the same: a request to the model, and the voice's program when its first words come. */
async function bareAnswer(): Promise<Times> {
    const ending = new AbortController();
    let first: Promise<unknown> = Promise.resolve();
    return await answer(async () => {
        const reply = await fetch(`${model.address}/chat/completions`, { method: "POST", body: "{}", signal: ending.signal });
        await reply.body!.getReader().read();
        first = new Response(Bun.spawn([voice], { stdout: "pipe" }).stdout).bytes();
        await first;
    }, Promise.resolve(), () => ending.abort());
}

function row(what: string, floor: string, least: number[], here: number[], reach: number): void {
    const told = (values: number[]): string => `${at(values, 0.5).toFixed(1)} and ${at(values, 0.95).toFixed(1)} ms`;
    console.log(`| ${what} | ${floor}: ${told(least)} | ${told(here)} | ${reach} ms | ${at(here, 0.95) <= reach ? "yes" : "no"} |`);
}

function at(values: number[], part: number): number {
    return [...values].sort((a, b) => a - b)[Math.min(values.length - 1, Math.floor(values.length * part))] ?? NaN;
}

/** Half a second of silence. */
function writeClip(path: string): void {
    const samples = 11_025;
    const bytes = Buffer.alloc(44 + 2 * samples);
    bytes.write("RIFF", 0);
    bytes.writeUInt32LE(36 + 2 * samples, 4);
    bytes.write("WAVEfmt ", 8);
    bytes.writeUInt32LE(16, 16);
    bytes.writeUInt16LE(1, 20);
    bytes.writeUInt16LE(1, 22);
    bytes.writeUInt32LE(22_050, 24);
    bytes.writeUInt32LE(44_100, 28);
    bytes.writeUInt16LE(2, 32);
    bytes.writeUInt16LE(16, 34);
    bytes.write("data", 36);
    bytes.writeUInt32LE(2 * samples, 40);
    writeFileSync(path, bytes);
}

async function freePort(): Promise<number> {
    const server = createServer();
    await new Promise<void>((done) => server.listen(0, "127.0.0.1", done));
    const { port: free } = server.address() as AddressInfo;
    await new Promise((done) => server.close(done));
    return free;
}
