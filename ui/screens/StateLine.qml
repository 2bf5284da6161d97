import QtQuick
import Palomet.Kit
import Palomet.Ui

// The state and its note in one line under the page's header, which it goes on.
Cover {
    id: root

    required property NowScreen screen
    required property int column

    height: note.height + Zen.space3 + 1
    Accessible.ignored: true

    // Its cell, scrolled away, is still what a screen reader finds.
    Item {
        id: mark

        x: Zen.space7
        width: Zen.glyphSlotCompact
        height: word.box

        StateGlyph {
            anchors.verticalCenter: parent.verticalCenter
            loopState: root.screen.shown.loopState
            level: root.screen.level
            isCompact: true
        }
    }
    ZenText {
        id: word

        x: mark.x + mark.width + Zen.space1
        text: root.screen.shown.stateWord
        box: 21
        font.weight: Zen.bold
        Accessible.ignored: true
    }
    ZenNote {
        id: note

        x: word.x + word.width + Zen.space3
        width: Zen.space7 + root.column - x
        text: root.screen.shown.stateNote
        Accessible.ignored: true
    }
    HairLine {
        y: root.height - 1
        width: root.width
        // Not quite opaque, as the cover is not: a row's rule may come to lie under it.
        color: Qt.alpha(Zen.rule, 0.99)
    }
}
