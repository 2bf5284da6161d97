import { expect, test } from "bun:test";
import { respelled } from "../../src/recognition/respelling.ts";

test("a name that is nearly right is spelled as it is set, and what stands around it stays", () => {
  expect(respelled("Palomat, what time is it?", ["palomet"])).toBe("palomet, what time is it?");
  expect(respelled("help me (Mario Claro)!", ["Maria Clara"])).toBe("help me (Maria Clara)!");
  expect(respelled("Palomét.", ["Palomet"])).toBe("Palomet.");
});

test("what only resembles a name stays as it is", () => {
  expect(respelled("palo alto is nice", ["palomet"])).toBe("palo alto is nice");
  expect(respelled("a cat", ["act", ""])).toBe("a cat");
  expect(respelled("", ["palomet"])).toBe("");
});
