import QtQuick
import Palomet.Kit

// A row of words beside a narrow column. Words that are very long go on in the rows that follow.
SelectableRow {
    id: root

    required property string words
    // Whether it continues the text of the row before.
    required property bool isContinued
    readonly property int line: isContinued ? 0 : rule + Zen.space3
    property alias text: text

    prose: text

    Accessible.role: Accessible.ListItem

    Prose {
        id: text

        x: Zen.roleColumn
        y: root.line
        text: root.words
        selectionStart: root.selectionStart
        selectionEnd: root.selectionEnd
    }
}
