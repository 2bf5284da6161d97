// Runs programs. Each is bounded in time and in what it may print, leads a process group of its own, and ends with all
// that it runs; none outlives the engine.

import { Family } from "./family.ts";
import type { Guard } from "./guard.ts";

export interface RunOptions {
  /** What standard input gives to the program, or what is called with it when the program runs and is to write to it. */
  input?: string | Uint8Array | ((stdin: Bun.FileSink) => void);
  /** Without it the program may run for as long as the engine. */
  timeoutMs?: number;
  /** Bytes of standard output after which the program is ended. */
  maxOutput: number;
  signal?: AbortSignal;
  cwd?: string;
  environment?: Record<string, string>;
  /** Called with each piece of standard output as it comes; the output is then not collected. */
  onOutput?: (piece: Uint8Array) => void;
}

export type Outcome =
  | { kind: "ended"; code: number; output: Uint8Array; errors: string; signal?: string }
  | { kind: "missing" }
  | { kind: "timedOut" }
  | { kind: "tooMuch" }
  | { kind: "stopped" };

type Child = Bun.Subprocess<"pipe" | Uint8Array | "ignore", "pipe", "pipe">;

const maxErrors = 4096;
/** A child that was asked to end is killed after this time. The engine itself is given twice as long. */
const graceMs = 1_000;
/** A process that was killed needs a moment to end, too. */
const deathMs = 200;
const lookMs = 10;

export class Children {
  /** The children that run, each with the function that stops it. */
  readonly #running = new Map<Bun.Subprocess, () => void>();
  readonly #ending = new Set<Promise<void>>();
  #isOver = false;

  constructor(
    readonly environment: Record<string, string | undefined>,
    /** Ends the children when the engine was killed. */
    private readonly guard?: Guard,
  ) {}

  /** The first program of this name on the path, or undefined. */
  find(name: string): string | undefined {
    return Bun.which(name, { PATH: this.environment.PATH ?? "" }) ?? undefined;
  }

  async run(command: [string, ...string[]], options: RunOptions): Promise<Outcome> {
    if (options.signal?.aborted || this.#isOver) return { kind: "stopped" };
    const [name, ...rest] = command;
    const path = name.includes("/") ? name : this.find(name);
    if (path === undefined) return { kind: "missing" };
    let child: Child;
    try {
      child = Bun.spawn([path, ...rest], {
        stdin: inputOf(options),
        stdout: "pipe",
        stderr: "pipe",
        detached: true,
        env: { ...this.environment, ...options.environment },
        ...(options.cwd === undefined ? {} : { cwd: options.cwd }),
      });
    } catch {
      return { kind: "missing" };
    }
    this.guard?.add(child.pid);
    if (typeof options.input === "function" && typeof child.stdin === "object") options.input(child.stdin);
    return await this.#follow(child, options);
  }

  /** Ends every program that runs, and starts none any more: the engine itself ends. */
  async endAll(): Promise<void> {
    this.#isOver = true;
    for (const stop of [...this.#running.values()]) stop();
    await Promise.all(this.#ending);
  }

  #terminate(child: Bun.Subprocess): void {
    const ending = this.#endFamily(new Family(child.pid)).finally(() => {
      this.#ending.delete(ending);
      this.guard?.remove(child.pid);
    });
    this.#ending.add(ending);
  }

  async #endFamily(family: Family): Promise<void> {
    family.signal("SIGTERM");
    await ended(family, graceMs);
    // This ends the processes as well that the family has begun meanwhile.
    family.signal("SIGKILL");
    await ended(family, deathMs);
  }

  async #follow(child: Child, options: RunOptions): Promise<Outcome> {
    const outputReader = child.stdout.getReader();
    const errorReader = child.stderr.getReader();
    let ending: Outcome | undefined;
    let release = (): void => {};
    const ended = new Promise<void>((resolve) => (release = resolve));
    const end = (outcome: Outcome): void => {
      if (ending !== undefined) return;
      ending = outcome;
      this.#terminate(child);
      release();
    };
    const { timeoutMs } = options;
    const timer = timeoutMs === undefined ? undefined : setTimeout(() => end({ kind: "timedOut" }), timeoutMs);
    const stop = (): void => end({ kind: "stopped" });
    options.signal?.addEventListener("abort", stop);
    this.#running.set(child, stop);

    const pieces: Uint8Array[] = [];
    let length = 0;
    const takeOutput = async (): Promise<void> => {
      for (;;) {
        const { done, value } = await outputReader.read();
        if (done || ending !== undefined) return;
        length += value.length;
        if (length > options.maxOutput) return end({ kind: "tooMuch" });
        if (options.onOutput) options.onOutput(value);
        else pieces.push(value);
      }
    };
    let errors = "";
    const decoder = new TextDecoder();
    const takeErrors = async (): Promise<void> => {
      for (;;) {
        const { done, value } = await errorReader.read();
        if (done || ending !== undefined) return;
        if (errors.length < maxErrors) errors += decoder.decode(value, { stream: true }).slice(0, maxErrors);
      }
    };

    try {
      // A grandchild may hold the pipes open after the child was ended: `ended` does not wait for it.
      const finished = (async () => {
        await Promise.all([takeOutput(), takeErrors()]);
        return await child.exited;
      })();
      const code = await Promise.race([finished, ended]);
      if (ending !== undefined) return ending;
      const output = Buffer.concat(pieces);
      const signal = child.signalCode ? { signal: String(child.signalCode) } : {};
      return { kind: "ended", code: code ?? -1, output, errors: errors.slice(0, maxErrors), ...signal };
    } finally {
      clearTimeout(timer);
      options.signal?.removeEventListener("abort", stop);
      this.#running.delete(child);
      if (ending === undefined) this.guard?.remove(child.pid);
      void outputReader.cancel().catch(() => {});
      void errorReader.cancel().catch(() => {});
    }
  }
}

function inputOf({ input }: RunOptions): "pipe" | Uint8Array | "ignore" {
  if (typeof input === "function") return "pipe";
  return typeof input === "string" ? new TextEncoder().encode(input) : (input ?? "ignore");
}

async function ended(family: Family, withinMs: number): Promise<void> {
  for (let waited = 0; waited < withinMs && family.isAlive; waited += lookMs) await Bun.sleep(lookMs);
}
