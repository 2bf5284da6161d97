// The event stream: every front end that follows it is told of each change. One that does not read is not fed.

export type EventName = "phase" | "change" | "spoken" | "turnEnd" | "level" | "outLevel";

/** What one client may leave unread, in bytes: beyond the first no levels, beyond the second it is cut off. */
const comfortable = 16 * 1024;
const utmost = 256 * 1024;

export class EventStream {
  readonly #clients = new Set<ReadableStreamDefaultController<Uint8Array>>();

  get clientCount(): number {
    return this.#clients.size;
  }

  open(): Response {
    let client: ReadableStreamDefaultController<Uint8Array> | undefined;
    const body = new ReadableStream<Uint8Array>(
      {
        start: (controller) => {
          client = controller;
          this.#clients.add(controller);
          // Something must be sent for the answer's head to leave at once.
          controller.enqueue(new TextEncoder().encode(": palomet\n\n"));
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
    const bytes = new TextEncoder().encode(`event: ${name}\ndata: ${data}\n\n`);
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

  closeAll(): void {
    for (const client of this.#clients) this.#cutOff(client);
  }

  #cutOff(client: ReadableStreamDefaultController<Uint8Array>): void {
    this.#clients.delete(client);
    client.error(new Error("not read"));
  }
}
