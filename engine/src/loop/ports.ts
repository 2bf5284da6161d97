// What the loop needs of the engine around it.

import type { Clock } from "../base/clock.ts";
import type { Log } from "../base/log.ts";
import type { Phrases } from "../base/phrases.ts";
import type { Settings } from "../base/protocol.ts";
import type { SpeechDetector } from "../hearing/speechDetector.ts";
import type { Conversations } from "../memory/conversations.ts";
import type { Recogniser } from "../recognition/recogniser.ts";
import type { Brain } from "../thought/answer.ts";
import type { Speaker } from "../voice/speaker.ts";

export interface LoopPorts {
  clock: Clock;
  brain: Brain;
  speaker: Speaker;
  recogniser: Recogniser;
  speechDetector?: SpeechDetector;
  isCaptioning: () => boolean;
  conversations: Conversations;
  phrases: Phrases;
  settings: () => Settings;
  log: Log;
  chime(): void;
  /** The user wants silence. */
  stopped(): void;
  /** Something that is shown has changed. */
  changed(): void;
  turnEnded(): void;
  level(level: number): void;
}
