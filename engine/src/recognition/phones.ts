// Writes phonetic letters with the phones of the acoustic model.

/** The phones of the American English model for phonetic letters (IPA). Pairs of letters are looked up first. */
const phones: Record<string, string> = {
  p: "P", b: "B", t: "T", d: "D", k: "K", ɡ: "G", g: "G", f: "F", v: "V", s: "S", z: "Z", θ: "TH", ð: "DH",
  ʃ: "SH", ʒ: "ZH", tʃ: "CH", dʒ: "JH", m: "M", n: "N", ɲ: "N Y", ŋ: "NG", l: "L", ɫ: "L", ʎ: "L Y", w: "W", j: "Y",
  h: "HH", x: "HH", ɣ: "HH", ʁ: "HH", ɾ: "R", r: "R", ɹ: "R",
  i: "IY", ɪ: "IH", y: "IY", e: "EY", ɛ: "EH", æ: "AE", a: "AA", ɐ: "AH", ə: "AH", ɑ: "AA", ɒ: "AA", ɔ: "AO", o: "OW",
  ʊ: "UH", u: "UW", ʌ: "AH", ɜ: "ER", ɚ: "ER", aɪ: "AY", aʊ: "AW", eɪ: "EY", oʊ: "OW", əʊ: "OW", ɔɪ: "OY", oɪ: "OY",
};
const nasal = "\u0303";

/** Gives the phones of a word in phonetic letters, or undefined when none of its letters is known. */
export function phonesOf(ipa: string): string | undefined {
  const found: string[] = [];
  let isNasal = false;
  const plain = ipa.normalize("NFD").replace(/[\u02C8\u02CC\u02D0_\u200D\u0361]/g, "");
  // Both vowels of a nasal diphthong bear the mark; the second tells enough.
  const letters = plain.replace(/[ɐa]\u0303(?=[ʊw]\u0303)/g, "a");
  for (let at = 0; at < letters.length; ) {
    if (letters[at] === nasal) {
      isNasal = true;
      at++;
      continue;
    }
    const pair = phones[letters.slice(at, at + 2)];
    const phone = pair ?? phones[letters[at] ?? ""];
    at += pair ? 2 : 1;
    if (phone === undefined) continue;
    // A nasal vowel ends in the nearest nasal consonant.
    if (isNasal && !/^(N|M|NG)\b/.test(phone)) found.push("N");
    isNasal = false;
    found.push(phone);
  }
  if (isNasal) found.push("N");
  return found.length > 0 ? found.join(" ") : undefined;
}
