// Notifications of the desktop, with buttons. Where nothing shows them, nothing is shown.

import type { Children } from "../machine/children.ts";
import type { Bus } from "./bus.ts";

export interface Notification {
  title: string;
  text: string;
  /** The buttons: what each is called here and on the screen. None is called "closed" here. */
  actions: Readonly<Record<string, string>>;
}

/** What the user answers who closes a notification without a button. */
export const closed = "closed";

export interface Notifications {
  /**
   * Resolves to the button that was pressed, to `closed`, or to undefined: it could not be shown, or went by itself. One without buttons
   * is not waited for. Takes the notification back when `signal` is raised. Never rejects.
   */
  show(notification: Notification, signal: AbortSignal): Promise<string | undefined>;
}

const service = "org.freedesktop.Notifications";
const path = "/org/freedesktop/Notifications";
const maxOutput = 1 << 16;
/** The tool waits as long for a service of notifications that does not answer. */
const shownMs = 30_000;
/** Why a notification was closed: the user did it. */
const dismissed = 2;
const icon = "org.palomet.Palomet";

/** Shows notifications over the bus, which says why one was closed; else by `notify-send`, which reaches them otherwise in a sandbox. */
export class DesktopNotifications implements Notifications {
  constructor(
    private readonly children: Children,
    private readonly bus: Bus,
  ) {}

  async show(notification: Notification, signal: AbortSignal): Promise<string | undefined> {
    const shown = await this.#showByBus(notification, signal);
    if (shown) return shown.answer;
    return signal.aborted || this.children.find("notify-send") === undefined ? undefined : await this.#showByTool(notification, signal);
  }

  /** The tool waits for the button, and prints its name: nothing when the notification was closed, by the user or by itself. */
  async #showByTool({ title, text, actions }: Notification, signal: AbortSignal): Promise<string | undefined> {
    const buttons = Object.entries(actions).map(([name, label]) => `--action=${name}=${label}`);
    const waiting = buttons.length === 0 ? [] : ["--wait", ...buttons];
    const outcome = await this.children.run(
      ["notify-send", "--app-name=Palomet", `--icon=${icon}`, "--urgency=critical", ...waiting, "--", title, escaped(text)],
      { maxOutput, signal, ...(buttons.length === 0 ? { timeoutMs: shownMs } : {}) },
    );
    if (outcome.kind !== "ended" || outcome.code !== 0 || buttons.length === 0) return undefined;
    const answer = new TextDecoder().decode(outcome.output).trim();
    return Object.hasOwn(actions, answer) ? answer : undefined;
  }

  /** Gives undefined when nothing on the bus shows it. */
  async #showByBus({ title, text, actions }: Notification, signal: AbortSignal): Promise<{ answer: string | undefined } | undefined> {
    const connection = await this.bus.connect();
    if (!connection) return undefined;
    let pressed: string | undefined;
    let id: number | undefined;
    let end = (): void => {};
    const ended = new Promise<void>((resolve) => (end = resolve));
    /** A button may be pressed before the answer with the notification's id has been read. */
    let early: [string | undefined, unknown[]][] = [];
    const take = (name: string | undefined, [of, what]: unknown[]): void => {
      if (of !== id) return;
      if (name === "ActionInvoked" && typeof what === "string" && Object.hasOwn(actions, what)) pressed ??= what;
      if (name === "NotificationClosed" && what === dismissed) pressed ??= closed;
      if (name === "ActionInvoked" || name === "NotificationClosed") end();
    };
    connection.onSignal = ({ member, body }) => (id === undefined ? early.push([member, body]) : take(member, body));
    void connection.closed.then(end);
    signal.addEventListener("abort", end);
    await connection.match(`type='signal',interface='${service}'`);
    const buttons = Object.entries(actions).flat();
    const urgent = [["urgency", { type: "y", data: 2 }]];
    const given = ["Palomet", 0, icon, title, escaped(text), buttons, urgent, 0];
    const [answer] = (await connection.call({ service, path, method: `${service}.Notify`, signature: "susssasa{sv}i", arguments: given })) ?? [];
    if (typeof answer === "number") {
      id = answer;
      for (const [name, values] of early.splice(0)) take(name, values);
      early = [];
      if (!signal.aborted && buttons.length > 0) await ended;
      if (signal.aborted) await connection.call({ service, path, method: `${service}.CloseNotification`, signature: "u", arguments: [id] });
    }
    signal.removeEventListener("abort", end);
    connection.close();
    return id === undefined ? undefined : { answer: pressed };
  }
}

/** The text may hold markup, and what is said in it is none. */
function escaped(text: string): string {
  return text.replace(/&/g, "&amp;").replace(/</g, "&lt;").replace(/>/g, "&gt;");
}
