// try.ts NAME: lives on that desktop with Palomet as a person does, step by step. A step that fails is noted, and the next one
// tried. Ends with 0 only if every step held. Pictures and logs stay in $PALOMET_DESKTOP.

import { cpSync, existsSync, mkdirSync, mkdtempSync, rmSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import { Watcher } from "../rehearsal/backend";
import { endAll, run } from "../rehearsal/process";
import { SoundDesk } from "../rehearsal/sound";
import { step } from "../rehearsal/stage";
import type { Desktop } from "./desktop";
import { type Place, tidy } from "./place";
import { Session } from "./session";
import * as costs from "./steps/costs";
import * as folders from "./steps/folders";
import * as keys from "./steps/keys";
import * as life from "./steps/session";
import * as lock from "./steps/lock";
import * as look from "./steps/look";
import * as notices from "./steps/notices";
import * as screens from "./steps/screens";
import * as sleep from "./steps/sleep";
import * as strip from "./steps/strip";
import * as tray from "./steps/tray";
import * as window from "./steps/window";
import { gnomeX11Bare, gnomeX11WithIcons } from "./gnome";
import { gnomeWaylandBare, gnomeWaylandWithIcons } from "./gnomeWayland";
import { plasmaX11 } from "./plasma";
import { plasmaWayland } from "./plasmaWayland";
import { sway } from "./sway";
import { xfce } from "./xfce";

const desktops: Record<string, Desktop> = {
    "gnome-wayland": gnomeWaylandBare,
    "gnome-wayland-icons": gnomeWaylandWithIcons,
    "gnome-x11": gnomeX11Bare,
    "gnome-x11-icons": gnomeX11WithIcons,
    "plasma-wayland": plasmaWayland,
    "plasma-x11": plasmaX11,
    sway,
    xfce,
};
const hasTray = (desktop: Desktop) => desktop.hasTray;

/** A step is left out where the desktop has nothing of the kind. */
type Step = [title: string, take: (place: Place) => Promise<string>, isFor?: (desktop: Desktop) => boolean];

const steps: Step[] = [
    ["--doctor before the start", life.doctor],
    ["start", life.start],
    ["no tray", tray.none, (desktop) => !hasTray(desktop)],
    ["icon in the tray", tray.icon, hasTray],
    ["menu of the tray", tray.menu, hasTray],
    ["click on the tray", tray.click, hasTray],
    ["click on the tray, window behind", tray.clickBehind, hasTray],
    ["--open", window.open],
    ["--open, window behind", window.openBehind],
    ["second start, window behind", window.startAgain],
    ["applications menu, window behind", window.launch],
    ["name and icon", window.identity],
    ["narrow tile", window.inTile, ({ tile }) => tile !== undefined],
    ["strip above full screen", strip.aboveFullScreen],
    ["Alt+Space that is refused", keys.refused, ({ hasOnAltSpace }) => hasOnAltSpace !== undefined],
    ["keys of others", keys.others, ({ hasOnAltSpace }) => hasOnAltSpace !== undefined],
    ["key of the whole screen", keys.ofScreen, ({ ofScreen }) => ofScreen !== undefined],
    ["another listen key, Escape", keys.another, ({ keys }) => keys === "x11"],
    ["keys by the portal", keys.byPortal, ({ keys }) => keys === "portal"],
    ["keys by commands", keys.byCommand, ({ keys }) => keys === "nobody"],
    ["dark and light", look.darkAndLight, ({ hasTray, setDark }) => hasTray && setDark !== undefined],
    ["more contrast", look.contrast, ({ setContrast }) => setContrast !== undefined],
    ["two screens", screens.two, (desktop) => desktop.screens.two !== undefined],
    ["scales", screens.scaled, ({ setScale }) => setScale !== undefined],
    ["turned screen", screens.turned],
    ["folders", folders.choose],
    ["sleep", sleep.sleep],
    ["locked screen", lock.lock, ({ locker }) => locker !== undefined],
    ["notice of the port", notices.portTaken],
    ["notice of the microphone", notices.microphoneLost],
    ["logout, login", life.again],
    ["--doctor after the login", life.doctor],
    ["costs", costs.costs],
    ["quit", life.quit],
];

const name = process.argv[2] ?? "";
const desktop = desktops[name];
if (!desktop) throw new Error(`no desktop "${name}"`);
const folder = process.env.PALOMET_DESKTOP!;
rmSync(folder, { recursive: true, force: true });
mkdirSync(folder, { recursive: true });
const runtimeFolder = mkdtempSync("/tmp/palomet-");

const session = await Session.login(desktop, folder, runtimeFolder);
const version = (await run(["dpkg-query", "-W", "-f", "${Version}", desktop.package], session.environment)).trim();
step(`${desktop.name} ${version} is there`);
// What is tried here is the desktop: nobody hears the speakers, whose echo comes when nobody expects it where a desktop keeps the
// machine busy. The rehearsal and the monologue have rooms.
const sound = new SoundDesk(session.environment, folder, { paths: [] });
await sound.start();
const watcher = new Watcher();
watcher.start();
const place: Place = { desktop, sound, watcher, folder, session };

const only = process.argv.slice(3);
const seen: Record<string, string> = {};
let failures = 0;
for (const [title, take, isFor] of steps) {
    if (isFor && !isFor(desktop)) continue;
    if (only.length > 0 && !only.some((words) => new RegExp(words).test(title))) continue;
    try {
        seen[title] = `ok: ${await take(place)}`;
    } catch (problem) {
        failures++;
        seen[title] = `FAILED: ${problem instanceof Error ? problem.message : problem}`;
        await place.session.screen.whole(`failed-${failures}`).catch(() => undefined);
        await tidy(place).catch((other) => step(`and cannot be tidied up: ${other}`));
    }
    step(`${title}: ${seen[title]}`);
}
writeFileSync(join(folder, "steps.json"), JSON.stringify({ desktop: desktop.name, version, steps: seen }, undefined, 1));
const log = join(folder, "home/Library/Logs/loquent/palomet.log");
if (existsSync(log)) cpSync(log, join(folder, "palomet.log"));
watcher.end();
sound.end();
await endAll();
process.exit(failures === 0 ? 0 : 1);
