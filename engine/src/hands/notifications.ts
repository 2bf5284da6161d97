// Notifications of the desktop, with buttons. Where nothing shows them, nothing is shown.

import type { Children } from "../machine/children.ts";
import type { Bus } from "./bus.ts";

export interface Notification {
  title: string;
  text: string;
  /** The buttons: what each is called here and on the screen. */
  actions: Readonly<Record<string, string>>;
}

export interface Notifications {
  /** Resolves to the button that was pressed, or undefined when none was. Takes the notification back when `signal` is raised. Never rejects. */
  show(notification: Notification, signal: AbortSignal): Promise<string | undefined>;
}

const service = "org.freedesktop.Notifications";
const path = "/org/freedesktop/Notifications";
const maxOutput = 1 << 16;
const icon = "org.palomet.Palomet";

/** Shows notifications by `notify-send`, else over the bus. */
export class DesktopNotifications implements Notifications {
  constructor(
    private readonly children: Children,
    private readonly bus: Bus,
  ) {}

  async show(notification: Notification, signal: AbortSignal): Promise<string | undefined> {
    return this.children.find("notify-send") === undefined
      ? await this.#showByBus(notification, signal)
      : await this.#showByTool(notification, signal);
  }

  /** The tool waits for the button, and prints its name. */
  async #showByTool({ title, text, actions }: Notification, signal: AbortSignal): Promise<string | undefined> {
    const buttons = Object.entries(actions).map(([name, label]) => `--action=${name}=${label}`);
    const outcome = await this.children.run(
      ["notify-send", "--app-name=Palomet", `--icon=${icon}`, "--urgency=critical", "--wait", ...buttons, "--", title, escaped(text)],
      { maxOutput, signal },
    );
    if (outcome.kind !== "ended") return undefined;
    const pressed = new TextDecoder().decode(outcome.output).trim();
    return Object.hasOwn(actions, pressed) ? pressed : undefined;
  }

  async #showByBus({ title, text, actions }: Notification, signal: AbortSignal): Promise<string | undefined> {
    if (this.children.find("busctl") === undefined) return undefined;
    const buttons = Object.entries(actions).flat();
    const given = ["Palomet", "0", icon, title, escaped(text), String(buttons.length), ...buttons, "1", "urgency", "y", "2", "0"];
    let pressed: string | undefined;
    let id: number | undefined;
    /** A button may be pressed before the reply with the notification's id has been read. */
    const early: [string, unknown[]][] = [];
    const take = (name: string, [of, action]: unknown[]): boolean => {
      if (of !== id) return false;
      if (name === "ActionInvoked" && typeof action === "string" && Object.hasOwn(actions, action)) pressed = action;
      return name === "ActionInvoked" || name === "NotificationClosed";
    };
    const ending = new AbortController();
    const end = (): void => ending.abort();
    signal.addEventListener("abort", end);
    const watching = this.bus.watch(
      `type='signal',interface='${service}'`,
      (name, values) => {
        if (id !== undefined) return take(name, values);
        early.push([name, values]);
        return false;
      },
      ending.signal,
    );
    const reply = await this.bus.call({ service, path, method: `${service}.Notify`, signature: "susssasa{sv}i", arguments: given });
    const [first] = reply ?? [];
    id = typeof first === "number" ? first : undefined;
    if (id === undefined || signal.aborted || early.some(([name, values]) => take(name, values))) end();
    await watching;
    signal.removeEventListener("abort", end);
    if (signal.aborted && id !== undefined) {
      await this.bus.call({ service, path, method: `${service}.CloseNotification`, signature: "u", arguments: [String(id)] });
    }
    return pressed;
  }
}

/** The text may hold markup, and what is said in it is none. */
function escaped(text: string): string {
  return text.replace(/&/g, "&amp;").replace(/</g, "&lt;").replace(/>/g, "&gt;");
}
