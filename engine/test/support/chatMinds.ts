// A brain that asks a chat server, with hands that note what they do.

import type { Clock } from "../../src/base/clock.ts";
import { systemClock } from "../../src/base/clock.ts";
import type { Hand } from "../../src/hands/hand.ts";
import { Keys } from "../../src/machine/keys.ts";
import { ModelServers } from "../../src/machine/modelServers.ts";
import { brainWith } from "./brains.ts";
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
    const { items, text = items } = (given ?? {}) as { text?: unknown; items?: unknown };
    return typeof text === "string" ? this.words(text) : undefined;
  }

  async act(given: unknown): Promise<string> {
    this.done.push(given);
    return this.result;
  }
}

/** A hand that takes its time. */
export class SlowHand extends NotingHand {
  finish = (): void => {};
  #begin = (): void => {};
  readonly begun = new Promise<void>((resolve) => (this.#begin = resolve));

  override async act(given: unknown): Promise<string> {
    this.#begin();
    await new Promise<void>((resolve) => (this.finish = resolve));
    return await super.act(given);
  }
}

/** The model that such a server offers, as the settings have it. */
export const modelOf = ({ ways }: ChatServer): string => `${ways.offered[0]} · ${ways.name}`;

export function mindOf(server: ChatServer, hands: readonly Hand[] = [], clock: Clock = systemClock, language: "en" | "pt" = "en") {
  const { key } = server.ways;
  const known = { name: server.ways.name, address: server.address, ...(key === undefined ? {} : { key: () => key }) };
  const servers = new ModelServers(() => [], new Keys({}), (line) => log.push(line), [known]);
  const { brain, log, choices } = brainWith({ clock, language, hands, servers });
  return { brain, log, servers, choices };
}
