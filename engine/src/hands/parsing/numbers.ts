// Numbers as they are said: "twenty-five", "two and a half", "cento e vinte", "1.000", "2,5".

import type { Language } from "../../base/language.ts";
import type { Token } from "./tokens.ts";

/** Something that was found at a place in the tokens, and the place after it. */
export interface Found<T> {
  value: T;
  next: number;
}

const small: Record<Language, Record<string, number>> = {
  en: {
    zero: 0, oh: 0, one: 1, two: 2, three: 3, four: 4, five: 5, six: 6, seven: 7, eight: 8, nine: 9, ten: 10, eleven: 11, twelve: 12,
    thirteen: 13, fourteen: 14, fifteen: 15, sixteen: 16, seventeen: 17, eighteen: 18, nineteen: 19, twenty: 20, thirty: 30, forty: 40,
    fourty: 40, fifty: 50, sixty: 60, seventy: 70, eighty: 80, ninety: 90,
  },
  pt: {
    zero: 0, um: 1, uma: 1, dois: 2, duas: 2, tres: 3, quatro: 4, cinco: 5, seis: 6, meia: 6, sete: 7, oito: 8, nove: 9, dez: 10, onze: 11,
    doze: 12, treze: 13, quatorze: 14, catorze: 14, quinze: 15, dezesseis: 16, dezasseis: 16, dezessete: 17, dezassete: 17, dezoito: 18,
    dezenove: 19, dezanove: 19, vinte: 20, trinta: 30, quarenta: 40, cinquenta: 50, sessenta: 60, setenta: 70, oitenta: 80, noventa: 90,
    cem: 100, cento: 100, duzentos: 200, duzentas: 200, trezentos: 300, trezentas: 300, quatrocentos: 400, quatrocentas: 400,
    quinhentos: 500, quinhentas: 500, seiscentos: 600, seiscentas: 600, setecentos: 700, setecentas: 700, oitocentos: 800,
    oitocentas: 800, novecentos: 900, novecentas: 900,
  },
};

const large: Record<Language, Record<string, number>> = {
  en: { thousand: 1e3, million: 1e6, billion: 1e9 },
  pt: { mil: 1e3, milhao: 1e6, milhoes: 1e6, bilhao: 1e9, bilhoes: 1e9 },
};

/** The number that is written with digits, by the separators of the language: 1,234.5 or 1.234,5. */
export function writtenNumber(plain: string, language: Language): number | undefined {
  if (!/^\d/.test(plain) || plain.length > 20) return undefined;
  const [group, point] = language === "pt" ? ["\\.", ","] : [",", "\\."];
  const match = new RegExp(`^(\\d{1,3}(?:${group}\\d{3})+|\\d+)(?:${point}(\\d+))?$`).exec(plain);
  if (match) return Number(`${match[1]!.replace(/[.,]/g, "")}.${match[2] ?? "0"}`);
  // A recogniser, or a keyboard, writes the point of the other language: it can only be a point.
  const other = /^(\d+)[.,](\d{1,2})$/.exec(plain);
  return other ? Number(`${other[1]}.${other[2]}`) : undefined;
}

/** A whole number in words below a thousand. */
function hundreds(tokens: readonly Token[], at: number, language: Language): Found<number> | undefined {
  const value = (index: number): number | undefined => {
    const plain = tokens[index]?.plain ?? "";
    return Object.hasOwn(small[language], plain) ? small[language][plain] : undefined;
  };
  let total = 0;
  let next = at;
  /** The next part has to be smaller than this: "twenty five", not "five twenty". */
  let room = 1_000;
  while (room > 1) {
    const joined = next > at && tokens[next]?.plain === (language === "pt" ? "e" : "and");
    // Portuguese joins all parts by "e"; English the hundreds to what follows them, by "and" or without a word.
    if (language === "pt" && next > at && !joined) break;
    if (language === "en" && joined && room !== 100) break;
    const index = joined ? next + 1 : next;
    let part = value(index);
    if (part === undefined || (part === 0 && next > at)) break;
    let after = index + 1;
    if (language === "en" && part < 10 && tokens[after]?.plain === "hundred") {
      part *= 100;
      after++;
    }
    if (part >= room) break;
    // "Meia" is six where numbers are spelled, and only one by one.
    if (language === "pt" && tokens[index]?.plain === "meia") break;
    total += part;
    next = after;
    room = part >= 100 ? 100 : part >= 20 ? 10 : 1;
  }
  return next > at ? { value: total, next } : undefined;
}

