// Reads JSON that somebody else wrote.

export function isRecord(value: unknown): value is Record<string, unknown> {
  return typeof value === "object" && value !== null && !Array.isArray(value);
}

/** Undefined for what is no JSON. Every text in it is well formed: half a character is replaced. */
export function parseJson(text: string): unknown {
  try {
    // Only an escape can be half a character.
    return /\\u[dD][89a-fA-F]/.test(text) ? JSON.parse(text, wellFormed) : JSON.parse(text);
  } catch {
    return undefined;
  }
}

function wellFormed(_key: string, value: unknown): unknown {
  return typeof value === "string" ? value.toWellFormed() : value;
}
