// A whole desktop, as its own packages bring it, and how a person logs in and out of it there.

import type { Rectangle } from "../rehearsal/screen";
import type { Environment } from "../rehearsal/process";
import type { Session } from "./session";

export interface Desktop {
    /** As it calls itself in XDG_CURRENT_DESKTOP. */
    readonly name: string;
    readonly type: "x11" | "wayland";
    /** The command that a login runs. It is over when the session is. */
    readonly session: string[];
    /** What a login tells it besides. */
    readonly environment: Environment;
    /** A program of the session that is there to its end, and has its environment. */
    readonly member: RegExp;
    /** The package whose version tells which desktop it is. */
    readonly package: string;
    /** Ends the session at once, as its own menu does. */
    readonly logout: string[];
    /** Who has Alt+Space there: the desktop, for the menu of the window in front. */
    readonly hasWindowMenuKey: boolean;
    /** Where the only item of the tray is shown. */
    trayItem(session: Session): Promise<Rectangle | undefined>;
    /** The names of the windows in the panel's list of them. */
    windowList(session: Session): Promise<string[]>;
}
