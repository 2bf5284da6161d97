// The words of a text in the form in which texts are compared.

/** The words of a text in lower case, without accents and punctuation. */
export function plainWords(text: string): string[] {
  const plain = text.normalize("NFD").replace(/\p{M}/gu, "").toLowerCase();
  return plain.replace(/[^\p{L}\p{N}]+/gu, " ").trim().split(" ").filter((word) => word !== "");
}

/** Recognisers misspell words: a letter may be wrong in a word of five, two in one of eight. Both words are plain. */
export function isNearly(word: string | undefined, wanted: string): boolean {
  if (word === undefined) return false;
  const tolerance = wanted.length >= 8 ? 2 : wanted.length >= 5 ? 1 : 0;
  return word === wanted || (tolerance > 0 && distance(word, wanted) <= tolerance);
}

/** The least number of letters to be changed, added or left out (Levenshtein). */
function distance(a: string, b: string): number {
  let row = Array.from({ length: b.length + 1 }, (_, index) => index);
  for (let i = 1; i <= a.length; i++) {
    const next = [i];
    for (let j = 1; j <= b.length; j++) {
      const change = (row[j - 1] ?? 0) + (a[i - 1] === b[j - 1] ? 0 : 1);
      next.push(Math.min(change, (row[j] ?? 0) + 1, (next[j - 1] ?? 0) + 1));
    }
    row = next;
  }
  return row[b.length] ?? 0;
}
