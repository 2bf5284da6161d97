// modelCommand.test.ts runs this: `palomet-engine model` with the one model of TRIED_MODEL.

import { modelCommand } from "../../src/models/modelCommand.ts";

process.exitCode = await modelCommand(process.argv.slice(2), {
  environment: process.env,
  print: (text) => void process.stdout.write(text),
  complain: (line) => void process.stderr.write(`${line}\n`),
  isTerminal: false,
  models: [JSON.parse(process.env.TRIED_MODEL ?? "")],
});
