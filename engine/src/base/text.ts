// Texts from outside are cut between characters, as a reader sees them. Half of a character (a lone surrogate) makes a
// document unreadable for whoever is strict.

const characters = new Intl.Segmenter(undefined, { granularity: "grapheme" });

/** At most so many units of UTF-16, well formed. */
export function cut(text: string, most: number): string {
  const whole = text.toWellFormed();
  if (whole.length <= most) return whole;
  const end = characters.segment(whole).containing(most)?.index ?? most;
  if (end > 0) return whole.slice(0, end);
  // One character may have marks without end.
  const isSplit = /[\ud800-\udbff]/.test(whole.charAt(most - 1));
  return whole.slice(0, isSplit ? most - 1 : most);
}
