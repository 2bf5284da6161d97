// The volume of the agent's voice, kept in the store.

import type { Store } from "./store.ts";

/** It stands among the settings in the store, under a name that no setting has. */
const key = "hands.voiceVolume";

export class KeptVolume {
  #percent: number;

  constructor(
    private readonly store: Store,
    kept: ReadonlyMap<string, string>,
  ) {
    const percent = Number(kept.get(key) ?? 100);
    this.#percent = percent >= 0 && percent <= 100 ? percent : 100;
  }

  get percent(): number {
    return this.#percent;
  }

  set percent(percent: number) {
    this.#percent = percent;
    this.saveAgain();
  }

  /** Writes it, also after the store was replaced. */
  saveAgain(): void {
    this.store.saveSetting(key, String(this.#percent));
  }
}
