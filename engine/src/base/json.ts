// Reads JSON from outside.

export function isRecord(value: unknown): value is Record<string, unknown> {
  return typeof value === "object" && value !== null && !Array.isArray(value);
}

/** Gives undefined for a text that is no JSON. Every text in the value is well formed: half a character is replaced. */
export function parseJson(text: string): unknown {
  try {
    // Half a character can only come from an escape.
    return /\\u[dD][89a-fA-F]/.test(text) ? JSON.parse(text, wellFormed) : JSON.parse(text);
  } catch {
    return undefined;
  }
}

function wellFormed(_key: string, value: unknown): unknown {
  return typeof value === "string" ? value.toWellFormed() : value;
}
