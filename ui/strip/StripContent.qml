import QtQuick
import Palomet.Kit
import Palomet.Ui

// The strip: the state, and one line about it. A click anywhere opens the window.
Rectangle {
    id: root

    required property StripView strip

    color: Zen.gray9

    // An item of its own: the strip also shows when nothing is to be read out.
    Announcement {
        anchors.fill: parent
        Accessible.role: Accessible.Notification
        Accessible.name: root.strip.line ? `${root.strip.word}: ${root.strip.line}` : root.strip.word
        Accessible.onPressAction: root.strip.open()
    }
    TapHandler {
        onTapped: root.strip.open()
    }
    Item {
        id: mark

        x: Zen.stripMargin
        width: Zen.glyphSlotCompact
        height: root.height

        StateGlyph {
            anchors.centerIn: parent
            loopState: root.strip.loopState
            level: root.strip.level
            isInverted: true
            isCompact: true
        }
    }
    ZenLabel {
        id: word

        x: mark.x + mark.width + Zen.space3
        anchors.verticalCenter: parent.verticalCenter
        text: root.strip.word
        color: Zen.gray0
        Accessible.ignored: true
    }
    ZenText {
        id: line

        x: word.x + word.width + Zen.space3
        anchors.verticalCenter: parent.verticalCenter
        width: (stopKey.visible ? stopKey.x - Zen.space3 : root.width - Zen.stripMargin) - x
        text: root.strip.line
        size: 12
        box: 16
        color: Zen.gray3
        elide: Text.ElideRight
        maximumLineCount: 1
        Accessible.ignored: true

        HoverHandler {
            id: pointer
        }
        ToolTip {
            text: line.text
            isWanted: pointer.hovered && line.truncated
            isOutside: true
        }
    }
    ZenBox {
        id: stopKey

        x: root.width - width - Zen.stripMargin
        anchors.verticalCenter: parent.verticalCenter
        width: key.implicitWidth - key.font.letterSpacing + 2 * key.x
        height: Zen.stopKey
        visible: root.strip.isStoppable
        radius: Zen.radiusFull
        edge: Zen.darkEdge
        edgeWidth: 1

        ZenText {
            id: key

            x: stopKey.edgeWidth + Zen.stopInset
            anchors.verticalCenter: parent.verticalCenter
            text: "esc"
            size: 10
            box: 14
            color: Zen.darkNoteInk
            font.weight: Zen.extraBold
            font.letterSpacing: 1.5
            Accessible.ignored: true
        }
    }
}