/** The longest whole number in words. */
function inWords(tokens: readonly Token[], at: number, language: Language): Found<number> | undefined {
  let total = 0;
  let next = at;
  let scale = Infinity;
  const and = language === "pt" ? "e" : "and";
  for (;;) {
    const from = next > at && tokens[next]?.plain === and ? next + 1 : next;
    const isHundredAlone = language === "en" && /^(a|one)$/.test(tokens[from]?.plain ?? "") && tokens[from + 1]?.plain === "hundred";
    const plain = tokens[from]?.plain ?? "";
    // "Hundred and forty", as people say it in a hurry.
    const isBareHundred = language === "en" && next === at && plain === "hundred";
    const isScaleAlone = (language === "pt" && plain === "mil") || (language === "en" && plain === "a" && isScale(tokens[from + 1], language));
    let part: Found<number> | undefined;
    if (isScaleAlone) part = { value: 1, next: language === "pt" ? from : from + 1 };
    else if (isBareHundred || (isHundredAlone && plain === "a")) {
      const after = isBareHundred ? from + 1 : from + 2;
      const rest = hundreds(tokens, tokens[after]?.plain === "and" ? after + 1 : after, language);
      part = rest && rest.value < 100 ? { value: 100 + rest.value, next: rest.next } : { value: 100, next: after };
    } else part = hundreds(tokens, from, language);
    if (!part) break;
    const word = tokens[part.next]?.plain ?? "";
    const factor = Object.hasOwn(large[language], word) ? large[language][word]! : 1;
    if (factor >= scale) break;
    // After a word for thousands what follows is a smaller part: "two thousand five", not "five two".
    if (next > at && scale === 1) break;
    total += part.value * factor;
    next = factor > 1 ? part.next + 1 : part.next;
    scale = factor;
    if (factor === 1) break;
  }
  return next > at ? { value: total, next } : undefined;
}

function isScale(token: Token | undefined, language: Language): boolean {
  return token !== undefined && Object.hasOwn(large[language], token.plain);
}

/** A whole number, in digits or in words. */
export function wholeNumber(tokens: readonly Token[], at: number, language: Language): Found<number> | undefined {
  const found = number(tokens, at, language);
  return found && Number.isInteger(found.value) ? found : undefined;
}

/** A number, in digits or in words, with its fraction. */
export function number(tokens: readonly Token[], at: number, language: Language): Found<number> | undefined {
  const written = writtenNumber(tokens[at]?.plain ?? "", language);
  if (written !== undefined) {
    const word = tokens[at + 1]?.plain ?? "";
    if (Object.hasOwn(large[language], word)) return { value: written * large[language][word]!, next: at + 2 };
    return { value: written, next: at + 1 };
  }
  const whole = inWords(tokens, at, language);
  if (!whole) return undefined;
  const point = language === "pt" ? /^(virgula|ponto)$/ : /^point$/;
  if (!point.test(tokens[whole.next]?.plain ?? "")) return whole;
  // The digits after the point are said one by one, or as one number.
  let digits = "";
  let next = whole.next + 1;
  while (digits.length < 10) {
    const plain = tokens[next]?.plain ?? "";
    const digit = /^\d+$/.test(plain) ? plain : Object.hasOwn(small[language], plain) && small[language][plain]! < 10 ? String(small[language][plain]) : "";
    if (digit === "") break;
    digits += digit;
    next++;
  }
  if (digits !== "") return { value: Number(`${whole.value}.${digits}`), next };
  const after = hundreds(tokens, whole.next + 1, language);
  return after ? { value: Number(`${whole.value}.${after.value}`), next: after.next } : whole;
}
