// The text messages of the audio link.

import { isRecord, parseJson } from "../base/json.ts";
import { cut } from "../base/text.ts";

/** A text message of the front end over the audio link. */
export type LinkEvent =
  | { type: "hello"; device: string }
  | { type: "device"; device: string }
  | { type: "played"; id: number };

/** A text message of the engine over the audio link. */
export type LinkCommand =
  | { type: "play"; id: number; data: string; format: string }
  | { type: "stop" }
  | { type: "enable"; on: boolean }
  | { type: "chime" }
  | { type: "input"; device?: string };

/** Reads one text message of the link; gives undefined for a text that is none. */
export function parseLinkEvent(text: string): LinkEvent | undefined {
  const value = parseJson(text);
  if (!isRecord(value)) return undefined;
  switch (value.type) {
    case "hello":
    case "device":
      return typeof value.device === "string" ? { type: value.type, device: cut(value.device, 500) } : undefined;
    case "played":
      return Number.isSafeInteger(value.id) ? { type: "played", id: value.id as number } : undefined;
    default:
      return undefined;
  }
}
