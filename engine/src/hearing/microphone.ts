// Records by `parec` from the sound server while echo cancellation is off: the front end has then released the
// microphone.

import type { Clock } from "../base/clock.ts";
import type { Log } from "../base/log.ts";
import { sampleRate } from "../base/protocol.ts";
import type { Children } from "../machine/children.ts";

const retryMs = 2_000;
/** A day: no recording lasts longer, and a timer can count it. */
const longestRunMs = 86_400_000;

export class Microphone {
  #run: AbortController | undefined;
  #cancelRetry = (): void => {};
  #odd: number | undefined;

  constructor(
    private readonly children: Children,
    private readonly clock: Clock,
    private readonly log: Log,
    private readonly onSamples: (samples: Int16Array) => void,
  ) {}

  /** Opens this source of the sound server, or its default one, and opens it again two seconds after it has failed. */
  open(source: string | undefined): void {
    this.close();
    const run = new AbortController();
    this.#run = run;
    this.log("cancelamento de eco desligado: ouço eu mesmo o microfone");
    void this.#record(run, source);
  }

  close(): void {
    this.#cancelRetry();
    this.#run?.abort();
    this.#run = undefined;
  }

  async #record(run: AbortController, source: string | undefined): Promise<void> {
    this.#odd = undefined;
    const format = ["--raw", "--format=s16le", `--rate=${sampleRate}`, "--channels=1", "--latency-msec=20"];
    const device = source === undefined ? [] : [`--device=${source}`];
    await this.children.run(["parec", ...format, ...device, "--client-name=Palomet"], {
      timeoutMs: longestRunMs,
      maxOutput: Infinity,
      signal: run.signal,
      onOutput: (piece) => this.#take(piece),
    });
    if (run.signal.aborted) return;
    this.#cancelRetry = this.clock.after(retryMs, () => void this.#record(run, source));
  }

  /** A piece may end with half a sample. */
  #take(piece: Uint8Array): void {
    const bytes = this.#odd === undefined ? piece : Buffer.concat([Uint8Array.of(this.#odd), piece]);
    this.#odd = bytes.length % 2 === 1 ? bytes.at(-1) : undefined;
    const whole = new Uint8Array(bytes.subarray(0, bytes.length & ~1));
    if (whole.length > 0) this.onSamples(new Int16Array(whole.buffer));
  }
}
