// A server of language models that thinks for a while, says one sentence and no end, and notes when it did what.

import { createServer, type Socket } from "node:net";

const port = 1337;
const thinkingMs = 30;

const chunk = (content: string): string => `data: ${JSON.stringify({ choices: [{ index: 0, delta: { content }, finish_reason: null }] })}\n\n`;

export class Model {
    askedAt = 0;
    saidAt = 0;
    leftAt = 0;
    readonly address = `http://127.0.0.1:${port}/v1`;
    #left = (): void => {};
    #server = createServer((socket) => this.#take(socket));

    async open(): Promise<void> {
        await new Promise<void>((done, failed) => this.#server.once("error", failed).listen(port, "127.0.0.1", done));
    }

    close(): void {
        this.#server.close();
    }

    /** Resolves when the next connection for an answer is closed. */
    left(): Promise<void> {
        return new Promise((resolve) => (this.#left = resolve));
    }

    #take(socket: Socket): void {
        let head = "";
        let isAnswering = false;
        socket.setNoDelay(true);
        socket.on("error", () => {});
        socket.on("close", () => {
            if (!isAnswering) return;
            this.leftAt = performance.now();
            this.#left();
        });
        socket.on("data", (piece) => {
            head += piece.toString("latin1");
            const end = head.indexOf("\r\n\r\n");
            const length = Number(/content-length: (\d+)/i.exec(head)?.[1] ?? 0);
            if (end < 0 || head.length < end + 4 + length) return;
            const isChat = head.startsWith("POST");
            head = "";
            socket.write(`HTTP/1.1 200 OK\r\ncontent-type: ${isChat ? "text/event-stream" : "application/json"}\r\nconnection: close\r\n\r\n`);
            if (!isChat) return void socket.end('{"data":[{"id":"bench"}]}');
            isAnswering = true;
            this.askedAt = performance.now();
            setTimeout(() => {
                socket.write(chunk("It is noon.") + chunk(" And"));
                this.saidAt = performance.now();
            }, thinkingMs);
        });
    }
}
