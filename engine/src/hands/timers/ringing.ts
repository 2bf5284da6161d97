// What happens when a timer is due: a notification, and unless the agent is muted a chime and a sentence, again and again until
// somebody stops it, or nobody did for long.

import type { Clock } from "../../base/clock.ts";
import type { Language } from "../../base/language.ts";
import type { Log } from "../../base/log.ts";
import { closed, type Notification, type Notifications } from "../notifications.ts";
import { ringText } from "./timerHands.ts";
import type { Timer, Timers } from "./timers.ts";

export interface Voice {
  readonly isMuted: boolean;
  /** Says this when nobody is speaking and nothing is being answered, after a chime. */
  tell(sentence: string): void;
}

const againMs = 20_000;
/** An alarm may have to wake somebody; a reminder is said once. */
const times: Record<Timer["kind"], number> = { alarm: 15, timer: 5, reminder: 1 };
/** What was said for the last time goes on ringing for a while: somebody may still say "snooze". */
const graceMs = 60_000;
const snoozeSeconds = 300;
const title = "Palomet";

export class Ringing {
  readonly #going = new Map<Timer, { cancel: () => void; ending: AbortController }>();

  constructor(
    private readonly timers: Timers,
    private readonly clock: Clock,
    private readonly log: Log,
    private readonly language: Language,
    private readonly notifications: Notifications,
    private readonly voice: Voice,
  ) {
    timers.onRing = (timer) => this.#ring(timer);
    timers.onStopped = (timer) => this.#end(timer);
  }

  #ring(timer: Timer): void {
    const text = ringText(timer, new Date(this.clock.now()), this.language);
    const ending = new AbortController();
    this.#going.set(timer, { cancel: () => {}, ending });
    this.#sound(timer, text, times[timer.kind]);
    const isPortuguese = this.language === "pt";
    const actions = isPortuguese ? { stop: "Parar", snooze: "Soneca" } : { stop: "Stop", snooze: "Snooze" };
    void this.#show(timer, { title, text, actions }, ending.signal);
  }

  /** Does what the user answers. Never rejects: what goes wrong with a notification must not end the engine. */
  async #show(timer: Timer, notification: Notification, signal: AbortSignal): Promise<void> {
    try {
      const answer = await this.notifications.show(notification, signal);
      if (answer === "stop" || answer === closed) this.timers.stop([timer]);
      else if (answer === "snooze") this.timers.snooze(snoozeSeconds, [timer]);
    } catch (error) {
      this.log(`uma notificação falhou (${String(error)})`);
    }
  }

  #sound(timer: Timer, text: string, left: number): void {
    const going = this.#going.get(timer);
    if (!going) return;
    if (!this.voice.isMuted) this.voice.tell(text);
    going.cancel =
      left > 1
        ? this.clock.after(againMs, () => this.#sound(timer, text, left - 1))
        : this.clock.after(graceMs, () => this.#fade(timer, text));
  }

  /** Nobody answered. It can be read still, and nothing of it can be stopped or snoozed any more. */
  #fade(timer: Timer, text: string): void {
    this.timers.stop([timer]);
    void this.#show(timer, { title, text, actions: {} }, new AbortController().signal);
  }

  #end(timer: Timer): void {
    const going = this.#going.get(timer);
    this.#going.delete(timer);
    going?.cancel();
    going?.ending.abort();
  }
}
