import { describe, expect, test } from "bun:test";
import { sentencesOf } from "../../src/voice/sentences.ts";

describe("sentences", () => {
  test("end at their marks and lines, not at numbers and abbreviations in lower case", () => {
    expect(sentencesOf("It is 3.5 km. Go on! Really? e.g. this\nNew line")).toEqual([
      "It is 3.5 km.",
      "Go on!",
      "Really? e.g. this",
      "New line",
    ]);
  });

  test("are read without markup", () => {
    expect(sentencesOf("# Title\n- **bold** `code`\n```\nlet x\n```\n[link](http://x)")).toEqual(["Title", "bold code", "link"]);
  });

  test("are none in what holds no letter", () => expect(sentencesOf(" …\n---\n**\n")).toEqual([]));

  test("that are endless are cut", () => {
    const parts = sentencesOf("word ".repeat(500));
    expect(Math.max(...parts.map(({ length }) => length))).toBeLessThanOrEqual(300);
    expect(parts.join(" ").length).toBe(2_499);
    expect(sentencesOf("x".repeat(1_000)).every(({ length }) => length <= 300)).toBe(true);
  });
});
