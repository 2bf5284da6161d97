// A real HTTP server of language models, which does as it is told: it answers in the ways of one server or another, cuts what it
// sends anywhere, falls silent, or is lost.

import { createServer, type AddressInfo, type Socket } from "node:net";

export interface Call {
  name: string;
  given: unknown;
}

interface Refusal {
  status: number;
  body: unknown;
}

/** The ways of one server. */
export interface Ways {
  name: string;
  /** The list of its models, and those of them that can be talked with. */
  models: unknown;
  offered: string[];
  /** The key that it asks for. */
  key?: string;
  /** The whole stream of an answer in words, and of one that calls tools. */
  words(...pieces: string[]): string;
  calls(...calls: Call[]): string;
  missing: Refusal;
  toolless?: Refusal;
  tooLong?: Refusal;
  /** What it sends when something goes wrong in the middle, by its version. */
  broken: string[];
}

export interface Answer {
  status?: number;
  body: string;
  type?: string;
  headers?: string[];
  /** Bytes a piece; without it, all at once. */
  pieceBytes?: number;
  /** What happens when all is sent: the end, nothing at all, or the loss of the connection. */
  then?: "end" | "silence" | "loss";
}

export interface Asked {
  method: string;
  path: string;
  headers: Record<string, string>;
  body: {
    model: string;
    stream: boolean;
    messages: { role: string; content: string; tool_calls?: unknown; tool_call_id?: string }[];
    tools?: { function: { name: string } }[];
  };
}

export class ChatServer {
  /** The chats that were asked for, in order. */
  chats: Asked[] = [];
  /** The times at which lists were asked for. */
  lists: Asked[] = [];
  /** The answers to chats, in order; the last one stays. */
  answers: Answer[] = [];
  list: Answer | undefined;
  #sockets = new Set<Socket>();
  #waiting: (() => void)[] = [];
  #server = createServer((socket) => this.#take(socket));

  private constructor(readonly ways: Ways) {}

  static async open(ways: Ways, port = 0): Promise<ChatServer> {
    const it = new ChatServer(ways);
    await new Promise<void>((resolve) => it.#server.listen(port, "127.0.0.1", resolve));
    return it;
  }

  get address(): string {
    return `http://127.0.0.1:${(this.#server.address() as AddressInfo).port}/v1`;
  }

  /** Connections that are open. */
  get open(): number {
    return this.#sockets.size;
  }

  says(...pieces: string[]): void {
    this.answers.push({ body: this.ways.words(...pieces) });
  }

  calls(...calls: Call[]): void {
    this.answers.push({ body: this.ways.calls(...calls) });
  }

  refuses({ status, body }: Refusal): void {
    this.answers.push({ status, type: "application/json", body: JSON.stringify(body) });
  }

  /** Resolves when so many chats have been asked for, and when the connections are closed. */
  async asked(count: number): Promise<void> {
    while (this.chats.length < count) await this.#change();
  }

  async left(): Promise<void> {
    while (this.#sockets.size > 0) await this.#change();
  }

  /** Sends more on the connections that are open. */
  more(text: string): void {
    for (const socket of this.#sockets) socket.write(text);
  }

  lose(): void {
    for (const socket of this.#sockets) socket.destroy();
  }

  close(): void {
    this.#server.close();
    this.lose();
  }

  async #change(): Promise<void> {
    await new Promise<void>((resolve) => this.#waiting.push(resolve));
  }

  #changed(): void {
    for (const resolve of this.#waiting.splice(0)) resolve();
  }

  #take(socket: Socket): void {
    let held = Buffer.alloc(0);
    this.#sockets.add(socket);
    socket.setNoDelay(true);
    socket.on("error", () => {});
    socket.on("close", () => {
      this.#sockets.delete(socket);
      this.#changed();
    });
    socket.on("data", (piece) => {
      held = Buffer.concat([held, Buffer.from(piece)]);
      const end = held.indexOf("\r\n\r\n");
      if (end < 0) return;
      const [first = "", ...lines] = held.subarray(0, end).toString("latin1").split("\r\n");
      const headers = Object.fromEntries(lines.map((line) => [line.split(":")[0]?.toLowerCase() ?? "", line.slice(line.indexOf(":") + 1).trim()]));
      const length = Number(headers["content-length"] ?? 0);
      if (held.length < end + 4 + length) return;
      const [method = "", path = ""] = first.split(" ");
      const text = held.subarray(end + 4, end + 4 + length).toString();
      held = held.subarray(end + 4 + length);
      void this.#answer({ method, path, headers, body: text === "" ? undefined : JSON.parse(text) }, socket);
    });
  }

  async #answer(asked: Asked, socket: Socket): Promise<void> {
    const { key, models } = this.ways;
    const isList = asked.path.endsWith("/models");
    (isList ? this.lists : this.chats).push(asked);
    this.#changed();
    const list = this.list ?? { type: "application/json", body: JSON.stringify(models) };
    const next = isList ? list : ((this.answers.length > 1 ? this.answers.shift() : this.answers[0]) ?? { body: "" });
    const isKnown = key === undefined || asked.headers.authorization === `Bearer ${key}`;
    const { status = 200, type = "text/event-stream", headers = [], body, pieceBytes, then = "end" }: Answer = isKnown
      ? next
      : { status: 401, type: "application/json", body: `{"error":{"message":"Invalid key ${asked.headers.authorization?.slice(7)}"}}` };
    socket.write([`HTTP/1.1 ${status} Some reason`, `content-type: ${type}`, "connection: close", ...headers, "", ""].join("\r\n"));
    const bytes = Buffer.from(body);
    for (let at = 0; at < bytes.length; at += pieceBytes ?? bytes.length) {
      socket.write(bytes.subarray(at, at + (pieceBytes ?? bytes.length)));
      // Else the pieces would travel together.
      if (pieceBytes !== undefined) await new Promise((resolve) => setImmediate(resolve));
    }
    if (then === "end") socket.end();
    if (then === "loss") socket.resetAndDestroy();
  }
}
