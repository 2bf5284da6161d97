// What somebody tells beside a request, as its reason: "I'm off to bed, lock the screen", "turn it down because the baby is asleep". It is
// no part of the request, and asks for nothing.

import type { Language } from "../../base/language.ts";
import { isConditional, isOther, longestClause, plainText, tells, wordsOf } from "./clauses.ts";
import { correctedFrom } from "./corrections.ts";
import type { Token } from "./tokens.ts";

/** How a remark begins: with who is in which state. What somebody says, asks or writes is none. */
const begins: Record<Language, RegExp> = {
  en: new RegExp(
    "^((and|so|but) )?(on )?((today|tonight|tomorrow|monday|tuesday|wednesday|thursday|friday|saturday|sunday) )?((i|we) (\\w+ed|am|are|have|will|need|want|would|can|do|could|did|just|already|really|think|no longer|must|was|ca|got|" +
      "had|should|cannot|hate|love|like|only|bought|finished|never|forgot|keep|left|missed|barely|feel|changed|get|usually|found|made|" +
      "took|put|gave|saw|went|ended|decided|do|know|like|prefer|see|overslept)|" +
      "\\S+ (is|are) (already|nearly|almost|finally|just|in|on|at|too|so|very|not|asleep|done|ready|over|here|out|coming|calling|packed|off|gone|away|about|really|back|" +
      "getting)|you (talk|speak|sound|are)|" +
      "\\S+ (is|are) (closed|open|full|empty|broken|cancelled|late|early|cold|hot|sick|ill|tired|hungry|awake|waiting)|" +
      "((my|our|his|her|the|this|that|these|those) \\S+|he|she|it|they|somebody|someone|everybody|everyone|nobody) ((finally|just|already|" +
      "still|really|always|all) )?(fell|got|went|hates?|likes?|loves?|took|bought|ate|drank|came|left|broke|ran|woke|slept|\\w{3,}ed)|" +
      "(it|this|that|there|you|they|he|she|everyone|everybody|someone|somebody|nobody|people) (is|are|has|have|will|needs|does|do|can|" +
      "did|was|were|hurts|wants|sounds|gets|keeps|should|starts|takes)|" +
      "(the|my|our|his|her|all the|this|these|those) \\S+( \\S+){0,2} (is|are|has|have|will|needs|need|does|do|can|did|starts|takes|goes|go|comes|" +
      "keeps|hurts|was|were|wants|want|ran|just|should|must|might|would|could)|" +
      "no (need|longer)|not (needed|necessary|now)|too (loud|quiet|noisy|low)|much (too|better))\\b",
  ),
  pt: new RegExp(
    "^((e|mas|entao) )?((hoje|amanha|(na |no )?(segunda|terca|quarta|quinta|sexta|sabado|domingo)( feira)?) )?(" +
      "(?!(pedi|falei|perguntei|disse|tentei|sonhei|ouvi|sei|lei|rei|li) )(ja |eu |a gente |nos )*\\S{2,}(ei|ou|imos|amos|emos) |" +
      "(?!(pediram|falaram|disseram|perguntaram) )(ja )?\\S{3,}(aram|eram|iram) |eu (?!quero |peco |preciso |gosto )\\S{3,}o |(a gente|tu|voce) (viaja|sai|entra|volta|chega|mora|come|dorme|trabalha|fala|tem|vai|precisa|quer) |senao |" +
      "(eu |nos |a gente |ja )*(estou|estamos|esta|vou|vamos|vai|tenho|temos|tem|preciso|precisamos|quero|queremos|nao|" +
      "ja|acabei|acabamos|so|comprei|compramos|mal|acho|sou|fiquei|cheguei|perdi|mudei|esqueci|fico|detesto|odeio|gosto|adoro|prefiro|ando|andamos|sinto|sempre|nunca|desisti|" +
      "terminei|costumo)|" +
      "(isso|isto|essa|esse|essas|esses|esta|ela|ele|voce|eles|elas|todo mundo|alguem|ninguem|aqui) (ja |nao |so |mal )?(esta|estao|tao|é|sao|tem|vai|vao|fica|ficou|" +
      "ficaram|precisa|incomoda|quer|comeca|comecou|acabou|chegou)|" +
      "(o|a|os|as|meu|minha|meus|minhas|nosso|nossa|esse|essa|este|esta|tudo) (\\S+ ){1,3}?(ja |nao |so |mal )?(esta|estao|tao|é|sao|tem|" +
      "vai|vao|fica|ficou|ficaram|precisa|precisam|comeca|chegou|quer|querem|demora|leva|doi|foi|foram|veio|vem|deu|fez|caiu|abriu|subiu|saiu|\\S{3,}(ou|iu|eu)|\\S{3,}(aram|eram|iram))|aquel[ae]s? (era|e|é|foi|esta) |" +
      "(ja )?(é|esta|estao|ficou|acabou|tem|ha|muito|alto|baixo|barulho|gente) |tao (me|te|no|na|em|la|aqui|ai|\\S+ndo) |" +
      "nao (precisa|preciso|quero|consigo|estou|da|é|te|aguento|ouco|" +
      "escuto)|ninguem |(muito|tao) (alto|baixo))",
  ),
};
/** What somebody is going to do with what is asked for. */
const purpose: Record<Language, RegExp> = {
  en: /^so (that )?(i|we|you|he|she|they) (can|could|may|will|do not|am|have) /, pt: /^(que|porque|para) (eu )?(vou|preciso|tenho que|quero|possa|consiga) /,
};
const because: Record<Language, RegExp> = { en: /^(because|since|cause|cos|coz)$/, pt: /^(porque|pois|que|ja)$/ };
/** After "que" a reason is told of somebody or something. */
const reason = /^(\S+(ou|aram|eram|iram|iu) (o|a|os|as|no|na) |(o|a|os|as|meu|minha|meus|minhas|eu|a gente|aqui|ele|ela|ja|hoje|ainda|la) \S+ )/;
/** What begins a request after what was told, also where no mark stands between them. */
const asks: Record<Language, RegExp> = {
  en: /^(please (?!and\b|then\b)\S|(can|could|will|would) you\b)/, pt: /^((voce|o senhor|a senhora) (pode|poderia)\b|(pode|poderia) me\b)/,
};
/** A hyphen inside "thirty-five" is none. */
const between = /[,;:.!?–—]|\s-|-\s/;

