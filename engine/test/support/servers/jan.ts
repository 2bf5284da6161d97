// Jan's ways, as its documentation has them ("API Reference" of the local server, 0.8): a key is asked for, models have little more
// than an id, and what its llama.cpp streams is handed on with comments in between.

import type { Ways } from "../chatServer.ts";

const chunk = (delta: object, reason: string | null = null): string =>
  `data: ${JSON.stringify({
    id: "chatcmpl-j4n", object: "chat.completion.chunk", created: 1781222400, model: "jan-v3-4b-base-instruct",
    choices: [{ index: 0, delta, finish_reason: reason }],
  })}\r\n\r\n`;
const between = ": keep-alive\r\n\r\n";
const done = "data: [DONE]\r\n\r\n";

export const jan: Ways = {
  name: "Jan",
  models: { object: "list", data: [{ id: "jan-v3-4b-base-instruct", object: "model" }] },
  offered: ["jan-v3-4b-base-instruct"],
  key: "secret-key-123",
  words: (...pieces) => between + pieces.map((content) => chunk({ content })).join(between) + chunk({}, "stop") + done,
  calls: (...calls) =>
    calls
      .map(({ name, given }, index) => ({ index, id: `call${index}`, type: "function", function: { name, arguments: JSON.stringify(given) } }))
      .map((call) => chunk({ tool_calls: [call] }))
      .join(between) +
    chunk({}, "tool_calls") + done,
  missing: { status: 404, body: { error: { message: "No running session found for model 'gone'", type: "not_found" } } },
  broken: [`data: ${JSON.stringify({ error: "upstream failed" })}\r\n\r\n`],
};
