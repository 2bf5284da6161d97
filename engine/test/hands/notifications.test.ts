import { expect, test } from "bun:test";
import { existsSync, readFileSync } from "node:fs";
import { join } from "node:path";
import { Bus } from "../../src/hands/bus.ts";
import { DesktopNotifications } from "../../src/hands/notifications.ts";
import { Children } from "../../src/machine/children.ts";
import type { BusConnection } from "../../src/machine/busConnection.ts";
import { program } from "../support/folders.ts";
import { privateBus, service } from "../support/privateBus.ts";
import { going, gone } from "../support/processes.ts";

const notification = { title: "Palomet", text: "Tea & <b>cake</b>", actions: { stop: "Stop", snooze: "Snooze" } };

function notificationsOf(path: string): DesktopNotifications {
  const children = new Children({ PATH: path });
  return new DesktopNotifications(children, new Bus({}));
}

test("a notification of the tool has its buttons, and tells which was pressed", async () => {
  const folder = program("notify-send", `printf '%s\\n' "$@" > $0.args; echo snooze`);
  expect(await notificationsOf(folder).show(notification, going)).toBe("snooze");
  const args = readFileSync(join(folder, "notify-send.args"), "utf8").split("\n");
  expect(args).toContain("--action=stop=Stop");
  expect(args).toContain("--wait");
  expect(args).toContain("Tea &amp; &lt;b&gt;cake&lt;/b&gt;");
});

test("a notification of the tool that was closed is no answer: the tool does not say whether the user did it", async () => {
  const answer = (script: string): Promise<string | undefined> => notificationsOf(program("notify-send", script)).show(notification, going);
  for (const script of ["exit 0", "exit 1", "echo explode", "kill -9 $$"]) expect(await answer(script)).toBeUndefined();
});

test("the tool is not asked where the bus shows the notification, and is where it shows none", async () => {
  const folder = program("notify-send", "echo stop");
  const it = await server((connection) => connection.emit(path, `${name}.ActionInvoked`, "us", [7, "snooze"]), folder);
  expect(await it.notifications.show(notification, going)).toBe("snooze");
  it.close();
  expect(await it.notifications.show(notification, going)).toBe("stop");
});

test("a notification without buttons is not waited for", async () => {
  const folder = program("notify-send", `printf '%s\\n' "$@" > $0.args`);
  expect(await notificationsOf(folder).show({ ...notification, actions: {} }, going)).toBeUndefined();
  expect(readFileSync(join(folder, "notify-send.args"), "utf8").split("\n")).not.toContain("--wait");
  const it = await server(() => {});
  expect(await it.notifications.show({ ...notification, actions: {} }, going)).toBeUndefined();
  expect(it.calls.map(([member]) => member)).toEqual(["Notify"]);
  it.close();
});

test("a notification goes when what it tells of has ended", async () => {
  const folder = program("notify-send", `echo $$ > $0.pid; exec /bin/sleep 60`);
  const ending = new AbortController();
  const shown = notificationsOf(folder).show(notification, ending.signal);
  const pid = join(folder, "notify-send.pid");
  while (!existsSync(pid) || readFileSync(pid, "utf8") === "") await Bun.sleep(1);
  ending.abort();
  expect(await shown).toBeUndefined();
  await gone([Number(readFileSync(pid, "utf8"))]);
});

/** A server of notifications: each is the seventh, and when it is shown the server does this. */
async function server(
  shown: (connection: BusConnection) => void,
  programs = "",
): Promise<{ calls: [string | undefined, unknown[]][]; notifications: DesktopNotifications; close(): void }> {
  const connection = await service(name);
  const calls: [string | undefined, unknown[]][] = [];
  connection.onCall = ({ member, body }) => {
    calls.push([member, body]);
    if (member === "Notify") queueMicrotask(() => shown(connection));
    return member === "Notify" ? { signature: "u", body: [7] } : { signature: "", body: [] };
  };
  const children = new Children({ PATH: programs });
  return { calls, notifications: new DesktopNotifications(children, new Bus(await privateBus())), close: () => connection.close() };
}

const name = "org.freedesktop.Notifications";
const path = "/org/freedesktop/Notifications";

test("over the bus only the buttons of this notification count", async () => {
  const it = await server((connection) => {
    connection.emit(path, `${name}.ActionInvoked`, "us", [6, "stop"]);
    connection.emit(path, `${name}.NotificationClosed`, "uu", [6, 1]);
    connection.emit(path, `${name}.ActionInvoked`, "us", [7, "snooze"]);
  });
  expect(await it.notifications.show(notification, going)).toBe("snooze");
  const actions = ["stop", "Stop", "snooze", "Snooze"];
  const hints = [["urgency", { type: "y", data: 2 }]];
  expect(it.calls).toEqual([["Notify", ["Palomet", 0, "org.palomet.Palomet", "Palomet", "Tea &amp; &lt;b&gt;cake&lt;/b&gt;", actions, hints, 0]]]);
  it.close();
});

test("over the bus a notification that the user closed is told from one that went by itself", async () => {
  const [expired, dismissed] = [1, 2];
  for (const [reason, answer] of [[dismissed, "closed"], [expired, undefined]] as const) {
    const it = await server((connection) => connection.emit(path, `${name}.NotificationClosed`, "uu", [7, reason]));
    expect(await it.notifications.show(notification, going)).toBe(answer as string);
    it.close();
  }
});

test("over the bus it is taken back when what it tells of has ended", async () => {
  const ending = new AbortController();
  const it = await server(() => ending.abort());
  expect(await it.notifications.show(notification, ending.signal)).toBeUndefined();
  expect(it.calls.at(-1)).toEqual(["CloseNotification", [7]]);
  it.close();
});

test("a server that ends takes its notifications along, and a bus without one shows none", async () => {
  const it = await server(() => it.close());
  const ending = new AbortController();
  const shown = it.notifications.show(notification, ending.signal);
  while (it.calls.length === 0) await Bun.sleep(1);
  ending.abort();
  expect(await shown).toBeUndefined();
  expect(await it.notifications.show(notification, going)).toBeUndefined();
});

test("where nothing shows notifications nothing breaks", async () => {
  expect(await notificationsOf("").show(notification, going)).toBeUndefined();
});
