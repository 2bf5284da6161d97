import QtQuick

// One line of data, cut where it does not fit; a tip then shows all of it.
ZenText {
    id: root

    // The item that the tip must not cover; without one, the tip stands under the text.
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
