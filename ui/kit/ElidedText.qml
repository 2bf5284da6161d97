import QtQuick

// One line of data that is cut where it does not fit.
ZenText {
    id: root

    // What its tip must not cover; without one, it stands under the text.
    property Item tipBeside: null

    elide: Text.ElideRight
    maximumLineCount: 1

    HoverHandler {
        id: pointer

        enabled: root.truncated
    }
    ToolTip {
        text: root.text
        beside: root.tipBeside
        isWanted: pointer.hovered && root.truncated
    }
}
