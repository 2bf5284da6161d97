import { describe, expect, test } from "bun:test";
import type { Connection } from "../../src/machine/connection.ts";
import { ownerInTable } from "../../src/port/socketTable.ts";

describe("whose a connection is", () => {
  const head = "  sl  local_address rem_address   st tx_queue rx_queue tr tm->when retrnsmt   uid  timeout inode\n";
  const line = (local: string, remote: string, state: string, user: number, inode: number): string =>
    `   0: ${local} ${remote} ${state} 00000000:00000000 00:00000000 00000000  ${user}        0 ${inode} 1 0000 20 4 30 10 -1\n`;
  const listener = line("0100007F:12AC", "00000000:0000", "0A", 1000, 7);
  const server = line("0100007F:12AC", "0100007F:9D31", "01", 1000, 8);
  const mapped = "0000000000000000FFFF00000100007F";
  const connection: Connection = { address: "127.0.0.1", port: 0x9d31, to: 0x12ac };
  const tables: [string, string | undefined, number | "gone" | "unknown"][] = [
    ["the user of its own end", head + listener + server + line("0100007F:9D31", "0100007F:12AC", "01", 1001, 9), 1001],
    ["the user of an end in the newer protocol", head + listener + line(`${mapped}:9D31`, `${mapped}:12AC`, "01", 1002, 9), 1002],
    ["told while only its sending half is closed", head + listener + line("0100007F:9D31", "0100007F:12AC", "05", 1001, 9), 1001],
    ["gone when nobody holds its end any more", head + listener + line("0100007F:9D31", "0100007F:12AC", "05", 0, 0), "gone"],
    ["gone when it has been closed", head + listener + line("0100007F:9D31", "0100007F:12AC", "06", 0, 0), "gone"],
    ["gone when it is not listed beside the engine's own port", head + listener, "gone"],
    ["not that of another port or address", head + listener + line("0200007F:9D31", "0100007F:12AC", "01", 1, 9) + line("0100007F:9D32", "0100007F:12AC", "01", 1, 9), "gone"],
    ["unknown when the table does not list the port at all", head, "unknown"],
    ["unknown without a table", undefined, "unknown"],
  ];
  for (const [is, table, owner] of tables) test(`is ${is}`, () => expect(ownerInTable(table, connection)).toBe(owner));
});
