// All hands, and the settings' rows that say which of them ask first.

import { join } from "node:path";
import type { Clock } from "../base/clock.ts";
import type { Language, Locale } from "../base/language.ts";
import type { Settings } from "../base/protocol.ts";
import type { Children } from "../machine/children.ts";
import { shipped } from "../machine/shipped.ts";
import { userFolder } from "../machine/userFolders.ts";
import type { Bus } from "./bus.ts";
import { LockHand } from "./desktop/lockHand.ts";
import { OpenHand } from "./desktop/openHand.ts";
import { ScreenshotHand } from "./desktop/screenshotHand.ts";
import { CalculateHand } from "./facts/calculateHand.ts";
import { DateHand } from "./facts/dateHand.ts";
import { MachineHand } from "./facts/machineHand.ts";
import { fileHands } from "./files/fileHands.ts";
import type { Hand } from "./hand.ts";
import { mediaHands } from "./media.ts";
import { memoryHands, type Remembered } from "./memoryHands.ts";
import { Notebook } from "./notes/notebook.ts";
import { noteHands } from "./notes/noteHands.ts";
import { SoundHand, type VoiceVolume } from "./sound.ts";
import { timerHands } from "./timers/timerHands.ts";
import type { Timers } from "./timers/timers.ts";

export interface HandParts {
  clock: Clock;
  locale: Locale;
  children: Children;
  settings: () => Settings;
  conversations: Remembered;
  timers: Timers;
  voice: VoiceVolume;
  bus: Bus;
}

export function allHands({ clock, locale, children, settings, conversations, timers, voice, bus }: HandParts): Hand[] {
  const notebook = new Notebook(join(userFolder(children.environment, "DOCUMENTS"), "Palomet"), locale.language);
  return [
    ...timerHands(timers, clock),
    ...noteHands(notebook, clock),
    new SoundHand(children, voice),
    ...mediaHands(bus),
    new OpenHand(children, locale, settings),
    new LockHand(children, bus),
    new ScreenshotHand(bus),
    new MachineHand(children),
    new DateHand(clock),
    new CalculateHand(shipped.mathematics),
    ...memoryHands(conversations, clock),
    ...fileHands(children, settings),
  ];
}

/** What each hand is called in the settings. The tool `claude` has rows of its own for "commands" and "files", which hold for these as well. */
const labels: Record<string, Record<Language, string>> = {
  timer: { en: "Set timers, alarms and reminders", pt: "Marcar timers, alarmes e lembretes" },
  timers: { en: "Tell which timers are set", pt: "Dizer os timers marcados" },
  note: { en: "Write notes and lists", pt: "Escrever notas e listas" },
  notes: { en: "Read notes and lists", pt: "Ler notas e listas" },
  volume: { en: "Change the volume", pt: "Mudar o volume" },
  media: { en: "Play and pause media", pt: "Tocar e pausar mídia" },
  playing: { en: "Tell what is playing", pt: "Dizer o que está tocando" },
  open: { en: "Open applications, folders and pages", pt: "Abrir aplicativos, pastas e páginas" },
  lock: { en: "Lock the screen", pt: "Bloquear a tela" },
  screenshot: { en: "Take screenshots", pt: "Capturar a tela" },
  machine: { en: "Look at battery, disk and network", pt: "Ver bateria, disco e rede" },
  date: { en: "Count days", pt: "Contar dias" },
  calculate: { en: "Calculate", pt: "Calcular" },
  recall: { en: "Search the conversations", pt: "Procurar nas conversas" },
  forget: { en: "Forget conversations", pt: "Esquecer conversas" },
  readFiles: { en: "Read files", pt: "Ler arquivos" },
};

export interface AskedRow {
  id: string;
  label: string;
  /** It is asked about until the user switches that off. */
  isAsked: boolean;
}

/** The settings' rows of these hands. */
export function askedRows(hands: readonly Hand[], language: Language): AskedRow[] {
  return hands.flatMap(({ id, changes }) => {
    const label = labels[id]?.[language];
    return label === undefined ? [] : [{ id, label, isAsked: changes }];
  });
}
