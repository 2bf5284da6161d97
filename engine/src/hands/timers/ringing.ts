// What happens when a timer is due: a notification, and unless the agent is muted a chime and a sentence, again and again until
// somebody stops it.

import type { Clock } from "../../base/clock.ts";
import type { Language } from "../../base/language.ts";
import type { Notifications } from "../notifications.ts";
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
const snoozeSeconds = 300;

export class Ringing {
  readonly #going = new Map<Timer, { cancel: () => void; ending: AbortController }>();

  constructor(
    private readonly timers: Timers,
    private readonly clock: Clock,
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
    void this.notifications.show({ title: "Palomet", text, actions }, ending.signal).then((action) => {
      if (action === "stop") this.timers.stop([timer]);
      else if (action === "snooze") this.timers.snooze(snoozeSeconds, [timer]);
    });
  }

  #sound(timer: Timer, text: string, left: number): void {
    const going = this.#going.get(timer);
    if (!going) return;
    if (!this.voice.isMuted) this.voice.tell(text);
    // What was said for the last time goes on ringing for a while: somebody may still say "snooze".
    going.cancel = this.clock.after(againMs, () => (left > 1 ? this.#sound(timer, text, left - 1) : this.#fade(timer)));
  }

  /** It is not heard any more. The notification stays. */
  #fade(timer: Timer): void {
    const going = this.#going.get(timer);
    if (going) going.cancel = (): void => {};
  }

  #end(timer: Timer): void {
    const going = this.#going.get(timer);
    this.#going.delete(timer);
    going?.cancel();
    going?.ending.abort();
  }
}
