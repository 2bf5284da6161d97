// The event stream: tells every front end that follows it of each change, and cuts off one that does not read.

export type EventName = "phase" | "change" | "spoken" | "turnEnd" | "level" | "outLevel";

/** Bytes that a client leaves unread: beyond the first figure it gets no levels, beyond the second it is cut off. */
const comfortable = 16 * 1024;
const utmost = 256 * 1024;

const encoded = (name: EventName, data: string): Uint8Array =>
  new TextEncoder().encode(`event: ${name}\ndata: ${data}\n\n`);

export class EventStream {
  readonly #clients = new Set<ReadableStreamDefaultController<Uint8Array>>();

  /** The first event tells the phase: the state may have changed unnoticed since the front end read it. */
  open(phase: string): Response {
    let client: ReadableStreamDefaultController<Uint8Array> | undefined;
    const body = new ReadableStream<Uint8Array>(
      {
        start: (controller) => {
          client = controller;
          this.#clients.add(controller);
          controller.enqueue(encoded("phase", phase));
        },
        cancel: () => {
          if (client) this.#clients.delete(client);
        },
      },
      new ByteLengthQueuingStrategy({ highWaterMark: comfortable }),
    );
    return new Response(body, { headers: { "content-type": "text/event-stream", "cache-control": "no-store" } });
  }

  send(name: EventName, data: string): void {
    if (this.#clients.size === 0) return;
    const bytes = encoded(name, data);
    const isLevel = name === "level" || name === "outLevel";
    for (const client of this.#clients) {
      const room = client.desiredSize ?? -Infinity;
      if (isLevel && room <= 0) continue;
      try {
        if (room < comfortable - utmost) this.#cutOff(client);
        else client.enqueue(bytes);
      } catch {
        this.#clients.delete(client);
      }
    }
  }

  #cutOff(client: ReadableStreamDefaultController<Uint8Array>): void {
    this.#clients.delete(client);
    client.error(new Error("not read"));
  }
}
