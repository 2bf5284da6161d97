// A session on a desktop: from the login to the logout. Whoever logs in again gets a new display and a new bus, and the same home.

import { existsSync, mkdirSync, readdirSync, readFileSync } from "node:fs";
import { join } from "node:path";
import { AccessibleTree } from "../rehearsal/accessible";
import { homeOf, sessionOf, startBus, startDisplay, trayHost } from "../rehearsal/desktop";
import { end, type Environment, type Program, run, start, until } from "../rehearsal/process";
import { Screen } from "../rehearsal/screen";
import type { Desktop } from "./desktop";

/** What a session tells its programs besides what the login told it. */
const told = ["SESSION_MANAGER", "DISPLAY", "XAUTHORITY", "WAYLAND_DISPLAY", "SWAYSOCK"];

export class Session {
    private constructor(
        /** What the session's programs have. */
        readonly environment: Environment,
        readonly screen: Screen,
        readonly tree: AccessibleTree,
        private readonly desktop: Desktop,
        private readonly manager: Program,
        private readonly below: Program[],
    ) {}

    static async login(desktop: Desktop, folder: string, runtimeFolder: string): Promise<Session> {
        const home = join(folder, "home");
        if (!existsSync(home)) {
            mkdirSync(home);
            await desktop.setUp?.(home);
        }
        const outside: Environment = {
            ...homeOf(home),
            ...sessionOf(desktop.name, desktop.type, runtimeFolder),
            ...desktop.environment,
            LIBGL_ALWAYS_SOFTWARE: "1",
            USER: "somebody",
            SHELL: "/bin/bash",
        };
        const display = await startDisplay(outside, folder, "1280x800");
        const bus = await startBus(outside, folder);
        const below = [bus, display];
        if (desktop.hasSystemBus) {
            const system: Environment = { ...outside };
            below.unshift(await startBus(system, folder));
            outside.DBUS_SYSTEM_BUS_ADDRESS = system.DBUS_SESSION_BUS_ADDRESS!;
        }
        const manager = start(desktop.session, outside, join(folder, "session.log"));
        if (desktop.hasTray) await trayHost(outside);
        const member = await until(`${desktop.member} of the session`, () => environmentOf(desktop.member));
        const environment = { ...outside };
        for (const name of told) if (member[name] !== undefined) environment[name] = member[name];
        const tree = await AccessibleTree.open(environment);
        const session = new Session(environment, new Screen(environment, folder, outside), tree, desktop, manager, below);
        await desktop.settle?.(session);
        return session;
    }

    /** Ends it as its own menu does, and waits until it is over. */
    async logout(): Promise<void> {
        // It may be gone before it answers.
        await run(this.desktop.logout, this.environment).catch(() => undefined);
        await until("the session to end", () => this.manager.exitCode !== null);
        for (const program of this.below) await end(program);
    }
}

/** The processes that are so called. */
export function processesOf(name: RegExp): number[] {
    return readdirSync("/proc").map(Number).filter((pid) => pid > 0 && name.test(nameOf(pid)));
}

function nameOf(pid: number): string {
    try {
        return readFileSync(`/proc/${pid}/comm`, "utf8").trim();
    } catch {
        return "";
    }
}

function environmentOf(name: RegExp): Environment | undefined {
    const [pid] = processesOf(name);
    if (pid === undefined) return undefined;
    const pairs = readFileSync(`/proc/${pid}/environ`, "utf8").split("\0").filter((pair) => pair.includes("="));
    return Object.fromEntries(pairs.map((pair) => [pair.slice(0, pair.indexOf("=")), pair.slice(pair.indexOf("=") + 1)]));
}
