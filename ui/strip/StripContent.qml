import QtQuick
import Palomet.Kit
import Palomet.Ui

// The strip: the state, one line about it, and what stops it: a key or, where no key does, a sign to click. A click
// anywhere else opens the window.
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
        onTapped: point => {
            if (stopSign.visible && point.position.x >= stop.x - Zen.space3)
                root.strip.stop();
            else
                root.strip.open();
        }
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
        width: (stop.visible ? stop.x - Zen.space3 : root.width - Zen.stripMargin) - x
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
        id: stop

        x: root.width - width - Zen.stripMargin
        anchors.verticalCenter: parent.verticalCenter
        width: key.visible ? key.width - key.font.letterSpacing + 2 * key.x : height
        height: Zen.stopKey
        visible: root.strip.isStoppable
        radius: Zen.radiusFull
        edge: Zen.darkEdge
        edgeWidth: 1

        ZenText {
            id: key

            x: stop.edgeWidth + Zen.stopInset
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, Zen.stopKeyMost)
            visible: text.length > 0
            text: root.strip.stopKey
            size: 10
            box: 14
            color: Zen.darkNoteInk
            font.weight: Zen.extraBold
            font.letterSpacing: 1.5
            elide: Text.ElideRight
            maximumLineCount: 1
            Accessible.ignored: true
        }
        Rectangle {
            id: stopSign

            anchors.centerIn: parent
            width: Zen.stopSign
            height: width
            visible: !key.visible
            color: Zen.darkNoteInk
            Accessible.role: Accessible.Button
            Accessible.name: Words.t("menu.stop")
            Accessible.onPressAction: root.strip.stop()
        }
    }
}
