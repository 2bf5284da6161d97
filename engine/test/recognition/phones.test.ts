import { expect, test } from "bun:test";
import { phonesOf } from "../../src/recognition/phones.ts";

test("phonetic letters are written as phones", () => {
  expect(phonesOf("ˈɔ_ɾ_æ_s")).toBe("AO R AE S");
  expect(phonesOf("s_ɐ̃ʊ̃")).toBe("S AW N");
  expect(phonesOf("k_ˌo_ŋ_v_ˈɛ_ɾ_ə_s_æ")).toBe("K OW NG V EH R AH S AE");
  expect(phonesOf("tʃ")).toBe("CH");
  expect(phonesOf("!")).toBeUndefined();
});
