// Finds the requests of a sentence that asks for several things: "pause the music and lock the screen", "set two timers, one for ten
// minutes and one for fifteen". It is one only when all of it asks for something.

import type { Language } from "../../base/language.ts";
import { afterOther, isAlso, listedTogether, onThatList, type Before } from "./followed.ts";
import type { Meant } from "./meaning.ts";
import { keptIn } from "./meanings.ts";
import { moment } from "./moments.ts";
import { areBareThings } from "./names.ts";
import { understood } from "./sentence.ts";
import { tokensOf } from "./tokens.ts";

export interface JoinedPart {
  /** As it was said. */
  text: string;
  /** Where it begins in the request. */
  start: number;
  /** Undefined for a question that is answered without a hand. */
  meant: Meant | undefined;
}

/** It is a question that is answered without a hand, such as what time it is. */
export type IsAnswered = (text: string) => boolean;

interface Around {
  language: Language;
  now: Date;
  isAnswered: IsAnswered;
}

/** One with more of them is no request. */
const mostJoints = 4;
/** "Turn off" has two words, "set an alarm" three. */
const longestVerb = 3;
const joints: Record<Language, RegExp> = {
  en: /,?\s+(?:and then|and|then|plus)\s+|,\s+/giu,
  pt: /,?\s+(?:e depois|e então|e entao|e|depois|mais)\s+|,\s+/giu,
};

/** `start` is where the sentence begins in the request. Undefined when it does not ask for several things. */
export function severalIn(sentence: string, start: number, language: Language, now: Date, isAnswered: IsAnswered): JoinedPart[] | undefined {
  const places = [...sentence.matchAll(joints[language])];
  if (places.length === 0 || places.length > mostJoints) return undefined;
  return joinedIn(sentence, start, { language, now, isAnswered }) ?? timersIn(sentence, start, language, now);
}

/**
 * The requests of a sentence that joins several: "pause the music and lock the screen". Each has to be understood by itself, or with the
 * verb of the one before it: "cancel the pasta timer and the egg timer".
 */
function joinedIn(sentence: string, start: number, around: Around, isRest = false, before?: Before): JoinedPart[] | undefined {
  const { language, now, isAnswered } = around;
  const places = [...sentence.matchAll(joints[language])];
  if (places.length > mostJoints) return undefined;
  for (const [at, end] of [...places.map(({ index }) => index), sentence.length].entries()) {
    const text = sentence.slice(0, end);
    if (isWithinTime(text, sentence.slice(end), language, now)) continue;
    const alone = understood(text, language, now);
    // "Cancel the timer and tell me what time it is": not what time the timer is.
    const isOther = before !== undefined && !isAnswered(text);
    const meant = alone && before ? onThatList(alone, text, before, language) : (alone ?? (isOther ? afterOther(text, before, language, now) : undefined));
    // What is written down would go on.
    if (meant ? keptIn(meant) !== undefined && end < sentence.length : !isAnswered(text)) continue;
    const part = { text, start, meant };
    if (end === sentence.length) return isRest ? [part] : undefined;
    const next = end + places[at]![0].length;
    const words = text.split(/\s+/).slice(0, longestVerb);
    const rest = joinedIn(sentence.slice(next), start + next, around, true, meant ? { ...meant, words, text } : before);
    // "You are too loud, speak softly" asks for one thing.
    const [following, ...others] = rest ?? [];
    if (!following) continue;
    const onDay = meant && following.meant ? onDayOf(text, meant, following, language, now) : undefined;
    if (onDay) return [{ ...part, meant: onDay }, following, ...others];
    if (!meant || !following.meant) return [part, following, ...others];
    if (repeats(meant, following.meant) || isMeantInstead.test(following.text)) return [following, ...others];
    if (/^,\s+$/.test(places[at]![0])) {
      const once = saidAgain(meant, following.meant);
      if (once) return [{ text: `${text}, ${following.text}`, start, meant: once }, ...others];
    }
    const isMore = isAlso(following.text, language) || areBareThings(following.text.replace(/[.!?]+$/, ""));
    const both = isMore ? listedTogether(meant, following.meant) : undefined;
    return both ? [{ text: `${text}, ${following.text}`, start, meant: both }, ...others] : [part, following, ...others];
  }
  return undefined;
}

/** "Start the meditation, I mean a timer of twenty minutes". */
const isMeantInstead = /^(?:no,?\s+|não,?\s+)?(?:i mean|i meant|or rather|quer dizer|quero dizer|digo|ou melhor)\s/iu;

/** "Às seis e vinte" is one time. */
function isWithinTime(before: string, after: string, language: Language, now: Date): boolean {
  const hour = language === "pt" ? /(?<!\p{L})(?:às|as|pras|das)\s+\S+$/iu.exec(before)?.[0] : undefined;
  const [minutes] = /^\s+e\s+\S+/u.exec(after) ?? [];
  if (hour === undefined || minutes === undefined) return false;
  const tokens = tokensOf(`${hour}${minutes}`, language);
  const time = moment(tokens, 0, language, now);
  return time?.next === tokens.length && (time.value.clock?.minute ?? 0) >= 10;
}

