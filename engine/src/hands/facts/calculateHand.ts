// The hand that calculates and converts, by the library that the engine's package brings.

import type { Language } from "../../base/language.ts";
import { isGiven, textIn } from "../given.ts";
import type { Hand } from "../hand.ts";
import { numberText } from "../saying.ts";

/** What is used of the library. */
interface Mathematics {
  evaluate(expression: string): unknown;
  isUnit(value: unknown): boolean;
}

const longestExpression = 300;
/** Numbers, operators, brackets and names; nothing that assigns, indexes, or makes lists, texts or functions. */
const allowed = /^[\p{L}\p{N}\s.+\-*/^%()°]+$/u;
/** Names in an expression are units, or one of these. */
const functions = new Set(["sqrt", "cbrt", "sin", "cos", "tan", "log", "log10", "exp", "abs", "round", "floor", "ceil", "pi", "e"]);
const mostNames = 12;
/** A conversion's names of units, in the words of the language. */
const unitNames: Record<Language, Record<string, string>> = {
  en: {
    mile: "miles", km: "kilometers", m: "meters", cm: "centimeters", mm: "millimeters", foot: "feet", inch: "inches", yard: "yards", g: "grams", kg: "kilograms",
    lbm: "pounds", oz: "ounces", liter: "liters", ml: "milliliters", gallon: "gallons", cup: "cups", tablespoon: "tablespoons", teaspoon: "teaspoons", second: "seconds",
    minute: "minutes", hour: "hours", day: "days", week: "weeks", year: "years", degC: "degrees Celsius", degF: "degrees Fahrenheit", K: "kelvin",
  },
  pt: {
    mile: "milhas", km: "quilômetros", m: "metros", cm: "centímetros", mm: "milímetros", foot: "pés", inch: "polegadas", yard: "jardas", g: "gramas", kg: "quilos",
    lbm: "libras", oz: "onças", liter: "litros", ml: "mililitros", gallon: "galões", cup: "xícaras", second: "segundos", minute: "minutos", hour: "horas", day: "dias",
    week: "semanas", year: "anos", degC: "graus Celsius", degF: "graus Fahrenheit", K: "kelvin",
  },
};

export class CalculateHand implements Hand {
  readonly id = "calculate";
  readonly description = "Works out a sum, or converts a measure to another unit.";
  readonly parameters = {
    type: "object",
    properties: {
      expression: { type: "string", description: "Like 2 * (3 + 4), sqrt(2), 10 km" },
      to: { type: "string", description: "The unit to convert to: mile, degF, kg" },
    },
    required: ["expression"],
  } as const;
  readonly changes = false;
  #library: Promise<Mathematics | undefined> | undefined;

  constructor(
    /** The library's file, which is loaded at the first calculation; undefined where it is not installed. */
    private readonly library: string | undefined,
  ) {}

  intent(given: unknown, language: Language): string | undefined {
    if (read(given) === undefined) return undefined;
    return language === "pt" ? "fazer a conta" : "work it out";
  }

  async act(given: unknown, language: Language): Promise<string> {
    const isPortuguese = language === "pt";
    const wanted = read(given);
    if (!wanted) return isPortuguese ? "Não entendi a conta." : "I did not understand the sum.";
    const mathematics = await (this.#library ??= load(this.library));
    if (!mathematics) return isPortuguese ? "A calculadora não está instalada." : "The calculator is not installed.";
    let value: unknown;
    try {
      const { expression, to } = wanted;
      value = mathematics.evaluate(to === undefined ? expression : `number(${expression}, ${to})`);
    } catch {
      return isPortuguese ? "Não consigo fazer essa conta." : "I cannot work that out.";
    }
    if (typeof value !== "number" || Number.isNaN(value)) return isPortuguese ? "Essa conta não dá um número." : "That makes no number.";
    if (!Number.isFinite(value)) return isPortuguese ? "Esse número é grande demais." : "That number is too large.";
    const text = numberText(value, language, wanted.to === undefined ? 12 : 5);
    const unit = wanted.to === undefined ? "" : ` ${unitNames[language][wanted.to] ?? wanted.to}`;
    return isPortuguese ? `Dá ${text}${unit}.` : `That is ${text}${unit}.`;
  }
}

function read(given: unknown): { expression: string; to?: string } | undefined {
  const expression = textIn(given, "expression", longestExpression);
  const to = textIn(given, "to", 40);
  if (expression === undefined || !isPlain(expression) || (isGiven(given, "to") && (to === undefined || !isPlain(to)))) return undefined;
  return to === undefined ? { expression } : { expression, to };
}

function isPlain(text: string): boolean {
  const names = text.match(/\p{L}[\p{L}\p{N}]*/gu) ?? [];
  // What is followed by a bracket is a function.
  const called = [...text.matchAll(/(\p{L}[\p{L}\p{N}]*)\s*\(/gu)].map(([, name]) => name!);
  return allowed.test(text) && names.length <= mostNames && called.every((name) => functions.has(name));
}

async function load(path: string | undefined): Promise<Mathematics | undefined> {
  if (path === undefined) return undefined;
  try {
    return ((await import(path)) as { mathematics: Mathematics }).mathematics;
  } catch {
    return undefined;
  }
}
