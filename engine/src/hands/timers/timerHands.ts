// The hands for timers, alarms and reminders: one that sets, changes and cancels them, one that tells of them.

import type { Clock } from "../../base/clock.ts";
import type { Language } from "../../base/language.ts";
import { choiceIn, dayIn, flagIn, isGiven, numberIn, textIn, textsIn, timeIn } from "../given.ts";
import type { Hand } from "../hand.ts";
import { bareDay, clockTime, dayAndTime, duration, joined } from "../saying.ts";
import { changed, changeIn, type Change } from "./changing.ts";
import { mostTimers, type Kind, type Timer, type Timers, type Which } from "./timers.ts";

const kinds: readonly Kind[] = ["timer", "alarm", "reminder"];
const longestSeconds = 366 * 86_400;
const snoozeSeconds = 300;
const mostTold = 5;

/** One that is set. */
interface Sought {
  which: Which;
  /** The times of a day at which it may ring, where there is none at that time. */
  times: readonly string[];
}

interface Cancelling extends Sought {
  isAll: boolean;
}

type Wanted =
  | { do: "set"; kind: Kind; at: number | undefined; seconds: number | undefined; name: string | undefined }
  | ({ do: "cancel" } & Cancelling)
  | ({ do: "change"; change: Change } & Sought)
  | { do: "snooze"; seconds: number };

export function timerHands(timers: Timers, clock: Clock): Hand[] {
  return [new TimerHand(timers, clock), new TimersHand(timers, clock)];
}

const nouns: Record<Language, Record<Kind, [one: string, many: string]>> = {
  en: { timer: ["timer", "timers"], alarm: ["alarm", "alarms"], reminder: ["reminder", "reminders"] },
  pt: { timer: ["timer", "timers"], alarm: ["alarme", "alarmes"], reminder: ["lembrete", "lembretes"] },
};

/** "the pasta timer", "the alarm for tomorrow at 7:00 AM", "the reminder to buy milk". */
export function described({ kind, name, seconds, at }: Timer, now: Date, language: Language): string {
  const [noun] = nouns[language][kind];
  const when = seconds === undefined ? bareDay(dayAndTime(new Date(at), now, language)) : duration(seconds, language);
  if (language === "pt") return name === undefined ? `o ${noun} de ${when}` : kind === "reminder" ? `o lembrete “${name}”` : `o ${noun} “${name}”`;
  if (name !== undefined) return kind === "reminder" ? `the reminder “${name}”` : `the ${name} ${noun}`;
  return seconds === undefined ? `the ${noun} for ${when}` : `the ${noun} of ${when}`;
}

class TimerHand implements Hand {
  readonly id = "timer";
  readonly description =
    "Sets, changes, cancels and snoozes timers, alarms and reminders. A timer or a reminder that is due after a while takes seconds; what is due at a time of day takes at.";
  readonly parameters = {
    type: "object",
    properties: {
      do: { type: "string", enum: ["timer", "alarm", "reminder", "change", "cancel", "snooze"] },
      seconds: { type: "number", description: "Length in seconds; for change and cancel, the length of the one that is meant" },
      at: { type: "string", description: "Local time, YYYY-MM-DDTHH:MM; for change and cancel, of the one that is meant" },
      name: { type: "string", description: "The name of the timer or alarm, or a part of what the one to change or cancel is called" },
      about: { type: "string", description: "What a reminder is about" },
      kind: { type: "string", enum: kinds, description: "For change and cancel" },
      day: { type: "string", description: "For change and cancel: the day on which it would ring, YYYY-MM-DD" },
      to: { type: "string", description: "For change: the new local time, YYYY-MM-DDTHH:MM" },
      length: { type: "number", description: "For change: ring so many seconds from now" },
      by: { type: "number", description: "For change: so many seconds later, or earlier where negative" },
      all: { type: "boolean", description: "Cancel all of the kind" },
    },
    required: ["do"],
  } as const;
  // The next sentence undoes it, and nothing remains of it.
  readonly changes = false;

  constructor(
    private readonly timers: Timers,
    private readonly clock: Clock,
  ) {}

