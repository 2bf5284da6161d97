// What requests mean that change a timer, an alarm or a reminder that is set.

import type { Day } from "./days.ts";
import type { Slots } from "./grammar.ts";
import { count, dayText, name, text, type Meaning, type Meant } from "./meaning.ts";
import { bareHour, localText, timeOf, timesOf, type Moment } from "./moments.ts";

/** The one that is meant: by its name, or by the slot for its time, its hour of a clock, its day, or its length. */
function meant(kind: string, slots: Slots, called: { name?: string }, to: Record<string, unknown>): Meant {
  const from = (slots.from as Moment | undefined) ?? bareHour(count(slots, "hour"));
  const on = (slots.on as Day | undefined) ?? from?.day;
  const was = count(slots, "was");
  return {
    hand: "timer",
    given: {
      do: "change", kind, ...called,
      ...(on ? { day: dayText(on) } : {}),
      ...(from?.clock ? { times: timesOf(from) } : {}),
      ...(was === undefined ? {} : { seconds: was }),
      ...to,
    },
  };
}

/** To another time of day. */
function toTime(kind: "alarm" | "reminder"): Meaning {
  return (slots, now) => {
    const to = slots.moment as Moment | undefined;
    const at = to && timeOf(to, now, kind === "alarm" ? "alarm" : "remind");
    const called = name(slots);
    if (!at || !called || !to.clock || (slots.hour !== undefined && !bareHour(count(slots, "hour")))) return undefined;
    return meant(kind, slots, called, { to: localText(at), ...(to.day ? {} : { toTimes: timesOf(to) }) });
  };
}

/** By so much later or earlier. */
function by(kind: "timer" | "alarm", sign: 1 | -1): Meaning {
  return (slots) => {
    const minutes = count(slots, "minutes");
    const seconds = minutes === undefined ? count(slots, "duration") : minutes * 60;
    const called = name(slots);
    return seconds !== undefined && seconds >= 1 && called ? meant(kind, slots, called, { by: sign * Math.round(seconds) }) : undefined;
  };
}

export const changeMeanings = {
  lengthenTimer: by("timer", 1),
  shortenTimer: by("timer", -1),
  alarmLater: by("alarm", 1),
  alarmEarlier: by("alarm", -1),
  changeTimer: (slots) => {
    const length = count(slots, "duration");
    // "From ten to fifteen minutes": the unit is said once.
    const before = count(slots, "number");
    const was = before !== undefined && length !== undefined ? { was: before * (length % 3_600 === 0 ? 3_600 : 60) } : {};
    const called = name(slots);
    return length !== undefined && length >= 1 && called ? meant("timer", { ...slots, ...was }, called, { length: Math.round(length) }) : undefined;
  },
  changeAlarm: toTime("alarm"),
  changeReminder: (slots, now) => {
    const about = text(slots, "about");
    const { about: _, ...others } = slots;
    return toTime("reminder")(about === undefined ? slots : { ...others, name: about }, now);
  },
} satisfies Record<string, Meaning>;
