import QtQuick
import Palomet.Kit
import Palomet.Ui

// The state and its note in one line, which continues the page's header.
Cover {
    id: root

    required property NowScreen screen
    required property int column

    height: note.height + Zen.space3 + 1
    Accessible.ignored: true

    // A screen reader still finds the cell that is scrolled away.
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
        // Not quite opaque, for the same reason as the cover: a row's rule may come to lie under it.
        color: Qt.alpha(Zen.rule, 0.99)
    }
}
