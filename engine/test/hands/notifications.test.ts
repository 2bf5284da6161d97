import { afterEach, expect, test } from "bun:test";
import { existsSync, readFileSync } from "node:fs";
import { join } from "node:path";
import { Bus } from "../../src/hands/bus.ts";
import { DesktopNotifications } from "../../src/hands/notifications.ts";
import { Children } from "../../src/machine/children.ts";
import { NotificationServer } from "../support/desktopServices.ts";
import { program } from "../support/folders.ts";
import { privateBus } from "../support/privateBus.ts";
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
  const { server, notifications } = await overBus((it, id) => it.press(id, "snooze"), folder);
  expect(await notifications.show(notification, going)).toBe("snooze");
  await server.close();
  expect(await notifications.show(notification, going)).toBe("stop");
});

test("a notification without buttons is not waited for", async () => {
  const folder = program("notify-send", `printf '%s\\n' "$@" > $0.args`);
  expect(await notificationsOf(folder).show({ ...notification, actions: {} }, going)).toBeUndefined();
  expect(readFileSync(join(folder, "notify-send.args"), "utf8").split("\n")).not.toContain("--wait");
  const { server, notifications } = await overBus(() => {});
  expect(await notifications.show({ ...notification, actions: {} }, going)).toBeUndefined();
  expect([server.shown.length, server.takenBack]).toEqual([1, []]);
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

const servers: NotificationServer[] = [];
afterEach(async () => void (await Promise.all(servers.splice(0).map((server) => server.close()))));

/** A server on the bus that does this when it has shown a notification, and what shows them there or by these programs. */
async function overBus(onShown: (server: NotificationServer, id: number) => void, programs = "") {
  const server = await NotificationServer.open();
  servers.push(server);
  server.onShown = ({ id }) => onShown(server, id);
  return { server, notifications: new DesktopNotifications(new Children({ PATH: programs }), new Bus(await privateBus())) };
}

test("over the bus only the buttons of this notification count", async () => {
  for (const isEarly of [false, true]) {
    const { server, notifications } = await overBus((it, id) => {
      it.press(id - 1, "stop");
      it.dismiss(id - 1);
      it.press(id, "snooze");
    });
    server.isEarly = isEarly;
    expect(await notifications.show(notification, going)).toBe("snooze");
    expect(server.shown).toEqual([
      {
        id: 7, app: "Palomet", icon: "org.palomet.Palomet", title: "Palomet", text: "Tea &amp; &lt;b&gt;cake&lt;/b&gt;",
        actions: ["stop", "Stop", "snooze", "Snooze"], hints: [["urgency", { type: "y", data: 2 }]], expiry: 0,
      },
    ]);
    await server.close();
    servers.length = 0;
  }
});

test("over the bus a notification that the user closed is told from one that went by itself", async () => {
  const { server, notifications } = await overBus((it, id) => it.dismiss(id));
  expect(await notifications.show(notification, going)).toBe("closed");
  server.onShown = ({ id }) => server.expire(id);
  expect(await notifications.show(notification, going)).toBeUndefined();
});

test("over the bus it is taken back when what it tells of has ended", async () => {
  const ending = new AbortController();
  const { server, notifications } = await overBus(() => ending.abort());
  expect(await notifications.show(notification, ending.signal)).toBeUndefined();
  expect(server.takenBack).toEqual([7]);
});

test("a server that ends takes its notifications along, and a bus without one shows none", async () => {
  const ending = new AbortController();
  const { server, notifications } = await overBus((it) => void it.close().then(() => ending.abort()));
  expect(await notifications.show(notification, ending.signal)).toBeUndefined();
  expect(server.shown).toHaveLength(1);
  expect(await notifications.show(notification, going)).toBeUndefined();
});

test("where nothing shows notifications nothing breaks", async () => {
  expect(await notificationsOf("").show(notification, going)).toBeUndefined();
});
