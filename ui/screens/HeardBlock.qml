pragma ComponentBehavior: Bound
import QtQuick
import Palomet.Ui

// What was heard in the last two minutes, and what was done with it.
RowsBlock {
    id: root

    required property NowScreen screen

    title: Words.t("heard.title")
    model: screen.heardRows
    delegate: EntryRow {
        required property int index
        required property bool isAccepted
        required action
        required reason

        isFirst: index === 0
        selectionStart: root.words.startIn(index, root.words.revision)
        selectionEnd: root.words.endIn(index, root.words.revision)
        isQuiet: !isAccepted
    }
}
