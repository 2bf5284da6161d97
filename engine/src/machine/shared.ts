// Shares a look at the machine among all who want it.

/** Makes callers share a look: all who ask while it goes on get its result. */
export function shared<T>(look: () => Promise<T>): () => Promise<T> {
  let going: Promise<T> | undefined;
  return () => (going ??= look().finally(() => (going = undefined)));
}
