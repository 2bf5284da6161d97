// The loudness of samples, in decibels and as a meter shows it.

/** The level on a meter, from 0 to 1; anything below -50 dBFS counts as silence. */
export function levelOf(dbfs: number): number {
  return Math.min(1, Math.max(0, (dbfs + 50) / 60));
}

export function decibels(meanSquare: number): number {
  return meanSquare <= 1e-12 ? -120 : 10 * Math.log10(meanSquare);
}
