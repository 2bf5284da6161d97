// Looks for what is installed on this machine, and offers it as the choices of the settings screens.

import { readdirSync } from "node:fs";
import { homedir } from "node:os";
import { join } from "node:path";
import { isRecord, parseJson } from "../base/json.ts";
import type { Locale } from "../base/language.ts";
import { builtInModel, fetchedModels, grammarModel, moonshineBase, moonshineTiny } from "../base/models.ts";
import type { Options } from "../base/protocol.ts";
import { bestFirst, speechPrograms, type Voice } from "../base/voices.ts";
import type { Children } from "./children.ts";
import type { ModelServers } from "./modelServers.ts";
import { shared } from "./shared.ts";
import { shipped, type Shipped } from "./shipped.ts";
import { installedVoices } from "./voices.ts";

const lookMs = 3_000;
const maxListing = 1 << 20;

/** Actions of `claude` that can be made to need a confirmation. Each stands for some of its tools. */
export const actions = [
  { id: "commands", tools: ["Bash"], label: { pt: "Executar comandos", en: "Run commands" } },
  { id: "files", tools: ["Edit", "Write", "NotebookEdit"], label: { pt: "Alterar arquivos", en: "Change files" } },
  { id: "web", tools: ["WebFetch", "WebSearch"], label: { pt: "Consultar a internet", en: "Look things up on the web" } },
] as const;

export class Choices {
  /** The paths of the `claude` tools that were found so far, the first on `PATH` first, with their versions. */
  knownTools: ReadonlyMap<string, string> = new Map();

  constructor(
    readonly children: Children,
    private readonly locale: Locale,
    private readonly brought: Readonly<Shipped> = shipped,
    private readonly servers?: ModelServers,
  ) {}

  async options(currentDevice: string): Promise<Options> {
    const [sources, claudePaths] = await Promise.all([this.sources(), this.claudeTools(), this.servers?.look()]);
    const voices = this.voices();
    const inputs = [...new Set(sources.map(({ name }) => name))];
    if (currentDevice !== "" && !inputs.includes(currentDevice)) inputs.unshift(currentDevice);
    return {
      inputs,
      models: [...(claudePaths.length > 0 ? ["haiku", "sonnet", "opus"] : []), ...(this.servers?.names ?? []), builtInModel],
      whisperModels: this.recogniserModels(),
      fishModels: speechPrograms.filter((name) => voices.some(({ program }) => program === name)),
      macVoices: voices.map(({ title }) => title),
      claudePaths,
      confirmActions: actions.map(({ id, label }) => ({ id, label: label[this.locale.language] })),
    };
  }

  /** The recogniser models that can be used now, the best first. */
  recogniserModels(): string[] {
    const { runtime, vocabulary, base, tiny } = this.brought;
    const isEnglishKnown = this.locale.language === "en" && runtime !== undefined && vocabulary !== undefined;
    const models = this.whisperFiles().map(({ name }) => name);
    if (isEnglishKnown && tiny) models.unshift(moonshineTiny);
    if (isEnglishKnown && base) models.unshift(moonshineBase);
    if (this.children.find("pocketsphinx_batch")) models.push(grammarModel);
    return models;
  }

  /** The voices that can speak now, the best first. */
  voices(): Voice[] {
    return bestFirst(installedVoices(this.children), this.locale);
  }

  /** The model files of Whisper, larger ones first; none when nothing is there to run them. */
  whisperFiles(): { name: string; path: string }[] {
    if (!this.brought.whisper && !this.children.find("whisper-cli")) return [];
    const home = this.children.environment.HOME ?? homedir();
    const data = this.children.environment.XDG_DATA_HOME ?? join(home, ".local/share");
    const folders = [
      this.children.environment.PALOMET_WHISPER_MODELS,
      fetchedModels(this.children.environment),
      join(data, "whisper"),
      join(data, "whisper.cpp/models"),
      join(home, "whisper.cpp/models"),
      "/usr/local/share/whisper.cpp/models",
      "/usr/share/whisper.cpp/models",
    ];
    const found = new Map<string, string>();
    for (const folder of folders) {
      if (!folder) continue;
      for (const file of entries(folder)) {
        const name = /^ggml-([\w.-]+)\.bin$/.exec(file)?.[1];
        // A model of English alone hears English words in every language.
        const isOurs = this.locale.language === "en" || !name?.includes(".en");
        if (name && isOurs && !found.has(name) && !name.startsWith("for-tests")) found.set(name, join(folder, file));
      }
    }
    const order = ["tiny", "base", "small", "medium", "large"];
    const rank = (name: string): number => order.findIndex((size) => name.startsWith(size));
    return [...found].map(([name, path]) => ({ name, path })).sort((a, b) => rank(b.name) - rank(a.name));
  }

  /** Every `claude` tool on `PATH` with its version. A tool that does not tell its version is left out. */
  readonly claudeTools = shared(async (): Promise<{ path: string; version: string }[]> => {
    const folders = [...new Set((this.children.environment.PATH ?? "").split(":"))].filter((folder) => folder !== "");
    const paths = folders.map((folder) => Bun.which("claude", { PATH: folder })).filter((path) => path !== null);
    const tools = await Promise.all(
      paths.map(async (path) => ({ path, version: /\d+(\.\d+)+/.exec(await this.#print([path, "--version"]))?.[0] })),
    );
    const found = tools.flatMap(({ path, version }) => (version === undefined ? [] : [{ path, version }]));
    // A tool that was too slow to tell its version this time stays known.
    this.knownTools = new Map([...found.map(({ path, version }) => [path, version] as const), ...this.knownTools]);
    return found;
  });

  /** The microphones of the sound server: the name for the user, and the name for the server. */
  readonly sources = shared(async (): Promise<{ name: string; source: string }[]> => {
    const listing = parseJson(await this.#print(["pactl", "--format=json", "list", "sources"]));
    if (!Array.isArray(listing)) return [];
    return listing.flatMap((entry: unknown) => {
      if (!isRecord(entry) || typeof entry.description !== "string" || typeof entry.name !== "string") return [];
      const isMonitor = typeof entry.monitor_source === "string" && entry.monitor_source !== "";
      return isMonitor ? [] : [{ name: entry.description, source: entry.name }];
    });
  });

  async #print(command: [string, ...string[]]): Promise<string> {
    const outcome = await this.children.run(command, {
      timeoutMs: lookMs,
      maxOutput: maxListing,
      // Some locales write a comma for the decimal point, and the output is no JSON then.
      environment: { LC_ALL: "C.UTF-8" },
    });
    return outcome.kind === "ended" && outcome.code === 0 ? new TextDecoder().decode(outcome.output) : "";
  }
}

function entries(folder: string): string[] {
  try {
    return readdirSync(folder);
  } catch {
    return [];
  }
}
