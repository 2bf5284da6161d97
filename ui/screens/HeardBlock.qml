import QtQuick
import Palomet.Kit
import Palomet.Ui

// What was heard in the last two minutes, and what was done with it.
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
        text: Words.t("heard.title")
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
        model: root.screen.heardRows

        delegate: EntryRow {
            required property int index
            required property bool isAccepted
            required action
            required reason

            isFirst: index === 0
            isQuiet: !isAccepted
        }
    }
}
