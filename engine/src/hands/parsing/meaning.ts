// What a request means, and what the slots of its phrase hold, as the hands are given it.

import type { Day } from "./days.ts";
import type { Slots } from "./grammar.ts";
import { localText, timeOf, type Moment, type Purpose } from "./moments.ts";
import { isTimerName, listName } from "./names.ts";
import { bare } from "./tokens.ts";

/** A hand and what it is to do. */
export interface Meant {
  hand: string;
  given: Record<string, unknown>;
}

/** In seconds. */
export const longestTimer = 7 * 86_400;

/** Undefined where the slots hold what cannot be meant. */
export type Meaning = (slots: Slots, now: Date) => Meant | undefined;

export function text(slots: Slots, name: string): string | undefined {
  const value = slots[name];
  return typeof value === "string" ? bare(value) || undefined : undefined;
}

export function count(slots: Slots, name: string): number | undefined {
  const value = slots[name];
  return typeof value === "number" ? value : undefined;
}

export function name(slots: Slots): { name?: string } | undefined {
  const said = text(slots, "name")?.replace(/^(?:pr[oa]s?|para [oa]s?)\s+(?=\S)/iu, "");
  if (said === undefined) return {};
  return isTimerName(said) ? { name: said } : undefined;
}

export function dayText({ year, month, day }: Day): string {
  return `${year}-${String(month).padStart(2, "0")}-${String(day).padStart(2, "0")}`;
}

/** "Note, please, that …": so much of it belongs to the request. */
const manners = /^[\s,]*(?:please|por favor|por gentileza)\b[\s,]*(?:(?:that|que)\s+)?/iu;

/** When it is to ring: after so many seconds, or at a time. */
export function when(slots: Slots, now: Date, purpose: Purpose): { seconds: number } | { at: string } | undefined {
  const seconds = count(slots, "duration");
  if (seconds !== undefined) return seconds <= 366 * 86_400 ? { seconds: Math.round(seconds) } : undefined;
  const at = slots.moment === undefined ? undefined : timeOf(slots.moment as Moment, now, purpose);
  return at && { at: localText(at) };
}

/** Free words with their marks. */
export function wording(slots: Slots): string | undefined {
  const value = slots.text;
  return typeof value === "string" ? value.replace(manners, "") || undefined : undefined;
}

/** The list that is meant, with what is done with it; undefined where its name can be none. */
export function withList(slots: Slots, hand: string, given: Record<string, unknown> = {}): Meant | undefined {
  const list = listName(text(slots, "list") ?? "");
  return list === undefined ? undefined : { hand, given: { ...given, list } };
}
