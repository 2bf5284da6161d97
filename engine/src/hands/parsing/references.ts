// Where somebody speaks of a thing first, and then asks for something to be done with it: "we are out of milk, put it on the shopping
// list". The request is read with the thing in the place of the word that stands for it.

import type { Language } from "../../base/language.ts";
import { plainWords } from "../../base/words.ts";
import { matched, phrase, type Phrase, type Sentence } from "./grammar.ts";
import { said, type Token } from "./tokens.ts";

/** How a thing is spoken of; {text} is the thing. */
const tellings: Record<Language, readonly string[]> = {
  en: [
    "<we> (are|am|is) [<just>] (out of|running out of|low on|running low on|short of|short on|down to the last|missing|lacking) <some> {text}",
    "<we> [have] [<just>] (ran|run|running) (out of|low on|short of) <some> {text}",
    "<we> [<just>] (need|needs|want|could use|would like|require|forgot|used up|finished|finished off|ate|drank) <some> {text} [<lately>]",
    "<we> (have to|need to|should|must|want to) (buy|get|pick up|order|find) <some> {text} [<lately>]",
    "<we> [have|has] [<just>] (got|bought|have|has|picked up|found|get|ordered|grabbed|done|did|finished|packed|made|took) <some> {text} [<lately>]",
    "<we> (do not|does not|no longer|did not|will not|shall not) (need|want|have) <some> {text} [<lately>]",
    "{word:who} [have|has] [<just>] (brought|bought|picked up) <some> {text} [<lately>]",
    "there (is|are) (no|no more|not any|not any more|hardly any|plenty of|enough) {text} [left] [<lately>]",
    "<we> have (no|no more|enough|plenty of) {text} [left] [<lately>]",
    "<some> {text} (is|are|has|have|has been|have been|got|just|was|were) [<just>] (gone|finished|empty|out|all out|over|done|used up|run " +
      "out|running out|running low|running short|low|bought|sorted|sorted out|ready|cooked|taken care of|off|cancelled|canceled|" +
      "called off|not needed|no longer needed|here|{word:how}) [<lately>]",
    "[oh] (never mind|forget|forget about|about|as for|regarding|you know) <some> {text}",
    "(that|this|those|these|the|my|our) {text}",
    "(no|out of|no more|not enough|enough) {text} [left|at home|in the house]",
  ],
  pt: [
    "(acabou|acabaram|terminou|esta acabando|estao acabando|falta|faltam|faltou|faltaram|esta faltando|estao faltando|ja era|acabando) " +
      "[aqui|la em casa|em casa] <o> {text} [<ja>]",
    "(estou|estamos|eu estou|a gente esta|fiquei|ficamos|a gente ficou|aqui esta|esta) [aqui] (sem|quase sem) <o> {text} [<ja>]",
    "<nos> nao (tem|tenho|temos|ha) [mais] <o> {text} [<ja>]", "<nos> [<ja>] (preciso|precisa|precisamos) [de|do|da|dos|das|comprar] <o> {text} [<ja>]",
    "<nos> (tenho|tem|temos) que comprar <o> {text} [<ja>]",
    "<nos> [<ja>] (comprei|compramos|comprou|comprou|peguei|pegamos|trouxe|achei|tenho|temos|tem|fiz|terminei|paguei|busquei|resolvi) <o> {text} [<ja>]",
    "<nos> nao (preciso|precisa|precisamos|quero|queremos|vou precisar|vamos precisar) [mais] [de|do|da|dos|das] <o> {text} [mais] [<ja>]",
    "<o> {text} [<ja>] (acabou|acabaram|terminou|esta acabando|estao acabando|esta no fim|ja era|esta pronto|esta pronta|estao prontos|" +
      "ficou pronto|ficou pronta|ficaram prontos|tem em casa|tem aqui|tem|eu tenho|comprei|eu comprei|foi comprado|chegou|assou|cozinhou|" +
      "esta comprado|esta resolvido|saiu do forno|esta bom|esta boa|foi cancelado|foi cancelada|esta faltando|esta em falta) [<ja>]",
    "(o|a|meu|minha) {word:who} [<ja>] (trouxe|comprou|pegou|buscou) <o> {text} [<ja>]",
    "(o|a|os|as|esse|essa|aquele|aquela|meu|minha) {text}",
    "(esquece|deixa para la|quanto a|sobre) <o> {text}",
  ],
};

