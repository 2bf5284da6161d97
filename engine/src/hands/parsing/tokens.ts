// The words of a sentence, each with the place where it stands in the text.

import type { Language } from "../../base/language.ts";
import { plainWords } from "../../base/words.ts";
import { baseOf, lemmaOf } from "./verbs.ts";

export interface Token {
  /** In lower case and without accents; a number as it is written, a mark that counts or a mark between sentences by itself. */
  plain: string;
  /** The verb that it is a form of, or `plain`. */
  lemma: string;
  /** Where it stands in the text. Both words of "what's" stand in the same place. */
  start: number;
  end: number;
}

/** A longer text is no request for a hand. In characters. */
export const longestSentence = 2_000;

const shortened: Record<Language, Record<string, string[]>> = {
  en: {
    whats: ["what", "is"], hows: ["how", "is"], wheres: ["where", "is"], thats: ["that", "is"], its: ["it", "is"], whens: ["when", "is"],
    theres: ["there", "is"], whos: ["who", "is"], heres: ["here", "is"], id: ["i", "would"], ill: ["i", "will"], im: ["i", "am"], ive: ["i", "have"],
    youre: ["you", "are"], youd: ["you", "would"], lets: ["let", "us"], dont: ["do", "not"], didnt: ["did", "not"], doesnt: ["does", "not"],
    isnt: ["is", "not"], wasnt: ["was", "not"], cant: ["can", "not"], cannot: ["can", "not"], wont: ["will", "not"], shant: ["will", "not"], shan: ["will"],
    whatre: ["what", "are"], gimme: ["give", "me"], wanna: ["want", "to"], gonna: ["going", "to"], gotta: ["have", "to"], hes: ["he", "is"], shes: ["she", "is"],
    whatd: ["what", "did"], pls: ["please"], plz: ["please"], til: ["until"],
  },
  pt: {
    pra: ["para"], pro: ["para", "o"], pros: ["para", "os"], pras: ["para", "as"], vc: ["voce"], ta: ["esta"], to: ["estou"], tava: ["estava"],
    num: ["em", "um"], numa: ["em", "uma"], q: ["que"], tb: ["tambem"],
  },
};

