// What ends the engine's children when the engine is killed and cannot do it: a shell that waits for the other end of
// its input to be gone, with the process groups that are then to end. A signal at a parent's death would reach the
// children alone, and none of those that they run.

/** The inner one is no child of the engine's: whoever kills those does not kill it. */
const script = `exec 3<&0
(
  exec <&3
  groups=' '
  while read -r sign group; do
    case $sign in
      +) groups="$groups$group " ;;
      -) groups="\${groups%% $group *} \${groups#* $group }" ;;
    esac
  done
  for group in $groups; do kill -s KILL -- "-$group"; done
) &
exec <&- 3<&-
wait`;

export class Guard {
  readonly #groups = new Set<number>();
  #shell: Bun.Subprocess<"pipe", "ignore", "ignore"> | undefined;

  add(group: number): void {
    this.#groups.add(group);
    if (this.#shell) this.#tell(`+ ${group}`);
    else this.#start();
  }

  remove(group: number): void {
    if (this.#groups.delete(group)) this.#tell(`- ${group}`);
  }

  #start(): void {
    try {
      const options = { stdin: "pipe", stdout: "ignore", stderr: "ignore" } as const;
      const shell = Bun.spawn(["/bin/sh", "-c", script], { ...options, detached: true, cwd: "/", env: {} });
      this.#shell = shell;
      void shell.exited.then(() => (this.#shell = undefined));
      for (const group of this.#groups) this.#tell(`+ ${group}`);
    } catch {
      // Without a shell there is no guard; the engine's own end still ends its children.
    }
  }

  #tell(line: string): void {
    try {
      this.#shell?.stdin.write(`${line}\n`);
      void this.#shell?.stdin.flush();
    } catch {
      this.#shell = undefined;
    }
  }
}
