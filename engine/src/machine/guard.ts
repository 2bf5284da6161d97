// Ends the engine's children when the engine is killed and cannot do it. The guard is a shell that knows their process
// groups and waits until the engine's end of its input is gone. A signal at the parent's death would reach the children
// alone, and not the programs that they run.

/** The inner shell is no child of the engine's: it survives when somebody kills all of those. */
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
      // There is no guard without a shell. The engine still ends its children when it ends by itself.
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
