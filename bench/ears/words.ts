// How many words of a text were heard wrong.

const ones = [
    "zero", "one", "two", "three", "four", "five", "six", "seven", "eight", "nine", "ten", "eleven", "twelve", "thirteen", "fourteen",
    "fifteen", "sixteen", "seventeen", "eighteen", "nineteen",
];
const tens = ["", "", "twenty", "thirty", "forty", "fifty", "sixty", "seventy", "eighty", "ninety"];

/** What is one word however it is spelled. */
const spellings: Record<string, string> = { ok: "okay", mr: "mister", dialled: "dialed", colour: "color", grey: "gray" };

function inWords(number: number): string {
    if (number < 20) return ones[number]!;
    if (number < 100) return `${tens[Math.floor(number / 10)]} ${number % 10 === 0 ? "" : ones[number % 10]}`;
    if (number < 1000) return `${ones[Math.floor(number / 100)]} hundred ${number % 100 === 0 ? "" : inWords(number % 100)}`;
    return String(number);
}

/** The words as they are compared: no case, no marks, numbers in words. */
export function plain(text: string): string[] {
    return text
        .toLowerCase()
        .normalize("NFD")
        .replace(/\p{M}|['’]/gu, "")
        .replace(/\d+/g, (digits) => ` ${inWords(Number(digits))} `)
        .replace(/[^\p{L}\p{N}]+/gu, " ")
        .trim()
        .split(" ")
        .filter((word) => word !== "")
        .map((word) => spellings[word] ?? word);
}

export interface Errors {
    wrong: number;
    words: number;
}

/** The least number of words that were changed, added or left out (Levenshtein). Two words that were written as one, or the other way round, are right. */
export function errorsOf(said: string, heard: string): Errors {
    const wanted = plain(said);
    const got = plain(heard);
    if (wanted.join("") === got.join("")) return { wrong: 0, words: wanted.length };
    let row = Array.from({ length: got.length + 1 }, (_, index) => index);
    wanted.forEach((word, line) => {
        const next = [line + 1];
        got.forEach((other, index) => next.push(Math.min(row[index]! + (word === other ? 0 : 1), row[index + 1]! + 1, next[index]! + 1)));
        row = next;
    });
    return { wrong: row.at(-1)!, words: wanted.length };
}

export function sum(all: Errors[]): Errors {
    return all.reduce((total, { wrong, words }) => ({ wrong: total.wrong + wrong, words: total.words + words }), { wrong: 0, words: 0 });
}

export const percent = (part: number, whole: number): string => `${((100 * part) / Math.max(1, whole)).toFixed(1)} %`;
