// States that somebody tells of beside a request, where no mark stands between: "my brother is coming lock the screen".

import type { Language } from "../../base/language.ts";
import { isOther, plainText, tells, wordsOf } from "./clauses.ts";
import type { Token } from "./tokens.ts";

/** Who or what is how, or does what at the moment, to the end. */
const states: Record<Language, RegExp> = {
  en: new RegExp(
    "^(((the|my|our|his|her|this) )?(\\S+ )?\\S+ (am|is|are) (not )?|" +
      "(i|we) (can not|can hardly|can barely|could not|need to|have to|must) )\\S+( \\S+){0,5}$",
  ),
  pt: new RegExp(
    "^(((o|a|os|as|meu|minha|meus|minhas|nosso|nossa) )?(\\S+ )?\\S+ (esta|estao|vai|vao|vem|chegou|acabou) |" +
      "(eu )?(estou|vou|preciso|tenho que|nao consigo|nao estou) )\\S+( \\S+){0,5}$",
  ),
};
/** No clause ends with one of these. */
const unended: Record<Language, RegExp> = {
  en: wordsOf(
    "to|not|you|me|i|we|he|she|they|it|that|who|and|or|the|a|an|my|our|of|can|will|would|could|should|is|are|am|do|please|in|at|on|for|as|like",
  ),
  pt: wordsOf("que|nao|voce|me|eu|ele|ela|e|ou|o|a|os|as|um|uma|meu|minha|de|do|da|pode|por|favor|em|no|na|para|como|quem"),
};

function isOpen(tokens: readonly Token[], language: Language): boolean {
  return unended[language].test(tokens.at(-1)?.plain ?? "");
}

const asksOf: Record<Language, RegExp> = {
  en: /^(what|where|who|how|when|why|which|whose|is|are)$/, pt: /^(que|onde|quem|como|quando|qual|quais|quanto|quanta)$/,
};

/** Which of all is told of. */
const told: Record<Language, RegExp> = {
  en: /^(i|we|he|she|it|they|someone|somebody|everybody|everyone|the|my|our|his|her|this) /,
  pt: /^(eu|a gente|ele|ela|o|a|os|as|meu|minha|meus|minhas|estou|vou|preciso|tenho|nao) /,
};

/** "Mute the sound while I answer the door", "lock the screen before the kids get at it": now, that is. */
const meanwhile: Record<Language, RegExp> = {
  en: /^(while|before) (i|we|he|she|they|it|somebody|someone|the|my|our) \S+/,
  pt: /^(enquanto|antes que) (eu|a gente|isso|isto|ele|ela|alguem|o|a|os|as|meu|minha|atendo|vou) \S+/,
};

function isState(tokens: readonly Token[], language: Language): boolean {
  const said = plainText(tokens);
  const isWhole = !isOpen(tokens, language) && !asksOf[language].test(tokens[0]?.plain ?? "");
  return isWhole && states[language].test(said) && !tells[language].test(said) && !isOther(tokens, language);
}

/**
 * The tokens without a state that is told before or after them where no mark stands between: "my brother is coming lock the screen". It may
 * be a part of what is asked for as well, "stop what is playing": so for what harms nobody.
 */
export function withoutStates(tokens: readonly Token[], language: Language): (readonly Token[])[] {
  return tokens.flatMap((_, at) => {
    const [before, rest] = [tokens.slice(0, at), tokens.slice(at)];
    const isTold = told[language].test(plainText(rest)) && !isOpen(before, language);
    const isMeanwhile = meanwhile[language].test(plainText(rest));
    return [...(isState(before, language) ? [rest] : []), ...((isTold && isState(rest, language)) || isMeanwhile ? [before] : [])];
  });
}
