import QtQuick
import Palomet.Kit
import Palomet.Ui

// What was dictated so far, and what can be done with it.
Column {
    id: root

    required property NowScreen screen
    required property Flickable view
    required property real position

    width: parent ? parent.width : 0
    visible: rows.count > 0

    Item {
        width: 1
        height: Zen.space6
    }
    BlockLabel {
        text: Words.t("draft.title")
    }
    Item {
        width: 1
        height: Zen.space2
    }
    WindowedRows {
        id: rows

        width: root.width
        view: root.view
        position: root.position + y
        model: root.screen.draftRows

        delegate: EntryRow {
            required property int index

            isFirst: index === 0
        }
    }
    Item {
        width: 1
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
    Item {
        width: 1
        height: Zen.space1
    }
    ZenNote {
        width: root.width
        text: root.screen.draftNote
    }
}
