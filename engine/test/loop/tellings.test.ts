import { expect, test } from "bun:test";
import { Tellings } from "../../src/loop/tellings.ts";
import { ManualClock } from "../support/clock.ts";

function tellings() {
  const clock = new ManualClock();
  const around = { isQuiet: true, isMuted: false };
  const heard: string[] = [];
  const it = new Tellings({
    clock,
    isQuiet: () => around.isQuiet,
    isMuted: () => around.isMuted,
    chime: () => void heard.push("chime"),
    say: (sentences) => void heard.push(sentences),
  });
  return { it, clock, around, heard };
}

test("what is told begins with a chime", async () => {
  const { it, clock, heard } = tellings();
  it.add("Tea.");
  expect(heard).toEqual(["chime"]);
  await clock.advance(400);
  expect(heard).toEqual(["chime", "Tea."]);
});

test("what is told waits for whoever speaks, and comes in one", async () => {
  const { it, clock, around, heard } = tellings();
  around.isQuiet = false;
  it.add("Tea.");
  it.add("Cake.");
  it.add("Tea.");
  await clock.advance(60_000);
  expect(heard).toEqual([]);
  around.isQuiet = true;
  await clock.advance(1_000);
  expect(heard).toEqual(["chime", "Cake. Tea."]);
  expect(clock.pending).toBe(0);
});

test("a turn that begins during the chime goes first", async () => {
  const { it, clock, around, heard } = tellings();
  it.add("Tea.");
  around.isQuiet = false;
  await clock.advance(5_000);
  expect(heard).toEqual(["chime"]);
  around.isQuiet = true;
  await clock.advance(1_000);
  expect(heard).toEqual(["chime", "Tea."]);
});

test("who is muted, or wants silence, is told nothing", async () => {
  const { it, clock, around, heard } = tellings();
  around.isQuiet = false;
  it.add("Tea.");
  it.clear();
  around.isQuiet = true;
  await clock.advance(1_000);
  around.isMuted = true;
  it.add("Cake.");
  await clock.advance(1_000);
  expect(heard).toEqual([]);
});
