// A program of the engine's own that runs beside it for as long as it is of use: work that is too heavy, or too ready to
// crash, for the engine's own process. It runs by the engine's own bun. The engine writes frames to it (frames.ts), and
// it writes one JSON object a line (companionSide.ts is its end of this). It is started when it is wanted, and again
// when it has died; one that fails over and over stays down.

import { dirname } from "node:path";
import type { Clock } from "../base/clock.ts";
import { isRecord, parseJson } from "../base/json.ts";
import type { Log } from "../base/log.ts";
import type { Children, Outcome } from "./children.ts";
import { writeFrame, type Head } from "./frames.ts";
import { LineReader } from "./lineReader.ts";

export interface CompanionOptions {
  /** What the log calls it, with its article: "o reconhecedor". */
  name: string;
  /** The path of the script, and what it is started with. */
  script: string;
  arguments?: string[];
  /** What it has in its environment besides the engine's. */
  environment?: Record<string, string>;
  /** The time from its start until it says that it is ready; it may load its model in that time. */
  startMs: number;
  /** It ends when nothing was wanted of it for this time. It is there for good without it. */
  idleMs?: number;
  /** The bytes that may wait to be written to it. */
  mostWaiting?: number;
  /** Takes what it says without being asked. It may say a few things for each frame that it is given. */
  told?: (message: Head) => void;
  /** It has begun anew and knows nothing of what an earlier process was given, or it is gone. */
  changed?: (isRunning: boolean) => void;
}

export type Reply =
  | { kind: "answer"; answer: Head }
  /** It could not answer, or it died, or it hung and was ended, or it stays down. */
  | { kind: "failed"; problem: string }
  /** The signal was raised. */
  | { kind: "stopped" };

const mostWaiting = 8 << 20;
const longestLine = 1 << 20;
/** The lines that it may write before it was given a frame, and for each frame. Whoever writes more writes without end. */
const linesAFrame = 4;
const mostLines = 256;
/** It stays down after so many failures in this time. */
const mostFailures = 3;
const failuresMs = 60_000;
const longestReason = 200;

interface Question {
  resolve: (reply: Reply) => void;
  settle: () => void;
}

/** One process, from its start to its end. */
interface Life {
  stop: AbortController;
  /** Frames that wait to be written. */
  waiting: Uint8Array[];
  waitingBytes: number;
  wake: () => void;
  lines: number;
  isReady: boolean;
  cancelStart: () => void;
  /** What was found wrong with it, for the log. */
  problem?: string;
}

export class Companion {
  #life: Life | undefined;
  #questions = new Map<number, Question>();
  #lastId = 0;
  #failures: number[] = [];
  #downFor: string | undefined;
  #wantedAt = 0;
  #cancelIdle = (): void => {};

  constructor(
    private readonly children: Children,
    private readonly clock: Clock,
    private readonly log: Log,
    private readonly options: CompanionOptions,
  ) {}

  /** It failed over and over, or cannot run on this machine: it is not started any more. */
  get isDown(): boolean {
    return this.#downFor !== undefined;
  }

