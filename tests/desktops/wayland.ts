// What desktops on Wayland have in common.

import type { Rectangle } from "../rehearsal/screen";
import type { Session } from "./session";

/** A place in the compositor's own points, in the display's pixels. */
export const inPixels = ({ screen: { scale } }: Session, [left, top, width, height]: Rectangle): Rectangle => [left * scale, top * scale, width * scale, height * scale];
