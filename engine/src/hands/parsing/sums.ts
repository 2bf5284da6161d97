// Sums and measures as they are said, written down as the calculator reads them: "five times three" is "5 * 3", "ten miles" is
// "10 mile".

import type { Language } from "../../base/language.ts";
import { number, type Found } from "./numbers.ts";
import type { Token } from "./tokens.ts";

/** The calculator's names of units, by the words of each language. Longer names stand with their blanks. */
const units: Record<Language, Record<string, string>> = {
  en: {
    millimeter: "mm", millimetre: "mm", mm: "mm", centimeter: "cm", centimetre: "cm", cm: "cm", meter: "m", metre: "m", kilometer: "km",
    kilometre: "km", km: "km", kms: "km", mile: "mile", yard: "yard", foot: "foot", feet: "foot", ft: "foot", inch: "inch", inche: "inch",
    gram: "g", g: "g", kilogram: "kg", kilo: "kg", kg: "kg", kgs: "kg", tonne: "tonne", ton: "ton", pound: "lbm", lb: "lbm", ounce: "oz",
    oz: "oz", liter: "liter", litre: "liter", l: "liter", milliliter: "ml", millilitre: "ml", ml: "ml", gallon: "gallon", pint: "pint",
    quart: "quart", cup: "cup", tablespoon: "tablespoon", teaspoon: "teaspoon", second: "second", minute: "minute", hour: "hour", day: "day",
    week: "week", year: "year", celsius: "degC", centigrade: "degC", c: "degC", fahrenheit: "degF", f: "degF", kelvin: "K", acre: "acre",
    hectare: "hectare", byte: "byte", kilobyte: "kB", megabyte: "MB", mb: "MB", gigabyte: "GB", gb: "GB", terabyte: "TB", tb: "TB",
    mph: "mile/hour", kph: "km/hour", kmh: "km/hour", joule: "J", watt: "W", kilowatt: "kW", bar: "bar", psi: "psi",
  },
  pt: {
    milimetro: "mm", mm: "mm", centimetro: "cm", cm: "cm", metro: "m", m: "m", quilometro: "km", kilometro: "km", km: "km", milha: "mile",
    jarda: "yard", pe: "foot", polegada: "inch", grama: "g", g: "g", quilo: "kg", kilo: "kg", quilograma: "kg", kg: "kg", tonelada: "tonne",
    libra: "lbm", onca: "oz", litro: "liter", l: "liter", mililitro: "ml", ml: "ml", galao: "gallon", galoe: "gallon", xicara: "cup",
    segundo: "second", minuto: "minute", hora: "hour", dia: "day", semana: "week", ano: "year", celsius: "degC", centigrado: "degC", c: "degC",
    fahrenheit: "degF", f: "degF", kelvin: "K", acre: "acre", hectare: "hectare", byte: "byte", quilobyte: "kB", megabyte: "MB", mb: "MB",
    gigabyte: "GB", gb: "GB", terabyte: "TB", tb: "TB", kmh: "km/hour", joule: "J", watt: "W", quilowatt: "kW",
  },
};

const operators: Record<Language, [string[], string][]> = {
  en: [
    [["plus"], "+"], [["+"], "+"], [["minus"], "-"], [["take", "away"], "-"], [["−"], "-"], [["times"], "*"], [["multiplied", "by"], "*"], [["x"], "*"], [["×"], "*"],
    [["*"], "*"], [["divided", "by"], "/"], [["over"], "/"], [["÷"], "/"], [["/"], "/"], [["to", "the", "power", "of"], "^"],
    [["to", "the", "power"], "^"], [["^"], "^"], [["modulo"], "%"],
  ],
  pt: [
    [["mais"], "+"], [["+"], "+"], [["menos"], "-"], [["−"], "-"], [["vezes"], "*"], [["multiplicado", "por"], "*"], [["x"], "*"], [["×"], "*"],
    [["*"], "*"], [["dividido", "por"], "/"], [["sobre"], "/"], [["÷"], "/"], [["/"], "/"], [["elevado", "a"], "^"], [["elevado", "ao"], "^"],
    [["^"], "^"], [["modulo"], "%"],
  ],
};

const fractions: Record<Language, Record<string, string>> = {
  en: { half: "1/2", third: "1/3", quarter: "1/4", "two thirds": "2/3", "three quarters": "3/4" },
  pt: { metade: "1/2", "um terco": "1/3", "um quarto": "1/4", "dois tercos": "2/3", "tres quartos": "3/4" },
};

const shares: Record<Language, Record<string, number>> = {
  en: { third: 3, thirds: 3, quarter: 4, quarters: 4, fifth: 5, fifths: 5, sixth: 6, sixths: 6, eighth: 8, eighths: 8, tenth: 10, tenths: 10 },
  pt: { terco: 3, tercos: 3, quarto: 4, quartos: 4, quinto: 5, quintos: 5, sexto: 6, sextos: 6, oitavo: 8, oitavos: 8, decimo: 10, decimos: 10 },
};

