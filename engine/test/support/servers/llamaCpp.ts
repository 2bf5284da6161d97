// The ways of llama.cpp's server, as its README has them (tools/server at 25d5b0c, end of 2025) and build b6210 was seen to stream:
// the first piece has the role alone, arguments come in pieces, the last piece counts tokens and times, the list has one model.

import type { Ways } from "../chatServer.ts";

const chunk = (delta: object, reason: string | null = null, more: object = {}): string =>
  `data: ${JSON.stringify({
    choices: [{ finish_reason: reason, index: 0, delta }],
    created: 1755667673, id: "chatcmpl-DwWJriZJ4TnyeMBHO3WmhUJhYUqQg1RP", model: "gpt-3.5-turbo",
    system_fingerprint: "b6210-a094f381", object: "chat.completion.chunk", ...more,
  })}\n\n`;
const first = chunk({ role: "assistant", content: null });
const last = (reason: string): string =>
  chunk({}, reason, { usage: { completion_tokens: 11, prompt_tokens: 14, total_tokens: 25 }, timings: { prompt_n: 14, prompt_ms: 53.734 } }) + "data: [DONE]\n\n";
const shifted = { code: 500, message: "context shift is disabled", type: "server_error" };
const path = "../models/Meta-Llama-3.1-8B-Instruct-Q4_K_M.gguf";

export const llamaCpp: Ways = {
  name: "llama.cpp",
  models: {
    object: "list",
    data: [
      {
        id: path, object: "model", created: 1735142223, owned_by: "llamacpp",
        meta: { vocab_type: 2, n_vocab: 128256, n_ctx_train: 131072, n_embd: 4096, n_params: 8030261312, size: 4912898304 },
      },
    ],
  },
  offered: [path],
  words: (...pieces) => first + pieces.map((content) => chunk({ content })).join("") + last("stop"),
  calls: (...calls) =>
    first +
    calls
      .map(({ name, given }, index) => {
        const pieces = JSON.stringify(given).match(/[^]{1,3}/g) ?? [];
        const head = chunk({ tool_calls: [{ index, id: `LdhTyG${index}`, type: "function", function: { name, arguments: "" } }] });
        return head + pieces.map((piece) => chunk({ tool_calls: [{ index, function: { arguments: piece } }] })).join("");
      })
      .join("") +
    last("tool_calls"),
  missing: { status: 400, body: { error: { code: 400, message: "model 'gone' not found", type: "invalid_request_error" } } },
  toolless: { status: 500, body: { error: { code: 500, message: "tools param requires --jinja flag", type: "server_error" } } },
  tooLong: {
    status: 400,
    body: {
      error: {
        code: 400, message: "the request exceeds the available context size. try increasing the context size or enable context shift",
        type: "exceed_context_size_error", n_prompt_tokens: 14429, n_ctx: 1024,
      },
    },
  },
  // The first is what b6210 sends, the second what later ones do (tools/server/server-context.cpp).
  broken: [
    `error: ${JSON.stringify(shifted)}\n\n`,
    `data: ${JSON.stringify({ error: shifted })}\n\n`,
  ],
};
