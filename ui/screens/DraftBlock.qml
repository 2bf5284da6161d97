pragma ComponentBehavior: Bound
import QtQuick
import Palomet.Kit
import Palomet.Ui

// What was dictated so far, and what can be done with it.
RowsBlock {
    id: root

    required property NowScreen screen

    title: Words.t("draft.title")
    model: screen.draftRows
    delegate: EntryRow {
        required property int index

        isFirst: index === 0
        selectionStart: root.words.startIn(index, root.words.revision)
        selectionEnd: root.words.endIn(index, root.words.revision)
    }

    Gap {
        height: Zen.space2
    }
    Row {
        spacing: Zen.space2

        ZenButton {
            title: Words.t("button.clear")
            size: Zen.controlSmall
            onClicked: root.screen.clearDraft()
        }
        ZenButton {
            title: Words.t("button.run")
            icon: "player-play"
            size: Zen.controlSmall
            onClicked: root.screen.act()
        }
    }
    Gap {
        height: Zen.space1
    }
    ZenNote {
        width: root.width
        text: root.screen.shown.draftNote
    }
}
