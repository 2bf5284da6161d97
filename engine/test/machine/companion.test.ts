import { afterAll, describe, expect, test } from "bun:test";
import { join } from "node:path";
import { systemClock, type Clock } from "../../src/base/clock.ts";
import { Children } from "../../src/machine/children.ts";
import { Companion, type CompanionOptions } from "../../src/machine/companion.ts";
import type { Head } from "../../src/machine/frames.ts";
import { ManualClock } from "../support/clock.ts";
import { temporaryFolder } from "../support/folders.ts";
import { gone, going, isAlive, patient } from "../support/processes.ts";

const side = JSON.stringify(join(import.meta.dir, "../../src/machine/companionSide.ts"));

/** Answers with its process id and the sum of the bytes that it was given; does worse when it is told to. */
const honest = `
  import { say, serve } from ${side};
  await serve(() => async ({ head, body }, signal) => {
    if (head.do === "die") process.kill(process.pid, "SIGKILL");
    if (head.do === "exit") { console.error("Error: no more"); process.exit(7); }
    if (head.do === "throw") throw new Error("it cannot");
    if (head.do === "tell") say({ told: head.what });
    if (head.do === "garble") process.stdout.write("Segmentation fault?\\n");
    if (head.do === "flood") for (;;) say({ told: "more" });
    if (head.do === "drone") for (;;) process.stdout.write("x".repeat(65536));
    if (head.do === "environment") return { found: process.env[String(head.name)] };
    if (head.do === "hang") for (;;);
    if (head.do === "wait") await new Promise((resolve) => signal.addEventListener("abort", resolve));
    return { pid: process.pid, sum: body.reduce((sum, byte) => sum + byte, 0) };
  });
`;

const children = new Children({ PATH: "/usr/bin:/bin" });
afterAll(() => children.endAll());

interface Bench {
  companion: Companion;
  log: string[];
  told: Head[];
  /** Resolves when it has been told so many things. */
  hears(count: number): Promise<void>;
  /** Resolves when the companion has ended so many times. */
  ends(count: number): Promise<void>;
}

async function bench(script = honest, over: Partial<CompanionOptions> = {}, clock: Clock = systemClock): Promise<Bench> {
  const path = join(temporaryFolder(), "companion.ts");
  await Bun.write(path, script);
  const log: string[] = [];
  const told: Head[] = [];
  let ended = 0;
  let look = (): void => {};
  const options: CompanionOptions = {
    name: "o ajudante",
    script: path,
    startMs: patient,
    told: (message) => {
      told.push(message);
      look();
    },
    changed: (isRunning) => {
      if (!isRunning) ended++;
      look();
    },
    ...over,
  };
  const until = (isSo: () => boolean): Promise<void> =>
    new Promise((resolve) => {
      look = () => isSo() && resolve();
      look();
    });
  const companion = new Companion(children, clock, (line) => log.push(line), options);
  return { companion, log, told, hears: (count) => until(() => told.length >= count), ends: (count) => until(() => ended >= count) };
}

const ask = (companion: Companion, head: Head = {}, body?: Uint8Array, signal = going) => companion.ask(head, body, patient, signal);

/** The process that answers. */
async function processOf(companion: Companion): Promise<number> {
  const reply = await ask(companion);
  return reply.kind === "answer" ? Number(reply.answer.pid) : 0;
}

