import { describe, expect, test } from "bun:test";
import { EventReader } from "../../src/thought/eventReader.ts";

function read(text: string, size = 1_000_000, longest?: number): { data: string[]; tooLong: number } {
  const data: string[] = [];
  let tooLong = 0;
  const reader = new EventReader((event) => data.push(event), () => tooLong++, longest);
  const bytes = new TextEncoder().encode(text);
  for (let at = 0; at < bytes.length; at += size) reader.take(bytes.subarray(at, at + size));
  reader.end();
  return { data, tooLong };
}

describe("a stream of events", () => {
  test("gives the data of each, whatever else stands in it", () => {
    expect(read(": hello\nevent: x\nid: 7\ndata: one\n\ndata:two\nretry: 5\n\n").data).toEqual(["one", "two"]);
    expect(read("data: a\ndata: b\n\n\n\n").data).toEqual(["a\nb"]);
    expect(read("data: a\r\n\r\ndata:  b\r\n\r\n").data).toEqual(["a", " b"]);
    expect(read("nonsense\ndatax: 1\n\n").data).toEqual([]);
  });

  test("gives what comes last without an empty line after it", () => expect(read("data: a\n\ndata: b").data).toEqual(["a", "b"]));

  test("gives an error under its own name, or bare, as if it stood in the data", () => {
    expect(read('error: {"code":500}\n\n').data).toEqual(['{"error":{"code":500}}']);
    expect(read('{"error":{"code":400}}').data).toEqual(['{"error":{"code":400}}']);
  });

  test("gives the same, wherever its pieces are cut", () => {
    const text = "data: olá 👋🏽\r\n\r\n: x\ndata: a\ndata: ção\n\ndata: [DONE]\n\n";
    for (let size = 1; size < 20; size++) expect([size, read(text, size).data]).toEqual([size, ["olá 👋🏽", "a\nção", "[DONE]"]]);
  });

  test("skips an event that is too long, says so once, and goes on", () => {
    expect(read(`data: ${"x".repeat(30)}\n\ndata: y\n\n`, 7, 20)).toEqual({ data: ["y"], tooLong: 1 });
    expect(read(`${"data: xxxxxxxx\n".repeat(9)}\ndata: y\n\n`, 7, 20)).toEqual({ data: ["y"], tooLong: 1 });
  });
});
