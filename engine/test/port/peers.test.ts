import { describe, expect, test } from "bun:test";
import { connectionOwner } from "../../src/port/peers.ts";
import { serve } from "../../src/port/server.ts";
import { bench } from "../support/bench.ts";

const ours = process.geteuid?.() ?? 0;
const nobody = 65_534;
const asNobody = ["setpriv", `--reuid=${nobody}`, "--clear-groups"];
const canBeNobody = ours === 0 && Bun.spawnSync([...asNobody, "true"]).success;

/** The first line that `bash` gets from the port for this request. */
async function ask(port: number, request: string, asUser: string[] = []): Promise<string> {
  const script = `exec 3<>/dev/tcp/127.0.0.1/${port}; printf '${request}' >&3; head -n 1 <&3`;
  const child = Bun.spawn([...asUser, "bash", "-c", script], { stdout: "pipe" });
  return await new Response(child.stdout).text();
}

function plain(method: string, path: string, port: number, body = ""): string {
  const length = body === "" ? "" : `Content-Length: ${body.length}\\r\\n`;
  return `${method} ${path} HTTP/1.1\\r\\nHost: 127.0.0.1:${port}\\r\\nConnection: close\\r\\n${length}\\r\\n${body}`;
}

function upgrade(port: number): string {
  const headers = "Upgrade: websocket\\r\\nSec-WebSocket-Version: 13\\r\\nSec-WebSocket-Key: MDEyMzQ1Njc4OWFiY2RlZg==\\r\\n";
  return `GET /audio HTTP/1.1\\r\\nHost: 127.0.0.1:${port}\\r\\nConnection: Upgrade\\r\\n${headers}\\r\\n`;
}

describe("a process of another user", () => {
  test.if(canBeNobody)("can neither read nor command, nor become the audio link", async () => {
    const it = bench();
    const server = serve(it.engine, 0, (line) => it.log.push(line));
    const port = server.port ?? 0;
    const requests = [
      plain("GET", "/state", port),
      plain("GET", "/events", port),
      plain("POST", "/say", port, '{"text":"hello"}'),
      plain("POST", "/settings", port, '{"summonMs":6000}'),
      upgrade(port),
    ];
    for (const request of requests) expect([request, await ask(port, request, asNobody)]).toEqual([request, expect.stringContaining("403")]);
    expect(it.brain.requests).toEqual([]);
    expect(it.engine.state.settings.summonMs).toBe(8_000);
    expect(it.engine.link.isConnected).toBe(false);
    expect(it.log).toEqual([expect.stringContaining(String(nobody))]);
    expect(await ask(port, plain("GET", "/state", port))).toContain("200 OK");
    await server.stop(true);
    it.engine.close();
  });

  test("is let in where nobody can tell whose a connection is, and not when the connection is gone", async () => {
    for (const [owner, status] of [["unknown", 200], ["gone", 403], [ours, 200], [ours + 1, 403]] as const) {
      const it = bench();
      const server = serve(it.engine, 0, () => {}, () => owner);
      expect([owner, (await fetch(`http://127.0.0.1:${server.port}/state`)).status]).toEqual([owner, status]);
      await server.stop(true);
      it.engine.close();
    }
  });
});

describe("whose a connection is", () => {
  test("is told by the kernel, also of one that speaks the other version of the protocol", async () => {
    const owners: unknown[] = [];
    const server = Bun.serve({
      hostname: "127.0.0.1",
      port: 0,
      fetch(request, self) {
        const from = self.requestIP(request);
        if (from) owners.push(connectionOwner({ address: from.address, port: from.port, to: self.port ?? 0 }));
        return new Response();
      },
    });
    for (const host of ["127.0.0.1", "[::ffff:127.0.0.1]"]) await fetch(`http://${host}:${server.port}`, { keepalive: false });
    expect(owners).toEqual([ours, ours]);
    expect(connectionOwner({ address: "127.0.0.1", port: 1, to: server.port ?? 0 })).toBe("gone");
    await server.stop(true);
  });
});