describe("a companion", () => {
  test("is started by the first question, and answers each", async () => {
    const { companion } = await bench();
    const replies = await Promise.all([1, 2, 3].map((byte) => ask(companion, {}, new Uint8Array(300_000).fill(byte))));
    expect(replies.map((reply) => reply.kind === "answer" && reply.answer.sum)).toEqual([300_000, 600_000, 900_000]);
    companion.stop();
  });

  test("has what it is to have in its environment, and the engine's besides", async () => {
    const { companion } = await bench(honest, { environment: { ALLOCATION: "small" } });
    const found = async (name: string): Promise<unknown> => {
      const reply = await ask(companion, { do: "environment", name });
      return reply.kind === "answer" ? reply.answer.found : reply;
    };
    expect([await found("ALLOCATION"), await found("PATH")]).toEqual(["small", "/usr/bin:/bin"]);
    companion.stop();
  });

  test("that cannot answer one question answers the next, by the same process", async () => {
    const { companion, log } = await bench();
    const before = await processOf(companion);
    expect(await ask(companion, { do: "throw" })).toEqual({ kind: "failed", problem: "it cannot" });
    expect(await processOf(companion)).toBe(before);
    expect(log).toEqual([]);
    companion.stop();
  });

  test("says something without being asked", async () => {
    const { companion, told, hears } = await bench();
    for (let number = 0; number < 100; number++) companion.tell({ do: "tell", what: number });
    await hears(100);
    expect(told.map((message) => message.told)).toEqual([...Array(100).keys()]);
    companion.stop();
  });

  test("drops a question that is stopped, and goes on", async () => {
    const { companion } = await bench();
    const before = await processOf(companion);
    const [first, second] = [new AbortController(), new AbortController()];
    const dropped = [ask(companion, { do: "wait" }, undefined, first.signal), ask(companion, { do: "die" }, undefined, second.signal)];
    // It does not come to the second one before the first has ended.
    second.abort();
    first.abort();
    expect(await Promise.all(dropped)).toEqual([{ kind: "stopped" }, { kind: "stopped" }]);
    expect(await ask(companion, {}, undefined, first.signal)).toEqual({ kind: "stopped" });
    expect(await processOf(companion)).toBe(before);
    companion.stop();
  });

  test("ends in order when it is stopped, and is back when it is wanted", async () => {
    const { companion, log } = await bench();
    const before = await processOf(companion);
    const open = ask(companion, { do: "wait" });
    companion.stop();
    expect(await open).toEqual({ kind: "failed", problem: "foi encerrado" });
    await gone([before]);
    expect(await processOf(companion)).not.toBe(before);
    expect(log).toEqual([]);
    companion.stop();
  });

  test("ends by itself when the engine closes its line", async () => {
    const path = join(temporaryFolder(), "companion.ts");
    await Bun.write(path, honest);
    const child = Bun.spawn([process.execPath, path], { stdin: "pipe", stdout: "ignore" });
    await child.stdin.end();
    expect(await child.exited).toBe(0);
  });

  test("ends when nothing was wanted of it for its time, but not while it works", async () => {
    const clock = new ManualClock();
    const { companion, log } = await bench(honest, { idleMs: 60_000 }, clock);
    const first = await processOf(companion);
    await clock.advance(59_000);
    expect(await processOf(companion)).toBe(first);
    await clock.advance(59_000);
    expect(isAlive(first)).toBe(true);
    const ending = new AbortController();
    const open = companion.ask({ do: "wait" }, undefined, 3_600_000, ending.signal);
    await clock.advance(600_000);
    expect(isAlive(first)).toBe(true);
    ending.abort();
    expect(await open).toEqual({ kind: "stopped" });
    await clock.advance(120_000);
    await gone([first]);
    expect(clock.pending).toBe(0);
    expect(await processOf(companion)).not.toBe(first);
    expect(log).toEqual([]);
    companion.stop();
  });
});

