import QtQuick

// The box of a text field in each of its states, and the pointer over it.
SoftBox {
    property bool isFocused: false
    property bool isPointed: pointer.hovered

    radius: Zen.radius2
    color: Zen.gray0
    edge: isFocused ? Zen.gray9 : isPointed ? Zen.edgePointed : Zen.edge
    edgeWidth: isFocused ? 2 : 1

    HoverHandler {
        id: pointer

        cursorShape: Qt.IBeamCursor
    }
}
