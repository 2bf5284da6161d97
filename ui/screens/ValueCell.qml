import QtQuick
import Palomet.Kit

// A cell with one big value, or a dash where it is not known.
Cell {
    id: root

    property string text

    spoken: text || "—"

    ElidedDisplay {
        width: parent.width
        text: Zen.head(root.text) || "—"
        color: root.text ? Zen.gray9 : Zen.noteInk
    }
}
