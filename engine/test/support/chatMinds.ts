// A brain that asks a chat server, with hands that note what they do.

import type { Clock } from "../../src/base/clock.ts";
import { systemClock } from "../../src/base/clock.ts";
import { chooseLocale } from "../../src/base/language.ts";
import { phrases } from "../../src/base/phrases.ts";
import type { Hand } from "../../src/hands/hand.ts";
import { Children } from "../../src/machine/children.ts";
import { Choices } from "../../src/machine/choices.ts";
import { Keys } from "../../src/machine/keys.ts";
import { ModelServers } from "../../src/machine/modelServers.ts";
import { EngineBrain } from "../../src/thought/brain.ts";
import { ChatMind } from "../../src/thought/chatMind.ts";
import { Claude } from "../../src/thought/claude.ts";
import type { ChatServer } from "./chatServer.ts";

export class NotingHand implements Hand {
  readonly description = "Takes a note.";
  readonly parameters = { type: "object", properties: { text: { type: "string" } }, required: ["text"] } as const;
  readonly changes = true;
  done: unknown[] = [];
  result = "Noted.";

  constructor(
    readonly id: string,
    /** Words for what it would do with a text. */
    public words = (text: string): string | undefined => `Note ${text}`,
  ) {}

  intent(given: unknown): string | undefined {
    const { text } = (given ?? {}) as { text?: unknown };
    return typeof text === "string" ? this.words(text) : undefined;
  }

  async act(given: unknown): Promise<string> {
    this.done.push(given);
    return this.result;
  }
}

/** The model that such a server offers, as the settings have it. */
export const modelOf = ({ ways }: ChatServer): string => `${ways.offered[0]} · ${ways.name}`;

export function mindOf(server: ChatServer, hands: readonly Hand[] = [], clock: Clock = systemClock, language: "en" | "pt" = "en") {
  const children = new Children({ PATH: "" });
  const locale = chooseLocale({ PALOMET_LANGUAGES: language });
  const log: string[] = [];
  const note = (line: string): void => void log.push(line);
  const { key } = server.ways;
  const known = { name: server.ways.name, address: server.address, ...(key === undefined ? {} : { key: () => key }) };
  const servers = new ModelServers(() => [], new Keys({}), note, [known]);
  const choices = new Choices(children, locale, undefined, servers);
  const chatMind = new ChatMind({ clock, language, phrases: phrases[language], hands });
  const claude = new Claude(children, clock, phrases[language]);
  return { brain: new EngineBrain(clock, locale, claude, chatMind, servers, choices, note), log, servers, choices };
}
