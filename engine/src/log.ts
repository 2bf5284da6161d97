/** Appends one line to the engine's log, which is its standard error. */
export type Log = (line: string) => void;

export const standardErrorLog: Log = (line) => {
  process.stderr.write(`motor: ${line}\n`);
};
