import QtQuick
import Palomet.Kit

// A small value on the first line of a row's words.
ZenData {
    required property int line

    y: line + Zen.baseline(13, 21) - Zen.baseline(12, 20)
    size: 12
    color: Zen.noteInk
    Accessible.ignored: true
}
