import { describe, expect, test } from "bun:test";
import { existsSync, readFileSync, symlinkSync } from "node:fs";
import { homedir } from "node:os";
import { join } from "node:path";
import { systemClock } from "../src/base/clock.ts";
import { chooseLocale } from "../src/base/language.ts";
import { phrases } from "../src/base/phrases.ts";
import { Children } from "../src/machine/children.ts";
import { Choices } from "../src/machine/choices.ts";
import { defaultSettings } from "../src/memory/settings.ts";
import { EngineBrain, type Request } from "../src/thought/brain.ts";
import { Claude } from "../src/thought/claude.ts";
import { LineReader, readClaudeLine } from "../src/thought/claudeOutput.ts";
import { program, temporaryFolder } from "./support.ts";

const locale = chooseLocale({ PALOMET_LANGUAGES: "en-US" });
const going = new AbortController().signal;
const init = '{"type":"system","subtype":"init","session_id":"s1","model":"m"}';
const result = '{"type":"result","subtype":"success","is_error":false,"result":"Done.","total_cost_usd":0.02,"session_id":"s1"}';
const text = (words: string): string => `{"type":"assistant","message":{"content":[{"type":"text","text":"${words}"}]}}`;

/** A `claude` that notes how it was called, then does this. */
function tool(script: string): string {
  const folder = program("claude", `[ "$1" = --version ] && echo 2.1.0 && exit\nprintf '%s\\n' "$@" > ${"$0"}.args; pwd > $0.cwd; cat > $0.input; ${script}`);
  return join(folder, "claude");
}

function print(...lines: string[]): string {
  return lines.map((line) => `printf '%s\\n' '${line}'`).join("; ");
}

async function brainOf(path: string, stallMs = 5_000): Promise<{ brain: EngineBrain; log: string[] }> {
  const children = new Children({ ...process.env, PATH: `${path === "" ? "" : join(path, "..")}:/usr/bin:/bin` });
  const log: string[] = [];
  const claude = new Claude(children, systemClock, phrases.en, stallMs);
  const brain = new EngineBrain(systemClock, locale, claude, new Choices(children, locale), (line) => log.push(line));
  await brain.prepare();
  return { brain, log };
}

const workingFolder = temporaryFolder();

function request(words: string, over: Partial<Request> = {}): Request {
  const surroundings = { locale, workingFolder, recogniserModels: [], actionIds: ["commands", "files", "web"] };
  return { text: words, settings: defaultSettings(surroundings), session: undefined, lastAnswer: undefined, ...over };
}

async function ask(brain: EngineBrain, what: Request, signal = going) {
  const pieces: string[] = [];
  const tools: string[] = [];
  const answer = await brain.answer(what, { text: (piece) => pieces.push(piece), tool: (row) => tools.push(row) }, signal);
  return { text: pieces.join(""), tools, ...answer };
}

const args = (path: string): string[] => readFileSync(`${path}.args`, "utf8").trim().split("\n");

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

describe("its output", () => {
  test("is read whatever it holds", () => {
    for (const line of ["", "x", "[]", "null", '{"type":7}', '{"type":"assistant"}', '{"type":"assistant","message":{"content":[7,{"type":"text"}]}}', '{"type":"other"}']) {
      expect([line, readClaudeLine(line)]).toEqual([line, []]);
    }
    expect(readClaudeLine('{"type":"result","total_cost_usd":"x","permission_denials":[7]}')).toEqual([
      { kind: "result", text: "", isError: false, costUsd: 0, session: undefined, denied: [] },
    ]);
  });

  test("is cut into lines wherever the pieces end, letting go of endless ones", () => {
    const lines: string[] = [];
    const reader = new LineReader((line) => lines.push(line));
    const bytes = new TextEncoder().encode("olá\nção\n");
    for (const byte of bytes) reader.take(Uint8Array.of(byte));
    for (let piece = 0; piece < 10; piece++) reader.take(new Uint8Array(1 << 20).fill(120));
    reader.take(new TextEncoder().encode("\nlast"));
    reader.end();
    expect(lines).toEqual(["olá", "ção", "last"]);
  });
});
