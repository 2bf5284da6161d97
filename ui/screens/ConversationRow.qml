import QtQuick
import Palomet.Kit

// One turn: who, what, when, and how long it took.
WordsRow {
    id: root

    required property string kind
    required property string label
    required property string clock
    required property string duration

    readonly property bool isTool: kind === "tool"

    implicitHeight: line + text.height + Zen.space3
    text.width: root.width - root.text.x - Zen.space5 - Zen.timeColumn - Zen.durationColumn
    text.size: root.isTool ? 12 : 13
    text.color: root.kind === "user" ? Zen.gray9 : root.isTool ? Zen.noteInk : Zen.gray8

    Accessible.name: isContinued ? words : `${label}: ${words} ${clock} ${duration}`

    ZenLabel {
        y: root.line + Zen.baseline(13, 21) - Zen.baseline(10, 16)
        text: root.label
        Accessible.ignored: true
    }
    SmallData {
        x: root.width - Zen.durationColumn - Zen.timeColumn
        line: root.line
        text: root.clock
    }
    SmallData {
        x: root.width - width
        line: root.line
        text: root.duration
    }
}
