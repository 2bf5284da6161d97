// Builds the grammar by which the recogniser listens: everything that the engine can act on, in the language of its user.
// A second grammar, any sequence of a few sounds, is the measure of how well the first one fits.

import type { Language } from "../base/language.ts";
import { phrases } from "../base/phrases.ts";
import { grammarWords, type Pronouncer } from "./pronunciation.ts";

export interface Grammar {
  /** Two grammars as JSGF, the phrases and any sounds at all, and a dictionary of the words of both. */
  known: string;
  anything: string;
  dictionary: string;
  /** Gives a recognised text the spelling of its phrases; undefined when it is none of them. */
  read(recognised: string): string | undefined;
}

export interface Vocabulary {
  language: Language;
  voice: string;
  wakeWords: string[];
  actionPhrases: string[];
  /** The questions, as one would say them. */
  requests: string[];
}

/** A few sounds of every kind. They fit an utterance better than the phrases do when it is none of those. */
const broadPhones = ["AA", "IY", "UW", "EH", "OW", "S", "SH", "T", "K", "N", "M", "L", "R"];
const soundWords = broadPhones.map((phone) => `zz${phone.toLowerCase()}`);

export async function buildGrammar(vocabulary: Vocabulary, pronouncer: Pronouncer): Promise<Grammar | undefined> {
  const { language, voice, wakeWords, actionPhrases, requests } = vocabulary;
  const own = phrases[language];
  const commands = [...own.stop, ...own.clearDraft, ...own.newConversation, ...own.mute, ...own.yes, ...own.no];
  const everything = [...requests, ...commands, ...actionPhrases, ...own.calls];
  const sounds = await pronouncer.pronounce(everything, voice);
  // A name may be said in the user's way or in the English way.
  for (const nameVoice of new Set([voice, "en-us"])) {
    for (const [word, said] of await pronouncer.pronounce(wakeWords, nameVoice)) {
      sounds.set(word, new Set([...(sounds.get(word) ?? []), ...said]));
    }
  }
  const sayable = (list: string[]): string[] =>
    [...new Set(list.map((phrase) => grammarWords(phrase).join(" ")))].filter(
      (phrase) => phrase !== "" && phrase.split(" ").every((word) => sounds.has(word)),
    );
  const request = sayable(requests);
  if (request.length === 0) return undefined;
  const call = sayable(own.calls);
  const name = sayable(wakeWords);
  const rules: [string, string[]][] = [
    ["name", name],
    ["call", name.flatMap((each) => [each, ...call.map((word) => `${word} ${each}`)])],
    ["act", sayable(actionPhrases)],
    ["command", sayable(commands)],
    ["request", request],
  ];
  const filled = rules.filter(([, choices]) => choices.length > 0);
  const has = (wanted: string): boolean => filled.some(([rule]) => rule === wanted);
  // Nobody calls twice in one breath, nor says "hey" after what they want.
  const before = has("name") ? "[<call>] " : "";
  const known = [
    ...["<request>", "<command>"].flatMap((wanted) => [`${before}${wanted}`, ...(has("name") ? [`${wanted} <name>`] : [])]),
    ...(has("name") ? ["<call>"] : []),
    ...(has("act") ? [`${before}<act>`, `${before}<request> <act>`] : []),
  ];
  const grammar = (name: string, lines: string[]): string =>
    ["#JSGF V1.0;", `grammar ${name};`, ...lines.map((line) => `${line};`), ""].join("\n");
  const rule = ([name, choices]: [string, string[]]): string => `<${name}> = ${choices.join(" | ")}`;
  const entries = [...sounds].flatMap(([word, said]) =>
    [...said].map((phones, index) => `${word}${index === 0 ? "" : `(${index + 1})`} ${phones}`),
  );
  const sounding = soundWords.map((word, index) => `${word} ${broadPhones[index]}`);
  const spelling = new Map([...everything, ...wakeWords].map((phrase) => [grammarWords(phrase).join(" "), phrase]));
  return {
    known: grammar("known", [`public <utterance> = ${known.join(" | ")}`, ...filled.map(rule)]),
    anything: grammar("anything", [`public <utterance> = (${soundWords.join(" | ")})+`]),
    dictionary: `${[...entries, ...sounding].join("\n")}\n`,
    read: (text) => spell(text, spelling),
  };
}

/** Finds the phrases that a recognised text is made of, the longest first, and gives them their spelling again. */
function spell(recognised: string, spelling: Map<string, string>): string | undefined {
  const words = recognised.trim().split(/\s+/).filter((word) => word !== "");
  if (words.length === 0) return undefined;
  const parts: string[] = [];
  for (let at = 0; at < words.length; ) {
    let length = words.length - at;
    while (length > 1 && !spelling.has(words.slice(at, at + length).join(" "))) length--;
    const phrase = words.slice(at, at + length).join(" ");
    parts.push(spelling.get(phrase) ?? phrase);
    at += length;
  }
  const text = parts.join(", ");
  return text.charAt(0).toUpperCase() + text.slice(1);
}
