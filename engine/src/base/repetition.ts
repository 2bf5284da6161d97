// The rule for a line that is said over and over: it is counted, written ever more seldom, and new again after an hour.

const newsAgainMs = 3_600_000;

export function isRecent(at: number, now: number): boolean {
  return Math.abs(now - at) < newsAgainMs;
}

/** True for the first, the tenth, the hundredth time and so on. */
export function isTold(times: number): boolean {
  return /^10*$/.test(String(times));
}

export function counted(line: string, times: number): string {
  return times === 1 ? line : `${line} (${times} vezes)`;
}
