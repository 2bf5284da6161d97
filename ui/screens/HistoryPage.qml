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
    emptyText: Words.t("history.empty")
    note: Words.t("history.note")
    textRole: "question"
    head: [
        ListHead {
            title: Words.t("history.title")
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
}
