// Hands as the engine has them.

import { describe, expect, test } from "bun:test";
import { mkdirSync, readFileSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import type { Hand } from "../../src/hands/hand.ts";
import type { EngineBrain } from "../../src/thought/brain.ts";
import { brainWith } from "../support/brains.ts";
import { bench, connect, hear, speak, type Bench } from "../support/bench.ts";
import { ManualClock, settle } from "../support/clock.ts";
import { program, temporaryFolder } from "../support/folders.ts";

let allHands: readonly Hand[] = [];

/** An engine without a language model. */
function engine(folder = temporaryFolder(), clock = new ManualClock(), path = ""): Bench {
  const brain = (hands: readonly Hand[]): EngineBrain => {
    allHands = hands;
    return brainWith({ clock, hands }).brain;
  };
  return bench(folder, clock, path, { brain });
}

/** The answer, when it is whole: hands may run programs, which the clock of the tests does not move. */
async function say({ engine }: Bench, text: string): Promise<string> {
  engine.loop.say(text);
  for (;;) {
    const last = engine.state.conversation.rows.at(-1);
    if (last?.role === "assistant" && !last.isOpen) return last.text;
    await Bun.sleep(1);
  }
}

describe("every hand", () => {
  test("has an id that a model can call, and a row among what asks first unless the tool's rows hold for it", async () => {
    const it = engine();
    const rows = (await it.engine.options()).confirmActions;
    expect(new Set(allHands.map(({ id }) => id)).size).toBe(allHands.length);
    for (const { id, description, parameters, changes } of allHands) {
      expect(id).toMatch(/^[A-Za-z][A-Za-z0-9_-]{0,63}$/);
      expect(description).not.toBe("");
      expect(parameters.type).toBe("object");
      expect(rows.map((row) => row.id)).toContain(id);
      if (changes) expect(it.engine.state.settings.confirmActions).toContain(id);
      else expect(it.engine.state.settings.confirmActions).not.toContain(id);
    }
  });

  test("answers anything that it is given with words", async () => {
    engine();
    for (const hand of allHands) {
      for (const given of [undefined, null, 0, "x", [], { do: 5 }, { text: {} }]) {
        const intent = hand.intent(given, "en");
        expect(intent === undefined || typeof intent === "string").toBe(true);
        if (intent === undefined) expect(await hand.act(given, "pt", new AbortController().signal)).not.toBe("");
      }
    }
  });
});

test("a timer is set, asked after, kept over a restart, and rings", async () => {
  const [folder, clock] = [temporaryFolder(), new ManualClock()];
  const first = engine(folder, clock);
  expect(await say(first, "Set a pasta timer for ten minutes")).toBe("The pasta timer rings in 10 minutes.");
  await clock.advance(120_000);
  expect(await say(first, "How long is left?")).toBe("The pasta timer rings in 8 minutes.");
  first.engine.quiet();
  first.engine.close();
  const second = engine(folder, clock);
  const socket = connect(second);
  expect(await say(second, "How long is left on the pasta timer?")).toBe("The pasta timer rings in 8 minutes.");
  await clock.advance(481_000);
  expect(socket.types).toContain("chime");
  expect(second.synthesiser.spoken.at(-1)).toBe("The pasta timer is done.");
});

test("what rings is silenced by stop, with no name, and is snoozed by a sentence", async () => {
  const it = engine();
  const socket = connect(it);
  const told = (): number => it.synthesiser.spoken.filter((sentence) => sentence === "It is 3:21 PM.").length;
  await say(it, "Set an alarm for 3:21 pm");
  await it.clock.advance(61_000);
  expect(told()).toBe(1);
  await it.clock.advance(20_000);
  expect(told()).toBe(2);
  expect(await say(it, "snooze")).toBe("It rings again in 5 minutes.");
  await it.clock.advance(299_000);
  expect(told()).toBe(2);
  await it.clock.advance(2_000);
  expect(it.synthesiser.spoken.at(-1)).toBe("It is 3:26 PM.");
  const chimes = socket.types.filter((type) => type === "chime").length;
  it.engine.loop.stop();
  await it.clock.advance(120_000);
  expect(socket.types.filter((type) => type === "chime")).toHaveLength(chimes);
});

test("while it is muted a timer makes no sound", async () => {
  const it = engine();
  const socket = connect(it);
  await say(it, "Set a timer for one minute");
  const before = it.synthesiser.spoken.length;
  it.engine.loop.toggleMute();
  await it.clock.advance(120_000);
  expect(socket.types).not.toContain("chime");
  expect(it.synthesiser.spoken).toHaveLength(before);
});

test("a timer that is due while somebody speaks waits", async () => {
  const it = engine();
  const socket = connect(it);
  await hear(it, socket, 500);
  await say(it, "Set a timer for one second");
  await hear(it, socket, 3_000, -22);
  expect(it.engine.state.state).toBe("hearing");
  expect(socket.types).not.toContain("chime");
  await hear(it, socket, 3_000);
  expect(socket.types).toContain("chime");
});

test("a note is asked about first, refused, and then taken", async () => {
  const it = engine();
  expect(await say(it, "Note that the car is due on Friday")).toBe("May I? Note: the car is due on Friday.");
  expect(await say(it, "no")).toBe("All right, I will not.");
  await say(it, "Note that the car is due on Friday");
  expect(await say(it, "yes")).toBe("Noted.");
  expect(readFileSync(join(it.folder, "Documents/Palomet/Notes.md"), "utf8")).toContain("the car is due on Friday\n");
  await it.engine.set({ confirmActions: [] });
  expect(await say(it, "Add milk to the shopping list")).toBe("Added to the list “shopping”: milk.");
  expect(await say(it, "What is on the shopping list?")).toBe("On the list “shopping”: milk.");
});

test("what is said aloud is done like what is typed", async () => {
  const it = engine();
  const socket = connect(it);
  await hear(it, socket, 500);
  await speak(it, socket, "Palomet, what is five times three?");
  for (let turn = 0; turn < 500 && it.engine.state.conversation.rows.length < 2; turn++) await Bun.sleep(1);
  expect(it.engine.state.conversation.rows.map(({ text }) => text)).toEqual(["What is five times three?", "That is 15."]);
});

test("the volume of the voice is kept over a restart", async () => {
  const folder = temporaryFolder();
  const first = engine(folder);
  expect(await say(first, "set your voice to 30 percent")).toBe("My voice is at 30%.");
  first.engine.close();
  expect(await say(engine(folder), "turn your voice up by 20 percent")).toBe("My voice is at 50%.");
});

test("a conversation is forgotten at a yes", async () => {
  const it = engine();
  await say(it, "hello");
  expect(it.engine.history).toHaveLength(1);
  expect(await say(it, "forget this conversation")).toBe("May I? Forget this conversation for good.");
  await say(it, "yes");
  await settle();
  expect(it.engine.history).toEqual([]);
  expect(it.engine.state.memory).toEqual({ isResumed: false, journalDays: 0 });
});

test("the documents folder of the user is the one for notes", async () => {
  const folder = temporaryFolder();
  mkdirSync(join(folder, ".config"));
  writeFileSync(join(folder, ".config/user-dirs.dirs"), 'XDG_DOCUMENTS_DIR="$HOME/Papers"\n');
  const it = engine(folder, new ManualClock(), program("nothing", ""));
  await it.engine.set({ confirmActions: [] });
  await say(it, "Note that it rains");
  expect(readFileSync(join(folder, "Papers/Palomet/Notes.md"), "utf8")).toContain("it rains");
});
