// Answers by the `claude` command-line tool. Each request is one run, which continues the conversation's session.

import { homedir } from "node:os";
import type { Clock } from "../base/clock.ts";
import type { Phrases } from "../base/phrases.ts";
import { cut } from "../base/text.ts";
import type { Children } from "../machine/children.ts";
import { actions } from "../machine/choices.ts";
import { presentFolders } from "../machine/folders.ts";
import { LineReader } from "../machine/lineReader.ts";
import type { Answer, Answering, Request } from "./answer.ts";
import { Asking } from "./asking.ts";
import { readClaudeLine, type ClaudeEvent, type DeniedTool } from "./claudeOutput.ts";
import { leaveFor, type Leave } from "./consent.ts";

export type ClaudeAnswer = Answer & { problem?: string };

const longestRunMs = 15 * 60_000;
const maxOutput = 256 << 20;
const consent = "Yes, you may.";
/** No more things than this are asked for at once. */
const mostAsked = 5;

export class Claude {
  /** The rules that the last answer asked leave for, and its session. */
  readonly #asking: Asking<{ session: string; rules: string[] }>;

  constructor(
    private readonly children: Children,
    private readonly clock: Clock,
    private readonly phrases: Phrases,
    /** A run that prints nothing for so long has hung. */
    private readonly stallMs = 120_000,
  ) {
    this.#asking = new Asking(clock, phrases);
  }

  /** The answer's `problem` says what went wrong. The text that came before it was handed on. */
  async answer(path: string, request: Request, answering: Answering, signal: AbortSignal): Promise<ClaudeAnswer> {
    const reply = this.#asking.reply(request);
    if (reply === undefined || reply.what.session !== request.session) return await this.#run(path, request, [], answering, signal);
    if (reply.isYes) return await this.#run(path, { ...request, text: consent }, reply.what.rules, answering, signal);
    answering.text(this.phrases.allRight);
    return { costUsd: 0 };
  }

  refuse(): void {
    this.#asking.refuse();
  }

  async #run(
    path: string,
    request: Request,
    allowed: string[],
    answering: Answering,
    signal: AbortSignal,
  ): Promise<ClaudeAnswer> {
    let session = request.session;
    let result: Extract<ClaudeEvent, { kind: "result" }> | undefined;
    let hasText = false;
    const lines = new LineReader((line) => {
      for (const event of readClaudeLine(line)) {
        if (event.kind === "session") session = event.session;
        if (event.kind === "tool") answering.tool(event.detail === "" ? event.name : `${event.name}: ${event.detail}`);
        if (event.kind === "result") result = event;
        if (event.kind !== "text" || event.text.trim() === "") continue;
        answering.text(`${hasText ? "\n" : ""}${event.text}`);
        hasText = true;
      }
    });
    const { folders, workingFolder } = request.settings;
    const present = await presentFolders(this.children, [workingFolder, ...folders]);
    const ending = new AbortController();
    const stop = (): void => ending.abort();
    if (signal.aborted) stop();
    signal.addEventListener("abort", stop);
    let cancelStall = this.clock.after(this.stallMs, stop);
    const outcome = await this.children.run([path, ...commandLine(request, present, allowed, this.phrases)], {
      input: request.text,
      timeoutMs: longestRunMs,
      maxOutput,
      signal: ending.signal,
      cwd: present.includes(workingFolder) ? workingFolder : homedir(),
      onOutput: (piece) => {
        cancelStall();
        cancelStall = this.clock.after(this.stallMs, stop);
        lines.take(piece);
      },
    });
    lines.end();
    cancelStall();
    signal.removeEventListener("abort", stop);

    if (!hasText && result && !result.isError && result.text.trim() !== "") answering.text(result.text);
    const answer: ClaudeAnswer = { costUsd: result?.costUsd ?? 0 };
    const last = result?.session ?? session;
    if (last !== undefined) answer.session = last;
    if (result?.denied.length && last !== undefined && !signal.aborted) {
      const heard = this.#ask(result.denied, last, answering, signal);
      return heard ? { ...answer, heard } : answer;
    }
    if (result && !result.isError) return answer;
    if (outcome.kind === "stopped") return { ...answer, problem: "não respondeu a tempo" };
    if (outcome.kind !== "ended") return { ...answer, problem: outcome.kind };
    const complaint = cut((result?.text || outcome.errors).trim().split("\n")[0] ?? "", 200);
    return { ...answer, problem: `terminou com ${outcome.code}${complaint === "" ? "" : `: ${complaint}`}` };
  }

  /** Asks for the things that a yes can allow, and names those that it cannot. */
  #ask(denied: DeniedTool[], session: string, answering: Answering, signal: AbortSignal): (() => void) | undefined {
    const asked = new Map<string, Leave>();
    const refused = new Set<string>();
    for (const tool of denied) {
      const leave = leaveFor(tool, this.phrases);
      if (leave === undefined) refused.add(tool.detail || tool.name);
      else if (asked.size < mostAsked) asked.set(leave.rule, leave);
    }
    if (refused.size > 0) answering.text(`\n${this.phrases.mayNot([...refused].slice(0, mostAsked).join("; "))}`);
    if (asked.size === 0) return undefined;
    const ask = (words: (leave: Leave) => string): string => this.phrases.mayI([...asked.values()].map(words).join("; "));
    answering.text(`\n${ask(({ written }) => written)}`, ask(({ spoken }) => spoken));
    return this.#asking.ask({ session, rules: [...asked.keys()] }, signal);
  }
}

/** The settings tell what the tool may do. The rules in `allowed` hold for this one run. */
function commandLine(request: Request, present: string[], allowed: string[], phrases: Phrases): string[] {
  const { brainModel, confirmActions, folders, voiceName } = request.settings;
  const free = actions.filter(({ id }) => !confirmActions.includes(id)).flatMap(({ tools }) => [...tools]);
  const tools = [...new Set([...free, ...allowed])];
  return [
    "--print",
    "--output-format",
    "stream-json",
    "--verbose",
    "--model",
    brainModel,
    "--append-system-prompt",
    `${phrases.instructions(voiceName)} ${phrases.handsBeside}`,
    ...(request.session === undefined ? [] : ["--resume", request.session]),
    ...(tools.length === 0 ? [] : ["--allowedTools", tools.join(",")]),
    ...folders.filter((folder) => present.includes(folder)).flatMap((folder) => ["--add-dir", folder]),
  ];
}
