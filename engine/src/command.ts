// Entry point of the command `palomet-engine`, for people. `hearing` is asked by `palomet --doctor`: a line that says what
// the engine understands here, in the language that it would speak.

import { chooseLocale } from "./base/language.ts";
import { Children } from "./machine/children.ts";
import { Choices } from "./machine/choices.ts";
import { memoryCommand, memoryUsage } from "./memory/memoryCommand.ts";
import { advise } from "./models/advice.ts";
import { modelCommand, usage } from "./models/modelCommand.ts";

const [word, ...rest] = process.argv.slice(2);
if (word === "model") {
  process.exitCode = await modelCommand(rest, {
    environment: process.env,
    print: (text) => void process.stdout.write(text),
    complain: (line) => void process.stderr.write(`${line}\n`),
    isTerminal: process.stdout.isTTY,
  });
} else if (word === "export" || word === "forget") {
  process.exitCode = await memoryCommand([word, ...rest], {
    environment: process.env,
    print: (text) => void process.stdout.write(text),
    complain: (line) => void process.stderr.write(`${line}\n`),
  });
} else if (word === "hearing" && rest.length === 0) {
  const choices = new Choices(new Children(process.env), chooseLocale(process.env));
  const { isDeaf, text } = advise(choices.recogniserModels());
  process.stdout.write(`${text}\n`);
  process.exitCode = isDeaf ? 1 : 0;
} else if (word === "--help" && rest.length === 0) {
  process.stdout.write(usage + memoryUsage);
} else {
  process.stderr.write(usage + memoryUsage);
  process.exitCode = 2;
}