  intent(given: unknown, language: Language): string | undefined {
    const wanted = this.#read(given);
    const isPortuguese = language === "pt";
    const now = new Date(this.clock.now());
    if (!wanted) return undefined;
    if (wanted.do === "snooze") {
      const length = duration(wanted.seconds, language);
      return isPortuguese ? `tocar de novo em ${length}` : `ring again in ${length}`;
    }
    if (wanted.do === "cancel") {
      const { chosen, isClear } = this.#chosen(wanted);
      const names = this.#named(chosen, language);
      if (chosen.length === 0) return isPortuguese ? "cancelar, se houver" : "cancel it, if there is one";
      if (!isClear) return isPortuguese ? `perguntar qual cancelar: ${names}` : `ask which one to cancel: ${names}`;
      return isPortuguese ? `cancelar ${names}` : `cancel ${names}`;
    }
    if (wanted.do === "change") return this.#changeText(wanted, language);
    const { kind, seconds, at, name } = wanted;
    const [noun] = nouns[language][kind];
    const called = name === undefined ? "" : ` “${name}”`;
    if (seconds !== undefined) {
      const length = duration(seconds, language);
      return isPortuguese ? `marcar um ${noun}${called} para daqui a ${length}` : `set ${kind === "alarm" ? "an" : "a"} ${noun}${called} that rings in ${length}`;
    }
    const when = bareDay(dayAndTime(new Date(at ?? 0), now, language));
    return isPortuguese ? `marcar um ${noun}${called} para ${when}` : `set ${kind === "alarm" ? "an" : "a"} ${noun}${called} for ${when}`;
  }

  async act(given: unknown, language: Language): Promise<string> {
    const wanted = this.#read(given);
    const isPortuguese = language === "pt";
    if (!wanted) return isPortuguese ? "Não entendi para quando." : "I did not understand when.";
    if (wanted.do === "cancel") return this.#cancel(wanted, language);
    if (wanted.do === "change") return this.#change(wanted, language);
    if (wanted.do === "snooze") return this.#snooze(wanted.seconds, language);
    const { kind, seconds, name } = wanted;
    const now = this.clock.now();
    const at = wanted.at ?? now + (seconds ?? 0) * 1_000;
    if (at <= now) return isPortuguese ? "Essa hora já passou." : "That time has passed.";
    const timer = this.timers.set(kind, at, { ...(seconds === undefined ? {} : { seconds }), ...(name === undefined ? {} : { name }) });
    if (!timer) return isPortuguese ? `Já há ${mostTimers} marcados.` : `There are ${mostTimers} already.`;
    return set(timer, new Date(now), language);
  }

