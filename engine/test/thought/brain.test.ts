import { describe, expect, test } from "bun:test";
import { existsSync } from "node:fs";
import { ask, brainOf, init, print, request, result, text, tool } from "../support/claudeTool.ts";

describe("a claude tool", () => {
  const failures: [string, string][] = [
    ["fails", "exit 3"],
    ["crashes", "kill -SEGV $$"],
    ["says that it failed", print('{"type":"result","subtype":"error_during_execution","is_error":true,"session_id":"s1"}')],
    ["prints nonsense", "head -c 3000000 /dev/zero; exit 1"],
    ["hangs", "exec sleep 60"],
  ];
  for (const [does, script] of failures) {
    test(`that ${does} leaves the built-in answers, and the engine says so`, async () => {
      const { brain, log } = await brainOf(tool(script), 200);
      expect((await ask(brain, request("thank you"))).text).toBe("You are welcome.");
      expect((await ask(brain, request("Explain this"))).text).toBe("The language model did not answer.");
      expect(log[0]).toContain("o claude falhou");
    });
  }

  test("that is missing leaves the built-in answers", async () => {
    const { brain } = await brainOf("");
    expect((await ask(brain, request("Explain this"))).text).toBe("You said: Explain this.");
    expect(brain.session(request("").settings)).toMatchObject({ model: "built-in", claudePath: "", isReady: true });
  });

  test("is not asked when the built-in answers are chosen", async () => {
    const path = tool(print(init, result));
    const { brain } = await brainOf(path);
    const what = request("thanks");
    expect((await ask(brain, { ...what, settings: { ...what.settings, brainModel: "built-in" } })).text).toBe("You are welcome.");
    expect(existsSync(`${path}.args`)).toBe(false);
  });

  test("that is stopped is ended, and says no more", async () => {
    const { brain } = await brainOf(tool(`${print(init, text("One."))}; sleep 60`));
    const ending = new AbortController();
    const pieces: string[] = [];
    const answering = {
      text(piece: string): void {
        pieces.push(piece);
        ending.abort();
      },
      tool(): void {},
    };
    await brain.answer(request("x"), answering, ending.signal);
    expect(pieces).toEqual(["One."]);
  });
});