function startsWith(tokens: readonly Token[], at: number, words: readonly string[]): boolean {
  return words.every((word, offset) => tokens[at + offset]?.plain === word);
}

/** A unit by its name, in the singular or the plural. */
export function unit(tokens: readonly Token[], at: number, language: Language): Found<string> | undefined {
  let start = at;
  if (/^(degrees?|graus?|°)$/.test(tokens[start]?.plain ?? "")) start++;
  const plain = tokens[start]?.plain ?? "";
  const names = units[language];
  const singular = [plain, plain.replace(/s$/, ""), plain.replace(/es$/, "")].find((name) => Object.hasOwn(names, name));
  if (singular === undefined) return undefined;
  let [value, next] = [names[singular]!, start + 1];
  const per = language === "pt" ? /^(por)$/ : /^(per|an|a)$/;
  if (per.test(tokens[next]?.plain ?? "") || tokens[next]?.plain === "/") {
    const time = unit(tokens, next + 1, language);
    if (time && /^(second|minute|hour|day)$/.test(time.value)) [value, next] = [`${value}/${time.value}`, time.next];
    else if (tokens[next]?.plain === "/" && tokens[next + 1]?.plain === "h") [value, next] = [`${value}/hour`, next + 2];
  }
  return { value, next };
}

interface Part extends Found<string> {
  /** It is more than a number: there is something to work out. */
  isSum: boolean;
}

/** A sum of at least one operation. */
export function sum(tokens: readonly Token[], at: number, language: Language): Found<string> | undefined {
  const whole = expression(tokens, at, language);
  return whole?.isSum ? whole : undefined;
}

/** Numbers that are to be added: "19, 23 and 8". */
export function added(tokens: readonly Token[], at: number, language: Language): Found<string> | undefined {
  const numbers: string[] = [];
  let next = at;
  for (;;) {
    const from = numbers.length > 0 && /^(and|plus|e|mais|com)$/.test(tokens[next]?.plain ?? "") ? next + 1 : next;
    const found = number(tokens, from, language);
    if (!found) break;
    numbers.push(plainNumber(found.value));
    next = found.next;
  }
  return numbers.length > 1 ? { value: numbers.join(" + "), next } : undefined;
}

/** A number with its unit. */
export function measure(tokens: readonly Token[], at: number, language: Language): Found<string> | undefined {
  // "A mile", and not "a hundred miles".
  const isOne = language === "en" && /^(a|an)$/.test(tokens[at]?.plain ?? "") && !number(tokens, at, language);
  const half = halfOf(tokens, at, language);
  if (half) return half;
  const minus = /^(minus|menos|−)$/.test(tokens[at]?.plain ?? "") ? at + 1 : at;
  const count = isOne ? { value: 1, next: at + 1 } : number(tokens, minus, language);
  if (!count) return undefined;
  const more = language === "en" && startsWith(tokens, count.next, ["and", "a", "half"]) ? 3 : 0;
  const of = unit(tokens, count.next + more, language);
  const after = of && more === 0 ? halfAfter(tokens, of.next, language) : 0;
  const value = more + after > 0 ? count.value + 0.5 : count.value;
  return of && { value: `${minus > at ? "-" : ""}${plainNumber(value)} ${of.value}`, next: of.next + after };
}

/** The length of "and a half" after a unit: "dois quilos e meio". */
function halfAfter(tokens: readonly Token[], at: number, language: Language): number {
  if (language === "en") return startsWith(tokens, at, ["and", "a", "half"]) ? 3 : 0;
  return /^mei[ao]$/.test(tokens[at + 1]?.plain ?? "") && tokens[at]?.plain === "e" ? 2 : 0;
}

/** "Half a pound", "meia libra". */
function halfOf(tokens: readonly Token[], at: number, language: Language): Found<string> | undefined {
  const start = language === "en" && tokens[at]?.plain === "a" ? at + 1 : at;
  if (!(language === "pt" ? /^mei[ao]$/ : /^half$/).test(tokens[start]?.plain ?? "")) return undefined;
  const next = language === "en" && /^(a|an)$/.test(tokens[start + 1]?.plain ?? "") ? start + 2 : start + 1;
  const of = unit(tokens, next, language);
  return of && { value: `0.5 ${of.value}`, next: of.next };
}

function expression(tokens: readonly Token[], at: number, language: Language): Part | undefined {
  let part = operand(tokens, at, language);
  for (;;) {
    if (!part) return undefined;
    const power = squared(tokens, part.next, language);
    if (power) {
      part = { value: `${part.value}^${power.value}`, next: power.next, isSum: true };
      continue;
    }
    const { next } = part;
    const [words, sign] = operators[language].find(([each]) => startsWith(tokens, next, each)) ?? [];
    const right = words && operand(tokens, next + words.length, language);
    if (!right) return part;
    part = { value: `${part.value} ${sign} ${right.value}`, next: right.next, isSum: true };
  }
}

