// The hand that takes a screenshot, by the desktop's portal: it may ask its user itself, and keeps the picture in the user's folder.

import { isRecord } from "../../base/json.ts";
import type { Language } from "../../base/language.ts";
import type { Bus } from "../bus.ts";
import { plain } from "../bus.ts";
import type { Hand } from "../hand.ts";

const service = "org.freedesktop.portal.Desktop";
const path = "/org/freedesktop/portal/desktop";
const request = "org.freedesktop.portal.Request";
/** The user may be asked, and take a while. */
const answerMs = 60_000;

export class ScreenshotHand implements Hand {
  readonly id = "screenshot";
  readonly description = "Takes a picture of the screen, and keeps it in the user's pictures.";
  readonly parameters = { type: "object", properties: {} } as const;
  readonly changes = true;

  constructor(private readonly bus: Bus) {}

  intent(_given: unknown, language: Language): string {
    return language === "pt" ? "capturar a tela" : "take a screenshot";
  }

  async act(_given: unknown, language: Language, signal: AbortSignal): Promise<string> {
    const isPortuguese = language === "pt";
    const outcome = await this.#take(signal);
    if (outcome === undefined) return isPortuguese ? "Não consigo capturar a tela aqui." : "I cannot take a screenshot here.";
    if (outcome === "refused") return isPortuguese ? "A captura foi cancelada." : "The screenshot was cancelled.";
    return isPortuguese ? `A captura está em ${outcome.file}.` : `The screenshot is ${outcome.file}.`;
  }

  /** Undefined where there is no portal, or it failed. */
  async #take(signal: AbortSignal): Promise<{ file: string } | "refused" | undefined> {
    const connection = await this.bus.connect();
    if (!connection) return undefined;
    let give = (_: unknown[] | undefined): void => {};
    const answered = new Promise<unknown[] | undefined>((resolve) => (give = resolve));
    const none = (): void => give(undefined);
    const timer = setTimeout(none, answerMs);
    signal.addEventListener("abort", none);
    void connection.closed.then(none);
    try {
      // The answer comes to a path that is made of this connection's name and the token, and may come before the call returns.
      const token = `palomet${crypto.randomUUID().replaceAll("-", "")}`;
      const handle = `${path}/request/${connection.name.slice(1).replaceAll(".", "_")}/${token}`;
      connection.onSignal = (message) => {
        if (message.path === handle && message.interface === request && message.member === "Response") give(message.body);
      };
      await connection.match(`type='signal',interface='${request}',member='Response',path='${handle}'`);
      const options = [["handle_token", { type: "s", data: token }], ["interactive", { type: "b", data: false }]];
      const call = { service, path, method: "org.freedesktop.portal.Screenshot.Screenshot", signature: "sa{sv}", arguments: ["", options] };
      if (!(await connection.call(call, signal))) return undefined;
      const [code, results] = (await answered) ?? [];
      if (code === 1) return "refused";
      const values = plain({ type: "a{sv}", data: results });
      const uri = code === 0 && isRecord(values) ? plain(values.uri) : undefined;
      const url = typeof uri === "string" ? URL.parse(uri) : null;
      return url?.protocol === "file:" ? { file: decodeURIComponent(url.pathname) } : undefined;
    } catch {
      return undefined;
    } finally {
      clearTimeout(timer);
      signal.removeEventListener("abort", none);
      connection.close();
    }
  }
}
