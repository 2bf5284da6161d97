// A mind that asks a chat server, and requests to it; "files" is to be asked about.

import { afterEach } from "bun:test";
import { systemClock } from "../../src/base/clock.ts";
import type { Row } from "../../src/base/protocol.ts";
import { mindOf, modelOf, type NotingHand } from "./chatMinds.ts";
import { ChatServer, type Ways } from "./chatServer.ts";
import { ask, request } from "./claudeTool.ts";
import { ollama } from "./servers/ollama.ts";

const servers: ChatServer[] = [];
/** What goes wrong after a tool was used. */
export const failure = { status: 500, body: { error: "out of memory" } };

/** Closes the servers after each test of the file that calls it. */
export function closeServers(): void {
  afterEach(() => servers.splice(0).forEach((server) => server.close()));
}

export async function mind(hands: NotingHand[] = [], clock = systemClock, ways: Ways = ollama, language: "en" | "pt" = "en") {
  const server = await ChatServer.open(ways);
  servers.push(server);
  const confirmActions = ["files"];
  const what = (words: string, earlier: Row[] = []) => {
    const plain = request(words, { earlier, askedAt: clock.now() });
    return { ...plain, settings: { ...plain.settings, brainModel: modelOf(server), confirmActions } };
  };
  const it = mindOf(server, hands, clock, language);
  return { ...it, server, what, say: (words: string, earlier?: Row[]) => ask(it.brain, what(words, earlier)) };
}

export const roles = (server: ChatServer, at: number): string[] | undefined => server.chats[at]?.body.messages.map(({ role }) => role);
