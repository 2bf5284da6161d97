// Writes rows into the store of a folder until it is killed, and prints each one's text when it has been kept.

import { writeSync } from "node:fs";
import { systemClock } from "../../src/base/clock.ts";
import { Conversations } from "../../src/memory/conversations.ts";
import { Store } from "../../src/memory/store.ts";

const [folder = "", from = "0"] = process.argv.slice(2);
const conversations = new Conversations(new Store(folder, () => {}, systemClock), systemClock);
for (let number = Number(from); ; number++) {
  if (number % 7 === 0) conversations.begin();
  const text = `row ${number} ${"word ".repeat(number % 50)}`.trim();
  conversations.add("user", text);
  writeSync(1, `${text}\n`);
}