describe("a companion that fails", () => {
  const ways: [string, string, RegExp][] = [
    ["is killed", "die", /SIGKILL/],
    ["ends by itself", "exit", /terminou com 7: Error: no more/],
    ["prints garbage", "garble", /não se entende/],
    ["prints lines without end", "flood", /sem fim/],
    ["prints one line without end", "drone", /sem fim/],
  ];
  for (const [what, does, problem] of ways) {
    test(`because it ${what} fails what it was asked, and is back for the next question`, async () => {
      const { companion, log } = await bench();
      const before = await processOf(companion);
      const replies = await Promise.all([ask(companion, { do: does }), ask(companion)]);
      for (const reply of replies) expect(reply).toEqual({ kind: "failed", problem: expect.stringMatching(problem) });
      await gone([before]);
      const after = await processOf(companion);
      expect(after).not.toBe(0);
      expect(after).not.toBe(before);
      expect(log).toEqual([expect.stringMatching(/^o ajudante parou \(/)]);
      companion.stop();
    });
  }

  test("because it hangs is ended when the time for its answer is over", async () => {
    const clock = new ManualClock();
    const { companion, log } = await bench(honest, {}, clock);
    const before = await processOf(companion);
    const hung = companion.ask({ do: "hang" }, undefined, 2_000, going);
    await clock.advance(2_000);
    expect(await hung).toEqual({ kind: "failed", problem: "não respondeu a tempo" });
    await gone([before]);
    expect(log).toEqual(["o ajudante parou (não respondeu a tempo)"]);
    expect(await processOf(companion)).not.toBe(before);
    companion.stop();
  });

  test("because it does not read is ended when too much waits for it", async () => {
    const { companion, log, ends } = await bench(honest, { mostWaiting: 1 << 20 });
    const before = await processOf(companion);
    companion.tell({ do: "hang" });
    while (companion.tell({}, new Uint8Array(100_000)));
    await ends(1);
    await gone([before]);
    expect(log).toEqual(["o ajudante parou (não lê o que recebe)"]);
    companion.stop();
  });

  test("is none that has been given much and has read it", async () => {
    const { companion, log } = await bench(honest, { mostWaiting: 1 << 20 });
    for (let time = 0; time < 20; time++) {
      expect(await ask(companion, {}, new Uint8Array(200_000))).toMatchObject({ kind: "answer", answer: { sum: 0 } });
    }
    expect(log).toEqual([]);
    companion.stop();
  });

  test("because it never gets ready is ended", async () => {
    const clock = new ManualClock();
    const { companion, log, ends } = await bench("setInterval(() => {}, 1000)", { startMs: 5_000 }, clock);
    companion.start();
    await clock.advance(5_000);
    await ends(1);
    expect(log).toEqual(["o ajudante parou (não ficou pronto a tempo)"]);
  });

  test("three times in a minute stays down, and the log says why once", async () => {
    const clock = new ManualClock();
    const { companion, log } = await bench(honest, {}, clock);
    for (let time = 0; time < 3; time++) {
      expect(companion.isDown).toBe(false);
      await ask(companion, { do: "die" });
      await clock.advance(10_000);
    }
    expect(companion.isDown).toBe(true);
    expect(await ask(companion)).toEqual({ kind: "failed", problem: "SIGKILL" });
    expect(companion.tell({})).toBe(false);
    companion.start();
    expect(log).toEqual([
      "o ajudante parou (SIGKILL)",
      "o ajudante parou (SIGKILL)",
      "o ajudante não funciona aqui, sigo sem ele (SIGKILL)",
    ]);
    expect(clock.pending).toBe(0);
  });

  test("now and then is always back", async () => {
    const clock = new ManualClock();
    const { companion } = await bench(honest, {}, clock);
    for (let time = 0; time < 5; time++) {
      await ask(companion, { do: "die" });
      await clock.advance(31_000);
    }
    expect(companion.isDown).toBe(false);
    expect(await processOf(companion)).toBeGreaterThan(0);
    companion.stop();
  });

  test("because it cannot start tries three times", async () => {
    const { companion, log } = await bench('throw new TypeError("no model");');
    for (let time = 0; time < 3; time++) {
      expect(await ask(companion)).toEqual({ kind: "failed", problem: expect.stringContaining("no model") });
    }
    expect(companion.isDown).toBe(true);
    expect(log).toHaveLength(3);
  });

  test("because this machine lacks what it needs stays down at once", async () => {
    const { companion, log } = await bench(`import { serve } from ${side}; await serve(() => { throw new Error("no such file"); });`);
    expect(await ask(companion)).toEqual({ kind: "failed", problem: "no such file" });
    expect(companion.isDown).toBe(true);
    expect(log).toEqual(["o ajudante não funciona aqui, sigo sem ele (no such file)"]);
  });
});
