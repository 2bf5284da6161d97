// The beginning and the end of a session, and what the doctor says in it.

import { readFileSync } from "node:fs";
import { join } from "node:path";
import { TrayItem } from "../../rehearsal/desktop";
import { run, until } from "../../rehearsal/process";
import { check } from "../../rehearsal/stage";
import { palomet, type Place, status } from "../place";
import { processesOf, Session } from "../session";

/**
 * What the doctor says in a fresh session, with Palomet or without: all is well but for the keys, which the desktop has, the
 * level, for nobody makes a sound, and the tray where there is none. */
export async function doctor(place: Place): Promise<string> {
    const text = await run(["sh", "-c", '"$0" --doctor || true', process.env.PALOMET_PROGRAM!], place.session.environment);
    await Bun.write(join(place.folder, `doctor-${processesOf(/^palomet$/).length ? "running" : "before"}.txt`), text);
    const { hasTray } = place.desktop;
    const expected = ["hot keys", "level", ...(hasTray ? [] : ["tray"])];
    const wrong = [...text.matchAll(/^!! {2}([^:]+):/gm)].map(([, subject]) => subject!).filter((subject) => !expected.includes(subject));
    check(wrong.length === 0, `the doctor complains of ${wrong.join(", ")}`);
    const ofTray = hasTray ? /^ok {2}tray: there$/m : /^!! {2}tray: .*install the extension AppIndicator/m;
    check(ofTray.test(text), `of the tray the doctor says: ${/^.*tray.*$/m.exec(text)?.[0]}`);
    return `${text.trim().split("\n").length} lines, right for this desktop`;
}

/** It is in the tray, where there is one, and waits. */
async function isThere(place: Place): Promise<void> {
    if (place.desktop.hasTray) await TrayItem.find(place.session.environment);
    await until("it to wait", async () => (await status(place).catch(() => undefined))?.state === "waiting");
}

export function startAlone({ session: { environment } }: Place): void {
    Bun.spawn([process.env.PALOMET_PROGRAM!], { env: environment, stdin: "ignore", stdout: "ignore", stderr: "ignore" });
}

/** Started from a terminal, it is there. */
export async function start(place: Place): Promise<string> {
    startAlone(place);
    await isThere(place);
    return place.desktop.hasTray ? "it is in the tray, and waits" : "it waits";
}

/** The end of the session ends it in order, and the next session begins with it. */
export async function again(place: Place): Promise<string> {
    const { hasAutostart } = place.desktop;
    if (hasAutostart) await palomet(place, "--autostart", "on");
    const log = join(place.session.environment.HOME!, "Library/Logs/loquent/palomet.log");
    await place.session.logout();
    await until("Palomet to end", () => processesOf(/^palomet$/).length === 0);
    const ended = readFileSync(log, "utf8");
    place.session = await Session.login(place.desktop, place.folder, place.session.environment.XDG_RUNTIME_DIR!);
    if (!hasAutostart) await start(place);
    await until("Palomet, by itself", () => processesOf(/^palomet$/).length === 1);
    await isThere(place);
    await place.session.screen.whole("after-login");
    const lines = ended.slice(ended.lastIndexOf("iniciando ---")).split("\n").filter((line) => line.startsWith("saindo: "));
    check(lines.length === 3 && lines[2] === "saindo: pronto", `the log's last lines were not those of an orderly end: ${lines.join(" | ")}`);
    return `logging out ends it in order (${lines[0]}), and after the next login it is there${hasAutostart ? " by itself" : " when started"}`;
}

export async function quit(place: Place): Promise<string> {
    await palomet(place, "--quit");
    await until("it to be gone", () => processesOf(/^palomet$/).length === 0);
    return "palomet --quit ends it";
}
