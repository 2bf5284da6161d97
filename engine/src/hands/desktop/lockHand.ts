// The hand that locks the screen.

import type { Language } from "../../base/language.ts";
import type { Children } from "../../machine/children.ts";
import type { Bus } from "../bus.ts";
import type { Hand } from "../hand.ts";

const callMs = 3_000;
const maxOutput = 1 << 16;

export class LockHand implements Hand {
  readonly id = "lock";
  readonly description = "Locks the screen.";
  readonly parameters = { type: "object", properties: {} } as const;
  readonly changes = true;

  constructor(
    private readonly children: Children,
    private readonly bus: Bus,
  ) {}

  intent(_given: unknown, language: Language): string {
    return language === "pt" ? "bloquear a tela" : "lock the screen";
  }

  async act(_given: unknown, language: Language, signal: AbortSignal): Promise<string> {
    const isLocked = (await this.#byScreenSaver(signal)) || (await this.#bySession(signal));
    if (language === "pt") return isLocked ? "A tela está bloqueada." : "Não consigo bloquear a tela aqui.";
    return isLocked ? "The screen is locked." : "I cannot lock the screen here.";
  }

  async #byScreenSaver(signal: AbortSignal): Promise<boolean> {
    const service = "org.freedesktop.ScreenSaver";
    return (await this.bus.call({ service, path: "/org/freedesktop/ScreenSaver", method: `${service}.Lock` }, signal)) !== undefined;
  }

  async #bySession(signal: AbortSignal): Promise<boolean> {
    const outcome = await this.children.run(["loginctl", "lock-session"], { timeoutMs: callMs, maxOutput, signal });
    return outcome.kind === "ended" && outcome.code === 0;
  }
}