/** "Alarms for six and six fifteen tomorrow morning": both of them. */
function onDayOf(text: string, meant: Meant, following: JoinedPart, language: Language, now: Date): Meant | undefined {
  const [day] = lastDay[language].exec(following.text) ?? [];
  const areAlarms = [meant, following.meant].every((each) => each?.hand === "timer" && each.given.do === "alarm");
  if (day === undefined || !areAlarms || anyDay[language].test(text)) return undefined;
  const other = understood(`${text}${day}`, language, now);
  return other?.given.do === "alarm" ? other : undefined;
}

const lastDay: Record<Language, RegExp> = {
  // The day, or a part of it, and nothing after that.
  en: /\s+(?:(?:tomorrow|on \p{L}+day)(?: (?:morning|afternoon|evening|night))?|tonight|in the (?:morning|afternoon|evening))(?=[\s.!?]*(?:please)?[.!?]*$)/iu,
  pt: /\s+(?:(?:da|de) (?:manhã|manha|tarde|noite)(?: de (?:amanhã|amanha|hoje))?|(?:de )?(?:amanhã|amanha)(?: (?:de|à) (?:manhã|manha|tarde|noite))?)(?=[\s.!?]*$)/iu,
};
const anyDay: Record<Language, RegExp> = {
  en: /\b(?:today|tonight|tomorrow|morning|afternoon|evening|night|noon|midnight|[ap]\.?m\b|\p{L}+day\b)/iu,
  pt: /(?<!\p{L})(?:hoje|amanhã|amanha|manhã|manha|tarde|noite|meio-dia|meia-noite|segunda|terça|quarta|quinta|sexta|sábado|domingo)/iu,
};

/** Said in two ways, a thing is asked for once: but two songs may be skipped, and two timers set, though none cancelled twice. */
function repeats(one: Meant, other: Meant): boolean {
  const isOnce = !/^(timer|media|note)$/.test(one.hand) || (one.hand === "timer" && one.given.do === "cancel");
  return isOnce && one.hand === other.hand && JSON.stringify(one.given) === JSON.stringify(other.given);
}

/** "Give me five more minutes, snooze": what says the same after a comma is no second one, with what either says more. */
function saidAgain(one: Meant, other: Meant): Meant | undefined {
  const [a, b] = [one.given, other.given];
  if (one.hand !== other.hand || a.do !== b.do || !/^(timer|media)$/.test(one.hand) || /^(next|previous|cancel|reminder)$/.test(`${a.do}`)) return undefined;
  // "Wake me at seven, set an alarm for seven": an hour of which the half of the day is said once.
  const isHalf = a.at !== undefined && b.at !== undefined && Math.abs(Date.parse(`${a.at}`) - Date.parse(`${b.at}`)) === 12 * 3_600_000;
  const isSame = Object.keys(b).every((key) => a[key] === undefined || a[key] === b[key] || (key === "at" && isHalf));
  return isSame && (a.do === "snooze" || Object.keys(a).length >= Object.keys(b).length) ? { ...one, given: { ...b, ...a } } : undefined;
}

/** "Remind me at two to call Ana and at four to call Bob": where a time stands again another reminder begins. */
export function remindersIn({ text, start, meant }: JoinedPart, language: Language, now: Date): JoinedPart[] | undefined {
  if (!meant || keptIn(meant) !== "about") return undefined;
  const [verb = ""] = asksFirst[language].exec(text) ?? [text.split(/\s+/).slice(0, 2).join(" ")];
  for (const { index, 0: joint } of [...text.matchAll(joints[language])].slice(0, mostJoints)) {
    const next = index + joint.length;
    const rest = text.slice(next);
    const isAgain = asksAgain[language].test(rest);
    const isMore = too[language].test(rest);
    const whole = isAgain ? rest : `${verb} ${rest}`;
    const first = understood(text.slice(0, index), language, now);
    const second = isAgain || isMore || timeFirst[language].test(rest) ? understood(whole, language, now) : undefined;
    const areTimed = !(isAgain || isMore) || (first?.given.at !== undefined && second?.given.at !== undefined);
    if (first && keptIn(first) === "about" && second && keptIn(second) === "about" && areTimed) {
      const others = remindersIn({ text: whole, start: start + next, meant: second }, language, now);
      return [{ text: text.slice(0, index), start, meant: first }, ...(others ?? [{ text: rest, start: start + next, meant: second }])];
    }
  }
  return undefined;
}

