import { expect, test } from "bun:test";
import type { Notification, Notifications } from "../../../src/hands/notifications.ts";
import { Ringing } from "../../../src/hands/timers/ringing.ts";
import { Timers } from "../../../src/hands/timers/timers.ts";
import { ManualClock, settle } from "../../support/clock.ts";

class FakeNotifications implements Notifications {
  /** What goes wrong whenever one is to be shown. */
  failure: Error | undefined;
  shown: { notification: Notification; press(action: string | undefined): void; signal: AbortSignal }[] = [];

  show(notification: Notification, signal: AbortSignal): Promise<string | undefined> {
    if (this.failure) return Promise.reject(this.failure);
    return new Promise((resolve) => this.shown.push({ notification, press: resolve, signal }));
  }
}

function ringing() {
  const clock = new ManualClock();
  const timers = new Timers(clock, { load: () => undefined, save: () => {} });
  const notifications = new FakeNotifications();
  const told: string[] = [];
  const log: string[] = [];
  const voice = { isMuted: false, tell: (sentence: string) => void told.push(sentence) };
  new Ringing(timers, clock, (line) => log.push(line), "en", notifications, voice);
  return { clock, timers, notifications, log, told, voice };
}

test("a timer is told again and again until it is stopped by its notification", async () => {
  const { clock, timers, notifications, told } = ringing();
  timers.set("timer", clock.now() + 60_000, { seconds: 60 });
  await clock.advance(60_000);
  expect(told).toEqual(["The timer of 1 minute is done."]);
  expect(notifications.shown[0]?.notification).toMatchObject({ text: "The timer of 1 minute is done.", actions: { stop: "Stop", snooze: "Snooze" } });
  await clock.advance(20_000);
  expect(told).toHaveLength(2);
  notifications.shown[0]?.press("stop");
  await clock.advance(60_000);
  expect(told).toHaveLength(2);
  expect(timers.ringing).toEqual([]);
});

test("a timer that is snoozed by its notification rings again five minutes later", async () => {
  const { clock, timers, notifications, told } = ringing();
  timers.set("alarm", clock.now() + 1_000, {});
  await clock.advance(1_000);
  notifications.shown[0]?.press("snooze");
  await settle();
  expect(told).toHaveLength(1);
  await clock.advance(300_000);
  expect(told).toHaveLength(2);
});

test("while the agent is muted there is only the notification", async () => {
  const { clock, timers, notifications, told, voice } = ringing();
  voice.isMuted = true;
  timers.set("timer", clock.now() + 1_000, { seconds: 1 });
  await clock.advance(60_000);
  expect(told).toEqual([]);
  expect(notifications.shown).toHaveLength(1);
});

test("a reminder is told once, and the notification goes when it is stopped otherwise", async () => {
  const { clock, timers, notifications, told } = ringing();
  timers.set("reminder", clock.now() + 1_000, { name: "call Ana" });
  await clock.advance(59_000);
  expect(told).toEqual(["A reminder: call Ana."]);
  timers.stop();
  expect(notifications.shown[0]?.signal.aborted).toBe(true);
});

test("a timer whose notification is closed without a button has stopped", async () => {
  const { clock, timers, notifications, told } = ringing();
  timers.set("timer", clock.now() + 60_000, { seconds: 60 });
  await clock.advance(60_000);
  notifications.shown[0]?.press("closed");
  await clock.advance(60_000);
  expect(told).toHaveLength(1);
  expect(timers.ringing).toEqual([]);
});

test("a timer rings on where no notification can be shown", async () => {
  const { clock, timers, notifications, told } = ringing();
  timers.set("timer", clock.now() + 60_000, { seconds: 60 });
  await clock.advance(60_000);
  notifications.shown[0]?.press(undefined);
  await clock.advance(40_000);
  expect(told).toHaveLength(3);
  expect(timers.ringing).toHaveLength(1);
});

test("a timer that nobody stops can be snoozed for a minute after it was told last, and has ended then", async () => {
  const { clock, timers, told } = ringing();
  timers.set("timer", clock.now() + 60_000, { seconds: 60 });
  await clock.advance(60_000 + 4 * 20_000 + 59_999);
  expect(told).toHaveLength(5);
  expect(timers.ringing).toHaveLength(1);
  await clock.advance(1);
  expect(timers.ringing).toEqual([]);
  expect(timers.snooze(300)).toEqual([]);
  expect(clock.pending).toBe(0);
});

test("of a timer that nobody stopped a notification without buttons stays, which nothing waits for", async () => {
  const { clock, timers, notifications } = ringing();
  timers.set("reminder", clock.now() + 1_000, { name: "call Ana" });
  await clock.advance(120_000);
  expect(notifications.shown.map(({ notification, signal }) => [notification.text, notification.actions, signal.aborted])).toEqual([
    ["A reminder: call Ana.", { stop: "Stop", snooze: "Snooze" }, true],
    ["A reminder: call Ana.", {}, false],
  ]);
});

test("a timer rings and ends where notifications fail, and the log says so", async () => {
  const { clock, timers, notifications, log, told } = ringing();
  notifications.failure = new Error("no bus");
  timers.set("reminder", clock.now() + 1_000, { name: "call Ana" });
  await clock.advance(120_000);
  expect(told).toEqual(["A reminder: call Ana."]);
  expect(timers.ringing).toEqual([]);
  expect(log).toEqual(["uma notificação falhou (Error: no bus)", "uma notificação falhou (Error: no bus)"]);
});

test("what goes wrong with the answer of a notification does not end the engine", async () => {
  const { clock, timers, notifications, log } = ringing();
  timers.set("alarm", clock.now() + 1_000, {});
  await clock.advance(1_000);
  timers.onStopped = () => {
    throw new Error("odd");
  };
  notifications.shown[0]?.press("stop");
  await settle();
  expect(log).toEqual(["uma notificação falhou (Error: odd)"]);
});
