// The program as a screen reader sees it: its tree on the desktop's accessibility bus.

import { type Environment, run, until } from "./process";

export interface Node {
    service: string;
    path: string;
}

const registry: Node = { service: "org.a11y.atspi.Registry", path: "/org/a11y/atspi/accessible/root" };

// The numbers of the states, as the protocol has them.
const states = { checked: 4, focused: 12, selected: 23 };
/** Each question is a program of its own; more of them at once only wait for each other. */
const mostAtOnce = 8;

export class AccessibleTree {
    private constructor(private readonly environment: Environment) {}

    /** Begins to read the desktop, as a screen reader does: programs that start from now on show what they are. */
    static async open(environment: Environment): Promise<AccessibleTree> {
        const bus = ["gdbus", "call", "--session", "--dest", "org.a11y.Bus", "--object-path", "/org/a11y/bus", "--method"];
        await run([...bus, "org.freedesktop.DBus.Properties.Set", "org.a11y.Status", "IsEnabled", "<true>"], environment);
        const address = textIn(await run([...bus, "org.a11y.Bus.GetAddress"], environment));
        return new AccessibleTree({ ...environment, DBUS_SESSION_BUS_ADDRESS: address });
    }

    /** The windows of the programs that are so called, shown or not: our own, if no others are asked for. */
    async windows(called = /^palomet$/i): Promise<Node[]> {
        const programs = await this.children(registry);
        const wanted = await inTurn(programs, async (program) => called.test(await this.name(program).catch(() => "")));
        return (await inTurn(programs.filter((_, index) => wanted[index]), (program) => this.children(program))).flat();
    }

    /** The node of that role ("push button") and name below this one; waits for it. What is hidden is none. */
    find(from: Node, role: string, name: string): Promise<Node> {
        return until(`a ${role} "${name}"`, () => this.#first(from, async (node) =>
            (await this.name(node)) === name && (await this.role(node)) === role && (await this.#hasPlace(node))));
    }

    /** The first node of that role below this one, if there is any. */
    firstOf(from: Node, role: string): Promise<Node | undefined> {
        return this.#first(from, async (node) => (await this.role(node)) === role);
    }

    /** All nodes of such a role below this one that have a place. */
    async all(from: Node, role: RegExp): Promise<Node[]> {
        const below = await this.children(from).catch(() => []);
        return (await inTurn(below, async (node) => {
            const isOne = role.test(await this.role(node).catch(() => "")) && (await this.#hasPlace(node).catch(() => false));
            return [...(isOne ? [node] : []), ...(await this.all(node, role))];
        })).flat();
    }

    /** Everything below this node that has a name and a place, in the order of the tree. What goes away meanwhile has neither. */
    async names(from: Node): Promise<string[]> {
        const below = await this.children(from).catch(() => []);
        const all = await inTurn(below, async (node) => {
            const itself = Promise.all([this.name(node), this.#hasPlace(node)]).catch(() => ["", false] as const);
            const [[name, isThere], rest] = await Promise.all([itself, this.names(node)]);
            return name !== "" && isThere ? [name, ...rest] : rest;
        });
        return all.flat();
    }

    async name(node: Node): Promise<string> {
        const reply = await this.#call(node, "org.freedesktop.DBus.Properties.Get", "org.a11y.atspi.Accessible", "Name");
        return textIn(reply);
    }

    async description(node: Node): Promise<string> {
        const reply = await this.#call(node, "org.freedesktop.DBus.Properties.Get", "org.a11y.atspi.Accessible", "Description");
        return textIn(reply);
    }

    async role(node: Node): Promise<string> {
        return textIn(await this.#call(node, "org.a11y.atspi.Accessible.GetRoleName"));
    }

    async has(node: Node, state: keyof typeof states): Promise<boolean> {
        const reply = await this.#call(node, "org.a11y.atspi.Accessible.GetState");
        const words = [...reply.matchAll(/\d+(?=[\],])/g)].map(([digits]) => Number(digits));
        return ((words[states[state] >> 5] ?? 0) >>> (states[state] & 31) & 1) === 1;
    }

    /** Left, top, width and height on the screen. */
    async place(node: Node): Promise<[number, number, number, number]> {
        const reply = await this.#call(node, "org.a11y.atspi.Component.GetExtents", "0");
        return (reply.match(/-?\d+/g) ?? []).map(Number) as [number, number, number, number];
    }

    /** Gives it the keyboard's focus, and waits until it has it. */
    async focus(node: Node): Promise<void> {
        await this.#call(node, "org.a11y.atspi.Component.GrabFocus");
        await until("the focus", () => this.has(node, "focused"));
    }

    async children(node: Node): Promise<Node[]> {
        const reply = await this.#call(node, "org.a11y.atspi.Accessible.GetChildren");
        return [...reply.matchAll(/\('([^']+)', (?:objectpath )?'([^']+)'\)/g)].map(([, service, path]) => ({ service: service!, path: path! }));
    }

    async #hasPlace(node: Node): Promise<boolean> {
        const [, , width, height] = await this.place(node);
        return width > 0 && height > 0;
    }

    /** Level by level: what is looked for is seldom deep. What goes away meanwhile is passed over. */
    async #first(from: Node, isIt: (node: Node) => Promise<boolean>): Promise<Node | undefined> {
        let level = [from];
        while (level.length > 0) {
            level = (await inTurn(level, (node) => this.children(node).catch(() => []))).flat();
            const found = await inTurn(level, (node) => isIt(node).catch(() => false));
            const at = found.indexOf(true);
            if (at >= 0) return level[at];
        }
        return undefined;
    }

    #call({ service, path }: Node, method: string, ...parameters: string[]): Promise<string> {
        return run(["gdbus", "call", "--session", "--dest", service, "--object-path", path, "--method", method, "--", ...parameters], this.environment);
    }
}

/** The first text of a reply, as gdbus writes it: in quotes of either kind, with escapes. */
function textIn(reply: string): string {
    const quoted = /'((?:[^'\\]|\\.)*)'|"((?:[^"\\]|\\.)*)"/s.exec(reply);
    const text = quoted?.[1] ?? quoted?.[2] ?? "";
    return text.replace(/\\(u[0-9a-f]{4}|n|.)/g, (_, what: string) =>
        what === "n" ? "\n" : what.length === 5 ? String.fromCharCode(Number.parseInt(what.slice(1), 16)) : what);
}

/** Does that with each, a few at a time, and gives what came of it in their order. */
async function inTurn<T, R>(list: T[], work: (one: T) => Promise<R>): Promise<R[]> {
    const done: R[] = [];
    for (let at = 0; at < list.length; at += mostAtOnce) done.push(...(await Promise.all(list.slice(at, at + mostAtOnce).map(work))));
    return done;
}
