// The phrasings of test/hands/phrasings, and what the engine makes of each: its README tells how they are written.

import { readFileSync } from "node:fs";
import { join } from "node:path";
import { chooseLocale, type Language } from "../../src/base/language.ts";
import { phrases } from "../../src/base/phrases.ts";
import { plainWords } from "../../src/base/words.ts";
import { CalculateHand } from "../../src/hands/facts/calculateHand.ts";
import type { Hand } from "../../src/hands/hand.ts";
import { shipped } from "../../src/machine/shipped.ts";
import { knownAnswer } from "../../src/thought/builtInAnswers.ts";
import { SentenceMind } from "../../src/thought/sentenceMind.ts";
import { saidTime } from "../../src/thought/timeOfDay.ts";
import { timeZoneOf } from "../../src/thought/timeZones.ts";
import { request } from "./claudeTool.ts";
import { ManualClock } from "./clock.ts";
import { going } from "./processes.ts";

export const now = new Date(2026, 10, 18, 10, 20);

/** "Missed" is what was asked for and not done; "wrong" is what was done or answered without being asked for. */
export type Verdict = "right" | "missed" | "wrongly answered" | "wrongly done";

export interface Judged {
  language: Language;
  sentence: string;
  expected: string;
  verdict: Verdict;
  /** What was done, in the same notation. */
  done: string;
}

interface Phrasing {
  sentence: string;
  expected: string;
}

/** Hands that change something; the others tell. */
const doing = new Set(["timer", "note", "volume", "media", "open", "lock", "screenshot", "forget"]);
const ids = [...doing, "timers", "notes", "playing", "date", "machine", "calculate", "recall"];

const folder = join(import.meta.dir, "../hands/phrasings");

/** All phrasings of a set, "first" or "second". */
export function phrasingsOf(set: string, language: Language): Phrasing[] {
  const files = [...new Bun.Glob("*.txt").scanSync(join(folder, set, language))].sort();
  const lines = files.flatMap((file) => readFileSync(join(folder, set, language, file), "utf8").split("\n"));
  return lines.filter((line) => line !== "").map((line) => {
    const [sentence, expected] = line.split(" => ");
    if (!sentence || !expected) throw new Error(`no phrasing: ${line}`);
    return { sentence, expected };
  });
}

/** Says the sentence to the engine without a model, with hands that write down what they are to do. */
export async function judged({ sentence, expected }: Phrasing, language: Language): Promise<Judged> {
  /** In the order in which it was done or answered. */
  const doneInOrder: (string | Promise<string | string[]>)[] = [];
  const used: string[] = [];
  const hands = ids.map((id): Hand => ({
    id,
    description: "",
    parameters: { type: "object", properties: {} },
    changes: true,
    intent: () => id,
    act: async (what) => (used.push(id), doneInOrder.push(written(id, what as Record<string, unknown>, language)), ""),
  }));
  const clock = new ManualClock();
  clock.time = now.getTime();
  const mind = new SentenceMind({ clock, language, phrases: phrases[language], log: () => {}, hands });
  const settings = { ...request("").settings, confirmActions: [] };
  const other = (text: string): string => (doneInOrder.push(toldTime(text, language)), "");
  await mind.answer({ ...request(sentence), settings }, other, { text: () => {}, tool: () => {} }, going);
  const parts = (await Promise.all(doneInOrder)).flat().filter((part) => part !== "");
  const done = parts.join(" + ") || "nothing";
  const isRight = expected.split(" | ").some((each) => isSame(each, parts, language));
  const isDoing = used.some((id) => doing.has(id));
  return { language, sentence, expected, done, verdict: isRight ? "right" : isDoing ? "wrongly done" : done === "nothing" ? "missed" : "wrongly answered" };
}

