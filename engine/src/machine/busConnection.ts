// A connection to the user's session bus (D-Bus), through a Unix socket.

import { createConnection, type Socket } from "node:net";
import { join } from "node:path";
import { decodeMessage, encodeMessage, failure, longestMessage, methodCall, methodReturn, signalKind, type Message } from "./busMessages.ts";

export interface Call {
  service: string;
  path: string;
  /** The interface and the name of the method: "org.freedesktop.DBus.ListNames". */
  method: string;
  signature?: string;
  arguments?: readonly unknown[];
}

const answerMs = 3_000;
const mostWaiting = 100;

/** The places of the session bus: what the environment names, else the usual socket. */
export function busPaths(environment: Record<string, string | undefined>): string[] {
  const runtime = environment.XDG_RUNTIME_DIR;
  const addresses = environment.DBUS_SESSION_BUS_ADDRESS || (runtime ? `unix:path=${join(runtime, "bus")}` : "");
  return addresses.split(";").flatMap((address) => {
    const [, key, value = ""] = /^unix:(?:.*,)?(path|abstract)=([^,]*)/.exec(address) ?? [];
    if (key === undefined || value === "") return [];
    const path = value.replace(/%([0-9a-f]{2})/gi, (_, code: string) => String.fromCharCode(Number.parseInt(code, 16)));
    return [key === "abstract" ? `\0${path}` : path];
  });
}

export class BusConnection {
  /** Called with each signal that was asked for by `match`. */
  onSignal: (signal: Message) => void = () => {};
  /** Called with each call of a method of this connection's. Gives the values of the answer, or undefined to refuse. */
  onCall: (call: Message) => { signature: string; body: unknown[] } | undefined = () => undefined;
  /** The name that the bus has given it. */
  name = "";
  #serial = 0;
  #received: Uint8Array = new Uint8Array();
  readonly #waiting = new Map<number, (answer: Message | undefined) => void>();
  #closed: () => void = () => {};
  /** Resolves when the connection has ended. */
  readonly closed = new Promise<void>((resolve) => (this.#closed = resolve));

  private constructor(private readonly socket: Socket) {
    socket.on("data", (bytes: Buffer) => this.#take(bytes));
    socket.on("close", () => this.#end());
    socket.on("error", () => this.#end());
  }

  /** Gives undefined when there is no bus, or it refuses. */
  static async open(environment: Record<string, string | undefined>): Promise<BusConnection | undefined> {
    for (const path of busPaths(environment)) {
      const socket = await connected(path);
      if (!socket) continue;
      const connection = new BusConnection(socket);
      const [name] = (await connection.call(toBus("Hello"))) ?? [];
      if (typeof name === "string") {
        connection.name = name;
        return connection;
      }
      connection.close();
    }
    return undefined;
  }

  /** The values of the answer, or undefined when the call failed. */
  async call(call: Call, signal?: AbortSignal, timeoutMs = answerMs): Promise<unknown[] | undefined> {
    if (signal?.aborted || this.#waiting.size >= mostWaiting || this.socket.destroyed) return undefined;
    const serial = ++this.#serial;
    const at = call.method.lastIndexOf(".");
    const answered = new Promise<Message | undefined>((resolve) => this.#waiting.set(serial, resolve));
    const give = (): void => this.#waiting.get(serial)?.(undefined);
    const timer = setTimeout(give, timeoutMs);
    signal?.addEventListener("abort", give);
    try {
      this.#send({
        type: methodCall,
        serial,
        destination: call.service,
        path: call.path,
        interface: call.method.slice(0, at),
        member: call.method.slice(at + 1),
        ...(call.signature === undefined ? {} : { signature: call.signature }),
        body: [...(call.arguments ?? [])],
      });
      const answer = await answered;
      return answer?.type === methodReturn ? answer.body : undefined;
    } finally {
      clearTimeout(timer);
      signal?.removeEventListener("abort", give);
      this.#waiting.delete(serial);
    }
  }

  /** Asks for the signals that fit this rule. */
  async match(rule: string): Promise<void> {
    await this.call({ ...toBus("AddMatch"), signature: "s", arguments: [rule] });
  }

  close(): void {
    this.socket.destroy();
    this.#end();
  }

  #send(message: Message): void {
    this.socket.write(encodeMessage(message));
  }

  #take(bytes: Uint8Array): void {
    this.#received = this.#received.length === 0 ? bytes : Buffer.concat([this.#received, bytes]);
    try {
      for (let found = decodeMessage(this.#received); found; found = decodeMessage(this.#received)) {
        this.#received = this.#received.subarray(found.length);
        this.#handle(found.message);
      }
      if (this.#received.length > longestMessage) this.close();
    } catch {
      // What is no message cannot be followed by one.
      this.close();
    }
  }

  #handle(message: Message): void {
    if (message.type === methodReturn || message.type === failure) this.#waiting.get(message.replySerial ?? 0)?.(message);
    else if (message.type === signalKind) this.onSignal(message);
    else if (message.type === methodCall) this.#answer(message);
  }

  #answer(call: Message): void {
    const answer = this.onCall(call);
    const about = { serial: ++this.#serial, replySerial: call.serial, ...(call.sender === undefined ? {} : { destination: call.sender }) };
    if (answer) this.#send({ type: methodReturn, ...about, ...answer });
    else this.#send({ type: failure, ...about, error: "org.freedesktop.DBus.Error.UnknownMethod", body: [] });
  }

  /** Sends a signal, to everybody or to one. */
  emit(path: string, name: string, signature: string, body: unknown[], destination?: string): void {
    const at = name.lastIndexOf(".");
    const to = destination === undefined ? {} : { destination };
    this.#send({ type: signalKind, serial: ++this.#serial, path, interface: name.slice(0, at), member: name.slice(at + 1), signature, body, ...to });
  }

  #end(): void {
    for (const give of [...this.#waiting.values()]) give(undefined);
    this.#closed();
  }
}

function toBus(name: string): Call {
  return { service: "org.freedesktop.DBus", path: "/org/freedesktop/DBus", method: `org.freedesktop.DBus.${name}` };
}

/** A socket that the bus has taken: it knows its user by the socket itself. */
async function connected(path: string): Promise<Socket | undefined> {
  return await new Promise((resolve) => {
    const socket = createConnection({ path });
    const timer = setTimeout(() => give(false), answerMs);
    let said = "";
    const give = (isTaken: boolean): void => {
      clearTimeout(timer);
      socket.removeAllListeners();
      if (isTaken) return resolve(socket);
      socket.on("error", () => {});
      socket.destroy();
      resolve(undefined);
    };
    socket.on("error", () => give(false));
    socket.on("close", () => give(false));
    socket.on("connect", () => {
      const user = Buffer.from(String(process.getuid?.() ?? 0)).toString("hex");
      socket.write(`\0AUTH EXTERNAL ${user}\r\n`);
    });
    socket.on("data", (bytes: Buffer) => {
      said += bytes.toString("latin1");
      if (!said.includes("\r\n") && said.length < 1_000) return;
      if (!said.startsWith("OK ")) return give(false);
      socket.write("BEGIN\r\n");
      give(true);
    });
  });
}
