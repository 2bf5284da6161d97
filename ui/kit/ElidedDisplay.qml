import QtQuick

// A big value that is cut where it does not fit.
ZenDisplay {
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
