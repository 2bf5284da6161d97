pragma ComponentBehavior: Bound
import QtQuick
import Palomet.Kit
import Palomet.Ui

// What was dictated so far, and what can be done with it.
Column {
    id: root

    required property NowScreen screen
    required property ScreenPage page
    required property real position

    width: parent ? parent.width : 0
    visible: rows.count > 0

    Gap {
        height: Zen.space6
    }
    BlockLabel {
        text: Words.t("draft.title")
    }
    Gap {
        height: Zen.space2
    }
    WindowedRows {
        id: rows

        width: root.width
        page: root.page
        position: root.position + y
        name: Words.t("draft.title")
        model: root.screen.draftRows

        delegate: EntryRow {
            required property int index

            isFirst: index === 0
            selectionStart: rows.words.startIn(index, rows.words.revision)
            selectionEnd: rows.words.endIn(index, rows.words.revision)
        }
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
