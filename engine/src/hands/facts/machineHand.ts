// The hand that tells of this machine: battery, disk, memory, network.

import { readdirSync } from "node:fs";
import { statfs } from "node:fs/promises";
import { networkInterfaces } from "node:os";
import { join } from "node:path";
import type { Language } from "../../base/language.ts";
import type { Children } from "../../machine/children.ts";
import { fileText } from "../../machine/fileText.ts";
import { homeOf } from "../../machine/userFolders.ts";
import { choiceIn } from "../given.ts";
import type { Hand } from "../hand.ts";
import { joined, numberText } from "../saying.ts";

const facts = ["battery", "disk", "memory", "network"] as const;

const callMs = 3_000;
const maxOutput = 1 << 16;
const giga = 1e9;

export class MachineHand implements Hand {
  readonly id = "machine";
  readonly description = "Tells the charge of the battery, the free space on the disk, the free memory, or the name of the network.";
  readonly parameters = { type: "object", properties: { what: { type: "string", enum: facts } }, required: ["what"] } as const;
  readonly changes = false;

  constructor(
    private readonly children: Children,
    private readonly root = "/",
  ) {}

  intent(given: unknown, language: Language): string | undefined {
    if (!choiceIn(given, "what", facts)) return undefined;
    return language === "pt" ? "olhar este computador" : "look at this computer";
  }

  async act(given: unknown, language: Language, signal: AbortSignal): Promise<string> {
    switch (choiceIn(given, "what", facts)) {
      case undefined:
        return language === "pt" ? "Não sei disso." : "I do not know that.";
      case "battery":
        return this.#battery(language);
      case "disk":
        return await this.#disk(language);
      case "memory":
        return this.#memory(language);
      case "network":
        return await this.#network(language, signal);
    }
  }

  #battery(language: Language): string {
    const folder = join(this.root, "sys/class/power_supply");
    const batteries = entries(folder).flatMap((name) => {
      const value = (file: string): string => fileText(join(folder, name, file)).trim();
      // A mouse has a battery, too: its scope is its own.
      if (value("type") !== "Battery" || value("scope") === "Device" || !/^\d+$/.test(value("capacity"))) return [];
      return [{ percent: Number(value("capacity")), status: value("status") }];
    });
    const isPortuguese = language === "pt";
    if (batteries.length === 0) return isPortuguese ? "Este computador não tem bateria." : "This computer has no battery.";
    const percent = Math.round(batteries.reduce((sum, battery) => sum + battery.percent, 0) / batteries.length);
    const isCharging = batteries.some(({ status }) => status === "Charging");
    const isDraining = batteries.some(({ status }) => status === "Discharging");
    if (isPortuguese) return `A bateria está em ${percent}%${isCharging ? ", carregando" : isDraining ? "" : ", na tomada"}.`;
    return `The battery is at ${percent}%${isCharging ? ", charging" : isDraining ? "" : ", plugged in"}.`;
  }

  async #disk(language: Language): Promise<string> {
    const isPortuguese = language === "pt";
    try {
      const { bavail, blocks, bsize } = await statfs(homeOf(this.children.environment));
      const [free, all] = [bavail * bsize, blocks * bsize].map((bytes) => numberText(bytes / giga, language, 3));
      return isPortuguese ? `Há ${free} GB livres de ${all} GB no disco.` : `${free} GB of ${all} GB are free on the disk.`;
    } catch {
      return isPortuguese ? "O disco não respondeu." : "The disk did not answer.";
    }
  }

  #memory(language: Language): string {
    const lines = fileText(join(this.root, "proc/meminfo"));
    const bytes = (name: string): number => Number(new RegExp(`^${name}:\\s+(\\d+) kB`, "m").exec(lines)?.[1] ?? NaN) * 1_024;
    const [free, all] = [bytes("MemAvailable"), bytes("MemTotal")].map((each) => numberText(each / giga, language, 3));
    if (language === "pt") return `Há ${free} GB de memória livres de ${all} GB.`;
    return `${free} GB of ${all} GB of memory are free.`;
  }

  async #network(language: Language, signal: AbortSignal): Promise<string> {
    const isPortuguese = language === "pt";
    const outcome = await this.children.run(["nmcli", "--terse", "--escape", "no", "--fields", "TYPE,NAME", "connection", "show", "--active"], {
      timeoutMs: callMs,
      maxOutput,
      signal,
      environment: { LC_ALL: "C.UTF-8" },
    });
    const lines = outcome.kind === "ended" && outcome.code === 0 ? new TextDecoder().decode(outcome.output).split("\n") : [];
    const names = lines.flatMap((line) => /^(?:802-11-wireless|802-3-ethernet|wifi|ethernet|gsm|vpn|wireguard):(.+)$/.exec(line)?.[1] ?? []);
    if (names.length > 0) return isPortuguese ? `A rede é ${joined(names, language)}.` : `The network is ${joined(names, language)}.`;
    const isUp = Object.values(networkInterfaces()).some((addresses) => addresses?.some(({ internal }) => !internal));
    if (isPortuguese) return isUp ? "Há uma rede, mas não sei o nome dela." : "Não há rede.";
    return isUp ? "There is a network, but I do not know its name." : "There is no network.";
  }
}

function entries(folder: string): string[] {
  try {
    return readdirSync(folder).sort();
  } catch {
    return [];
  }
}
