.pragma library

// The signs of keys, each with the icon that draws it, on caps and in texts: the typeface has none of them.
const icons = {
    "⌃": "chevron-up",
    "⌥": "option",
    "⇧": "arrow-big-up",
    "⌘": "command",
    "⎋": "circle-arrow-up-left",
    "⇥": "arrow-bar-to-right",
    "⌫": "backspace",
    "⌦": "forward-delete",
    "↩": "corner-down-left",
    "⌤": "corner-down-left",
    "←": "arrow-left",
    "→": "arrow-right",
    "↑": "arrow-up",
    "↓": "arrow-down",
    "↖": "arrow-up-left",
    "↘": "arrow-down-right",
    "⇞": "chevrons-up",
    "⇟": "chevrons-down"
};
const sign = new RegExp(`([${Object.keys(icons).join("")}])`);

function isIn(text) {
    return sign.test(text);
}

// A word in pieces: each sign by itself, and what is between them.
function pieces(word) {
    return word.split(sign).filter(piece => piece !== "");
}