const parts: Record<Language, Record<string, string>> = {
  en: {
    we: "[and|so|but|ok|okay|oh|hey|yes|no] (i|we|she|he|they|you)",
    just: "(just|already|almost|nearly|all|completely|totally|also|really|will|still|finally|definitely|clearly|very|so|quite|now|fully|always)",
    some: "[the|my|our|some|any|more|a|an|some more|another|any more|enough|that|this|those|these]",
    lately: "(already|anymore|any more|any longer|now|today|yesterday|tomorrow|at home|after all|again|too|as well|this morning|earlier|" +
      "at the store|at the shop|at the supermarket|for tomorrow|for tonight|in the house|by the way|soon)",
  },
  pt: {
    nos: "[e|mas|entao|oi|olha|ah|ja] [eu|nos|a gente|ela|ele|voce|aqui] [ja]",
    o: "[o|a|os|as|meu|minha|meus|minhas|nosso|nossa|mais|um|uma|uns|umas|esse|essa|o meu|a minha]",
    ja: "(ja|hoje|ontem|amanha|aqui|aqui em casa|em casa|la em casa|de novo|tambem|mais|agora|ai|faz tempo|la|em casa ja|no mercado|mesmo)",
  },
};

/** Words that stand for it in the request. Portuguese may leave them out: "tira da lista". */
const standIns: Record<Language, RegExp> = {
  en: /\b(?:it|them|those|these|that|some)\b(?!\s+(?:list|timer|alarm|reminder|\w+ list)\b)/iu,
  pt: /(?<![\p{L}])(?:isso|isto|el[ea]s?|ess[ea]s?)(?![\p{L}])(?!\s+(?:lista|timer|alarme|lembrete|\p{L}+ lista))/iu,
};
/** "Its timer" is the timer of the thing. */
const owns: Record<Language, [RegExp, (thing: string) => string]> = {
  en: [/\b(?:its|their|that) (timer|reminder)\b/iu, (thing) => `the ${thing} $1`],
  pt: [/(?<![\p{L}])(timer|temporizador|lembrete) d(?:ele|ela|eles|elas|isso)(?![\p{L}])/iu, (thing) => `$1 do ${thing}`],
};
const mostThingWords = 8;
/** Of how many words before the place of what is not said the verb is one: "pode tirar". */
const mostVerbWords = 4;
const afterMark = /[,;:.!?–—]/;
const joins: Record<Language, RegExp> = { en: /^(so|and|then|just)$/, pt: /^(entao|e|ai|dai)$/ };
/** Each thing of several may be said to be missing: "sem farinha e sem açúcar". */
const again: Record<Language, RegExp> = { en: /\b(and|or) (?:out of|no)\b/giu, pt: /\b(e|nem) (?:sem|de|d[oa]s?|falta)\b/giu };

const compiled: { [language in Language]?: Phrase[] } = {};

/** The requests of a sentence with what it speaks of first in their place; none where nothing is spoken of. */
export function withReferences(sentence: Sentence): string[] {
  const { text, tokens, language } = sentence;
  const phrases = (compiled[language] ??= tellings[language].map((source) => phrase(source, parts[language])));
  const requests: string[] = [];
  for (let at = 2; at < tokens.length; at++) {
    const isMarked = afterMark.test(text.slice(tokens[at - 1]!.end, tokens[at]!.start));
    const isJoin = joins[language].test(tokens[at]!.plain);
    if (!isMarked && !isJoin) continue;
    const thing = thingOf({ ...sentence, tokens: tokens.slice(0, at) }, phrases);
    if (thing === undefined) continue;
    const rest = tokens.slice(isJoin ? at + 1 : at);
    // "The basil's sorted": the ending is a word of the sentence.
    requests.push(...requestsAbout(thing.replace(again[language], "$1").replace(/['’]s$/u, ""), text, rest, language));
  }
  return requests;
}

function thingOf(sentence: Sentence, phrases: readonly Phrase[]): string | undefined {
  for (const each of phrases) {
    const thing = matched(each, sentence, (slots) => (typeof slots.text === "string" ? slots.text : undefined));
    if (thing !== undefined && thing.split(/\s+/).length <= mostThingWords) return thing;
  }
  return undefined;
}

function requestsAbout(thing: string, text: string, tokens: readonly Token[], language: Language): string[] {
  if (tokens.length === 0) return [];
  const command = said(text, tokens, 0, tokens.length);
  // "We are out of salt, put salt on the list" says it twice.
  const words = plainWords(thing);
  if (words.some((word) => tokens.some(({ plain }) => plain === word && word.length > 2))) return [command];
  const [owned, ofThing] = owns[language];
  if (owned.test(command)) return [command.replace(owned, ofThing(thing))];
  if (standIns[language].test(command)) return [command.replace(standIns[language], () => thing)];
  if (language !== "pt") return [];
  const most = Math.min(mostVerbWords, tokens.length - 1);
  return Array.from({ length: most }, (_, at) => `${said(text, tokens, 0, at + 1)} ${thing} ${said(text, tokens, at + 1, tokens.length)}`);
}
