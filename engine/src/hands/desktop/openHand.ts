// The hand that opens applications, folders and web addresses.

import { readdirSync, statSync } from "node:fs";
import { basename, join } from "node:path";
import type { Language, Locale } from "../../base/language.ts";
import type { Settings } from "../../base/protocol.ts";
import { plainWords } from "../../base/words.ts";
import type { Children } from "../../machine/children.ts";
import { homeOf, userFolder, type UserFolder } from "../../machine/userFolders.ts";
import { textIn } from "../given.ts";
import type { Hand } from "../hand.ts";
import { applicationNamed, commandOf, installedApplications, type Application } from "./applications.ts";

type Target = { kind: "application"; application: Application } | { kind: "folder"; path: string } | { kind: "address"; address: string };

const startMs = 5_000;
const maxOutput = 1 << 16;
const longestAddress = 2_000;
const mostFolders = 2_000;

const folderNames: Record<string, UserFolder | "HOME"> = {
  desktop: "DESKTOP", "area de trabalho": "DESKTOP", documents: "DOCUMENTS", documentos: "DOCUMENTS", downloads: "DOWNLOAD", download: "DOWNLOAD",
  transferencias: "DOWNLOAD", music: "MUSIC", musica: "MUSIC", musicas: "MUSIC", pictures: "PICTURES", photos: "PICTURES", images: "PICTURES",
  imagens: "PICTURES", fotos: "PICTURES", videos: "VIDEOS", movies: "VIDEOS", templates: "TEMPLATES", modelos: "TEMPLATES", public: "PUBLICSHARE",
  publico: "PUBLICSHARE", home: "HOME", "pasta pessoal": "HOME", pessoal: "HOME", personal: "HOME",
};

/** Runs a program that goes on by itself: it is none of the engine's, and does not end with it. */
const detach = 'exec setsid -f "$@" >/dev/null 2>&1 </dev/null';

export class OpenHand implements Hand {
  readonly id = "open";
  readonly description = "Opens an application by its name, a folder, or a web address.";
  readonly parameters = {
    type: "object",
    properties: {
      name: { type: "string", description: "An application, as its menu entry is called" },
      folder: { type: "string", description: "A folder: downloads, documents, its name, or its path" },
      address: { type: "string", description: "A web address, http or https" },
    },
  } as const;
  readonly changes = true;

  constructor(
    private readonly children: Children,
    private readonly locale: Locale,
    private readonly settings: () => Settings,
  ) {}

  intent(given: unknown, language: Language): string | undefined {
    const target = this.#target(given);
    const isPortuguese = language === "pt";
    switch (target?.kind) {
      case undefined:
        return undefined;
      case "application":
        return isPortuguese ? `abrir o aplicativo ${target.application.name}` : `open the application ${target.application.name}`;
      case "folder":
        return isPortuguese ? `abrir a pasta ${target.path}` : `open the folder ${target.path}`;
      case "address":
        return isPortuguese ? `abrir o endereço ${target.address}` : `open the address ${target.address}`;
    }
  }

  async act(given: unknown, language: Language, signal: AbortSignal): Promise<string> {
    const isPortuguese = language === "pt";
    const target = this.#target(given);
    if (!target) {
      const said = textIn(given, "name") ?? textIn(given, "folder") ?? textIn(given, "address", longestAddress) ?? "";
      if (textIn(given, "folder") !== undefined) return isPortuguese ? `Não encontro a pasta ${said}.` : `I find no folder ${said}.`;
      if (textIn(given, "address", longestAddress) !== undefined) return isPortuguese ? `Não abro ${said}.` : `I do not open ${said}.`;
      if (said === "") return isPortuguese ? "Não entendi o que abrir." : "I did not understand what to open.";
      return isPortuguese ? `Não encontro o aplicativo ${said}.` : `I find no application ${said}.`;
    }
    const name = target.kind === "application" ? target.application.name : target.kind === "folder" ? basename(target.path) : target.address;
    const command = target.kind === "application" ? this.#starter(target.application) : this.#opener(target.kind === "folder" ? target.path : target.address);
    if (!command) return isPortuguese ? `Não consigo abrir ${name} aqui.` : `I cannot open ${name} here.`;
    const outcome = await this.children.run(["/bin/sh", "-c", detach, "sh", ...command], {
      timeoutMs: startMs,
      maxOutput,
      signal,
      cwd: homeOf(this.children.environment),
    });
    if (outcome.kind !== "ended" || outcome.code !== 0) return isPortuguese ? `${name} não abriu.` : `${name} did not open.`;
    return isPortuguese ? `Abrindo ${name}.` : `Opening ${name}.`;
  }

  #target(given: unknown): Target | undefined {
    const address = textIn(given, "address", longestAddress);
    if (address !== undefined) return addressOf(address);
    const folder = textIn(given, "folder", 4_096);
    if (folder !== undefined) return this.#folder(folder);
    const name = textIn(given, "name");
    if (name === undefined) return undefined;
    const { environment } = this.children;
    const applications = installedApplications(environment, this.locale.tag, (program) => this.children.find(program));
    const application = applicationNamed(name, applications);
    if (application) return { kind: "application", application };
    // "Open downloads", "open my documents".
    return Object.hasOwn(folderNames, plainWords(name).join(" ")) ? this.#folder(name) : undefined;
  }

  #folder(said: string): Target | undefined {
    const { environment } = this.children;
    const home = homeOf(environment);
    const plain = plainWords(said).join(" ");
    const usual = Object.hasOwn(folderNames, plain) ? folderNames[plain] : undefined;
    const known = usual === undefined ? [] : [usual === "HOME" ? home : userFolder(environment, usual)];
    const isSame = (path: string): boolean => plainWords(basename(path)).join(" ") === plain;
    const own = [...this.settings().folders, this.settings().workingFolder].filter((path) => isSame(path) || path === said);
    const inHome = folders(home).filter(isSame).map((name) => join(home, name));
    const path = [...known, ...own, ...inHome].find(isFolder);
    return path === undefined ? undefined : { kind: "folder", path };
  }

  /** The desktop's own starter knows services and terminals. */
  #starter(application: Application): string[] | undefined {
    if (this.children.find("gio") !== undefined) return ["gio", "launch", application.file];
    return commandOf(application);
  }

  #opener(what: string): string[] | undefined {
    if (this.children.find("xdg-open") !== undefined) return ["xdg-open", what];
    return this.children.find("gio") === undefined ? undefined : ["gio", "open", what];
  }
}

/** Web addresses alone: others start programs. */
function addressOf(said: string): Target | undefined {
  const url = URL.parse(/^[a-z][a-z0-9+.-]*:/i.test(said) && !/^[\w.-]+:\d/.test(said) ? said : `https://${said}`);
  const isWeb = url !== null && /^https?:$/.test(url.protocol) && url.hostname !== "" && url.username === "" && url.password === "";
  return isWeb ? { kind: "address", address: url.href } : undefined;
}

function folders(path: string): string[] {
  try {
    return readdirSync(path, { withFileTypes: true }).slice(0, mostFolders).flatMap((entry) => (entry.isFile() || entry.name.startsWith(".") ? [] : [entry.name]));
  } catch {
    return [];
  }
}

function isFolder(path: string): boolean {
  try {
    return statSync(path).isDirectory();
  } catch {
    return false;
  }
}
