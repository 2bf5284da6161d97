// The hands for media players (MPRIS): one that plays and pauses, one that tells what is playing.

import type { Language } from "../base/language.ts";
import { isRecord } from "../base/json.ts";
import { cut } from "../base/text.ts";
import { plain, type Bus } from "./bus.ts";
import { choiceIn } from "./given.ts";
import type { Hand } from "./hand.ts";

const prefix = "org.mpris.MediaPlayer2.";
const path = "/org/mpris/MediaPlayer2";
const player = "org.mpris.MediaPlayer2.Player";
const mostPlayers = 10;
const longestTitle = 200;

const methods = { play: "Play", pause: "Pause", next: "Next", previous: "Previous" } as const;
type Action = keyof typeof methods;
const actions = Object.keys(methods) as Action[];

const intents: Record<Language, Record<Action, string>> = {
  en: { play: "play", pause: "pause", next: "play the next one", previous: "play the one before" },
  pt: { play: "tocar", pause: "pausar", next: "tocar a próxima", previous: "tocar a anterior" },
};

export function mediaHands(bus: Bus): Hand[] {
  return [new MediaHand(bus), new PlayingHand(bus)];
}

class MediaHand implements Hand {
  readonly id = "media";
  readonly description = "Plays, pauses or skips in the media player that is open.";
  readonly parameters = { type: "object", properties: { do: { type: "string", enum: actions } }, required: ["do"] } as const;
  // The next sentence undoes it, and nothing remains of it.
  readonly changes = false;

  constructor(private readonly bus: Bus) {}

  intent(given: unknown, language: Language): string | undefined {
    const action = choiceIn(given, "do", actions);
    return action && intents[language][action];
  }

  async act(given: unknown, language: Language, signal: AbortSignal): Promise<string> {
    const action = choiceIn(given, "do", actions);
    const isPortuguese = language === "pt";
    if (!action) return isPortuguese ? "Não entendi o que fazer." : "I did not understand what to do.";
    const service = (await currentPlayer(this.bus, signal))?.service;
    if (service === undefined) return none(language);
    const reply = await this.bus.call({ service, path, method: `${player}.${methods[action]}` }, signal);
    if (!reply) return isPortuguese ? "O player não respondeu." : "The player did not answer.";
    return isPortuguese ? "Feito." : "Done.";
  }
}

class PlayingHand implements Hand {
  readonly id = "playing";
  readonly description = "Tells what the media player is playing.";
  readonly parameters = { type: "object", properties: {} } as const;
  readonly changes = false;

  constructor(private readonly bus: Bus) {}

  intent(_given: unknown, language: Language): string {
    return language === "pt" ? "dizer o que está tocando" : "tell what is playing";
  }

  async act(_given: unknown, language: Language, signal: AbortSignal): Promise<string> {
    const found = await currentPlayer(this.bus, signal);
    if (!found) return none(language);
    const isPortuguese = language === "pt";
    const metadata = await this.bus.property(found.service, path, `${player}.Metadata`, signal);
    const value = (key: string): unknown => (isRecord(metadata) ? plain(metadata[key]) : undefined);
    const title = value("xesam:title");
    const artists = value("xesam:artist");
    if (typeof title !== "string" || title === "") return isPortuguese ? "O player não diz o que toca." : "The player does not say what it plays.";
    const artist = Array.isArray(artists) ? artists.filter((each) => typeof each === "string" && each !== "").join(", ") : "";
    const by = artist === "" ? "" : `, ${isPortuguese ? "de" : "by"} ${cut(artist, longestTitle)}`;
    const what = `“${cut(title, longestTitle)}”${by}`;
    if (found.status === "Playing") return isPortuguese ? `Está tocando ${what}.` : `This is ${what}.`;
    return isPortuguese ? `Está parado em ${what}.` : `It is paused at ${what}.`;
  }
}

/** The player that plays, else one that is paused, else any. */
async function currentPlayer(bus: Bus, signal: AbortSignal): Promise<{ service: string; status: string } | undefined> {
  const reply = await bus.call({ service: "org.freedesktop.DBus", path: "/org/freedesktop/DBus", method: "org.freedesktop.DBus.ListNames" }, signal);
  const [names] = reply ?? [];
  if (!Array.isArray(names)) return undefined;
  const services = names.filter((name): name is string => typeof name === "string" && name.startsWith(prefix)).sort().slice(0, mostPlayers);
  const players = await Promise.all(
    services.map(async (service) => ({ service, status: String(await bus.property(service, path, `${player}.PlaybackStatus`, signal)) })),
  );
  return players.find(({ status }) => status === "Playing") ?? players.find(({ status }) => status === "Paused") ?? players[0];
}

function none(language: Language): string {
  return language === "pt" ? "Nenhum player aberto." : "No player is open.";
}
