// Programs that the rehearsal starts, and must not leave behind.

import type { Subprocess } from "bun";
import { openSync } from "node:fs";

export type Environment = Record<string, string>;
export type Program = Pick<Subprocess, "pid" | "exited" | "exitCode" | "kill">;

const running: Program[] = [];

/** Starts a program whose output goes to a file. It is ended when the rehearsal ends. */
export function start(command: string[], environment: Environment, logPath: string): Subprocess {
    const log = openSync(logPath, "a");
    const process = Bun.spawn(command, { env: environment, stdin: "ignore", stdout: log, stderr: log });
    running.push(process);
    return process;
}

/** Starts a program whose standard output the caller reads. */
export function startPiped(command: string[], environment: Environment, logPath: string): Subprocess<"ignore", "pipe", number> {
    const log = openSync(logPath, "a");
    const process = Bun.spawn(command, { env: environment, stdin: "ignore", stdout: "pipe", stderr: log });
    running.push(process);
    return process;
}

/** Runs a program to its end and gives what it printed; throws when it failed. */
export async function run(command: string[], environment: Environment): Promise<string> {
    const process = Bun.spawn(command, { env: environment, stdin: "ignore", stdout: "pipe", stderr: "pipe" });
    const [output, problem, code] = await Promise.all([
        new Response(process.stdout).text(),
        new Response(process.stderr).text(),
        process.exited,
    ]);
    if (code !== 0) throw new Error(`${command.join(" ")}: ${problem.trim() || `exit code ${code}`}`);
    return output;
}

/** The first line that a program prints. */
export async function firstLine(process: Subprocess<"ignore", "pipe", number>): Promise<string> {
    const reader = process.stdout.getReader();
    let text = "";
    while (!text.includes("\n")) {
        const { value, done } = await reader.read();
        if (done) break;
        text += new TextDecoder().decode(value);
    }
    reader.releaseLock();
    return text.split("\n")[0] ?? "";
}

/** Ends everything that is still running, the last started first. */
export async function endAll(): Promise<void> {
    for (const process of running.reverse()) await end(process);
}

/** Ends it in order, or after two seconds without. */
export async function end(process: Program): Promise<void> {
    if (process.exitCode !== null) return;
    process.kill("SIGTERM");
    const ended = await Promise.race([process.exited.then(() => true), Bun.sleep(2000).then(() => false)]);
    if (!ended) process.kill("SIGKILL");
}

/** Looks again and again until something holds, and gives it; throws after the limit. */
export async function until<T>(
    what: string | (() => string),
    look: () => T | undefined | false | null | Promise<T | undefined | false | null>,
    limitMs = 20_000,
): Promise<T> {
    const deadline = performance.now() + limitMs;
    for (;;) {
        const found = await look();
        if (found) return found;
        if (performance.now() > deadline) throw new Error(`waited ${limitMs / 1000} s in vain for ${typeof what === "string" ? what : what()}`);
        await Bun.sleep(50);
    }
}
