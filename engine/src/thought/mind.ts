// What a mind is made of that answers by the hands.

import type { Clock } from "../base/clock.ts";
import type { Language } from "../base/language.ts";
import type { Log } from "../base/log.ts";
import type { Phrases } from "../base/phrases.ts";
import type { Hand } from "../hands/hand.ts";

export interface MindParts {
  clock: Clock;
  language: Language;
  phrases: Phrases;
  log: Log;
  hands: readonly Hand[];
}
