// The frames in which the engine writes to a companion: a head, which is a JSON object, and a body of bytes. Each begins
// with the lengths of both as unsigned 32-bit numbers, little-endian.

import { isRecord, parseJson } from "../base/json.ts";

export type Head = Record<string, unknown>;

export interface Frame {
  head: Head;
  body: Uint8Array;
}

const prefix = 8;
/** No frame is longer, in bytes. Half a minute of sound is a megabyte. */
export const longestFrame = 4 << 20;

export function writeFrame(head: Head, body: Uint8Array = new Uint8Array(0)): Uint8Array {
  const text = new TextEncoder().encode(JSON.stringify(head));
  const frame = new Uint8Array(prefix + text.length + body.length);
  const view = new DataView(frame.buffer);
  view.setUint32(0, text.length, true);
  view.setUint32(4, body.length, true);
  frame.set(text, prefix);
  frame.set(body, prefix + text.length);
  return frame;
}

/** Finds the frames in a stream that comes in pieces. */
export class FrameReader {
  #held: Uint8Array = new Uint8Array(0);

  /** Gives the frames that this piece completes. Throws when the stream is none of frames. */
  take(piece: Uint8Array): Frame[] {
    this.#held = this.#held.length === 0 ? piece : Buffer.concat([this.#held, piece]);
    const frames: Frame[] = [];
    while (this.#held.length >= prefix) {
      const view = new DataView(this.#held.buffer, this.#held.byteOffset);
      const headEnd = prefix + view.getUint32(0, true);
      const end = headEnd + view.getUint32(4, true);
      if (end > longestFrame) throw new Error("a frame is too long");
      if (this.#held.length < end) break;
      const head = parseJson(new TextDecoder().decode(this.#held.subarray(prefix, headEnd)));
      if (!isRecord(head)) throw new Error("a frame has no head");
      // A copy begins where samples of any size may begin.
      frames.push({ head, body: new Uint8Array(this.#held.subarray(headEnd, end)) });
      this.#held = this.#held.subarray(end);
    }
    return frames;
  }
}
