// The engine's port: HTTP documents and commands, the event stream, and the audio link, on the loopback interface only.

import type { Server, ServerWebSocket } from "bun";
import { isRecord, parseJson } from "../base/json.ts";
import type { Log } from "../base/log.ts";
import { gate } from "./gate.ts";
import { connectionOwner } from "./peers.ts";
import type { Served } from "./served.ts";

/** The longest typed request, in bytes of UTF-8; the front end has the same limit. */
const maxRequest = 1 << 20;
/** The longest body: JSON may write a character of one byte in six. */
const maxBody = 8 << 20;
const maxSettings = 64 << 10;
const maxLinkMessage = 1 << 20;
/** A front end that leaves more bytes of clips and commands unread is taken for dead. */
const maxUnread = 64 << 20;

type Link = ServerWebSocket<undefined>;

export class PortTaken extends Error {}

/** Serves the processes of the user that the engine runs as. `ownerOf` tells whose a connection is. */
export function serve(engine: Served, port: number, log: Log, ownerOf = connectionOwner): Server<undefined> {
  const isLetIn = gate(log, ownerOf);
  try {
    return Bun.serve<undefined>({
      hostname: "127.0.0.1",
      port,
      idleTimeout: 0,
      maxRequestBodySize: maxBody,
      fetch: (request, server) =>
        isLetIn(request, server) ? respond(engine, request, server) : problem(403, "not for this caller"),
      error: () => problem(500, "internal error"),
      websocket: {
        idleTimeout: 0,
        sendPings: false,
        maxPayloadLength: maxLinkMessage,
        backpressureLimit: maxUnread,
        closeOnBackpressureLimit: true,
        open: (socket: Link) => engine.link.opened(socket),
        close: (socket: Link) => engine.link.closed(socket),
        message: (socket: Link, message: string | Buffer) => {
          if (typeof message === "string") engine.link.text(socket, message);
          else engine.link.audio(socket, message);
        },
      },
    });
  } catch (error) {
    if ((error as { code?: string }).code === "EADDRINUSE") throw new PortTaken();
    throw error;
  }
}

async function respond(engine: Served, request: Request, server: Server<undefined>): Promise<Response | undefined> {
  const path = new URL(request.url).pathname;
  if (path === "/audio") {
    return server.upgrade(request) ? undefined : problem(426, "a WebSocket");
  }
  const isDocument = ["/state", "/history", "/options", "/events"].includes(path);
  const isCommand = Object.hasOwn(commands, path);
  if (!isDocument && !isCommand) return problem(404, "no such path");
  if (request.method !== (isDocument ? "GET" : "POST")) return problem(405, isDocument ? "GET" : "POST");
  switch (path) {
    case "/state":
      return Response.json(engine.state);
    case "/history":
      return Response.json(engine.history);
    case "/options":
      return Response.json(await engine.options());
    case "/events":
      return engine.events.open(engine.loop.state);
    default:
      return (await commands[path]?.(engine, request)) ?? Response.json({ ok: true });
  }
}

type Command = (engine: Served, request: Request) => Promise<Response | undefined> | void;

const commands: Record<string, Command> = {
  "/listen": (engine) => engine.loop.listen(),
  "/stop": (engine) => engine.loop.stop(),
  "/mute": (engine) => engine.loop.toggleMute(),
  "/new": (engine) => engine.newConversation(),
  "/sample": (engine) => engine.loop.sample(),
  "/act": (engine) => engine.loop.act(),
  "/draft/clear": (engine) => engine.loop.clearDraft(),
  "/say": async (engine, request) => {
    const body = await readBody(request);
    const text = typeof body?.text === "string" ? body.text.trim() : "";
    if (text === "") return problem(400, 'a JSON object with a "text"');
    if (Buffer.byteLength(text) > maxRequest) {
      engine.loop.refuseLength();
      return problem(400, "a text of at most 1 MiB");
    }
    engine.loop.say(text);
    return undefined;
  },
  // It is asked for by `palomet-engine export`, which knows what is on the disk.
  "/unwritten": async (engine, request) => {
    const { folder } = (await readBody(request)) ?? {};
    return typeof folder === "string" ? Response.json(engine.unwritten(folder)) : problem(400, "a JSON object of a folder");
  },
  // It is asked for by `palomet-engine forget`, which forgets what is on the disk.
  "/forget": async (engine, request) => {
    const { folder, from, to } = (await readBody(request)) ?? {};
    const isSpan = typeof from === "number" && typeof to === "number";
    if (typeof folder !== "string" || !isSpan) return problem(400, "a JSON object of a folder and a span");
    return Response.json({ forgotten: engine.forget(folder, { from, to }) });
  },
  "/settings": async (engine, request) => {
    const body = await readBody(request, maxSettings);
    if (body === undefined || Object.keys(body).length === 0) return problem(400, "a JSON object of settings");
    const wrong = await engine.set(body);
    return wrong === undefined ? undefined : problem(400, wrong);
  },
};

async function readBody(request: Request, longest = maxBody): Promise<Record<string, unknown> | undefined> {
  const text = await request.text().catch(() => "");
  const value = text.length > longest ? undefined : parseJson(text);
  return isRecord(value) ? value : undefined;
}

function problem(status: number, text: string): Response {
  return Response.json({ problem: text }, { status });
}