function squared(tokens: readonly Token[], at: number, language: Language): Found<number> | undefined {
  const [square, cube] = language === "pt" ? [["ao", "quadrado"], ["ao", "cubo"]] : [["squared"], ["cubed"]];
  if (startsWith(tokens, at, square)) return { value: 2, next: at + square.length };
  return startsWith(tokens, at, cube) ? { value: 3, next: at + cube.length } : undefined;
}

function operand(tokens: readonly Token[], at: number, language: Language): Part | undefined {
  const isPortuguese = language === "pt";
  const start = tokens[at]?.plain === (isPortuguese ? "a" : "the") ? at + 1 : at;
  const roots: [string[], number][] = isPortuguese
    ? [[["raiz", "quadrada", "de"], 2], [["raiz", "cubica", "de"], 3], [["raiz", "de"], 2]]
    : [[["square", "root", "of"], 2], [["cube", "root", "of"], 3], [["root", "of"], 2]];
  for (const [words, degree] of roots) {
    const under = startsWith(tokens, start, words) ? operand(tokens, start + words.length, language) : undefined;
    if (under) return { value: degree === 2 ? `sqrt(${under.value})` : `(${under.value})^(1/3)`, next: under.next, isSum: true };
  }
  const [square, cube] = isPortuguese ? ["quadrado", "cubo"] : ["square", "cube"];
  const base = isPortuguese && tokens[at]?.plain === "o" ? at + 1 : start;
  const degree = { [square!]: 2, [cube!]: 3 }[tokens[base]?.plain ?? ""];
  if (degree !== undefined && /^(of|de)$/.test(tokens[base + 1]?.plain ?? "")) {
    const under = operand(tokens, base + 2, language);
    if (under) return { value: `(${under.value})^${degree}`, next: under.next, isSum: true };
  }
  if (tokens[at]?.plain === "(") {
    const inside = expression(tokens, at + 1, language);
    return inside && tokens[inside.next]?.plain === ")" ? { value: `(${inside.value})`, next: inside.next + 1, isSum: inside.isSum } : undefined;
  }
  const isNegative = /^(minus|menos|negative|−)$/.test(tokens[at]?.plain ?? "");
  const shared = fractionOf(tokens, start, language);
  if (shared) return shared;
  const found = number(tokens, isNegative ? at + 1 : at, language);
  if (!found) return undefined;
  const after = halfAfter(tokens, found.next, language);
  const count = after > 0 ? found.value + 0.5 : found.value;
  const value = isNegative ? `(-${plainNumber(count)})` : plainNumber(count);
  return percentOf(tokens, value, found.next + after, language) ?? { value, next: found.next + after, isSum: false };
}

/** "Half of 30", "a third of 90", "a metade de 30". */
function fractionOf(tokens: readonly Token[], at: number, language: Language): Part | undefined {
  const start = /^(a|one)$/.test(tokens[at]?.plain ?? "") && language === "en" ? at + 1 : at;
  const parts = number(tokens, at, language);
  const share = parts && shares[language][tokens[parts.next]?.plain ?? ""];
  if (parts && share !== undefined && /^(of|de|do|da)$/.test(tokens[parts.next + 1]?.plain ?? "")) {
    const whole = operand(tokens, parts.next + 2, language);
    if (whole) return { value: `(${plainNumber(parts.value)}/${share}) * ${whole.value}`, next: whole.next, isSum: true };
  }
  for (const [name, value] of Object.entries(fractions[language])) {
    const words = name.split(" ");
    const of = start + words.length;
    if (!startsWith(tokens, start, words) || tokens[of]?.plain !== (language === "pt" ? "de" : "of")) continue;
    const whole = operand(tokens, of + 1, language);
    if (whole) return { value: `(${value}) * ${whole.value}`, next: whole.next, isSum: true };
  }
  return undefined;
}

/** "A 15 percent tip on 84 dollars" is that share of it. */
const tips: Record<Language, string[][]> = {
  en: ["tip on", "tip for", "tip of", "tip on a bill of", "tax on"].map((words) => words.split(" ")),
  pt: ["de gorjeta em", "de gorjeta de", "de gorjeta sobre", "de gorjeta para", "sobre", "em cima de"].map((words) => words.split(" ")),
};

/** "Fifteen percent of 80", "15% de 80". */
function percentOf(tokens: readonly Token[], value: string, at: number, language: Language): Part | undefined {
  const isApart = startsWith(tokens, at, ["por", "cento"]) || startsWith(tokens, at, ["per", "cent"]);
  if (!isApart && !/^(percent|%)$/.test(tokens[at]?.plain ?? "")) return undefined;
  const after = isApart ? at + 2 : at + 1;
  const tip = tips[language].find((words) => startsWith(tokens, after, words));
  const of = tip ? after + tip.length - 1 : after;
  if (!tip && !(language === "pt" ? /^(de|do|da)$/ : /^of$/).test(tokens[of]?.plain ?? "")) return undefined;
  const whole = operand(tokens, of + 1, language);
  return whole && { value: `${value} / 100 * ${whole.value}`, next: whole.next, isSum: true };
}

function plainNumber(value: number): string {
  return value.toLocaleString("en-US", { useGrouping: false, maximumFractionDigits: 12 });
}