/** The tokens without what is only told beside them, in each way that leaves a request; none where nothing is told. */
export function withoutRemarks(text: string, tokens: readonly Token[], language: Language): (readonly Token[])[] {
  const ways: (readonly Token[])[] = [];
  for (let at = 1; at < tokens.length; at++) {
    const isMarked = between.test(text.slice(tokens[at - 1]!.end, tokens[at]!.start));
    const from = isSo(tokens[at]!) ? at + 1 : at;
    const isAsked = asks[language].test(plainText(tokens.slice(from, from + 3)));
    const told = tokens.slice(0, at);
    const isTherefore = tokens[at]!.plain === therefore[language];
    const isBeside = isRemark(text, told, language) ? isMarked || isAsked || isTherefore : isMarked && isAsked && !isOther(told, language);
    // Whatever was said before it, "so" and a request after it is theirs who speaks.
    const isWhy = isTherefore && isMarked && !isConditional(told, language);
    if (isBeside || isWhy) ways.push(tokens.slice(from));
    // "Otherwise I miss the bus".
    const isElse = otherwise[language].test(plainText(tokens.slice(at, at + 2))) && tokens.length - at <= longestClause;
    if (isMarked && isElse) ways.push(tokens.slice(0, at));
    const isReason = because[language].test(tokens[at]!.plain) || (isMarked && language === "en" && tokens[at]!.plain === "as");
    const rest = tokens.slice(at);
    // "Alarme pras seis, não, quer saber, seis e vinte" tells nothing: it is meant otherwise. English begins no remark with a "no".
    if ((correctedFrom(rest, 0, language) ?? 0) > 1 && isMarked && language === "pt") continue;
    if (purpose[language].test(`${plainText(rest.slice(0, longestClause))} `)) ways.push(tokens.slice(0, at));
    if (!isMarked && !isReason) continue;
    const said = isReason ? [rest, rest.slice(1), rest[1]?.plain === "que" ? rest.slice(2) : rest] : [rest];
    const isThat = language === "pt" && tokens[at]!.plain === "que" && isReasonOf(rest.slice(1));
    if (isThat || said.some((each) => isRemark(text, each, language))) ways.push(tokens.slice(0, at));
  }
  return ways;
}

const otherwise: Record<Language, RegExp> = { en: /^(otherwise|or else)\b/, pt: /^(senao|se nao|caso contrario)\b/ };
const therefore: Record<Language, string> = { en: "so", pt: "entao" };
/** The place of the first mark, or of what begins a request; -1 where there is neither. */
export function requestAt(text: string, tokens: readonly Token[], language: Language): number {
  return tokens.findIndex(({ start }, at) => {
    if (at === 0) return false;
    const said = plainText(tokens.slice(at, at + 3));
    return /[,;.]/.test(text.slice(tokens[at - 1]!.end, start)) || asks[language].test(said);
  });
}

function isSo({ plain }: Token): boolean {
  return /^(so|then|but|entao|mas|e|and)$/.test(plain);
}

/** The question that ends the sentence, after something that is told; none where somebody else asks it. */
export function questionAtEnd(text: string, tokens: readonly Token[], language: Language): readonly Token[] | undefined {
  const at = tokens.findLastIndex(({ start }, place) => place > 0 && between.test(text.slice(tokens[place - 1]!.end, start)));
  const from = tokens[at]?.plain === therefore[language] ? at + 1 : at;
  const isWhat = tokens[from]?.plain === "o" && tokens[from + 1]?.plain === "que";
  const isQuestion = at > 0 && (isWhat || questions[language].test(tokens[from]?.plain ?? ""));
  return isQuestion && !isOther(tokens.slice(0, at), language) ? tokens.slice(from) : undefined;
}

const questions: Record<Language, RegExp> = { en: /^(what|how|which|have|is|are)$/, pt: /^(quant[oa]s?|qual|quais|que)$/ };

function isReasonOf(tokens: readonly Token[]): boolean {
  const said = `${plainText(tokens)} `;
  return tokens.length > 1 && tokens.length <= longestClause && reason.test(said) && !tells.pt.test(said) && !chose.test(said);
}

/** What follows says which of several is meant, and is no reason. */
const chose = wordsOf(
  "coloquei|botei|pus|marquei|fiz|criei|programei|deixei|tenho|liguei|toca|tocar|esta|estao|tocando|rodando|abri|salvei|" +
    "anotei|acabei|fizemos|marcamos",
);

/** It says who is in which state, or does what, and asks for nothing by the way it begins. */
export function isRemark(text: string, tokens: readonly Token[], language: Language): boolean {
  if (tokens.length < 2 || tokens.length > longestClause) return false;
  // "É", which says what is, and "e", which goes on.
  const said = `${tokens.map(({ plain, start, end }) => (text.slice(start, end).toLowerCase() === "é" ? "é" : plain)).join(" ")} `;
  return begins[language].test(said) && !tells[language].test(said);
}
