// A whole desktop, as its own packages bring it, and how a person logs in and out of it there.

import type { Environment } from "../rehearsal/process";
import type { Rectangle } from "../rehearsal/screen";
import type { Session } from "./session";

/** The program's window. */
export interface OwnWindow {
    id: string;
    /** On the whole display, in its pixels. */
    place: Rectangle;
}

/** The windows of a desktop, as it has them itself. One is named by its title, or by its number if it is of X11. */
export interface Windows {
    /** The program's own, if it can be seen. */
    own(session: Session): Promise<OwnWindow | undefined>;
    /** Where the program's strip can be seen, which was not there in the picture of that name. */
    strip(session: Session, before: string): Promise<Rectangle | undefined>;
    /** What tells that the program's window is the program's, in words; throws what tells otherwise. */
    identity(session: Session, own: OwnWindow): Promise<string>;
    /** Where that is on the display, where a screen reader has it by the corner of its window: of the program's, or of another. */
    onDisplay?(session: Session, place: Rectangle, other?: string): Promise<Rectangle>;
    /** The window of that title, if it is there. */
    find(session: Session, title: string): Promise<string | undefined>;
    /** Whether nothing lies above it, and it gets the keys. */
    isInFront(session: Session, window: string): Promise<boolean>;
    isFullScreen(session: Session, window: string): Promise<boolean>;
    /** Moves its corner there, where the user can. */
    move?(session: Session, window: string, left: number, top: number): Promise<void>;
    /** Turns to it, as a click in the list of windows does. */
    activate(session: Session, window: string): Promise<void>;
    /** The names of all in the panel's list of windows, or what the desktop has instead of one. */
    list(session: Session): Promise<string[]>;
}

/** The screens, as the user plugs them in and turns them. */
export interface Screens {
    /** Two beside each other, each of half the width, where the program can know on which of them the pointer is. */
    two?(session: Session): Promise<void>;
    /** One of half the width, and so higher than wide. */
    turned(session: Session): Promise<void>;
    /** The one that was there at the login. */
    one(session: Session): Promise<void>;
}

export interface Notice {
    /** A part of it that a click opens it by. */
    itself: Rectangle;
    /** Its button, where it shows at once. */
    button?: Rectangle | undefined;
}

export interface Desktop {
    /** As it calls itself in XDG_CURRENT_DESKTOP. */
    readonly name: string;
    readonly type: "x11" | "wayland";
    /** Whether it cannot do without a system bus. It gets an empty one. */
    readonly hasSystemBus?: boolean;
    /** Whether it shows the icons of programs. */
    readonly hasTray: boolean;
    /** Whether it takes two clicks to open the window by the icon. */
    readonly opensTrayByTwoClicks?: boolean;
    /** The command that a login runs. It is over when the session is. */
    readonly session: string[];
    /** What a login tells it besides. */
    readonly environment: Environment;
    /** A program of the session that is there to its end, and has its environment. */
    readonly member: RegExp;
    /** The package whose version tells which desktop it is. */
    readonly package: string;
    /** What ends the session at once, as its own menu does. */
    readonly logout: string[];
    /** The key that closes the window in front. */
    readonly closeKey: string;
    /** Who gives keys to programs: X11, unless somebody has them already, the desktop's portal, or nobody. */
    readonly keys: "x11" | "portal" | "nobody";
    /** How the user gives a key by the portal's page of that title: to the action of that name. */
    readonly portal?: { page: string; give(session: Session, action: string, key: string): Promise<void> };
    /** What the desktop itself opens on Alt+Space, if anything. */
    readonly hasOnAltSpace?: string | undefined;
    /** A key that it has for the whole screen, which X11 does not tell: as the settings have it, and as texts write it. */
    readonly ofScreen?: { keyCode: number; flags: number; text: string } | undefined;
    /** Whether it starts at the login what the user's autostart folder names. */
    readonly hasAutostart: boolean;
    readonly windows: Windows;
    readonly screens: Screens;

    /** A terminal of that title with a shell. */
    terminal(title: string, isFullScreen: boolean): string[];
    /** Where the only item of the tray is shown. */
    trayItem(session: Session): Promise<Rectangle | undefined>;
    /** Where the notification of that title is to be seen, with its button of that name. */
    notice(session: Session, title: string, button: string): Promise<Notice | undefined>;
    /** What the user has set up there before the first login. */
    setUp?(home: string): void | Promise<void>;
    /** What the user does first after each login. */
    settle?(session: Session): Promise<void>;
    /** The program of its dialog for folders, where that takes a path only in its field, and its button alone accepts it. */
    readonly folderDialog?: RegExp;
    /** Lays the windows out beside each other, or behind each other as before, where the desktop does that at all. */
    tile?(session: Session, isBeside: boolean): Promise<void>;
    /** How large its programs are to be that start from now on, where that can be said in a running session. */
    setScale?: ((session: Session, scale: number) => Promise<void>) | undefined;
    /** The dark or the light look, as the user chooses it there. */
    setDark?(session: Session, isDark: boolean): Promise<void>;
    /** More contrast, where the desktop has that. */
    setContrast?(session: Session, isMore: boolean): Promise<void>;
    /** What locks the screen, and whether it is locked; the user's password unlocks it. */
    readonly locker?: { command: string[]; isLocked(session: Session): Promise<boolean> };
    /** Binds commands to keys, as its documentation says. */
    bind?(session: Session, keys: Record<string, string>): Promise<void>;
}
