// LM Studio's ways, as its documentation of tool use has them (0.3.x, repository "docs" at 1db808c): the name of a tool comes first,
// with an id of digits, and its arguments piece by piece, the later pieces with null where there is nothing new.

import type { Ways } from "../chatServer.ts";

const chunk = (delta: object, reason: string | null = null): string =>
  `data: ${JSON.stringify({
    id: "chatcmpl-gb1t1uqzefudice8ntxd9i", object: "chat.completion.chunk", created: 1730913210, model: "lmstudio-community/qwen2.5-7b-instruct",
    system_fingerprint: "lmstudio-community/qwen2.5-7b-instruct", choices: [{ index: 0, delta, logprobs: null, finish_reason: reason }],
  })}\n\n`;
const done = "data: [DONE]\n\n";

export const lmStudio: Ways = {
  name: "LM Studio",
  models: {
    data: [
      { id: "qwen2.5-7b-instruct", object: "model", owned_by: "organization_owner" },
      { id: "text-embedding-nomic-embed-text-v1.5", object: "model", owned_by: "organization_owner" },
    ],
    object: "list",
  },
  offered: ["qwen2.5-7b-instruct"],
  words: (...pieces) => pieces.map((content, at) => chunk(at === 0 ? { role: "assistant", content } : { content })).join("") + chunk({}, "stop") + done,
  calls: (...calls) =>
    calls
      .map(({ name, given }, index) => {
        const pieces = JSON.stringify(given).split(/(?<=[":{},])|(?=[":{},])/);
        const head = chunk({ role: "assistant", tool_calls: [{ index, id: `81489011${index}`, type: "function", function: { name, arguments: "" } }] });
        return head + pieces.map((piece) => chunk({ tool_calls: [{ index, id: null, type: null, function: { name: null, arguments: piece } }] })).join("");
      })
      .join("") +
    chunk({}, "tool_calls") + done,
  missing: {
    status: 404,
    body: {
      error: {
        message: "No models loaded. Please load a model in the developer page or use the `lms load` command.",
        type: "invalid_request_error", param: "model", code: "model_not_found",
      },
    },
  },
  broken: [`event: error\ndata: ${JSON.stringify({ error: { message: "The model has crashed without additional information. (Exit code: 6)" } })}\n\n`],
};
