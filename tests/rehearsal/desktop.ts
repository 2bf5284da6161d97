// A private desktop: X server, window manager, session bus and a panel that hosts tray items.

import { mkdirSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import { type Environment, firstLine, type Program, run, start, startPiped, until } from "./process";

const panelSettings = `<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=6;x=0;y=0"/>
      <property name="length" type="uint" value="100"/>
      <property name="size" type="uint" value="28"/>
      <property name="plugin-ids" type="array"><value type="int" value="1"/></property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="systray"/>
  </property>
</channel>
`;

// A window manager that keeps but one key to itself: Alt+Space is ours.
const windowManagerSettings = `<?xml version="1.0" encoding="UTF-8"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <keyboard><keybind key="A-F4"><action name="Close"/></keybind></keyboard>
</openbox_config>
`;

/** Starts all of it and gives the environment in which a user's programs run there. */
export async function startDesktop(folder: string, runtimeFolder: string): Promise<Environment> {
    const environment: Environment = { ...homeOf(join(folder, "home")), ...sessionOf("XFCE", "x11", runtimeFolder), QT_QPA_PLATFORM: "xcb" };
    const panelFolder = join(environment.XDG_CONFIG_HOME!, "xfce4/xfconf/xfce-perchannel-xml");
    mkdirSync(panelFolder, { recursive: true });
    writeFileSync(join(panelFolder, "xfce4-panel.xml"), panelSettings);

    const windowManagerFile = join(folder, "window-manager.xml");
    writeFileSync(windowManagerFile, windowManagerSettings);

    // What a sanitizer is told, if the program was built with one.
    for (const name of ["ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS"]) {
        if (process.env[name] !== undefined) environment[name] = process.env[name];
    }
    await startDisplay(environment, folder, "1280x800");
    await startBus(environment, folder);
    start(["openbox", "--config-file", windowManagerFile], environment, join(folder, "window-manager.log"));
    start(["xfce4-panel", "--disable-wm-check"], environment, join(folder, "panel.log"));
    await trayHost(environment);
    return environment;
}

/** A user's own folders, as programs are told of them. */
export function homeOf(home: string): Environment {
    return {
        PATH: process.env.PATH ?? "/usr/local/bin:/usr/bin:/bin",
        HOME: home,
        XDG_CONFIG_HOME: join(home, ".config"),
        XDG_STATE_HOME: join(home, ".local/state"),
        XDG_DATA_HOME: join(home, ".local/share"),
        XDG_CACHE_HOME: join(home, ".cache"),
        LANG: "C.UTF-8",
        LANGUAGE: "en",
    };
}

/** What a login tells the programs of a session. */
export function sessionOf(desktop: string, type: "x11" | "wayland", runtimeFolder: string): Environment {
    return { XDG_RUNTIME_DIR: runtimeFolder, XDG_CURRENT_DESKTOP: desktop, XDG_SESSION_TYPE: type };
}

/** Starts an X server without a screen, and names it in the environment. */
export async function startDisplay(environment: Environment, folder: string, size: string): Promise<Program> {
    const server = startPiped(
        ["Xvfb", "-displayfd", "1", "-noreset", "-nolisten", "tcp", "-screen", "0", `${size}x24`],
        environment,
        join(folder, "x-server.log"),
    );
    environment.DISPLAY = `:${(await firstLine(server)).trim()}`;
    return server;
}

/** Starts a session bus, and names it in the environment. */
export async function startBus(environment: Environment, folder: string): Promise<Program> {
    const bus = startPiped(["dbus-daemon", "--session", "--nofork", "--print-address=1"], environment, join(folder, "bus.log"));
    environment.DBUS_SESSION_BUS_ADDRESS = (await firstLine(bus)).trim();
    return bus;
}

/** Waits until something on the desktop shows tray items. */
export async function trayHost(environment: Environment): Promise<void> {
    await until("the tray host", async () =>
        (await property(environment, "IsStatusNotifierHostRegistered").catch(() => "")).includes("true"), 60_000);
}

async function property(environment: Environment, name: string): Promise<string> {
    return run(
        [
            "gdbus", "call", "--session", "--dest", "org.kde.StatusNotifierWatcher", "--object-path", "/StatusNotifierWatcher",
            "--method", "org.freedesktop.DBus.Properties.Get", "org.kde.StatusNotifierWatcher", name,
        ],
        environment,
    );
}

export interface MenuItem {
    id: number;
    label: string;
    isEnabled: boolean;
}

/** The program's item in the tray, and its menu. */
export class TrayItem {
    private constructor(
        private readonly environment: Environment,
        private readonly service: string,
    ) {}

    static async find(environment: Environment): Promise<TrayItem> {
        const service = await until("the tray item", async () => {
            const items = await property(environment, "RegisteredStatusNotifierItems");
            return /'([^'/]+)\/StatusNotifierItem'/.exec(items)?.[1];
        });
        return new TrayItem(environment, service);
    }

    async menu(): Promise<MenuItem[]> {
        const layout = await this.#call("GetLayout", "0", "-1", "[]");
        const items: MenuItem[] = [];
        for (const match of layout.matchAll(/\((\d+), \{([^}]*)\}/g)) {
            const label = /'label': <'((?:[^'\\]|\\.)*)'>/.exec(match[2] ?? "")?.[1];
            if (label === undefined) continue;
            items.push({ id: Number(match[1]), label, isEnabled: !/'enabled': <false>/.test(match[2] ?? "") });
        }
        return items;
    }

    /** Opens the menu, as a click on the item does. */
    async open(): Promise<void> {
        await this.#call("AboutToShow", "0");
    }

    async click(label: string): Promise<void> {
        const item = (await this.menu()).find((candidate) => candidate.label === label);
        if (!item) throw new Error(`the menu has no item "${label}"`);
        await this.#call("Event", String(item.id), "clicked", "<0>", "0");
    }

    #call(method: string, ...parameters: string[]): Promise<string> {
        return run(
            [
                "gdbus", "call", "--session", "--dest", this.service, "--object-path", "/MenuBar",
                "--method", `com.canonical.dbusmenu.${method}`, "--", ...parameters,
            ],
            this.environment,
        );
    }
}
