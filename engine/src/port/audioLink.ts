// The engine's end of the audio link: chooses the front end that is heard and spoken through, and takes its reports.

import type { Clip } from "../sound/wav.ts";
import type { SpeakerOutput } from "../voice/speaker.ts";
import { parseLinkEvent, type LinkCommand } from "./linkMessages.ts";

/** One connection: the part of Bun's `ServerWebSocket` that is used here. */
export interface LinkSocket {
  send(text: string): unknown;
}

export interface AudioLinkEvents {
  /** A front end has taken over. `disconnected` comes before it when another one had the link. */
  connected(): void;
  disconnected(): void;
  device(name: string): void;
  samples(samples: Int16Array): void;
  played(id: number): void;
}

export class AudioLink implements SpeakerOutput {
  /** The newest connection is in use; the one before it takes over when it closes. */
  #sockets: LinkSocket[] = [];
  #device = "";

  constructor(private readonly events: AudioLinkEvents) {}

  get isConnected(): boolean {
    return this.#sockets.length > 0;
  }

  /** The microphone that the front end named last, or "". */
  get device(): string {
    return this.#device;
  }

  opened(socket: LinkSocket): void {
    if (this.isConnected) this.events.disconnected();
    this.#sockets.push(socket);
    this.events.connected();
  }

  closed(socket: LinkSocket): void {
    const wasCurrent = this.#current === socket;
    this.#sockets = this.#sockets.filter((candidate) => candidate !== socket);
    if (!wasCurrent) return;
    this.events.disconnected();
    if (this.isConnected) this.events.connected();
    else this.#device = "";
  }

  text(socket: LinkSocket, text: string): void {
    const event = parseLinkEvent(text);
    if (!event || socket !== this.#current) return;
    if (event.type === "played") return this.events.played(event.id);
    this.#device = event.device;
    this.events.device(event.device);
  }

  /** Signed 16-bit little-endian samples; an odd last byte is left out. */
  audio(socket: LinkSocket, bytes: Uint8Array): void {
    if (socket !== this.#current || bytes.length < 2) return;
    // Samples need a copy: the bytes belong to the socket, and may begin at an odd address.
    const whole = new Uint8Array(bytes.subarray(0, bytes.length & ~1));
    this.events.samples(new Int16Array(whole.buffer));
  }

  play(id: number, clip: Clip): void {
    this.#send({ type: "play", id, data: Buffer.from(clip.file).toString("base64"), format: "wav" });
  }

  silence(): void {
    this.#send({ type: "stop" });
  }

  chime(): void {
    this.#send({ type: "chime" });
  }

  enable(on: boolean): void {
    this.#send({ type: "enable", on });
  }

  /** Undefined stands for the system's default microphone. */
  useInput(device: string | undefined): void {
    this.#send(device === undefined ? { type: "input" } : { type: "input", device });
  }

  get #current(): LinkSocket | undefined {
    return this.#sockets.at(-1);
  }

  #send(command: LinkCommand): void {
    this.#current?.send(JSON.stringify(command));
  }
}
