import { describe, expect, test } from "bun:test";
import { existsSync, readFileSync, symlinkSync } from "node:fs";
import { homedir } from "node:os";
import { join } from "node:path";
import type { EngineBrain } from "../../src/thought/brain.ts";
import { args, ask, brainOf, init, print, request, result, text, tool, workingFolder } from "../support/claudeTool.ts";
import { temporaryFolder } from "../support/folders.ts";
import { going } from "../support/processes.ts";

describe("a request to the claude tool", () => {
  test("gives its words, its tools, its cost and its session", async () => {
    const use = '{"type":"assistant","message":{"content":[{"type":"tool_use","name":"Bash","input":{"command":"gh run list"}}]}}';
    const path = tool(print(init, use, text("All passed."), result));
    const { brain } = await brainOf(path);
    expect(await ask(brain, request("How is it going?"))).toEqual({
      text: "All passed.",
      tools: ["Bash: gh run list"],
      costUsd: 0.02,
      session: "s1",
    });
    expect(readFileSync(`${path}.input`, "utf8")).toBe("How is it going?");
    expect(readFileSync(`${path}.cwd`, "utf8").trim()).toBe(workingFolder);
    expect(brain.session(request("").settings)).toEqual({ model: "haiku", claudePath: path, claudeVersion: "2.1.0", isReady: true });
  });

  test("takes the result where no words came before", async () => {
    const { brain } = await brainOf(tool(print(init, result)));
    expect((await ask(brain, request("x"))).text).toBe("Done.");
  });

  test("continues the session, with what the settings allow", async () => {
    const path = tool(print(init, result));
    const { brain } = await brainOf(path);
    const other = temporaryFolder();
    const what = request("x", { session: "s0" });
    await ask(brain, { ...what, settings: { ...what.settings, folders: [other, "/none/such"], confirmActions: ["web"] } });
    const given = args(path);
    const after = (name: string): string | undefined => given[given.indexOf(name) + 1];
    expect(after("--resume")).toBe("s0");
    expect(after("--allowedTools")).toBe("Bash,Edit,Write,NotebookEdit");
    expect(given.filter((word) => word === "--add-dir")).toHaveLength(1);
    expect(after("--add-dir")).toBe(other);
    expect(after("--model")).toBe("haiku");
  });

  test("goes without the folders that cannot be looked at, and works at home where it has no other place", async () => {
    const path = tool(print(init, result));
    const { brain } = await brainOf(path);
    const loop = join(temporaryFolder(), "loop");
    symlinkSync("loop", loop);
    const what = request("x");
    expect((await ask(brain, { ...what, settings: { ...what.settings, folders: [loop], workingFolder: loop } })).text).toBe("Done.");
    expect(args(path)).not.toContain("--add-dir");
    expect(readFileSync(`${path}.cwd`, "utf8").trim()).toBe(homedir());
  });

  test("goes to no program that is not among the claude tools found", async () => {
    const path = tool(print(init, result));
    const other = tool(print(init, result));
    const { brain } = await brainOf(path);
    const what = request("x");
    await ask(brain, { ...what, settings: { ...what.settings, claudePath: other } });
    expect(existsSync(`${other}.args`)).toBe(false);
    expect(existsSync(`${path}.args`)).toBe(true);
  });

  test("allows nothing that is to be confirmed", async () => {
    const path = tool(print(init, result));
    await ask((await brainOf(path)).brain, request("x"));
    expect(args(path)).not.toContain("--allowedTools");
  });

  test("begins anew when the tool has forgotten the session", async () => {
    const path = tool(`case "$*" in *--resume*) echo "No conversation found" >&2; exit 1;; esac; ${print(init, result)}`);
    const { brain, log } = await brainOf(path);
    expect(await ask(brain, request("x", { session: "old" }))).toMatchObject({ text: "Done.", session: "s1" });
    expect(log).toEqual([]);
  });
});

