import { expect, test } from "bun:test";
import { decodeMessage, encodeMessage, typesOf, type Message } from "../../src/machine/busMessages.ts";

const message = (signature: string, body: unknown[]): Message => ({ type: 1, serial: 7, path: "/a/b", interface: "a.b", member: "C", destination: ":1.5", signature, body });

test("a message is read as it was written", () => {
  const bodies: [string, unknown[]][] = [
    ["s", ["olá 🎉"]],
    ["ybnqiuxtd", [255, true, -5, 65_535, -7, 4_000_000_000, -1e12, 1e12, 1.5]],
    ["susssasa{sv}i", ["a", 1, "", "t", "x", ["p", "q"], [["k", { type: "y", data: 2 }]], -1]],
    ["a(yv)", [[[1, { type: "as", data: [] }], [2, { type: "(is)", data: [5, "z"] }]]]],
    ["aai", [[[1, 2], [], [3]]]],
    ["og", ["/x", "a{sv}"]],
    ["at", [[]]],
  ];
  for (const [signature, body] of bodies) {
    const bytes = encodeMessage(message(signature, body));
    expect(decodeMessage(bytes)).toEqual({ message: message(signature, body), length: bytes.length });
  }
});

test("a message is read when it is whole, and what follows it is left", () => {
  const bytes = encodeMessage(message("s", ["hello"]));
  for (let length = 0; length < bytes.length; length++) expect(decodeMessage(bytes.subarray(0, length))).toBeUndefined();
  expect(decodeMessage(Uint8Array.from([...bytes, 1, 2, 3]))?.length).toBe(bytes.length);
});

test("what is no message is refused", () => {
  const bytes = encodeMessage(message("as", [["hello", "you"]]));
  expect(() => decodeMessage(new Uint8Array(64))).toThrow();
  expect(() => decodeMessage(Uint8Array.from([...bytes.subarray(0, 4), 255, 255, 255, 255, ...bytes.subarray(8)]))).toThrow();
  for (const signature of ["z", "a", "(i", "{s", "a".repeat(300)]) expect(() => typesOf(signature)).toThrow();
  // Any byte may be wrong: it is refused, or read as something else, and never more than was there.
  for (let at = 0; at < bytes.length; at++) {
    for (const value of [0, 1, 127, 255]) {
      const wrong = Uint8Array.from(bytes);
      wrong[at] = value;
      try {
        decodeMessage(wrong);
      } catch (error) {
        expect(error).toBeInstanceOf(Error);
      }
    }
  }
});
