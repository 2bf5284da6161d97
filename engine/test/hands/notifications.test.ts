import { expect, test } from "bun:test";
import { existsSync, readFileSync } from "node:fs";
import { join } from "node:path";
import { Bus } from "../../src/hands/bus.ts";
import { DesktopNotifications } from "../../src/hands/notifications.ts";
import { Children } from "../../src/machine/children.ts";
import { program } from "../support/folders.ts";
import { going } from "../support/processes.ts";

const notification = { title: "Palomet", text: "Tea & <b>cake</b>", actions: { stop: "Stop", snooze: "Snooze" } };

function notificationsOf(path: string): DesktopNotifications {
  const children = new Children({ PATH: path });
  return new DesktopNotifications(children, new Bus(children));
}

test("a notification of the tool has its buttons, and tells which was pressed", async () => {
  const folder = program("notify-send", `printf '%s\\n' "$@" > $0.args; echo snooze`);
  expect(await notificationsOf(folder).show(notification, going)).toBe("snooze");
  const args = readFileSync(join(folder, "notify-send.args"), "utf8").split("\n");
  expect(args).toContain("--action=stop=Stop");
  expect(args).toContain("--wait");
  expect(args).toContain("Tea &amp; &lt;b&gt;cake&lt;/b&gt;");
});

test("a notification that is closed, or answered with nonsense, was not pressed", async () => {
  for (const script of ["exit 0", "exit 1", "echo explode"]) {
    expect(await notificationsOf(program("notify-send", script)).show(notification, going)).toBeUndefined();
  }
});

test("a notification goes when what it tells of has ended", async () => {
  const folder = program("notify-send", `trap 'echo gone > $0.gone; exit 0' TERM; echo up > $0.up; while :; do /bin/sleep 0.05; done`);
  const ending = new AbortController();
  const shown = notificationsOf(folder).show(notification, ending.signal);
  while (!existsSync(join(folder, "notify-send.up"))) await Bun.sleep(1);
  ending.abort();
  expect(await shown).toBeUndefined();
  while (!existsSync(join(folder, "notify-send.gone"))) await Bun.sleep(1);
});

/** A `busctl` that takes the notification as the seventh, and prints these signals. */
function busWith(...signals: [string, unknown[]][]): string {
  const lines = signals.map(([member, data]) => `echo '${JSON.stringify({ type: "signal", member, payload: { type: "us", data } })}'`);
  return program(
    "busctl",
    `case "$*" in
       *Notify*) echo '{"type":"u","data":[7]}';;
       *CloseNotification*) echo closed > $0.closed; echo '{"type":"","data":[]}';;
       *monitor*) ${lines.join("; ")}${lines.length > 0 ? ";" : ""} exec /bin/sleep 60;;
     esac`,
  );
}

test("over the bus only the buttons of this notification count", async () => {
  const folder = busWith(["ActionInvoked", [6, "stop"]], ["NotificationClosed", [6, 1]], ["ActionInvoked", [7, "snooze"]]);
  expect(await notificationsOf(folder).show(notification, going)).toBe("snooze");
  expect(await notificationsOf(busWith(["NotificationClosed", [7, 2]])).show(notification, going)).toBeUndefined();
});

test("over the bus it is taken back when what it tells of has ended", async () => {
  const folder = busWith();
  const ending = new AbortController();
  const shown = notificationsOf(folder).show(notification, ending.signal);
  ending.abort();
  expect(await shown).toBeUndefined();
  expect(existsSync(join(folder, "busctl.closed"))).toBe(true);
});

test("where nothing shows notifications nothing breaks", async () => {
  expect(await notificationsOf("").show(notification, going)).toBeUndefined();
  expect(await notificationsOf(program("busctl", "exit 1")).show(notification, going)).toBeUndefined();
});
