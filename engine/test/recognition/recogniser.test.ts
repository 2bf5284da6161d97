import { expect, test } from "bun:test";
import { FirstOf, type Recogniser } from "../../src/recognition/recogniser.ts";
import { FakeRecogniser } from "../support/fakes.ts";
import { going } from "../support/processes.ts";
import { tone } from "../support/sounds.ts";

test("the second recogniser is asked when the first one fails", async () => {
  const [first, second] = [new FakeRecogniser(), new FakeRecogniser()];
  first.answers = [{ kind: "failed", problem: "x" }, { kind: "failed", problem: "x" }];
  second.will("hello");
  const both: Recogniser = new FirstOf(() => [first, second]);
  expect(await both.recognise(tone(100, -20), going)).toMatchObject({ text: "hello" });
  expect(await both.recognise(tone(100, -20), going)).toEqual({ kind: "failed", problem: "x" });
});