/** Words that end in "'s" lose it where it stands for "is", not where it tells whose something is. */
const isShortened = /^(what|how|where|that|it|when|there|who|here|he|she|let)['’]s$/i;

const piece =
  /\d+(?:[.,:]\d+)*(?=$|[^\d])|[ap]\.\s?m\.?(?![\p{L}])|\p{L}[\p{L}\p{M}\p{N}'’]*|[%+*/^=×÷€$£°()−]|-(?=\s?\d)|[.,;:!?…–—-]/giu;

/** The tokens of a text; none of a text that is too long. */
export function tokensOf(text: string, language: Language): Token[] {
  if (text.length > longestSentence) return [];
  const tokens: Token[] = [];
  for (const found of text.matchAll(piece)) {
    const [word] = found;
    const [start, end] = [found.index, found.index + word.length];
    const isMinus = word === "-" && /^\s?\d/.test(text.slice(end));
    for (const said of isMinus ? ["−"] : plainOf(word, text.slice(end), language, tokens.at(-1)?.plain)) {
      const plain = language === "en" ? baseOf(said, [tokens.at(-1)?.plain, tokens.at(-2)?.plain]) : said;
      tokens.push({ plain, lemma: lemmaOf(plain, language), start, end });
    }
  }
  return tokens;
}

/** English endings after a mark, and the words that they are short for. */
const endings: readonly [RegExp, string][] = [
  [/^(.+)['’]re$/i, "are"], [/^(.+)['’]ll$/i, "will"], [/^(.+)['’]ve$/i, "have"], [/^(.+)['’]d$/i, "would"], [/^(.+)n['’]t$/i, "not"],
];
/** Before these "'s" is "is", whatever it stands after: "the music's too loud". */
const saysIs = /^\s+(too|so|very|really|way|not|it|at|in|on|an?|the|my|your|our|his|her|their|already|nearly|almost|finally|just|about|still|getting|asleep|sleeping|awake|ready|done|playing|running|over|coming|due|here|home|calling|ringing|going|on|sorted|gone|finished|bought|packed|empty|low|cooked|out|off|dead|annoying|(?:in|on|at) (?:the|my))\b/i;

function plainOf(word: string, rest: string, language: Language, before?: string): string[] {
  if (/^[ap]\.\s?m\.?$/i.test(word)) return [word.replace(/[^a-z]/gi, "").toLowerCase()];
  if (!/^\p{L}/u.test(word)) return [word];
  // Without their marks these are other words.
  if (language === "pt" && /^hã+$/i.test(word)) return ["ahn"];
  if (language === "pt" && /^[óô]$/i.test(word)) return ["olha"];
  const whose = /^(.+)['’]s$/u.exec(word);
  if (language === "en") {
    const isAsked = whose?.[1] !== undefined && /^(what|which)$/.test(before ?? "") && !/^\s+\p{L}+['’]s\b/u.test(rest);
    if (whose?.[1] !== undefined && !isShortened.test(word) && (isAsked || saysIs.test(rest))) return [plainWords(whose[1]).join(""), "is"];
    const [, stem, long] = endings.map(([ending, full]) => [...(ending.exec(word) ?? []), full]).find(({ length }) => length === 3) ?? [];
    const isOwn = Object.hasOwn(shortened.en, plainWords(word.replace(/['’]/g, "")).join(""));
    if (stem !== undefined && long !== undefined && !isOwn) return [plainWords(stem).join(""), long];
  }
  const bare = whose?.[1] !== undefined && !isShortened.test(word) ? whose[1] : word.replace(/['’]/g, "");
  const plain = plainWords(bare).join("");
  const longer = shortened[language][plain];
  // Without its apostrophe "id" or "ill" or "its" is another word.
  if (longer && (language === "pt" || !needsMark.has(plain) || /['’]/.test(word))) return longer;
  return [plain];
}

const needsMark = new Set(["id", "ill", "its", "lets", "hes", "shes", "wont", "cant"]);

/** A mark between parts of a sentence, which no phrase asks for. */
export function isPause({ plain }: Token): boolean {
  return /^[.,;:!?…–—-]$/.test(plain);
}

/** What somebody says while thinking; a part of a pattern. */
export const thinking =
  "let me (?:see|think)|let['’]s (?:see|say)|what (?:is|was) it|er+m?|oh yeah|however|" +
  "deixa eu (?:ver|pensar)|deixa ver|como (?:é|e) (?:que (?:é|e)|mesmo)|" +
  "o que (?:é|era) mesmo|ah sim|ah";

const fillers: Record<Language, RegExp> = {
  en: /^(uh+|u[hm]m*|er+m?|hm+|ah+|eh|mm+)$/, pt: /^(ah+|eh+|e{2,}|ahn|hm+|hum+|uh+|ai|ne|hein|hem)$/,
};

/** A sound or a word that somebody makes while thinking. */
export function isFiller({ plain }: Token, language: Language): boolean {
  return fillers[language].test(plain);
}

const forMe: Record<Language, readonly [string, string]> = { en: ["for", "me"], pt: ["para", "mim"] };
const latestForMe = 4;
const manners: Record<Language, readonly string[]> = { en: ["please"], pt: ["por", "favor"] };
const questionWords: Record<Language, RegExp> = {
  en: /^(what|which|how|when|where|who|is|are|do|does|am|have|has|any)$/,
  pt: /^(o|que|quais|qual|quant[oa]s?|como|quando|onde|quem|do|tem|tenho|ha|esta)$/,
};
/** "At what time", "on which day": the question begins with what is asked. */
const beforeQuestion: Record<Language, RegExp> = { en: /^(at|on|in|for|to|by)$/, pt: /^(em|a|para|de|do)$/ };
const asksWhat: Record<Language, RegExp> = { en: /^(what|which)$/, pt: /^(que|qual|quais)$/ };
const adverbs: Record<Language, RegExp> = { en: /^(still|currently|actually|exactly|already)$/, pt: /^(ainda|ja|atualmente|exatamente|mesmo|eu)$/ };

/**
 * Leaves out what changes nothing: "for me" or "please" near the beginning of "open please the calculator", in a question such words as "still", and
 * "é que" after a question word.
 */
export function withoutAsides(tokens: readonly Token[], language: Language): readonly Token[] {
  const plain = (at: number): string => tokens[at]?.plain ?? "";
  const isPair = (at: number, [one, other]: readonly [string, string]): boolean => plain(at) === one && plain(at + 1) === other;
  const isForMe = (at: number): boolean => at > 0 && at <= latestForMe && at + 2 < tokens.length && isPair(at, forMe[language]);
  const isLed = beforeQuestion[language].test(plain(0)) && asksWhat[language].test(plain(1));
  const isQuestion = isLed || questionWords[language].test(plain(0));
  const isCleft = (at: number): boolean =>
    language === "pt" && isQuestion && at > 0 && at < 3 && (isPair(at, ["e", "que"]) || isPair(at, ["foi", "que"]));
  // "Que dia que é hoje", "qual que é a raiz": the same with its words changed over.
  const isTurned = (at: number): boolean => language === "pt" && isQuestion && at > 0 && at < 3 && asksWhat.pt.test(plain(0)) && isPair(at, ["que", "e"]);
  const isTwice = (at: number): boolean => language === "pt" && at > 0 && isPair(at - 1, ["que", "que"]);
  const please = manners[language];
  const isPlease = (at: number): boolean => at > 0 && at <= latestForMe && please.every((word, offset) => plain(at + offset) === word);
  const isOfPlease = (at: number): boolean => please.some((_, offset) => isPlease(at - offset));
  return tokens.filter((_, at) => {
    if (isLed && at === 0) return false;
    if (isForMe(at) || isForMe(at - 1) || isCleft(at) || isCleft(at - 1) || isTurned(at) || isTwice(at) || isOfPlease(at)) return false;
    return !(isQuestion && adverbs[language].test(plain(at)));
  });
}

/** Marks that no token is made of, where they touch what is said, and pictures. */
const marksBefore = /(?:\p{Extended_Pictographic}\ufe0f?\s*)*[^\s\p{L}\p{M}\p{N}]*$/u;
const marksAfter = /^[^\s\p{L}\p{M}\p{N}]*(?:\s*\p{Extended_Pictographic}\ufe0f?)*/u;

/** The text of the tokens from one place to before another, as it was said with its marks, but for those between parts of a sentence. */
export function said(text: string, tokens: readonly Token[], from: number, to: number): string {
  const [first, last] = [tokens[from], tokens[to - 1]];
  if (!first || !last) return "";
  const before = marksBefore.exec(text.slice(tokens[from - 1]?.end ?? first.start, first.start))?.[0] ?? "";
  const after = marksAfter.exec(text.slice(last.end, tokens[to]?.start))?.[0] ?? "";
  const whole = `${before}${text.slice(first.start, last.end)}${after}`;
  return whole.replace(/^[\s,;:.!?…–—-]+|[\s,;:.!?…–—]+$/gu, "").replace(/\s+/g, " ");
}

/** What was said without the marks around it that no token is made of. */
export function bare(saying: string): string {
  return saying.replace(/^[^\p{L}\p{M}\p{N}%+*/^=×÷€$£°()−]+|[^\p{L}\p{M}\p{N}'’%+*/^=×÷€$£°()−-]+$/gu, "");
}
