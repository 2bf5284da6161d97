pragma ComponentBehavior: Bound
import QtQuick
import Palomet.Kit
import Palomet.Ui

// The history pane: past conversations, one line each.
ListPage {
    id: root

    required property HistoryScreen screen

    model: screen.rows
    listName: Words.t("history.title")
    textRole: "question"
    head: [
        BlockLabel {
            text: Words.t("history.title")
        },
        Gap {
            height: Zen.space2
        },
        HairLine {
            width: root.columnWidth
            color: Zen.gray9
        }
    ]
    delegate: DataRow {
        required property int index
        required property string day
        required property string question
        required property string detail

        x: Zen.space7
        width: root.columnWidth
        isFirst: index === 0
        label: day
        value: question
        trailing: detail
        selectionStart: root.words.startIn(index, root.words.revision)
        selectionEnd: root.words.endIn(index, root.words.revision)
    }
    foot: [
        Gap {
            height: Zen.space5
            visible: root.rows.count === 0
        },
        ZenBody {
            width: root.columnWidth
            visible: root.rows.count === 0
            text: Words.t("history.empty")
        },
        Gap {
            height: Zen.space3
        },
        ZenNote {
            width: root.columnWidth
            text: Words.t("history.note")
        }
    ]
}
