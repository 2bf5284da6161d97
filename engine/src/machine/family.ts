// A child process and all that it runs: its process group, and its descendants that have left the group.

import { readFileSync, readdirSync } from "node:fs";

/** The time at which it began tells a process from a later one of the same number. */
interface Process {
  id: number;
  group: number;
  begunAt: string;
}

/** The family of a child that leads a process group of its own, as it is when the object is made. */
export class Family {
  readonly #descendants: Process[];

  constructor(private readonly group: number) {
    this.#descendants = descendantsOf(group);
  }

  /** Some of them are still running; a zombie is not. */
  get isAlive(): boolean {
    return lookAt(this.group) !== undefined || this.#living.length > 0;
  }

  signal(signal: "SIGTERM" | "SIGKILL"): void {
    send(-this.group, signal);
    for (const { id, group } of this.#living) if (group !== this.group) send(id, signal);
  }

  /** As they are now: one may have left the group since it was found. */
  get #living(): Process[] {
    return this.#descendants.flatMap(({ id, begunAt }) => {
      const now = lookAt(id);
      return now?.begunAt === begunAt ? [now] : [];
    });
  }
}

function descendantsOf(parent: number): Process[] {
  return childrenOf(parent).flatMap((id) => {
    const child = lookAt(id);
    return [...(child ? [child] : []), ...descendantsOf(id)];
  });
}

function childrenOf(parent: number): number[] {
  try {
    return readdirSync(`/proc/${parent}/task`).flatMap((thread) => {
      const list = readFileSync(`/proc/${parent}/task/${thread}/children`, "latin1").trim();
      return list === "" ? [] : list.split(" ").map(Number);
    });
  } catch {
    return [];
  }
}

/** Gives undefined for a process that has ended, whether or not its parent has collected it. */
function lookAt(id: number): Process | undefined {
  try {
    const line = readFileSync(`/proc/${id}/stat`, "latin1");
    const fields = line.slice(line.lastIndexOf(")") + 2).split(" ");
    const [state, , group] = fields;
    if (state === "Z" || state === "X") return undefined;
    return { id, group: Number(group), begunAt: fields[19] ?? "" };
  } catch {
    return undefined;
  }
}

function send(target: number, signal: "SIGTERM" | "SIGKILL"): void {
  try {
    process.kill(target, signal);
  } catch {
    // The process has ended.
  }
}
