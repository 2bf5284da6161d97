// Lets in at the port only processes of the user that the engine runs as, and no web page of others.

import type { Server } from "bun";
import type { Log } from "../base/log.ts";
import type { Owner } from "../machine/connection.ts";
import type { connectionOwner } from "./peers.ts";

/**
 * Every user of the machine and every web page reaches the loopback interface. Each request is checked, not only each
 * connection: its other end may have been passed on, or another process may have taken the same port.
 */
export function gate(log: Log, ownerOf: typeof connectionOwner): (request: Request, server: Server<undefined>) => boolean {
  const user = process.geteuid?.();
  const strangers = new Set<Owner>();
  return (request, server) => {
    const port = server.port ?? 0;
    if (!isOfNoPage(request, port)) return false;
    const from = server.requestIP(request);
    const owner = from === null ? "gone" : ownerOf({ address: from.address, port: from.port, to: port });
    if (owner === "unknown" || owner === user) return true;
    if (owner !== "gone" && !strangers.has(owner)) log(`recusei pedidos de outro usuário desta máquina (${owner})`);
    strangers.add(owner);
    return false;
  };
}

/**
 * Browsers name the page's site in the origin, and in the host when the page's own name leads to this machine. They send
 * no origin with what a page merely shows, an image for instance, but say that another site asks.
 */
function isOfNoPage(request: Request, port: number): boolean {
  const hosts = [`127.0.0.1:${port}`, `localhost:${port}`];
  const origin = request.headers.get("origin") ?? "";
  const isOwnOrigin = origin === "" || hosts.some((host) => origin === `http://${host}` || origin === `ws://${host}`);
  const isOwnSite = ["none", "same-origin"].includes(request.headers.get("sec-fetch-site") ?? "none");
  return isOwnOrigin && isOwnSite && hosts.includes(request.headers.get("host") ?? "");
}
