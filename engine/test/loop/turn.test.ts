import { expect, test } from "bun:test";
import { bench } from "../support/bench.ts";

test("a question after an answer of the greatest length is written and spoken whole", async () => {
  const it = bench();
  it.brain.answer = async (_request, answering) => {
    answering.text(`${"a".repeat(30_000)}`);
    answering.text("\nMay I? rm -rf x", "May I? rm dash rf x");
    return { costUsd: 0 };
  };
  it.engine.loop.say("x");
  await it.clock.advance(3_600_000);
  expect(it.engine.state.conversation.rows.at(-1)?.text).toEndWith("aa\nMay I? rm -rf x");
  expect(it.events).toContainEqual(["spoken", '"May I? rm dash rf x"']);
  it.engine.close();
});
