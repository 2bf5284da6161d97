import { expect, test } from "bun:test";
import { OwnVoice } from "../../src/hearing/ownVoice.ts";

test("it is known for each sample whether the agent's own voice sounds in it, however late that is asked", () => {
  const it = new OwnVoice();
  it.set(true, 100);
  it.set(true, 150);
  it.set(false, 200);
  it.set(true, 300);
  const heard = (): boolean[] => [100, 101, 200, 201, 300, 301].map((at) => it.isAt(at));
  expect(heard()).toEqual([false, true, true, false, false, true]);
  it.forget(100);
  expect(heard()).toEqual([false, true, true, false, false, true]);
  it.forget(201);
  expect([it.isAt(201), it.isAt(300), it.isAt(301), it.isNow]).toEqual([false, false, true, true]);
});

test("it stays true of now when nothing was ever forgotten", () => {
  const it = new OwnVoice();
  for (let count = 0; count < 1_001; count++) it.set(count % 2 === 0, count);
  expect([it.isNow, it.isAt(1_001), it.isAt(1_000)]).toEqual([true, true, false]);
});
