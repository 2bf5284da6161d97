// Services of a desktop, with the interfaces of their standards: what is called by another path, name or signature is refused, as by
// real ones. Each is on the tests' own bus, or on that of an environment.

import type { BusConnection } from "../../src/machine/busConnection.ts";
import type { Message, Variant } from "../../src/machine/busMessages.ts";
import { endService, service } from "./privateBus.ts";

interface Method {
  takes: string;
  gives: string;
  /** Gives the values of the answer, or undefined for an error. */
  does(values: unknown[], call: Message): unknown[] | undefined;
}

type Environment = Record<string, string>;

class Service {
  protected constructor(
    private readonly name: string,
    private readonly path: string,
    protected readonly connection: BusConnection,
    methods: (interfaceName: string, member: string) => Method | undefined,
  ) {
    connection.onCall = (call) => {
      const method = methods(call.interface ?? "", call.member ?? "");
      if (!method || call.path !== path || (call.signature ?? "") !== method.takes) return undefined;
      const body = method.does(call.body, call);
      return body && { signature: method.gives, body };
    };
  }

  async close(): Promise<void> {
    await endService(this.connection, this.name);
  }

  protected emit(member: string, signature: string, body: unknown[]): void {
    this.connection.emit(this.path, `${this.name}.${member}`, signature, body);
  }
}

/** A media player: MPRIS 2.2, by freedesktop.org. */
export class MediaPlayer extends Service {
  readonly calls: string[] = [];
  /** It refuses what it is told to do. */
  isStubborn = false;

  static async open(called: string, status: string, metadata?: Variant, environment?: Environment): Promise<MediaPlayer> {
    const name = `org.mpris.MediaPlayer2.${called}`;
    return new MediaPlayer(name, await service(name, environment), status, metadata);
  }

  private constructor(name: string, connection: BusConnection, status: string, metadata: Variant | undefined) {
    const player = "org.mpris.MediaPlayer2.Player";
    const properties: Record<string, Variant | undefined> = { PlaybackStatus: { type: "s", data: status }, Metadata: metadata };
    const get = ([of, property]: unknown[]): unknown[] | undefined => {
      const value = of === player ? properties[String(property)] : undefined;
      return value && [value];
    };
    const act = (_: unknown[], { member = "" }: Message): unknown[] | undefined => {
      this.calls.push(member);
      return this.isStubborn ? undefined : [];
    };
    super(name, "/org/mpris/MediaPlayer2", connection, (interfaceName, member) => {
      if (interfaceName === "org.freedesktop.DBus.Properties") return member === "Get" ? { takes: "ss", gives: "v", does: get } : undefined;
      const isAction = interfaceName === player && ["Play", "Pause", "PlayPause", "Stop", "Next", "Previous"].includes(member);
      return isAction ? { takes: "", gives: "", does: act } : undefined;
    });
  }
}

/** The portal's screenshots: org.freedesktop.portal.Screenshot, version 2, and org.freedesktop.portal.Request. */
export class ScreenshotPortal extends Service {
  readonly options: unknown[] = [];

  /** It answers so, and before the call has returned or afterwards: both have been seen. */
  static async open(answer: [number, unknown[]], order: "early" | "late" = "late", environment?: Environment): Promise<ScreenshotPortal> {
    const name = "org.freedesktop.portal.Desktop";
    return new ScreenshotPortal(name, await service(name, environment), answer, order);
  }

  private constructor(name: string, connection: BusConnection, answer: [number, unknown[]], order: "early" | "late") {
    const path = "/org/freedesktop/portal/desktop";
    const screenshot = ([, options]: unknown[], { sender = "" }: Message): unknown[] => {
      this.options.push(options);
      const token = (options as [string, Variant][]).find(([key]) => key === "handle_token")?.[1].data;
      const handle = `${path}/request/${sender.slice(1).replaceAll(".", "_")}/${token}`;
      // It answers to whoever has asked, and to nobody else.
      const respond = (): void => connection.emit(handle, "org.freedesktop.portal.Request.Response", "ua{sv}", answer, sender);
      if (order === "early") respond();
      else queueMicrotask(respond);
      return [handle];
    };
    super(name, path, connection, (interfaceName, member) => {
      const isKnown = interfaceName === "org.freedesktop.portal.Screenshot" && member === "Screenshot";
      return isKnown ? { takes: "sa{sv}", gives: "o", does: screenshot } : undefined;
    });
  }
}

/** A screen saver, as KDE, GNOME and Xfce have it: org.freedesktop.ScreenSaver. */
export class ScreenSaver extends Service {
  locks = 0;

  static async open(environment?: Environment): Promise<ScreenSaver> {
    const name = "org.freedesktop.ScreenSaver";
    return new ScreenSaver(name, await service(name, environment));
  }

  private constructor(name: string, connection: BusConnection) {
    super(name, "/org/freedesktop/ScreenSaver", connection, (interfaceName, member) =>
      interfaceName === name && member === "Lock" ? { takes: "", gives: "", does: () => (this.locks++, []) } : undefined,
    );
  }
}

export interface ShownNotification {
  id: number;
  app: string;
  icon: string;
  title: string;
  text: string;
  /** Their names and labels, in turns. */
  actions: string[];
  hints: unknown;
  /** Milliseconds; 0 for one that stays. */
  expiry: number;
}

const [expired, dismissed, taken] = [1, 2, 3];

/** A server of notifications: the Desktop Notifications of freedesktop.org, 1.2. */
export class NotificationServer extends Service {
  readonly shown: ShownNotification[] = [];
  /** Those that were taken back. */
  readonly takenBack: number[] = [];
  /** Called when the answer with the id has been sent, or before. */
  onShown: (notification: ShownNotification) => void = () => {};
  isEarly = false;

  static async open(environment?: Environment): Promise<NotificationServer> {
    const name = "org.freedesktop.Notifications";
    return new NotificationServer(name, await service(name, environment));
  }

  private constructor(name: string, connection: BusConnection) {
    const notify: Method = {
      takes: "susssasa{sv}i",
      gives: "u",
      does: ([app, , icon, title, text, actions, hints, expiry]) => {
        const one = { id: 7 + this.shown.length, app, icon, title, text, actions, hints, expiry } as ShownNotification;
        this.shown.push(one);
        if (this.isEarly) this.onShown(one);
        else queueMicrotask(() => this.onShown(one));
        return [one.id];
      },
    };
    const close: Method = {
      takes: "u",
      gives: "",
      does: ([id]) => {
        if (!this.shown.some((one) => one.id === id)) return undefined;
        this.takenBack.push(Number(id));
        queueMicrotask(() => this.#closed(Number(id), taken!));
        return [];
      },
    };
    super(name, "/org/freedesktop/Notifications", connection, (interfaceName, member) =>
      interfaceName === name ? { Notify: notify, CloseNotification: close }[member] : undefined,
    );
  }

  /** The user presses a button, with which the notification goes. */
  press(id: number, action: string): void {
    this.emit("ActionInvoked", "us", [id, action]);
    this.dismiss(id);
  }

  dismiss(id: number): void {
    this.#closed(id, dismissed!);
  }

  expire(id: number): void {
    this.#closed(id, expired!);
  }

  #closed(id: number, reason: number): void {
    this.emit("NotificationClosed", "uu", [id, reason]);
  }
}