  /** Starts it if it does not run: it will be wanted soon. */
  start(): void {
    if (this.isDown) return;
    this.#wantedAt = this.clock.now();
    if (this.#life === undefined) this.#begin();
  }

  /** Writes a frame that needs no answer, and gives false when that cannot be. */
  tell(head: Head, body?: Uint8Array): boolean {
    this.start();
    const life = this.#life;
    if (life === undefined) return false;
    const frame = writeFrame(head, body);
    if (life.waitingBytes + frame.length > (this.options.mostWaiting ?? mostWaiting)) {
      this.#fail(life, "não lê o que recebe");
      return false;
    }
    life.waiting.push(frame);
    life.waitingBytes += frame.length;
    life.lines = Math.min(mostLines, life.lines + linesAFrame);
    life.wake();
    return true;
  }

  /**
   * Asks for an answer. It never rejects. A process that has not answered in this time is ended: it hangs. The time counts
   * from here, and so the start and the questions before this one count as well.
   */
  ask(head: Head, body: Uint8Array | undefined, timeoutMs: number, signal: AbortSignal): Promise<Reply> {
    if (signal.aborted) return Promise.resolve({ kind: "stopped" });
    const id = ++this.#lastId;
    return new Promise((resolve) => {
      const stop = (): void => {
        this.#reply(id, { kind: "stopped" });
        if (this.#life) this.tell({ abort: id });
      };
      const cancel = this.clock.after(timeoutMs, () => {
        if (this.#life) this.#fail(this.#life, "não respondeu a tempo");
        this.#reply(id, { kind: "failed", problem: "não respondeu a tempo" });
      });
      signal.addEventListener("abort", stop);
      const settle = (): void => {
        cancel();
        signal.removeEventListener("abort", stop);
      };
      this.#questions.set(id, { resolve, settle });
      if (!this.tell({ ...head, id }, body)) this.#reply(id, { kind: "failed", problem: this.#downFor ?? "não está disponível" });
    });
  }

  /** Ends it. It begins again when it is wanted again. */
  stop(): void {
    if (this.#life) this.#end(this.#life, "foi encerrado");
  }

  #begin(): void {
    const { options } = this;
    const life: Life = {
      stop: new AbortController(),
      waiting: [],
      waitingBytes: 0,
      wake: () => {},
      lines: linesAFrame,
      isReady: false,
      cancelStart: this.clock.after(options.startMs, () => this.#fail(life, "não ficou pronto a tempo")),
    };
    this.#life = life;
    if (options.idleMs !== undefined) this.#awaitIdleness(options.idleMs, options.idleMs);
    const reader = new LineReader((line) => this.#take(life, line), longestLine, () => this.#fail(life, "escreve sem fim"));
    const command: [string, ...string[]] = [process.execPath, options.script, ...(options.arguments ?? [])];
    const run = this.children.run(command, {
      input: (stdin) => void this.#write(life, stdin),
      maxOutput: Infinity,
      signal: life.stop.signal,
      // The runtime obeys the settings that it finds in its working folder.
      cwd: dirname(options.script),
      ...(options.environment === undefined ? {} : { environment: options.environment }),
      onOutput: (piece) => reader.take(piece),
    });
    void run.then((outcome) => {
      if (life !== this.#life) return;
      // The engine itself ends.
      if (outcome.kind === "stopped") return this.#end(life, "foi encerrado");
      this.#fail(life, reasonOf(outcome));
    });
  }

  /** Writes what waits, one frame after another, as fast as it is read. */
  async #write(life: Life, stdin: Bun.FileSink): Promise<void> {
    try {
      for (;;) {
        const frame = life.waiting.shift();
        if (life.stop.signal.aborted) break;
        if (frame === undefined) {
          await new Promise<void>((resolve) => (life.wake = resolve));
          continue;
        }
        await stdin.write(frame);
        await stdin.flush();
        life.waitingBytes -= frame.length;
      }
      await stdin.end();
    } catch {
      // It is gone: its outcome tells.
    }
  }

  #take(life: Life, line: string): void {
    if (life !== this.#life) return;
    const message = parseJson(line);
    if (!isRecord(message)) return this.#fail(life, "escreve o que não se entende");
    if (--life.lines < 0) return this.#fail(life, "escreve sem fim");
    if (message.ready === true && !life.isReady) {
      life.isReady = true;
      life.cancelStart();
      this.options.changed?.(true);
    } else if (typeof message.unable === "string") {
      this.#goDown(message.unable);
      this.#end(life, message.unable);
    } else if (typeof message.id === "number") {
      const { id, problem, ...answer } = message;
      this.#reply(message.id, typeof problem === "string" ? { kind: "failed", problem } : { kind: "answer", answer });
    } else {
      this.options.told?.(message);
    }
  }

  #reply(id: number, reply: Reply): void {
    const question = this.#questions.get(id);
    this.#questions.delete(id);
    question?.settle();
    question?.resolve(reply);
  }

  #fail(life: Life, problem: string): void {
    if (life !== this.#life) return;
    const now = this.clock.now();
    this.#failures = [...this.#failures.filter((at) => now - at < failuresMs && at <= now), now];
    if (this.#failures.length >= mostFailures) this.#goDown(problem);
    else this.log(`${this.options.name} parou (${problem})`);
    this.#end(life, problem);
  }

  #goDown(problem: string): void {
    this.#downFor = problem;
    this.log(`${this.options.name} não funciona aqui, sigo sem ele (${problem})`);
  }

  /** Ends the process in order, and answers what it was asked. */
  #end(life: Life, problem: string): void {
    if (life !== this.#life) return;
    this.#life = undefined;
    this.#cancelIdle();
    life.cancelStart();
    life.stop.abort();
    life.wake();
    for (const id of [...this.#questions.keys()]) this.#reply(id, { kind: "failed", problem });
    this.options.changed?.(false);
  }

  #awaitIdleness(idleMs: number, inMs: number): void {
    this.#cancelIdle = this.clock.after(inMs, () => {
      const leftMs = this.#wantedAt + idleMs - this.clock.now();
      if (leftMs <= 0 && this.#questions.size === 0) this.stop();
      else this.#awaitIdleness(idleMs, leftMs > 0 ? leftMs : idleMs);
    });
  }
}

/** The last line that it wrote about its death says most. */
function reasonOf(outcome: Outcome): string {
  if (outcome.kind !== "ended") return outcome.kind === "missing" ? "não começa" : "foi encerrado";
  const lines = outcome.errors.split("\n").map((line) => line.trim());
  const reason = (lines.find((line) => /^(\w*[eE]rror|error):/.test(line)) ?? lines.findLast((line) => line !== ""))?.slice(0, longestReason);
  const how = outcome.signal ?? `terminou com ${outcome.code}`;
  return reason === undefined ? how : `${how}: ${reason}`;
}