/** The time or the date that the engine tells by itself; "" when it tells neither. */
function toldTime(sentence: string, language: Language): string {
  const context = { now, locale: chooseLocale({ PALOMET_LANGUAGES: language === "pt" ? "pt-BR" : "en-US" }), name: "Palomet", lastAnswer: undefined };
  const answer = knownAnswer(sentence, context);
  const isDate = answer !== undefined && answer === knownAnswer(language === "pt" ? "que dia é hoje" : "what day is it", context);
  if (isDate) return "date";
  return answer !== undefined && /^(It is \d|[ÉS]\S* \d+ hora|I do not know what time|Não sei que horas)/.test(answer) ? `time ${answer}` : "";
}

/** Only plain words count. */
function plain(text: string): string {
  return plainWords(text).join(" ");
}

function changedTo({ kind, by, length, to }: Record<string, unknown>, called: string): string | string[] {
  const which = `${kind} ${called}`.trim();
  if (typeof by === "number") {
    const word = kind === "timer" ? (by > 0 ? "longer" : "shorter") : by > 0 ? "later" : "earlier";
    return `${word} ${kind} ${Math.abs(by)} ${called}`.trim();
  }
  return [`cancel ${which}`, `${kind} ${to === undefined ? length : monthAndDay(to)} ${called}`.trim()];
}

function monthAndDay(day: unknown): string {
  return String(day).slice(5).replace("T", " ");
}

/** As the notebook reads them. */
function items(text: string): string {
  return text.split(/\s*[,;]\s*(?:and\s+|e\s+)?|\s+(?:and|e)\s+/i).map(item).join(", ");
}

/** The notebook finds an item with its article or without. */
function item(text: string): string {
  return plain(text.replace(/^(the|some|a|an|o|a|os|as|um|uma)\s+/i, ""));
}

/** What a hand was given, in the notation of the phrasings. To set something to another time is to cancel it and to set it. */
async function written(id: string, given: Record<string, unknown>, language: Language): Promise<string | string[]> {
  const usualList = language === "pt" ? "compras" : "shopping";
  const called = plain(`${given["name"] ?? ""}`);
  switch (id) {
    case "timer": {
      const what = String(given["do"]);
      const seconds = given["seconds"];
      if (what === "timer") return `timer ${seconds} ${called}`.trim();
      if (what === "snooze") return `snooze ${seconds ?? ""}`.trim();
      if (what === "change") return changedTo(given, called);
      if (what === "cancel") return `cancel ${given["all"] === true ? "all " : ""}${given["kind"]} ${called}`.trim();
      const at = given["at"] ?? local(new Date(now.getTime() + Number(seconds) * 1_000));
      return `${what} ${monthAndDay(at)} ${plain(`${given["about"] ?? ""}`)}${called}`.trim();
    }
    case "timers":
      return `pending ${given["kind"] ?? ""} ${called}`.replace(/ +/g, " ").trim();
    case "note":
      if (given["do"] === "note") return `note ${plain(String(given["text"]))}`;
      if (given["do"] === "clear") return `clear ${plain(String(given["list"])) || usualList}`;
      return `${given["do"]} ${plain(String(given["list"])) || usualList}: ${items(String(given["items"] ?? given["item"]))}`;
    case "notes":
      return given["list"] === undefined ? "notes" : `list ${plain(String(given["list"])) || usualList}`;
    case "volume": {
      const [mute, to, by] = [given["mute"], given["to"], given["by"]];
      if (mute !== undefined) return mute === true ? "mute" : "unmute";
      const of = given["of"] === "voice" ? "voice" : "volume";
      return to !== undefined ? `${of} ${to}` : by !== undefined ? `${of} ${Number(by) > 0 ? "up" : "down"}` : `${of}?`;
    }
    case "media":
      return String(given["do"]);
    case "open":
      if (given["name"] !== undefined) return `app ${called}`;
      return given["folder"] !== undefined ? `folder ${plain(String(given["folder"]))}` : `web ${given["address"]}`;
    case "date":
      return `${given["do"] === "weekday" ? "date" : "days"} ${monthAndDay(given["day"])}`;
    case "machine":
      return String(given["what"]);
    case "calculate":
      return `value ${(await calculator.act(given, "en")).replace(/[^\d.-]/g, "").replace(/\.$/, "")}`;
    case "recall":
      return `talked ${given["about"] === undefined ? (given["days"] === 7 ? "last week" : monthAndDay(given["day"])) : `about ${plain(String(given["about"]))}`}`;
    default:
      return id;
  }
}

