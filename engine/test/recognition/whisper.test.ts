import { describe, expect, test } from "bun:test";
import { readdirSync } from "node:fs";
import { Children } from "../../src/machine/children.ts";
import { WhisperRecogniser } from "../../src/recognition/whisper.ts";
import { program, temporaryFolder } from "../support/folders.ts";
import { going } from "../support/processes.ts";
import { failures, installed, path, patient } from "../support/recognition.ts";
import { tone } from "../support/sounds.ts";

describe("whisper-cli", () => {
  test("is given the model, the language, the names and the utterance", async () => {
    const tools = program("whisper-cli", 'for last; do :; done; echo "$*"; head -c 4 "$last"');
    const children = new Children({ PATH: `${tools}:${path}` });
    const whisper = new WhisperRecogniser(children, temporaryFolder(), "pt", () => "/m/base.bin", () => ["palomet"]);
    const found = await whisper.recognise(tone(500, -20), going);
    expect(found.kind === "text" && found.text).toContain("--model /m/base.bin");
    expect(found.kind === "text" && found.text).toContain("--language pt --prompt palomet --file");
    expect(found.kind === "text" && found.text).toEndWith("RIFF");
  });

  test("is read without its remarks", async () => {
    const tools = program("whisper-cli", "echo '[BLANK_AUDIO]'; echo ' (music) Que horas  são?'");
    const whisper = new WhisperRecogniser(
      new Children({ PATH: `${tools}:${path}` }), temporaryFolder(), "pt", () => "m", () => [],
    );
    expect(await whisper.recognise(tone(100, -20), going)).toEqual({ kind: "text", text: "Que horas são?", isUnderstood: true });
  });

  test("without a model is none", async () => {
    const whisper = new WhisperRecogniser(installed, temporaryFolder(), "en", () => undefined, () => []);
    expect(await whisper.recognise(tone(100, -20), going)).toEqual({ kind: "none" });
  });
});

describe("a recogniser", () => {
  for (const [does, script, problem, timeoutMs = patient] of failures) {
    test(`whisper-cli that ${does} has failed, and says so`, async () => {
      const children = new Children({ PATH: `${program("whisper-cli", script)}:${path}` });
      const folder = temporaryFolder();
      const broken = new WhisperRecogniser(children, folder, "en", () => "model.bin", () => [], timeoutMs);
      const found = await broken.recognise(tone(500, -20), going);
      expect(found.kind === "failed" && found.problem).toMatch(problem);
      expect(readdirSync(folder)).toEqual([]);
    });
  }

  test("that is stopped ends at once", async () => {
    const children = new Children({ PATH: `${program("whisper-cli", "exec sleep 60")}:${path}` });
    const ending = new AbortController();
    const whisper = new WhisperRecogniser(children, temporaryFolder(), "en", () => "model.bin", () => []);
    const found = whisper.recognise(tone(500, -20), ending.signal);
    setTimeout(() => ending.abort(), 20);
    expect((await found).kind).toBe("failed");
  });
});
