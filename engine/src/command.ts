// Entry point of the command `palomet-engine`, for people.

import { modelCommand, usage } from "./models/modelCommand.ts";

const [word, ...rest] = process.argv.slice(2);
if (word === "model") {
  process.exitCode = await modelCommand(rest, {
    environment: process.env,
    print: (text) => void process.stdout.write(text),
    complain: (line) => void process.stderr.write(`${line}\n`),
    isTerminal: process.stdout.isTTY,
  });
} else if (word === "--help" && rest.length === 0) {
  process.stdout.write(usage);
} else {
  process.stderr.write(usage);
  process.exitCode = 2;
}
