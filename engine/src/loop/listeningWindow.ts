// The time in which the agent listens without being called by its name.

import type { Clock } from "../base/clock.ts";

export class ListeningWindow {
  #isOpen = false;
  #cancel = (): void => {};

  constructor(
    private readonly clock: Clock,
    private readonly expired: () => void,
  ) {}

  get isOpen(): boolean {
    return this.#isOpen;
  }

  open(ms: number): void {
    this.close();
    if (ms <= 0) return;
    this.#isOpen = true;
    this.#cancel = this.clock.after(ms, () => {
      this.#isOpen = false;
      this.expired();
    });
  }

  close(): void {
    this.#cancel();
    this.#isOpen = false;
  }
}