describe("a confirmation", () => {
  const denied = result.replace('"session_id"', '"permission_denials":[{"tool_name":"Bash","tool_input":{"command":"rm x"}}],"session_id"');

  test("is asked for aloud, and given for that one command", async () => {
    const path = tool(`case "$*" in *allowedTools*) ${print(init, text("It is gone."), result)};; *) ${print(init, denied)};; esac`);
    const { brain } = await brainOf(path);
    expect((await ask(brain, request("Remove x"))).text).toBe("Done.\nMay I? rm x");
    expect((await ask(brain, request("Yes.", { session: "s1" }))).text).toBe("It is gone.");
    expect(args(path)).toContain("Bash(rm x)");
    expect(readFileSync(`${path}.input`, "utf8")).toBe("Yes, you may.");
  });

  const deniedWith = (...commands: string[]): string => {
    const denials = commands.map((command) => ({ tool_name: "Bash", tool_input: { command } }));
    return JSON.stringify({ ...JSON.parse(result), permission_denials: denials });
  };

  test("is not asked for where it would allow more than was asked, and a yes allows nothing", async () => {
    for (const command of ["grep foo, bar.txt", "echo $(id)", "rm *", `echo ${"a".repeat(300)}`]) {
      const path = tool(print(init, deniedWith(command)));
      const { brain } = await brainOf(path);
      expect((await ask(brain, request("Do it"))).text).toContain("a yes cannot allow just this: ");
      await ask(brain, request("Yes", { session: "s1" }));
      expect([command, args(path).includes("--allowedTools")]).toEqual([command, false]);
      expect(readFileSync(`${path}.input`, "utf8")).toBe("Yes");
    }
  });

  test("of several is asked for those that can be allowed, line breaks and all", async () => {
    const path = tool(print(init, deniedWith("rm a", "rm *", "rm a", "echo a\nrm b")));
    const { brain } = await brainOf(path);
    const spoken: (string | undefined)[] = [];
    const answering = { text: (_: string, words?: string) => void spoken.push(words), tool: () => {} };
    await brain.answer(request("Do it"), answering, going);
    expect(spoken.at(-1)).toBe("May I? rm a; echo a, new line, rm b");
    await ask(brain, request("yes", { session: "s1" }));
    expect(readFileSync(`${path}.args`, "utf8")).toContain("--allowedTools\nBash(rm a),Bash(echo a\nrm b)\n");
  });

  test("that is not given within ten seconds, or was cut short by stop, allows nothing", async () => {
    for (const miss of [(brain: EngineBrain) => brain.refuse(), (_: EngineBrain, answer: { heard?: () => void }) => answer.heard?.()]) {
      const path = tool(print(init, denied));
      const { brain } = await brainOf(path);
      miss(brain, await ask(brain, request("Remove x")));
      await ask(brain, request("yes", { session: "s1", askedAt: Date.now() + 11_000 }));
      expect(args(path)).not.toContain("--allowedTools");
    }
  });

  test("is not asked for by an answer that was stopped", async () => {
    const path = tool(`printf '%s\\n' '${init}' '${text("Let me see.")}' '${denied}'`);
    const { brain } = await brainOf(path);
    const ending = new AbortController();
    const pieces: string[] = [];
    const answering = { text: (piece: string) => (pieces.push(piece), ending.abort()), tool: () => {} };
    await brain.answer(request("Remove x"), answering, ending.signal);
    expect(pieces).toEqual(["Let me see."]);
    await ask(brain, request("yes", { session: "s1" }));
    expect(args(path)).not.toContain("--allowedTools");
  });

  test("is refused without another run", async () => {
    const path = tool(print(init, denied));
    const { brain } = await brainOf(path);
    await ask(brain, request("Remove x"));
    expect(await ask(brain, request("no", { session: "s1" }))).toMatchObject({ text: "All right, I will not.", costUsd: 0 });
    expect(readFileSync(`${path}.input`, "utf8")).toBe("Remove x");
  });

  test("lapses when something else is asked", async () => {
    const path = tool(print(init, denied));
    const { brain } = await brainOf(path);
    await ask(brain, request("Remove x"));
    await ask(brain, request("What time is it?", { session: "s1" }));
    expect(args(path)).not.toContain("--allowedTools");
  });
});
