import { describe, expect, test } from "bun:test";
import { isStrangers } from "../../src/machine/listeners.ts";

const line = (local: string, state: string, user: number): string =>
  `   0: ${local} 00000000:0000 ${state} 00000000:00000000 00:00000000 00000000 ${user}        0 12345 1 0000000000000000 100 0 0 10 0`;
const head = "  sl  local_address rem_address   st tx_queue rx_queue tr tm->when retrnsmt   uid  timeout inode";
const port = 11434;
const isStrange = (...lines: string[]): boolean => isStrangers(port, [head, ...lines].join("\n"), 1000);

describe("who listens at a port of this machine", () => {
  test("is a stranger when it is another person", () => {
    const anywhere = ["0100007F:2CAA", "00000000:2CAA", "00000000000000000000000000000000:2CAA", "0000000000000000FFFF00000100007F:2CAA"];
    for (const local of anywhere) expect([local, isStrange(line(local, "0A", 1001))]).toEqual([local, true]);
    expect(isStrange(line("0100007F:2CAA", "0A", 1000), line("00000000:2CAA", "0A", 1001))).toBe(true);
  });

  test("is none when it is the user, the system or one of its servers", () => {
    for (const user of [1000, 0, 998]) expect([user, isStrange(line("0100007F:2CAA", "0A", user))]).toEqual([user, false]);
  });

  test("is told by this port, this machine's address and by listening alone", () => {
    for (const other of [line("0100007F:2CAB", "0A", 1001), line("0100007F:2CAA", "01", 1001), line("0501A8C0:2CAA", "0A", 1001), "nonsense", ""]) {
      expect([other, isStrange(other)]).toEqual([other, false]);
    }
  });

  test("is found in the kernel's own table", () => {
    const server = Bun.listen({ hostname: "127.0.0.1", port: 0, socket: { data() {} } });
    expect([isStrangers(server.port), isStrangers(server.port, undefined, (process.getuid?.() ?? 0) + 1)]).toEqual([false, (process.getuid?.() ?? 0) >= 1_000]);
    server.stop(true);
  });
});
