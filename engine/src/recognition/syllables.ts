// Counts the syllables of a written word, as far as its letters tell them.

const accents = /\p{M}/gu;
/** The last "e" of a word after a consonant is mostly only written. */
const silent = /(?<=[^aeiouy\s])e\b/g;
const vowelGroups = /[aeiouy]+/g;

/** The groups of vowels in a text: none in one without Latin letters. */
export function syllablesOf(text: string): number {
  return text.normalize("NFD").replace(accents, "").toLowerCase().replace(silent, "").match(vowelGroups)?.length ?? 0;
}
