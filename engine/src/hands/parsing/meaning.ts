// What a request means, and what the slots of its phrase hold, as the hands are given it.

import type { Day } from "./days.ts";
import type { Slots } from "./grammar.ts";
import { isTimerName } from "./names.ts";
import { bare } from "./tokens.ts";

/** A hand and what it is to do. */
export interface Meant {
  hand: string;
  given: Record<string, unknown>;
}

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
