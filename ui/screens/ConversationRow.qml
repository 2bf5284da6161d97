import QtQuick
import Palomet.Kit

// One turn: who, what, when, and how long it took.
ZenRow {
    id: root

    required property string kind
    required property string label
    required property string words
    required property string clock
    required property string duration

    readonly property bool isTool: kind === "tool"
    readonly property int line: rule + Zen.space3

    implicitHeight: line + text.height + Zen.space3

    // Kept by its view for later use, it is not there for a screen reader either.
    ListView.onPooled: visible = false
    ListView.onReused: visible = true

    Accessible.role: Accessible.ListItem
    Accessible.name: `${label}: ${words} ${clock} ${duration}`

    ZenLabel {
        y: root.line + Zen.baseline(13, 21) - Zen.baseline(10, 16)
        text: root.label
        Accessible.ignored: true
    }
    ZenText {
        id: text

        x: Zen.roleColumn
        y: root.line
        width: root.width - x - Zen.space5 - 48 - 64
        text: root.words
        size: root.isTool ? 12 : 13
        box: 21
        color: root.kind === "user" ? Zen.gray9 : root.isTool ? Zen.noteInk : Zen.gray8
        wrapMode: Text.Wrap
        Accessible.ignored: true
    }
    ZenData {
        x: root.width - 64 - 48
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
