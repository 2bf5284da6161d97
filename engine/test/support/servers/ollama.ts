// Ollama's ways at /v1, as its documentation has them ("OpenAI compatibility", v0.40.12) and its server was recorded (September 2025):
// every piece names its role, a tool call comes whole in one piece, an error is an object with a type and a message.

import type { Ways } from "../chatServer.ts";

const chunk = (delta: object, reason: string | null = null): string =>
  `data: ${JSON.stringify({
    id: "chatcmpl-923", object: "chat.completion.chunk", created: 1756921364, model: "qwen3:8b", system_fingerprint: "fp_ollama",
    choices: [{ index: 0, delta: { role: "assistant", content: "", ...delta }, finish_reason: reason }],
  })}\n\n`;
const done = "data: [DONE]\n\n";

export const ollama: Ways = {
  name: "Ollama",
  models: {
    object: "list",
    data: [
      { id: "qwen3:8b", object: "model", created: 1756921000, owned_by: "library" },
      { id: "nomic-embed-text:latest", object: "model", created: 1756920000, owned_by: "library" },
    ],
  },
  offered: ["qwen3:8b"],
  words: (...pieces) => pieces.map((content) => chunk({ content })).join("") + chunk({}, "stop") + done,
  calls: (...calls) =>
    calls
      .map(({ name, given }, index) => ({ id: `call_px63ad0${index}`, index, type: "function", function: { name, arguments: JSON.stringify(given) } }))
      .map((call) => chunk({ tool_calls: [call] }))
      .join("") +
    chunk({}, "tool_calls") + done,
  missing: { status: 404, body: { error: { message: "model 'qwen3:8b' not found", type: "not_found_error", param: null, code: null } } },
  toolless: {
    status: 400,
    body: { error: { message: "registry.ollama.ai/library/gemma:2b does not support tools", type: "invalid_request_error", param: null, code: null } },
  },
  broken: [`data: ${JSON.stringify({ error: { message: "an error was encountered while running the model", type: "api_error", param: null, code: null } })}\n\n`],
};
