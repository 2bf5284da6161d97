// Reads what hands are given, by a sentence or by a model: anything may come.

import { isRecord } from "../base/json.ts";

const longestPath = 4_096;

/** A text of one line at most so long, trimmed; undefined for anything else, and for one that is empty. */
export function textIn(given: unknown, key: string, longest = 200): string | undefined {
  const value = isRecord(given) ? given[key] : undefined;
  if (typeof value !== "string") return undefined;
  const line = value.toWellFormed().replace(/[\p{Cc}\p{Zl}\p{Zp}\s]+/gu, " ").trim();
  return line === "" || line.length > longest ? undefined : line;
}

/** A path to the letter; undefined when it holds what does not show. */
export function pathIn(given: unknown, key: string): string | undefined {
  const value = isRecord(given) ? given[key] : undefined;
  const isShown = typeof value === "string" && value !== "" && value.length <= longestPath && !/[\p{C}\p{Zl}\p{Zp}]/u.test(value);
  return isShown ? value : undefined;
}

export function numberIn(given: unknown, key: string, least: number, most: number): number | undefined {
  const value = isRecord(given) ? given[key] : undefined;
  return typeof value === "number" && value >= least && value <= most ? value : undefined;
}

export function flagIn(given: unknown, key: string): boolean | undefined {
  const value = isRecord(given) ? given[key] : undefined;
  return typeof value === "boolean" ? value : undefined;
}

export function choiceIn<T extends string>(given: unknown, key: string, choices: readonly T[]): T | undefined {
  const value = isRecord(given) ? given[key] : undefined;
  return choices.find((choice) => choice === value);
}

export function isGiven(given: unknown, key: string): boolean {
  return isRecord(given) && given[key] !== undefined && given[key] !== null;
}

/** A local time, "2026-11-22T07:15", that there is. */
export function timeIn(given: unknown, key: string): Date | undefined {
  const match = /^(\d{4})-(\d{2})-(\d{2})[T ](\d{2}):(\d{2})(:\d{2})?$/.exec(textIn(given, key) ?? "");
  if (!match) return undefined;
  const [year = 0, month = 0, day = 0, hour = 0, minute = 0] = match.slice(1).map(Number);
  const date = new Date(year, month - 1, day, hour, minute);
  return date.getMonth() === month - 1 && date.getDate() === day && hour < 24 && minute < 60 ? date : undefined;
}

/** A day, "2026-11-22", at noon. */
export function dayIn(given: unknown, key: string): Date | undefined {
  const match = /^(\d{4})-(\d{2})-(\d{2})$/.exec(textIn(given, key) ?? "");
  if (!match) return undefined;
  const [year = 0, month = 0, day = 0] = match.slice(1).map(Number);
  const date = new Date(year, month - 1, day, 12);
  return date.getMonth() === month - 1 && date.getDate() === day ? date : undefined;
}

/** The texts of a list, at most so many. */
export function textsIn(given: unknown, key: string, most: number): string[] {
  const value = isRecord(given) ? given[key] : undefined;
  return Array.isArray(value) ? value.slice(0, most).filter((text) => typeof text === "string") : [];
}
