import { describe, expect, test } from "bun:test";
import type { Language } from "../../../src/base/language.ts";
import { ringText, timerHands } from "../../../src/hands/timers/timerHands.ts";
import { Timers } from "../../../src/hands/timers/timers.ts";
import { ManualClock } from "../../support/clock.ts";
import { going } from "../../support/processes.ts";

/** It is Monday, 5 January 2026, 15:20. */
function handsOf(language: Language = "en") {
  const clock = new ManualClock();
  const timers = new Timers(clock, { load: () => undefined, save: () => {} });
  const [timer, told] = timerHands(timers, clock);
  const act = (given: unknown): Promise<string> => timer!.act(given, language, going);
  const tell = (given: unknown = {}): Promise<string> => told!.act(given, language, going);
  return { clock, timers, act, tell, intent: (given: unknown) => timer!.intent(given, language) };
}

describe("the hand for timers", () => {
  test("sets several, names them, and tells how long is left", async () => {
    const { clock, act, tell } = handsOf();
    expect(await act({ do: "timer", seconds: 300 })).toBe("The timer rings in 5 minutes.");
    expect(await act({ do: "timer", seconds: 5_400, name: "pasta" })).toBe("The pasta timer rings in 1 hour and 30 minutes.");
    await clock.advance(60_000);
    expect(await tell({ kind: "timer" })).toBe("The timer of 5 minutes rings in 4 minutes. The pasta timer rings in 1 hour and 29 minutes.");
    expect(await tell({ kind: "timer", name: "pasta" })).toBe("The pasta timer rings in 1 hour and 29 minutes.");
    expect(await tell({ kind: "alarm", name: "pasta" })).toBe("There are no alarms “pasta”. The pasta timer rings in 1 hour and 29 minutes.");
  });

  test("names what is set of another kind when there is none of the kind", async () => {
    const { act, tell } = handsOf();
    expect(await tell({ kind: "timer" })).toBe("There are no timers.");
    expect(await tell({})).toBe("Nothing is set.");
    await act({ do: "alarm", seconds: 3_600 });
    await act({ do: "reminder", seconds: 7_200, about: "call Ana" });
    expect(await tell({ kind: "timer" })).toBe("There are no timers. The alarm of 1 hour rings in 1 hour. The reminder “call Ana” rings in 2 hours.");
    expect(await tell({ kind: "timer", name: "pasta" })).toBe("There are no timers “pasta”.");
    const portuguese = handsOf("pt");
    await portuguese.act({ do: "alarm", seconds: 7_200 });
    expect(await portuguese.tell({ kind: "timer" })).toBe("Não há timers. Faltam 2 horas para o alarme de 2 horas.");
  });

  test("counts in Portuguese what is left", async () => {
    for (const [seconds, left] of [
      [1, "Falta 1 segundo"], [2, "Faltam 2 segundos"], [60, "Falta 1 minuto"], [61, "Faltam 1 minuto e 1 segundo"], [3_600, "Falta 1 hora"], [86_400, "Falta 1 dia"],
    ] as const) {
      const { act, tell } = handsOf("pt");
      await act({ do: "timer", seconds, name: "chá" });
      expect(await tell()).toBe(`${left} para o timer “chá”.`);
    }
  });

  test("says the day and the hour of an alarm and of a reminder", async () => {
    const { act, tell } = handsOf();
    expect(await act({ do: "alarm", at: "2026-01-06T07:15" })).toBe("The alarm is set for tomorrow at 7:15 AM.");
    expect(await act({ do: "reminder", at: "2026-01-09T12:00", about: "call Ana" })).toBe("I will remind you on Friday at 12:00 PM: call Ana.");
    expect(await tell({ kind: "reminder" })).toBe("The reminder “call Ana” is on Friday at 12:00 PM.");
  });

  test("says in Portuguese what it does", async () => {
    const { act, tell } = handsOf("pt");
    expect(await act({ do: "timer", seconds: 90 })).toBe("Timer: 1 minuto e 30 segundos, contando.");
    expect(await act({ do: "reminder", seconds: 3_600, about: "ligar para a Ana" })).toBe("Em 1 hora eu lembro você: ligar para a Ana.");
    expect(await act({ do: "alarm", at: "2026-01-06T07:15" })).toBe("Alarme marcado para amanhã às 7 horas e 15 minutos.");
    expect(await tell({ kind: "timer" })).toBe("Faltam 1 minuto e 30 segundos para o timer de 1 minuto e 30 segundos.");
    expect(await act({ do: "cancel", kind: "timer" })).toBe("Cancelei o timer de 1 minuto e 30 segundos.");
  });

  test("cancels the one that is meant, and asks when several are", async () => {
    const { timers, act } = handsOf();
    await act({ do: "timer", seconds: 300, name: "pasta" });
    await act({ do: "timer", seconds: 600, name: "tea" });
    expect(await act({ do: "cancel", kind: "timer" })).toBe("There are 2: the pasta timer and the tea timer. Which one?");
    expect(timers.pending).toHaveLength(2);
    expect(await act({ do: "cancel", kind: "timer", name: "tea" })).toBe("I cancelled the tea timer.");
    expect(await act({ do: "cancel", kind: "timer", name: "tea" })).toBe("There is no such timer.");
    await act({ do: "timer", seconds: 600 });
    expect(await act({ do: "cancel", kind: "timer", all: true })).toBe("I cancelled the pasta timer and the timer of 10 minutes.");
    expect(timers.pending).toEqual([]);
  });

  test("cancels the one of the hour that is said, whatever its day, and those of a day", async () => {
    const { timers, act, tell } = handsOf();
    await act({ do: "alarm", at: "2026-01-08T07:00" });
    const atSeven = { do: "cancel", kind: "alarm", at: "2026-01-05T19:00", times: ["07:00", "19:00"] };
    expect(await act(atSeven)).toBe("I cancelled the alarm for Thursday at 7:00 AM.");
    await act({ do: "alarm", at: "2026-01-08T07:00" });
    await act({ do: "alarm", at: "2026-01-05T19:00" });
    expect(await act(atSeven)).toBe("I cancelled the alarm for today at 7:00 PM.");
    await act({ do: "alarm", at: "2026-01-09T19:00" });
    expect(await act(atSeven)).toStartWith("There are 2: ");
    expect(await tell({ kind: "alarm", day: "2026-01-09" })).toBe("The alarm for Friday at 7:00 PM rings in 4 days, 3 hours, and 40 minutes.");
    expect(await act({ do: "cancel", kind: "alarm", day: "2026-01-09" })).toBe("I cancelled the alarm for Friday at 7:00 PM.");
    expect(await act({ do: "cancel", kind: "alarm", day: "2026-01-09" })).toBe("There is no such alarm.");
    expect(await act({ do: "cancel", kind: "alarm", day: "Friday" })).toBe("I did not understand when.");
    expect(timers.pending).toHaveLength(1);
  });

  test("moves an alarm to another hour of its own day, on which it rings then and not before", async () => {
    const { timers, act } = handsOf();
    await act({ do: "alarm", at: "2026-01-08T07:00", name: "gym" });
    const toEight = { do: "change", kind: "alarm", to: "2026-01-05T20:00", toTimes: ["08:00", "20:00"] };
    expect(await act(toEight)).toBe("The gym alarm is set for Thursday at 8:00 AM.");
    expect(timers.pending).toHaveLength(1);
    expect(await act({ do: "change", kind: "alarm", to: "2026-01-09T06:30" })).toBe("The gym alarm is set for Friday at 6:30 AM.");
    expect(await act({ do: "change", kind: "alarm", times: ["06:30", "18:30"], by: -900 })).toBe("The gym alarm is set for Friday at 6:15 AM.");
    expect(await act({ do: "change", kind: "alarm", times: ["07:00", "19:00"], by: -900 })).toBe("There is no such alarm.");
    expect(timers.pending.map(({ at }) => new Date(at).toTimeString().slice(0, 5))).toEqual(["06:15"]);
  });

  test("makes a timer longer and shorter, and rings after what is left of it", async () => {
    const { clock, timers, act } = handsOf();
    timers.start();
    const rung: string[] = [];
    timers.onRing = ({ name }) => rung.push(name ?? "");
    await act({ do: "timer", seconds: 600, name: "pasta" });
    await clock.advance(240_000);
    expect(await act({ do: "change", kind: "timer", by: 300 })).toBe("The pasta timer rings in 11 minutes.");
    expect(await act({ do: "change", kind: "timer", name: "pasta", by: -60 })).toBe("The pasta timer rings in 10 minutes.");
    expect(await act({ do: "change", kind: "timer", length: 120 })).toBe("The pasta timer rings in 2 minutes.");
    expect(await act({ do: "change", kind: "timer", by: -120 })).toBe("That time has passed.");
    await clock.advance(119_000);
    expect(rung).toEqual([]);
    await clock.advance(1_000);
    expect(rung).toEqual(["pasta"]);
    expect(await act({ do: "change", kind: "timer", by: 60 })).toBe("There is no such timer.");
  });

  test("asks which one to change when several are meant, and says before what it would change", async () => {
    const { act, intent } = handsOf();
    const longer = { do: "change", kind: "timer", by: 300 };
    expect(intent(longer)).toBe("change it, if there is one");
    await act({ do: "timer", seconds: 300, name: "tea" });
    expect(intent(longer)).toBe("change the tea timer to today at 3:30 PM");
    await act({ do: "timer", seconds: 600, name: "pasta" });
    expect(intent(longer)).toBe("ask which one to change: the tea timer and the pasta timer");
    expect(await act(longer)).toBe("There are 2: the tea timer and the pasta timer. Which one?");
    expect(await act({ do: "change", kind: "reminder", name: "Ana", to: "2026-01-05T18:00" })).toBe("There is no such reminder.");
  });

  test("changes in Portuguese, too", async () => {
    const { act, intent } = handsOf("pt");
    await act({ do: "reminder", at: "2026-01-05T17:00", about: "ligar para a Ana" });
    const toSix = { do: "change", kind: "reminder", name: "Ana", to: "2026-01-05T18:00" };
    expect(intent(toSix)).toBe("mudar o lembrete “ligar para a Ana” para hoje às 18 horas");
    expect(await act(toSix)).toBe("Lembro você hoje às 18 horas: ligar para a Ana.");
    expect(await act({ do: "change", kind: "timer", by: 60 })).toBe("Não há timer assim.");
  });

  test("refuses a change that says no time, two of them, or one that is years away", async () => {
    const { timers, act } = handsOf();
    await act({ do: "alarm", at: "2026-01-08T07:00" });
    for (const change of [{}, { by: 0 }, { by: "5" }, { to: "tomorrow" }, { length: -1 }, { length: 60, by: 60 }, { to: "2030-01-01T07:00" }]) {
      expect(await act({ do: "change", kind: "alarm", ...change })).toBe("I did not understand when.");
    }
    expect(timers.pending.map(({ at }) => new Date(at).getHours())).toEqual([7]);
  });

  test("says before exactly what it would do", async () => {
    const { act, intent } = handsOf();
    expect(intent({ do: "timer", seconds: 300, name: "pasta" })).toBe("set a timer “pasta” that rings in 5 minutes");
    expect(intent({ do: "alarm", at: "2026-01-06T07:15" })).toBe("set an alarm for tomorrow at 7:15 AM");
    await act({ do: "timer", seconds: 300, name: "pasta" });
    expect(intent({ do: "cancel", kind: "timer" })).toBe("cancel the pasta timer");
  });

  test("cancels what rings before what is still to ring, and says so before", async () => {
    const { clock, timers, act, intent } = handsOf();
    timers.start();
    await act({ do: "timer", seconds: 300 });
    await clock.advance(300_000);
    await act({ do: "timer", seconds: 600 });
    expect(intent({ do: "cancel", kind: "timer", all: true })).toBe("cancel the timer of 5 minutes and the timer of 10 minutes");
    expect(intent({ do: "cancel", kind: "timer" })).toBe("cancel the timer of 5 minutes");
    expect(await act({ do: "cancel", kind: "timer" })).toBe("I cancelled the timer of 5 minutes.");
    expect(intent({ do: "cancel", kind: "timer" })).toBe("cancel the timer of 10 minutes");
    expect(await act({ do: "cancel", kind: "timer" })).toBe("I cancelled the timer of 10 minutes.");
  });

  test("says before that it would only ask, when several are meant", async () => {
    for (const [language, words] of [
      ["en", "ask which one to cancel: the timer of 5 minutes and the timer of 10 minutes"],
      ["pt", "perguntar qual cancelar: o timer de 5 minutos e o timer de 10 minutos"],
    ] as const) {
      const { act, intent } = handsOf(language);
      await act({ do: "timer", seconds: 300 });
      await act({ do: "timer", seconds: 600 });
      expect(intent({ do: "cancel", kind: "timer" })).toBe(words);
    }
  });

  test("refuses what makes no sense", async () => {
    const { timers, act, intent } = handsOf();
    const nonsense = [
      undefined, null, 5, "timer", [], {}, { do: "explode" }, { do: "timer" }, { do: "timer", seconds: 0 }, { do: "timer", seconds: -5 }, { do: "timer", seconds: NaN },
      { do: "timer", seconds: "5" }, { do: "timer", seconds: 1e12 }, { do: "timer", seconds: 5, at: "2026-01-06T07:15" }, { do: "alarm", at: "2026-02-30T07:15" },
      { do: "alarm", at: "tomorrow" }, { do: "alarm", at: "2026-01-06T25:00" }, { do: "reminder", seconds: 5 },
    ];
    for (const given of nonsense) {
      expect(intent(given)).toBeUndefined();
      expect(await act(given)).toBe("I did not understand when.");
    }
    expect(await act({ do: "alarm", at: "2026-01-05T15:00" })).toBe("That time has passed.");
    expect(timers.pending).toEqual([]);
  });
});

test("what rings says what it is, and that it is late", () => {
  const at = new Date(2026, 0, 5, 7, 0).getTime();
  const now = new Date(at);
  const later = new Date(2026, 0, 5, 9, 30);
  expect(ringText({ id: 1, kind: "timer", at, seconds: 300, name: "pasta" }, now, "en")).toBe("The pasta timer is done.");
  expect(ringText({ id: 1, kind: "alarm", at }, now, "en")).toBe("It is 7:00 AM.");
  expect(ringText({ id: 1, kind: "reminder", at, name: "call Ana" }, later, "en")).toBe("A reminder: call Ana. It was due today at 7:00 AM.");
  expect(ringText({ id: 1, kind: "timer", at, seconds: 300 }, now, "pt")).toBe("O timer de 5 minutos acabou.");
  expect(ringText({ id: 1, kind: "alarm", at }, now, "pt")).toBe("São 7 horas.");
});