/** Behind its time: "at noon remind me to call Ana and at two to call Bob". */
const asksFirst: Record<Language, RegExp> = {
  en: /(?<=\s)remind (?:me|us)(?=\s)/iu, pt: /(?<=\s)(?:me (?:lembr[ae]|avis[ae])|lembre?-me)(?=\s)/iu,
};

/** What one is to be reminded of may hold these words too: unless each has its own time, it is one. */
const asksAgain: Record<Language, RegExp> = {
  en: /^(?:then )?remind (?:me|us)\s/iu, pt: /^(?:depois )?(?:me (?:lembr[ae]|avis[ae])|lembre?-me)\s/iu,
};

/** "To collect the parcel at one and to call the vet at two". */
const too: Record<Language, RegExp> = { en: /^to\s/iu, pt: /^de\s/iu };

const timeFirst: Record<Language, RegExp> = {
  en: /^(?:then )?(?:at|in|on|tomorrow|tonight|next|this|the day after)\s/iu,
  pt: /^(?:depois )?(?:às|as|à|ao|em|daqui|amanhã|amanha|hoje|na|no|depois de)\s/iu,
};

const several: Record<Language, RegExp> = {
  en: /^(.*\b)(two|three|four|five|[2-5])\s+(?:(?:new|more|different)\s+)?(timers|alarms)((?:\s+(?:for |on )?(?:today|tonight|tomorrow|\p{L}+day)(?: (?:morning|afternoon|evening|night))?)?)(?:,?\s+please)?[\s,:]+(.+)$/iu,
  pt: /^(.*\b)(dois|duas|três|tres|quatro|cinco|[2-5])\s+(?:novos\s+)?(timers|temporizadores|alarmes|despertadores)(?:\s+aí)?((?:\s+(?:para |pra |na |no )?(?:hoje|amanhã|amanha|segunda|terça|quarta|quinta|sexta|sábado|domingo)(?: (?:de|à) (?:manhã|manha|tarde|noite))?)?)[\s,:]+(.+)$/iu,
};
/** "Um às 6 e outro às 6 e 15": what joins an hour to its minutes parts nothing. */
const eachOther: Record<Language, RegExp> = {
  en: /,?\s+(?:and\s+)?(?=(?:one|another|the (?:other|second|third))\s)/iu, pt: /,?\s+(?:e\s+)?(?=(?:uma?|(?:[oa] )?(?:outr[oa]|segund[oa]))\s)/iu,
};
const counts = ["two dois duas 2", "three três tres 3", "four quatro 4", "five cinco 5"];
/** What stands before each length or time, and is said for the timer itself. */
const each = /^(?:(?:one|another|the other|the first|the second|um|outro|o outro|o)\s+)?(?:(?:of|for|at|de|das|para|pra|com)\s+)?/iu;

/** "Three timers: 5, 10 and 15 minutes": as many as it says. */
function timersIn(sentence: string, start: number, language: Language, now: Date): JoinedPart[] | undefined {
  const [, verb = "", count = "", noun = "", shared = "", rest = ""] = several[language].exec(sentence) ?? [];
  const wanted = counts.findIndex((words) => words.split(" ").includes(count.toLowerCase())) + 2;
  const parted = rest.split(joints[language]);
  const items = (parted.length === wanted ? parted : rest.split(eachOther[language])).map((item) => item.replace(each, "").replace(/[.!?]+$/, "").trim());
  if (count === "" || items.length !== wanted) return undefined;
  // "Ten minutes and fifteen", "5, 10 and 15 minutes": the unit is said once.
  const unit = items.map((item) => /\s(\p{L}+)$/u.exec(item)?.[1]).findLast((word) => word !== undefined) ?? "";
  const lengthUnit = /\b(seconds|minutes|hours|segundos|minutos|horas)\b/iu.exec(rest)?.[1] ?? "";
  const one = noun.replace(/(?:(?<=r)es|s)$/iu, "");
  const isTimer = /^t/i.test(noun);
  const of = language === "pt" ? (isTimer ? "de" : "para") : isTimer ? "for" : "at";
  const parts = items.map((item): JoinedPart | undefined => {
    const begin = `${verb}${language === "pt" ? "um" : "a"} ${one} ${isTimer ? "" : shared}`.trim();
    const ask = (what: string): Meant | undefined =>
      understood(`${begin} ${of} ${what}`, language, now) ?? understood(`${begin} ${what}`, language, now);
    const meant =
      ask(item) ?? ask(`${item} ${unit}`) ?? ask(withUnit(item, lengthUnit)) ?? (language === "pt" ? ask(`as ${item}`) : undefined);
    return meant?.hand === "timer" ? { text: sentence, start, meant } : undefined;
  });
  return parts.every((part) => part !== undefined) ? parts : undefined;
}

/** "Ten for the bread" among "five minutes for the coffee" is ten minutes. */
function withUnit(item: string, unit: string): string {
  return item.replace(/^(\S+)\s/u, `$1 ${unit} `);
}
