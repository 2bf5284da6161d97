// Cuts texts from outside between characters, as a reader sees them. Half of a character (a lone surrogate) makes a
// document unreadable for a strict parser.

const characters = new Intl.Segmenter(undefined, { granularity: "grapheme" });

/** The beginning of a text: at most `most` units of UTF-16, well formed. */
export function cut(text: string, most: number): string {
  const whole = text.toWellFormed();
  if (whole.length <= most) return whole;
  const end = characters.segment(whole).containing(most)?.index ?? most;
  if (end > 0) return whole.slice(0, end);
  // The first character alone is longer: it may bear any number of marks.
  const isSplit = /[\ud800-\udbff]/.test(whole.charAt(most - 1));
  return whole.slice(0, isSplit ? most - 1 : most);
}
