// A language model's tool that thinks until it is told what to say: what the bundled engine knows by itself takes no thinking.

import { chmodSync, mkdirSync, rmSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import { run } from "./process";
import { check, type Stage } from "./stage";

const line = (value: unknown) => `echo '${JSON.stringify(value)}'`;

/** It speaks as the tool does: a line of JSON for everything that it does, and the words that it was told. */
const script = `#!/bin/sh
[ "$1" = --version ] && exec echo 1.0.0
cat > /dev/null
${line({ type: "system", subtype: "init", session_id: "rehearsal", model: "haiku" })}
${line({ type: "assistant", message: { content: [{ type: "tool_use", name: "Read", input: { file_path: "notes.txt" } }] } })}
read -r words < "$0.words"
printf '{"type":"assistant","message":{"content":[{"type":"text","text":"%s"}]}}\\n' "$words"
${line({ type: "result", subtype: "success", is_error: false, result: "", total_cost_usd: 0.01, session_id: "rehearsal" })}
`;

export class Thinker {
    private constructor(
        private readonly stage: Stage,
        private readonly path: string,
    ) {}

    /** Sets it up where a user's own tools are, for the engine runs none that it does not find, and has it asked from now on. */
    static async hire(stage: Stage): Promise<Thinker> {
        const folder = join(stage.environment.HOME!, ".local/bin");
        const path = join(folder, "claude");
        mkdirSync(folder, { recursive: true });
        writeFileSync(path, script);
        chmodSync(path, 0o755);
        await run(["mkfifo", `${path}.words`], stage.environment);
        check(await stage.watcher.post("settings", { claudePath: path, brainModel: "haiku" }), "the tool was refused");
        return new Thinker(stage, path);
    }

    /** What it says to the request that it is thinking about. */
    async answer(words: string): Promise<void> {
        await run(["timeout", "20", "sh", "-c", 'printf "%s\\n" "$1" > "$0.words"', this.path, words], this.stage.environment);
    }

    async dismiss(): Promise<void> {
        await this.stage.watcher.post("settings", { claudePath: null, brainModel: "built-in" });
        rmSync(this.path);
        rmSync(`${this.path}.words`);
    }
}
