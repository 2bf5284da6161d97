import { describe, expect, test } from "bun:test";
import { join } from "node:path";
import { program, temporaryFolder } from "../support/folders.ts";
import { gone, isAlive } from "../support/processes.ts";

const environment = { PATH: "/usr/bin:/bin" };

describe("an engine that is killed", () => {
  /** Kills an engine in this way, waits for the end of its children, and gives a child that it has ceased to guard. */
  async function killed(how: (id: number) => unknown): Promise<number> {
    const tool = join(program("tool", "sleep 600 & echo $!; echo $$; wait"), "tool");
    const script = `
      import { Children } from ${JSON.stringify(join(import.meta.dir, "../../src/machine/children.ts"))};
      import { Guard } from ${JSON.stringify(join(import.meta.dir, "../../src/machine/guard.ts"))};
      const guard = new Guard();
      const other = Bun.spawn(["sleep", "600"], { detached: true, stdio: ["ignore", "ignore", "ignore"] });
      guard.add(other.pid);
      const children = new Children(process.env, guard);
      for (let n = 0; n < 20; n++) await children.run(["true"], { timeoutMs: 5000, maxOutput: 1 });
      guard.remove(other.pid);
      console.log(other.pid);
      for (let n = 0; n < 3; n++) void children.run([${JSON.stringify(tool)}], { timeoutMs: 60000, maxOutput: 100, onOutput: (piece) => process.stdout.write(piece) });
    `;
    const path = join(temporaryFolder(), "parent.ts");
    await Bun.write(path, script);
    const parent = Bun.spawn([process.execPath, path], { stdout: "pipe", detached: true, env: environment });
    let text = "";
    for await (const piece of parent.stdout) {
      text += new TextDecoder().decode(piece);
      if (text.split("\n").length > 7) break;
    }
    how(parent.pid);
    await parent.exited;
    const [other, ...ids] = text.trim().split("\n").map(Number);
    await gone(ids);
    return other!;
  }

  test("takes its children and all that they run with it, and what it guards no more lives on", async () => {
    const other = await killed((id) => process.kill(id, "SIGKILL"));
    expect(isAlive(other)).toBe(true);
    process.kill(other, "SIGKILL");
  });

  test("with its own group takes them with it", async () => {
    process.kill(await killed((id) => process.kill(-id, "SIGKILL")), "SIGKILL");
  });

  test("after its own children takes with it what these run", async () => {
    await killed((id) => {
      Bun.spawnSync(["pkill", "-KILL", "-P", String(id)]);
      process.kill(id, "SIGKILL");
    });
  });
});
