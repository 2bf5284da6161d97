import { describe, expect, test } from "bun:test";
import { join } from "node:path";
import { Children } from "../../src/machine/children.ts";
import { phonesOf, Pronouncer } from "../../src/recognition/pronunciation.ts";
import { temporaryFolder } from "../support/folders.ts";

describe("pronunciation", () => {
  test("writes phonetic letters as phones", () => {
    expect(phonesOf("ˈɔ_ɾ_æ_s")).toBe("AO R AE S");
    expect(phonesOf("s_ɐ̃ʊ̃")).toBe("S AW N");
    expect(phonesOf("k_ˌo_ŋ_v_ˈɛ_ɾ_ə_s_æ")).toBe("K OW NG V EH R AH S AE");
    expect(phonesOf("tʃ")).toBe("CH");
    expect(phonesOf("!")).toBeUndefined();
  });

  test("without espeak-ng knows the words of the dictionary", async () => {
    const file = join(temporaryFolder(), "words.dict");
    await Bun.write(file, "help HH EH L P\nthe DH AH\nthe(2) DH IY\n");
    const said = await new Pronouncer(new Children({ PATH: "" }), file).pronounce(["help the xyzzy"], "en-us");
    expect(said).toEqual(new Map([["help", new Set(["HH EH L P"])], ["the", new Set(["DH AH", "DH IY"])]]));
  });
});
