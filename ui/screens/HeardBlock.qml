pragma ComponentBehavior: Bound
import QtQuick
import Palomet.Kit
import Palomet.Ui

// What was heard in the last two minutes, and what was done with it.
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
        text: Words.t("heard.title")
    }
    Gap {
        height: Zen.space2
    }
    WindowedRows {
        id: rows

        width: root.width
        page: root.page
        position: root.position + y
        name: Words.t("heard.title")
        model: root.screen.heardRows

        delegate: EntryRow {
            required property int index
            required property bool isAccepted
            required action
            required reason

            isFirst: index === 0
            selectionStart: rows.words.startIn(index, rows.words.revision)
            selectionEnd: rows.words.endIn(index, rows.words.revision)
            isQuiet: !isAccepted
        }
    }
}
