// The screen of every desktop here, in pixels.

export const width = 1280;
export const height = 800;
/** Each of two beside each other has so much of the width. */
export const half = width / 2;
