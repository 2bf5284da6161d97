// A companion's own end of its line to the engine: a script that runs as a companion calls `serve`.

import { FrameReader, type Frame, type Head } from "./frames.ts";

/** Works on one frame and gives its answer; undefined for a frame that needs none. May throw: that question has failed. */
export type Work = (frame: Frame, signal: AbortSignal) => Promise<Head | undefined> | Head | undefined;

/** Writes one line to the engine. */
export function say(message: Head): void {
  process.stdout.write(`${JSON.stringify(message)}\n`);
}

/**
 * Makes ready by `load`, which gives the work, and then does it frame by frame in their order, until the engine closes the
 * line. A `load` that throws says that this cannot run here at all.
 */
export async function serve(load: () => Promise<Work> | Work): Promise<void> {
  let work: Work;
  try {
    work = await load();
  } catch (error) {
    say({ unable: messageOf(error) });
    return;
  }
  say({ ready: true });
  const reader = new FrameReader();
  const aborts = new Map<number, AbortController>();
  let queue: Promise<void> = Promise.resolve();
  for await (const piece of Bun.stdin.stream()) {
    for (const frame of reader.take(piece)) {
      const { id, abort } = frame.head;
      if (typeof abort === "number") {
        aborts.get(abort)?.abort();
        continue;
      }
      const ending = new AbortController();
      if (typeof id === "number") aborts.set(id, ending);
      queue = queue.then(() => answer(work, frame, ending.signal)).finally(() => {
        if (typeof id === "number") aborts.delete(id);
      });
    }
  }
  // Nobody is left to answer.
  process.exit(0);
}

async function answer(work: Work, frame: Frame, signal: AbortSignal): Promise<void> {
  const { id } = frame.head;
  if (signal.aborted) return;
  try {
    const found = await work(frame, signal);
    if (found !== undefined && typeof id === "number" && !signal.aborted) say({ ...found, id });
  } catch (error) {
    if (typeof id !== "number") throw error;
    if (!signal.aborted) say({ problem: messageOf(error), id });
  }
}

function messageOf(error: unknown): string {
  return (error instanceof Error ? error.message : String(error)).split("\n")[0] ?? "";
}
