import QtQuick
import Palomet.Kit

// One turn: who, what, when, and how long it took.
SelectableRow {
    id: root

    required property string kind
    required property string label
    required property string words
    required property string clock
    required property string duration

    readonly property bool isTool: kind === "tool"
    // Whether it continues the text of the row before.
    required property bool isContinued
    readonly property int line: isContinued ? 0 : rule + Zen.space3

    prose: text
    implicitHeight: line + text.height + Zen.space3

    Accessible.role: Accessible.ListItem
    Accessible.name: isContinued ? words : `${label}: ${words} ${clock} ${duration}`

    ZenLabel {
        y: root.line + Zen.baseline(13, 21) - Zen.baseline(10, 16)
        text: root.label
        Accessible.ignored: true
    }
    Prose {
        id: text

        x: Zen.roleColumn
        y: root.line
        width: root.width - x - Zen.space5 - Zen.timeColumn - Zen.durationColumn
        text: root.words
        selectionStart: root.selectionStart
        selectionEnd: root.selectionEnd
        size: root.isTool ? 12 : 13
        color: root.kind === "user" ? Zen.gray9 : root.isTool ? Zen.noteInk : Zen.gray8
    }
    ZenData {
        x: root.width - Zen.durationColumn - Zen.timeColumn
        y: root.line + Zen.baseline(13, 21) - Zen.baseline(12, 20)
        text: root.clock
        size: 12
        color: Zen.noteInk
        Accessible.ignored: true
    }
    ZenData {
        x: root.width - width
        y: root.line + Zen.baseline(13, 21) - Zen.baseline(12, 20)
        text: root.duration
        size: 12
        color: Zen.noteInk
        Accessible.ignored: true
    }
}
