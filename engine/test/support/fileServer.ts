// A web server that serves one file, and can fail in each way in which servers fail.

import { createServer, type AddressInfo, type Socket } from "node:net";

export interface Asked {
  /** As the request line has it: the whole address when it came as to a proxy. */
  path: string;
  /** Bytes before the first that was asked for. */
  from: number;
}

export interface FileServer {
  address: string;
  /** What was asked for, in order. */
  asked: Asked[];
  /** Tells how many bytes of the file have arrived, for `endsAfter`. */
  arrived(bytes: number): void;
  close(): void;
}

export interface Manner {
  /** The answer to all requests, or to those before the last of these. */
  status?: string;
  headers?: string[];
  /** Connections send so many bytes and are lost when these have arrived, the first first; afterwards none is. */
  endsAfter?: number[];
  /** Says nothing more after so many bytes, and stays connected. */
  stallsAfter?: number;
  /** Takes no notice of ranges. */
  isSimple?: boolean;
  /** Sends what it likes instead of the range. */
  wrongStart?: number;
}

export async function serveFile(contents: Uint8Array, manner: Manner = {}): Promise<FileServer> {
  const asked: Asked[] = [];
  const ends = [...(manner.endsAfter ?? [])];
  const sockets = new Set<Socket>();
  const lost = new Map<number, Socket>();
  const answer = (head: string, socket: Socket): void => {
    const range = manner.isSimple ? undefined : /^range: bytes=(\d+)-/im.exec(head)?.[1];
    const from = Number(range ?? 0);
    asked.push({ path: head.split(" ")[1] ?? "", from });
    const lines = (status: string, ...headers: string[]): string =>
      [`HTTP/1.1 ${status}`, "connection: close", ...headers, "", ""].join("\r\n");
    if (manner.status) return void socket.end(lines(manner.status, "content-length: 0", ...(manner.headers ?? [])));
    if (from > 0 && from >= contents.length) return void socket.end(lines("416 Range Not Satisfiable", "content-length: 0"));
    const start = manner.wrongStart ?? from;
    const body = contents.subarray(from);
    const span = `content-range: bytes ${start}-${contents.length - 1}/${contents.length}`;
    socket.write(lines(range ? "206 Partial Content" : "200 OK", `content-length: ${body.length}`, ...(range ? [span] : [])));
    const end = ends.shift();
    if (manner.stallsAfter !== undefined) return void socket.write(body.subarray(0, manner.stallsAfter));
    if (end === undefined) return void socket.end(body);
    socket.write(body.subarray(0, end));
    lost.set(from + end, socket);
  };
  const server = createServer((socket) => {
    let head = "";
    sockets.add(socket);
    socket.on("error", () => {});
    socket.on("close", () => sockets.delete(socket));
    socket.on("data", (piece) => {
      head += piece.toString("latin1");
      if (!head.includes("\r\n\r\n")) return;
      answer(head, socket);
      head = "";
    });
  });
  await new Promise<void>((resolve) => server.listen(0, "127.0.0.1", resolve));
  return {
    address: `http://127.0.0.1:${(server.address() as AddressInfo).port}`,
    asked,
    arrived: (bytes) => void lost.get(bytes)?.destroy(),
    close() {
      server.close();
      for (const socket of sockets) socket.destroy();
    },
  };
}