  #read(given: unknown): Wanted | undefined {
    const what = choiceIn(given, "do", [...kinds, "change", "cancel", "snooze"]);
    const seconds = numberIn(given, "seconds", 1, longestSeconds);
    if (isGiven(given, "seconds") && seconds === undefined) return undefined;
    const at = timeIn(given, "at")?.getTime();
    if (isGiven(given, "at") && at === undefined) return undefined;
    const day = dayIn(given, "day");
    if (isGiven(given, "day") && day === undefined) return undefined;
    const name = textIn(given, "about") ?? textIn(given, "name");
    switch (what) {
      case undefined:
        return undefined;
      case "snooze":
        return { do: "snooze", seconds: seconds ?? snoozeSeconds };
      case "change":
      case "cancel": {
        const kind = choiceIn(given, "kind", kinds);
        const sought = { which: { kind, name, seconds, at, day }, times: textsIn(given, "times", 2) };
        if (what === "cancel") return { do: "cancel", ...sought, isAll: flagIn(given, "all") ?? false };
        const change = changeIn(given, longestSeconds);
        return change && { do: "change", ...sought, change };
      }
      default:
        if ((seconds === undefined) === (at === undefined)) return undefined;
        if (what === "reminder" && name === undefined) return undefined;
        return { do: "set", kind: what, at, seconds: seconds === undefined ? undefined : Math.round(seconds), name };
    }
  }

  /** What is to be cancelled: what rings before what is still to ring. It is not clear when it is several of which one is meant. */
  #chosen({ isAll, ...sought }: Cancelling): { chosen: Timer[]; isClear: boolean } {
    const ringing = this.timers.find(sought.which, this.timers.ringing);
    const found = this.#found(sought);
    if (isAll) return { chosen: [...ringing, ...found], isClear: true };
    return ringing.length > 0 ? { chosen: ringing, isClear: true } : { chosen: found, isClear: found.length <= 1 };
  }

  #found({ which, times }: Sought): Timer[] {
    const exact = times.length > 0 && which.at === undefined ? [] : this.timers.find(which);
    return exact.length > 0 || times.length === 0 ? exact : this.timers.find({ ...which, at: undefined, times });
  }

  #cancel(wanted: Cancelling, language: Language): string {
    const { chosen, isClear } = this.#chosen(wanted);
    if (chosen.length === 0 || !isClear) return this.#notOne(wanted, chosen, language);
    const names = this.#named(chosen.slice(0, mostTold), language);
    this.timers.remove(chosen);
    return language === "pt" ? `Cancelei ${names}.` : `I cancelled ${names}.`;
  }

  #change(wanted: Sought & { change: Change }, language: Language): string {
    const found = this.#found(wanted);
    const [timer] = found;
    if (!timer || found.length > 1) return this.#notOne(wanted, found, language);
    const now = this.clock.now();
    const to = changed(timer, wanted.change, now);
    if (to.at <= now) return language === "pt" ? "Essa hora já passou." : "That time has passed.";
    if (to.at > now + longestSeconds * 1_000) return language === "pt" ? "Não entendi para quando." : "I did not understand when.";
    const moved = this.timers.move(timer, to);
    return moved.seconds === undefined ? set(moved, new Date(now), language) : left(moved, new Date(now), language);
  }

  #changeText(wanted: Sought & { change: Change }, language: Language): string {
    const found = this.#found(wanted);
    const [timer] = found;
    const isPortuguese = language === "pt";
    if (!timer) return isPortuguese ? "mudar, se houver" : "change it, if there is one";
    const names = this.#named(found, language);
    if (found.length > 1) return isPortuguese ? `perguntar qual mudar: ${names}` : `ask which one to change: ${names}`;
    const now = this.clock.now();
    const when = bareDay(dayAndTime(new Date(changed(timer, wanted.change, now).at), new Date(now), language));
    return isPortuguese ? `mudar ${names} para ${when}` : `change ${names} to ${when}`;
  }

  /** There is none, or which one? */
  #notOne({ which }: Sought, found: readonly Timer[], language: Language): string {
    const isPortuguese = language === "pt";
    const [noun] = nouns[language][which.kind ?? "timer"];
    if (found.length === 0) return isPortuguese ? `Não há ${noun} assim.` : `There is no such ${noun}.`;
    const names = this.#named(found.slice(0, mostTold), language);
    return isPortuguese ? `Há ${found.length}: ${names}. Qual?` : `There are ${found.length}: ${names}. Which one?`;
  }

  #named(timers: readonly Timer[], language: Language): string {
    const now = new Date(this.clock.now());
    return joined(timers.map((timer) => described(timer, now, language)), language);
  }

  #snooze(seconds: number, language: Language): string {
    const snoozed = this.timers.snooze(seconds);
    const isPortuguese = language === "pt";
    if (snoozed.length === 0) return isPortuguese ? "Nada está tocando." : "Nothing is ringing.";
    const length = duration(seconds, language);
    return isPortuguese ? `Toca de novo em ${length}.` : `It rings again in ${length}.`;
  }
}

function set({ kind, seconds, at, name }: Timer, now: Date, language: Language): string {
  const [noun] = nouns[language][kind];
  const when = dayAndTime(new Date(at), now, language);
  if (language === "pt") {
    if (kind === "reminder") return seconds === undefined ? `Lembro você ${when}: ${name}.` : `Em ${duration(seconds, language)} eu lembro você: ${name}.`;
    const called = name === undefined ? "" : ` “${name}”`;
    return seconds === undefined ? `Alarme${called} marcado para ${bareDay(when)}.` : `${kind === "alarm" ? "Alarme" : "Timer"}${called}: ${duration(seconds, language)}, contando.`;
  }
  if (kind === "reminder") return seconds === undefined ? `I will remind you ${when}: ${name}.` : `I will remind you in ${duration(seconds, language)}: ${name}.`;
  const called = name === undefined ? `The ${noun}` : `The ${name} ${noun}`;
  return seconds === undefined ? `${called} is set for ${bareDay(when)}.` : `${called} rings in ${duration(seconds, language)}.`;
}

