import QtQuick

// One line of data that is cut where it does not fit.
ZenText {
    id: root

    elide: Text.ElideRight
    maximumLineCount: 1

    HoverHandler {
        id: pointer

        enabled: root.truncated
    }
    ToolTip {
        text: root.text
        isWanted: pointer.hovered && root.truncated
    }
}