const calculator = new CalculateHand(shipped.mathematics);

function local(date: Date): string {
  const two = (value: number): string => String(value).padStart(2, "0");
  return `${date.getFullYear()}-${two(date.getMonth() + 1)}-${two(date.getDate())}T${two(date.getHours())}:${two(date.getMinutes())}`;
}

function isSame(expected: string, parts: readonly string[], language: Language): boolean {
  if (/^(nothing|ask)$/.test(expected)) return parts.length === 0;
  const wanted = expected.split(" + ");
  return wanted.length === parts.length && wanted.every((each, at) => isPart(each, parts[at]!, language));
}

function isPart(expected: string, done: string, language: Language): boolean {
  const [word = "", ...rest] = expected.split(" ");
  const detail = rest.join(" ");
  switch (word) {
    case "timer":
    case "snooze":
      return done === `${word} ${rest[0] === undefined ? "" : seconds(rest[0])} ${plain(rest.slice(1).join(" "))}`.trim();
    case "longer":
    case "shorter":
    case "later":
    case "earlier":
      return done === `${word} ${rest[0]} ${seconds(rest[1] ?? "")} ${plain(rest.slice(2).join(" "))}`.trim();
    case "alarm":
    case "reminder":
      return done === `${word} ${rest.slice(0, 2).join(" ")} ${plain(rest.slice(2).join(" "))}`.trim();
    case "left":
      return done === `pending timer ${plain(detail)}`.trim();
    case "cancel":
      return done === `cancel ${plain(detail)}`;
    case "note":
      return done === `note ${plain(detail)}`;
    case "add":
    case "remove": {
      const [list = "", what = ""] = detail.split(": ");
      return done === `${word} ${plain(list)}: ${items(what)}`;
    }
    case "clear":
      return done === `clear ${plain(detail)}`;
    case "list":
      return done === `list ${plain(detail)}`;
    case "app":
    case "folder":
      return done === `${word} ${plain(detail)}`;
    case "weekday":
      return done === `date ${detail}`;
    case "date":
      return done === "date 11-18" ? detail === "" : done === expected;
    case "time":
      return isTime(detail, done, language);
    case "value":
      return done.startsWith("value ") && Math.abs(Number(done.slice(6)) - Number(rest[0])) <= 0.005 * Math.abs(Number(rest[0]));
    case "talked":
      return done === (rest[0] === "yesterday" ? "talked 11-17" : /^(monday$|\d)/.test(rest[0] ?? "") ? `talked ${rest[0]!.replace("monday", "11-16")}` : `talked ${rest[0]} ${plain(rest.slice(1).join(" "))}`);
    default:
      return done === expected;
  }
}

/** "1h30m" in seconds. */
function seconds(length: string): number {
  const units = { h: 3_600, m: 60, s: 1 };
  return [...length.matchAll(/(\d+)([hms])/g)].reduce((sum, [, count, unit]) => sum + Number(count) * units[unit as "h" | "m" | "s"], 0);
}

function isTime(place: string, done: string, language: Language): boolean {
  const zone = place === "" ? undefined : timeZoneOf(place, "en");
  if (place !== "" && zone === undefined) return false;
  const parts = new Intl.DateTimeFormat("en", { hourCycle: "h23", hour: "numeric", minute: "numeric", ...(zone === undefined ? {} : { timeZone: zone }) }).formatToParts(now);
  const number = (type: string): number => Number(parts.find((part) => part.type === type)?.value);
  const told = saidTime({ hours: number("hour"), minutes: number("minute") }, language);
  return place === "" ? done === `time ${told}.` : done.startsWith(`time ${told} `);
}
