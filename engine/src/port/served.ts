// The part of the engine that the port serves.

import type { ConversationSummary, LoopState, Options, Snapshot } from "../base/protocol.ts";
import type { AudioLink } from "./audioLink.ts";
import type { EventStream } from "./eventStream.ts";

export interface Served {
  readonly state: Snapshot;
  readonly history: ConversationSummary[];
  readonly events: EventStream;
  readonly link: AudioLink;
  readonly loop: {
    readonly state: LoopState;
    listen(): void;
    stop(): void;
    toggleMute(): void;
    sample(): void;
    act(): void;
    clearDraft(): void;
    say(text: string): void;
    /** Says that a request was too long to be taken. */
    refuseLength(): void;
  };
  options(): Promise<Options>;
  newConversation(): void;
  /** The conversations that are not on the disk yet, in a form for JSON: none when its data lie in another folder than this. */
  unwritten(folder: string): unknown;
  /**
   * Begins another conversation when the current one falls into this span, and forgets those that are not on the disk yet, whose number
   * it gives. Nothing happens when its data lie in another folder than this, which is the path without links.
   */
  forget(folder: string, span: { from: number; to: number }): number;
  /** Sets all of these or none, and resolves to what is wrong, if anything is. */
  set(values: Record<string, unknown>): Promise<string | undefined>;
}
