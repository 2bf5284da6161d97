import { describe, expect, test } from "bun:test";
import { join } from "node:path";
import { Children } from "../../src/machine/children.ts";
import { Pronouncer } from "../../src/recognition/pronunciation.ts";
import { temporaryFolder } from "../support/folders.ts";

describe("pronunciation", () => {
  test("without espeak-ng knows the words of the dictionary", async () => {
    const file = join(temporaryFolder(), "words.dict");
    await Bun.write(file, "help HH EH L P\nthe DH AH\nthe(2) DH IY\n");
    const said = await new Pronouncer(new Children({ PATH: "" }), file).pronounce(["help the xyzzy"], "en-us");
    expect(said).toEqual(new Map([["help", new Set(["HH EH L P"])], ["the", new Set(["DH AH", "DH IY"])]]));
  });
});
