// Brains made of the engine's own parts.

import type { Clock } from "../../src/base/clock.ts";
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
import { SentenceMind } from "../../src/thought/sentenceMind.ts";

export interface BrainOptions {
  clock: Clock;
  language?: "en" | "pt";
  hands?: readonly Hand[];
  children?: Children;
  claude?: Claude;
  servers?: ModelServers;
}

/** A brain with its log; without options it finds neither tools nor servers. */
export function brainWith({ clock, language = "en", hands = [], ...given }: BrainOptions) {
  const locale = chooseLocale({ PALOMET_LANGUAGES: language });
  const log: string[] = [];
  const note = (line: string): void => void log.push(line);
  const parts = { clock, language, phrases: phrases[language], log: note, hands };
  const children = given.children ?? new Children({ PATH: "" });
  const servers = given.servers ?? new ModelServers(() => [], new Keys({}), note, []);
  const choices = new Choices(children, locale, undefined, servers);
  const claude = given.claude ?? new Claude(children, clock, phrases[language]);
  const minds = { claude, chatMind: new ChatMind(parts), sentenceMind: new SentenceMind(parts) };
  return { brain: new EngineBrain({ clock, locale, ...minds, servers, choices, log: note }), log, choices };
}