class TimersHand implements Hand {
  readonly id = "timers";
  readonly description = "Tells which timers, alarms and reminders are set and how long is left.";
  readonly parameters = {
    type: "object",
    properties: { kind: { type: "string", enum: kinds }, name: { type: "string" }, day: { type: "string", description: "YYYY-MM-DD" } },
  } as const;
  readonly changes = false;

  constructor(
    private readonly timers: Timers,
    private readonly clock: Clock,
  ) {}

  intent(_given: unknown, language: Language): string {
    return language === "pt" ? "dizer o que está marcado" : "tell what is set";
  }

  async act(given: unknown, language: Language): Promise<string> {
    const which = { kind: choiceIn(given, "kind", kinds), name: textIn(given, "name"), day: dayIn(given, "day") };
    const meant = this.timers.find(which);
    // Who asks for timers may mean an alarm.
    const found = meant.length > 0 ? meant : this.timers.find({ name: which.name, day: which.day });
    const now = new Date(this.clock.now());
    const isPortuguese = language === "pt";
    const [, many] = nouns[language][which.kind ?? "timer"];
    const called = which.name === undefined ? "" : ` “${which.name}”`;
    const nothing = isPortuguese ? "Não há nada marcado." : "Nothing is set.";
    const none = which.kind === undefined && which.name === undefined ? nothing : isPortuguese ? `Não há ${many}${called}.` : `There are no ${many}${called}.`;
    const told = found.slice(0, mostTold).map((timer) => left(timer, now, language));
    const more = found.length - told.length;
    const rest = isPortuguese ? `E mais ${more}.` : `And ${more} more.`;
    return [...(meant.length > 0 ? [] : [none]), ...told, ...(more > 0 ? [rest] : [])].join(" ");
  }
}

/** "The pasta timer rings in 3 minutes." */
function left(timer: Timer, now: Date, language: Language): string {
  const what = described(timer, now, language);
  const subject = what.charAt(0).toUpperCase() + what.slice(1);
  const rest = duration((timer.at - now.getTime()) / 1_000, language);
  if (timer.seconds !== undefined) {
    const isOne = /^1 \S+$/.test(rest);
    return language === "pt" ? `${isOne ? "Falta" : "Faltam"} ${rest} para ${what}.` : `${subject} rings in ${rest}.`;
  }
  if (timer.name === undefined) return language === "pt" ? `${subject} toca em ${rest}.` : `${subject} rings in ${rest}.`;
  const when = dayAndTime(new Date(timer.at), now, language);
  return language === "pt" ? `${subject} é ${when}.` : `${subject} is ${when}.`;
}

/** What is said when it rings. */
export function ringText({ kind, name, seconds, at }: Timer, now: Date, language: Language): string {
  const isLate = now.getTime() - at > 60_000;
  const isPortuguese = language === "pt";
  const due = dayAndTime(new Date(at), now, language);
  const was = !isLate ? "" : isPortuguese ? ` Era para ${bareDay(due)}.` : ` It was due ${due}.`;
  if (kind === "reminder") return `${isPortuguese ? "Lembrete" : "A reminder"}: ${name}.${was}`;
  if (kind === "alarm") {
    const time = clockTime(isLate ? now : new Date(at), language);
    const called = name === undefined ? "" : ` ${isPortuguese ? "Alarme" : "Alarm"}: ${name}.`;
    return (isPortuguese ? (/^1 hora|^0 hora/.test(time) ? `É ${time}.` : `São ${time}.`) : `It is ${time}.`) + called + was;
  }
  const length = seconds === undefined ? "" : duration(seconds, language);
  if (name !== undefined) return isPortuguese ? `O timer “${name}” acabou.${was}` : `The ${name} timer is done.${was}`;
  if (length === "") return isPortuguese ? `O timer acabou.${was}` : `The timer is done.${was}`;
  return isPortuguese ? `O timer de ${length} acabou.${was}` : `The timer of ${length} is done.${was}`;
}
