// How loud samples are, and how that shows on a meter.

/** Full scale at `dbfs` 0; what is below -50 dBFS counts as silence. */
export function levelOf(dbfs: number): number {
  return Math.min(1, Math.max(0, (dbfs + 50) / 60));
}

export function decibels(meanSquare: number): number {
  return meanSquare <= 1e-12 ? -120 : 10 * Math.log10(meanSquare);
}
